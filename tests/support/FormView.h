#pragma once

#include <string>
#include <vector>

#include "tests/support/ScriptRun.h"

namespace quorvane::test {

/// The form that a `ver` of a script printed.
class FormView {
 public:
  /// The last `ver` of the script, or the one so many before it. A script without one fails.
  explicit FormView(const ScriptResult& result, std::size_t before = 0);

  [[nodiscard]] std::string Form() const;
  [[nodiscard]] std::string Title() const;
  [[nodiscard]] int Width() const;
  [[nodiscard]] int Height() const;
  [[nodiscard]] bool Enabled(const std::string& control) const;
  [[nodiscard]] bool Visible(const std::string& control) const;
  [[nodiscard]] std::string Text(const std::string& control) const;
  [[nodiscard]] bool Has(const std::string& control) const;
  [[nodiscard]] int Value(const std::string& checkBox) const;
  /// Of a list or tab strip.
  [[nodiscard]] int Index(const std::string& control) const;
  /// The entries of a list as "text=data".
  [[nodiscard]] std::vector<std::string> Entries(const std::string& list) const;
  [[nodiscard]] std::vector<std::string> Tabs(const std::string& tabStrip) const;
  /// The rows of a grid, each with its cells parted by bars.
  [[nodiscard]] std::vector<std::string> Cells(const std::string& grid) const;
  [[nodiscard]] std::vector<int> Widths(const std::string& grid) const;
  [[nodiscard]] int FixedRows(const std::string& grid) const;

 private:
  std::string json_;
};

}  // namespace quorvane::test

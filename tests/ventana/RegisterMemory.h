#pragma once

#include <map>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"

namespace quorvane::test {

/// Remembers the list of students that a register showed when it was saved, to hold it against the
/// one that is shown when the register is opened again.
class RegisterMemory {
 public:
  /// The register has been opened, in a window that shows it.
  void Look(const qt::FormWindow& window);
  /// It is about to save what it shows.
  void Accept(const qt::FormWindow& window);
  /// The form is gone; `whole` unless an error ended it.
  void Close(bool whole);
  /// Somebody else may have changed the registers.
  void Forget() { saved_.clear(); }
  /// How often a register has been opened again.
  [[nodiscard]] std::uint64_t Reopened() const noexcept { return reopened_; }

 private:
  std::map<std::int32_t, std::vector<std::string>> saved_;  // by section
  std::int32_t section_ = 0;                                // of the register that is open
  bool looked_ = false;
  std::uint64_t reopened_ = 0;
};

}  // namespace quorvane::test

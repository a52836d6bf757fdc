#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "tests/crowd/Audit.h"
#include "tests/crowd/CrowdOptions.h"
#include "tests/crowd/FaultCount.h"
#include "tests/crowd/Figures.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// Several users at once on one school, each a process of its own, and what must hold of it.
class Crowd {
 public:
  explicit Crowd(const CrowdOptions& options);
  /// Takes the school away again.
  ~Crowd();
  Crowd(Crowd&&) = delete;

  /// Lets them play, and looks at what they have left. False when something was wrong.
  bool Run();

  void Report(std::ostream& out) const;
  [[nodiscard]] const std::vector<std::string>& Violations() const noexcept { return violations_; }

 private:
  void MakeSchool();
  void MakeFile();
  void MakeOnServer();
  void Play();
  void Check();
  void CheckWhole(Connection& school);
  void CheckFigures();
  [[nodiscard]] std::string JournalOf(int process) const;
  [[nodiscard]] std::vector<Journal::Line> TakeFigures(int process);

  CrowdOptions options_;
  TempFolder folder_;
  SchoolAddress school_;
  SchoolAddress owners_;  ///< the same, as who has made it
  bool made_ = false;
  FaultCount faults_;
  double played_ = 0;  ///< seconds
  std::map<std::string, Diary::Table> before_;
  std::vector<Figures> figures_;
  std::vector<std::string> violations_;
  Holes holes_;
  std::size_t entries_ = 0;
};

}  // namespace quorvane::test

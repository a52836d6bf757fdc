#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "apps/escuela/Prng.h"
#include "tests/kills/FormsOpen.h"
#include "tests/kills/Replica.h"
#include "tests/kills/Report.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {

struct KillOptions {
  int times = 200;
  std::uint64_t seed = 1;
  std::string folder;  ///< where the school is; that for temporary files when empty
  bool fault = false;  ///< the victims tell of a write that they haven't done, now and then
};

/// Kills one process after the other at a random point of a random session, and looks at the school
/// each time: it is whole, holds every statement that had come back and nothing else but the one in
/// flight, its locks can be told and removed, and the forms open as if nobody had died.
class Kills {
 public:
  /// In the text of the error that tells of a lost write.
  static constexpr std::string_view kLost = "no está lo que había vuelto:";

  explicit Kills(const KillOptions& options);

  /// Throws a runtime error of the language when something is wrong.
  void Run();

  void Print(std::ostream& out) const;

 private:
  void NewSchool();
  void Kill();
  void KillOne(Report& report);
  void TakeOver(const Report& report);
  void TakeLate(const std::string& inFlight);
  void RemoveLocks();
  void RemovePublication(const std::string& number);
  void OpenForms(const Target& target);

  KillOptions options_;
  TempFolder folder_;
  Prng random_;
  std::string sample_;
  std::string school_;
  std::string mode_;
  std::optional<Replica> replica_;
  int kills_ = 0;
  int schools_ = 0;
  int accompanied_ = 0;
  std::int64_t returned_ = 0;
  std::int64_t written_ = 0;
  int inFlight_ = 0;
  int inside_ = 0;
  int outside_ = 0;
  int late_ = 0;
  int publications_ = 0;
  int locks_ = 0;
  int shown_ = 0;
};

}  // namespace quorvane::test

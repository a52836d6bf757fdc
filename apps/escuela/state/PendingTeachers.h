#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace quorvane {

class Connection;

/// Who teaches which pending subject, by the names that the state and the reports give them: the
/// same in both.
class PendingTeachers {
 public:
  /// Reads all at once; the engine's errors.
  explicit PendingTeachers(Connection& school);

  /// 0 for none; of doubled rows the one whose number is the largest.
  [[nodiscard]] std::int32_t Of(std::int32_t subject) const;
  /// "Surnames, Name", with his number behind it where another of them has that name; empty for
  /// none, and "docente 7" for one whose row is gone.
  [[nodiscard]] std::string Name(std::int32_t teacher) const;
  [[nodiscard]] std::string NameOf(std::int32_t subject) const { return Name(Of(subject)); }

 private:
  std::map<std::int32_t, std::int32_t> bySubject_;
  std::map<std::int32_t, std::string> names_;
};

}  // namespace quorvane

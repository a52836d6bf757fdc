#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "apps/escuela/Prng.h"

namespace quorvane::test {

/// Writes the rows of a small school, the same for the same numbers drawn. One of three is whole;
/// the others hold what schools hold in time: rows whose parents are gone, rows twice, Null where
/// a number should be, grades that nobody can give any more, publications of programs that died.
class RandomSchool {
 public:
  RandomSchool(Prng& random, bool sqlServer);

  /// The statements, in one transaction.
  [[nodiscard]] const std::string& Script() const noexcept { return script_; }

 private:
  struct Section {
    int id = 0;
    int teaching = 0;
    int course = 0;  ///< its place among those of its kind of teaching
    std::vector<int> taught;
  };

  void AddRow(std::string_view table, std::initializer_list<std::string> values);
  void AddStaff();
  void AddEvaluations();
  void AddTeaching(int teaching);
  void AddMarking(int teaching);
  void AddGrades(int gradeKind);
  void AddSection(Section section);
  void AddStudents();
  void AddPending(int student, int taught, int order);
  void AddOrdinary(int pending, int evaluation, int teaching);
  void AddFinal(int pending, int evaluation, int teaching);
  void AddForeignLocks();

  [[nodiscard]] int Draw(int from, int to);
  /// In an odd school only, and then seldom.
  [[nodiscard]] bool Odd(std::size_t percent = 4) { return odd_ && random_.Chance(percent); }
  [[nodiscard]] std::string Flag(bool value) const;
  [[nodiscard]] std::string Grade(int teaching, int column);
  /// The number, or seldom something that no row should hold.
  [[nodiscard]] std::string Link(int number);

  Prng& random_;
  bool sqlServer_;
  bool odd_;
  std::string script_;
  std::vector<Section> sections_;
  std::vector<int> teachingOf_;  ///< by the number of the subject as taught
  std::vector<int> inRegister_;
  int courses_ = 0;
  int taught_ = 0;
  int pending_ = 0;
  int ordinary_ = 0;
  int final_ = 0;
};

}  // namespace quorvane::test

#pragma once

#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/support/SmallSchool.h"

namespace quorvane::test {

/// A user who edits the register of section 321 at random, and what he must find afterwards.
/// Draws gestures, writes them as script lines, and plays each on a plain model of the tables.
class RegisterModel {
 public:
  explicit RegisterModel(unsigned seed) : random_(seed) {}

  /// A whole session as a script: it ends with a save, or with Cancel, which forgets it.
  std::string Session();

  /// Grades all that is stored, here and in the school: a row that is lost and made anew shows.
  void Grade(const SmallSchool& school);

  /// The rows that the tables hold now, as `Stored` reads them.
  [[nodiscard]] std::vector<std::string> Expected() const;
  /// The same of a school, without the keys.
  static std::vector<std::string> Stored(const SmallSchool& school);

  /// The rows of the matrix of each student, in the order of the list of students.
  [[nodiscard]] std::vector<std::string> ExpectedMatrices() const;

 private:
  using Evaluations = std::map<int, int>;  ///< grade by evaluation

  struct Subject {
    int matDet = 0;
    Evaluations evaluations;
    Evaluations stored;   ///< with a row: its grade comes back when it is put back
    bool loaded = false;  ///< with a row
  };
  struct Student {
    std::vector<Subject> subjects;
    std::vector<Subject> removed;  ///< with a row that waits for its deletion
    bool loaded = false;
    bool removedOnce = false;  ///< put back without his subjects, whose rows stay
  };
  struct Teacher {
    int personal = 0;
    bool stored = false;
    bool changed = false;
  };
  using Students = std::map<int, Student>;

  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  std::string PickStudents();
  std::string EditStudent();
  std::string AddSubject(Student& student);
  std::string RemoveSubject(Student& student);
  std::string MoveSubject(Student& student);
  std::string PickEvaluations(Student& student);
  std::string ChangeTeacher();
  void Save();

  std::mt19937 random_;
  Students stored_;
  Students edited_;
  std::map<int, Teacher> teachersStored_;
  std::map<int, Teacher> teachersEdited_;
};

}  // namespace quorvane::test

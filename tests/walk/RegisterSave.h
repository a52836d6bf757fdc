#pragma once

#include <vector>

#include "register/frmAlumnoPendiente.h"
#include "tests/walk/Tables.h"

namespace quorvane::test {

/// What saving a register has to leave, told from the tables as they are and from what the user
/// has done on the form: nothing of what he left alone is lost, doubled or changed.
class RegisterSave {
 public:
  RegisterSave(const Tables& before, const frmAlumnoPendiente& form, int section);

  /// `Violation` unless the tables are as told.
  void Check(const Tables& after) const;
  /// The same after an error on the way: each row is as it was or as it was to be.
  void CheckInterrupted(const Tables& after) const;

 private:
  struct Pending {
    std::string student;
    std::string subject;
    Rows grades;  ///< table, evaluation, values
  };

  void TakeTeachers(const frmAlumnoPendiente& form);
  void TakeStudents(const frmAlumnoPendiente& form, int section);
  void TakeSubject(const std::string& student, const cMateria& materia);
  void AddPending(const std::string& student, const cMateria& materia);
  /// False for a subject that the student has twice, or not at all any more.
  [[nodiscard]] bool TakeEvaluations(const std::string& student, const cMateria& materia);

  template <class Condition>
  void RemovePending(Condition condition);
  /// Pending subjects with their grades, without the keys, which new rows take as they come.
  static Rows Flatten(const std::vector<Pending>& pending);

  std::vector<Pending> pending_;
  Rows beforeRows_;
  Rows lost_;  ///< grades without a subject, which nobody touches
  Rows registered_;
  Rows teachers_;
  Rows registeredBefore_;
  Rows teachersBefore_;
  bool exact_ = true;  ///< false where what is saved hangs on the order of the database
};

}  // namespace quorvane::test

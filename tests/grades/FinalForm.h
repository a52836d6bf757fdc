#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/grades/GradeForm.h"
#include "tests/grades/GradeSchool.h"

namespace quorvane::test {

/// What tells one of the four final dialogs from the others besides. "The row" is row 1 of the
/// first entry that a tutor gets in evaluation 4.
struct FinalTexts {
  const char* observacion = "Observación del tutor al alumno ";  ///< the caption
  Lines walked;  ///< the entries of the combo with what each shows: "entry: keys of rows"
  Lines withoutLengua = {};  ///< the entries when subject 3111 isn't offered
  Lines failed;              ///< what the second final evaluation walks
  Lines ungraded = {};       ///< of it, where the first has failed pending 2 alone
  /// Of the first column, where the kind of subject is named "Asignatura".
  const char* title = "Orden en Sección / Alumno";
  const char* heading = "Orden en Sección / Alumno|Nota||||Observación|Medidas Adoptadas|";
  const char* headingWalked = heading;  ///< from the second entry on
  /// The same without a main grade.
  const char* headingConcept = "Orden en Sección / Alumno||Nota|||Observación|Medidas Adoptadas|";
  const char* rowTitle;
  const char* rowKey;
  /// For subject 3111, of grades of several scopes.
  const char* offered = "[[\" \",0],[\"5\",105],[\"6\",106],[\"7\",107],[\"8\",108]]";
  int pending = 4;                  ///< of the row
  int otherPending = 3;             ///< another that is saved along with it
  int student = 3;                  ///< of the row
  const char* subjectKey = "3111";  ///< of the row's subject among those of its student
  const char* lenguaKey = "3111";   ///< of subject 3111 among those of student 1
  bool takesTeachers = true;        ///< of the subjects, for the lists
  std::vector<int> locked = {3113, 3111, 3112};  ///< the subjects, as they are loaded
  std::vector<int> lengua = {1, 3};  ///< the pending rows of subject 3111 that are loaded
};

/// Those that walk subjects ask the course for measures and promotion.
struct FinalForm : GradeForm, FinalTexts {
  using School = FinalSchool;

  /// The entries of the combo.
  [[nodiscard]] Lines Entries() const;
  /// The row with the cells of grade to measure, "nota|concepto|procedimiento|actitud|obs|medida".
  [[nodiscard]] std::string Row(const std::string& cells = "||||| ") const;
};

extern const FinalForm kFinalByStudent;
extern const FinalForm kFinalBySubject;
extern const FinalForm kFinalSectionByStudent;
extern const FinalForm kFinalSectionBySubject;

/// The four, in this order.
std::vector<FinalForm> FinalForms();
/// Those that walk subjects.
std::vector<FinalForm> FinalFormsBySubject();

/// A final dialog on its school, by the gestures of a user.
class FinalTest : public ::testing::Test {
 protected:
  explicit FinalTest(const FinalForm& form) : form_(form) {}

  /// Opens the dialog, whatever an earlier one has left, and makes these gestures.
  [[nodiscard]] ScriptResult Play(const std::string& gestures, const Role& role = kTutor,
                                  int evaluacion = 4) const;
  /// The same with gestures on step one before it is left.
  [[nodiscard]] ScriptResult PlayBehind(const std::string& before, const std::string& gestures,
                                        const Role& role = kTutor, int evaluacion = 4) const;
  /// The form that stands in the end.
  [[nodiscard]] FormView Shown(const std::string& gestures = "", const Role& role = kTutor,
                               int evaluacion = 4) const;
  [[nodiscard]] Lines Entries(const Role& role = kTutor, int evaluacion = 4) const;
  /// What the grid shows, the heading included.
  [[nodiscard]] Lines Cells(const std::string& gestures = "") const;
  /// What each entry of the combo shows: "entry: keys of its rows".
  [[nodiscard]] Lines Walked(int evaluacion) const;
  /// Saves behind these gestures.
  void Save(const std::string& gestures = "", int evaluacion = 4) const;
  /// Sets columns of the grades of a pending subject in an evaluation.
  void Set(int pending, const std::string& columns, int evaluacion = 4) const;
  /// Gives the pending subject that grade in the first final evaluation.
  void GradeFirst(int pending, int nota) const;

  FinalForm form_;
  FinalSchool school_;
};

/// The same for one of the forms.
template <const FinalForm& kForm>
class OneFinalTest : public FinalTest {
 protected:
  OneFinalTest() : FinalTest(kForm) {}
};

/// The same over several of them.
class FinalFormTest : public FinalTest, public ::testing::WithParamInterface<FinalForm> {
 protected:
  FinalFormTest() : FinalTest(GetParam()) {}
};

}  // namespace quorvane::test

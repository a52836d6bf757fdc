#pragma once

#include <gtest/gtest.h>

#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/student/frmNotaManual.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/grades/DirectSession.h"
#include "tests/grades/OrdinaryForms.h"

namespace quorvane::test {

/// That step one, loaded, with section 321, evaluation 1 and, where it asks for them, subject 3111
/// or student 1 chosen by user 1.
template <class FormPasoUno>
FormPasoUno& ChosenStepOne() {
  auto& stepOne = FormInstance<FormPasoUno>::Get();
  stepOne.ShowModal();
  DirectSession::Choose(stepOne.cboTipoEnsenanza, 3);
  DirectSession::Choose(stepOne.cboCursos, 32);
  DirectSession::Choose(stepOne.cboSecciones, 321);
  DirectSession::Choose(stepOne.cboEvaluaciones, 1);
  if constexpr (requires { stepOne.cboMateria; }) DirectSession::Choose(stepOne.cboMateria, 3111);
  if constexpr (requires { stepOne.cboAlumno; }) DirectSession::Choose(stepOne.cboAlumno, 1);
  return stepOne;
}

/// An ordinary form on the small school, opened by user 1, for what no gesture reaches.
template <class FormPasoUno, class FormPasoDos>
class OrdinaryDirect : public ::testing::Test {
 protected:
  OrdinaryDirect() {
    ChosenStepOne<FormPasoUno>();
    static_cast<void>(session_.Statements());
  }

  static FormPasoUno& PasoUno() { return FormInstance<FormPasoUno>::Get(); }
  static FormPasoDos& Form() { return FormInstance<FormPasoDos>::Get(); }
  static const OrdinaryForm& Known() { return OrdinaryFormNamed(Form().Name()); }

  FormPasoDos& Shown() {
    Form().ShowModal();
    return Form();
  }
  FormPasoDos& Opened() {
    auto& form = Shown();
    static_cast<void>(session_.Statements());
    return form;
  }

  static ComboBox& Combo() {
    if constexpr (requires { Form().cboAlumnos; })
      return Form().cboAlumnos;
    else
      return Form().cboMaterias;
  }
  /// Opened with subject 3111 of student 1 in row 1.
  FormPasoDos& OpenedAtLengua() {
    auto& form = Opened();
    Combo().ListIndex(Known().index);
    static_cast<void>(session_.Statements());
    return form;
  }
  static auto& Lengua() {
    return *Form().colAlumnos["1"]->colMateria[std::to_string(Known().keyOfSubject)];
  }
  static std::int32_t ErrorOf(const std::function<void()>& action) {
    return DirectSession::ErrorOf(action);
  }

  GradeSchool school_;
  DirectSession session_{school_};
};

using NotaManualDirect = OrdinaryDirect<frmNotaManual1, frmNotaManual>;
using NotaMateriaDirect = OrdinaryDirect<frmNotaMateria1, frmNotaMateria>;
using NotaSeccionAlumnoDirect = OrdinaryDirect<frmNotaSeccionAlumno1, frmNotaSeccionAlumno>;
using NotaSeccionMateriaDirect = OrdinaryDirect<frmNotaSeccionMateria1, frmNotaSeccionMateria>;

using WalkStudents = ::testing::Types<NotaManualDirect, NotaSeccionAlumnoDirect>;
using WalkSubjects = ::testing::Types<NotaMateriaDirect, NotaSeccionMateriaDirect>;
using AllFour = ::testing::Types<NotaManualDirect, NotaMateriaDirect, NotaSeccionAlumnoDirect,
                                 NotaSeccionMateriaDirect>;

/// A test's name for the form of such a type.
struct NameOfDirect {
  template <class Direct>
  static std::string GetName(int /*place*/) {
    if constexpr (std::is_same_v<Direct, NotaManualDirect>)
      return "frmNotaManual";
    else if constexpr (std::is_same_v<Direct, NotaMateriaDirect>)
      return "frmNotaMateria";
    else if constexpr (std::is_same_v<Direct, NotaSeccionAlumnoDirect>)
      return "frmNotaSeccionAlumno";
    else
      return "frmNotaSeccionMateria";
  }
};

}  // namespace quorvane::test

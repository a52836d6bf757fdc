#pragma once

#include <gtest/gtest.h>

#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/grades/DirectSession.h"

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

/// An ordinary form by subject or of a section on the small school, for what no gesture of the user
/// reaches.
template <class FormPasoUno, class FormPasoDos>
class OrdinaryDirect : public ::testing::Test {
 protected:
  OrdinaryDirect() {
    ChosenStepOne<FormPasoUno>();
    static_cast<void>(session_.Statements());
  }

  static FormPasoUno& PasoUno() { return FormInstance<FormPasoUno>::Get(); }
  static FormPasoDos& Form() { return FormInstance<FormPasoDos>::Get(); }

  FormPasoDos& Opened() {
    auto& form = Form();
    form.ShowModal();
    static_cast<void>(session_.Statements());
    return form;
  }

  GradeSchool school_;
  DirectSession session_{school_};
};

/// By subject.
class NotaMateriaDirect : public OrdinaryDirect<frmNotaMateria1, frmNotaMateria> {};

/// By the students of a section.
class NotaSeccionAlumnoDirect : public OrdinaryDirect<frmNotaSeccionAlumno1, frmNotaSeccionAlumno> {
};

/// By the subjects of a student of a section.
class NotaSeccionMateriaDirect
    : public OrdinaryDirect<frmNotaSeccionMateria1, frmNotaSeccionMateria> {};

}  // namespace quorvane::test

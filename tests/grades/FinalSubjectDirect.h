#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/grades/DirectSession.h"
#include "tests/grades/FinalSchool.h"

namespace quorvane::test {

/// A final form that walks subjects on the small school, for what no gesture of the user reaches.
/// Step one stands with section 321 and evaluation 4 chosen by user 1.
template <class FormPasoUno, class FormPasoDos>
class FinalSubjectDirect : public ::testing::Test {
 protected:
  FinalSubjectDirect() {
    DirectSession::Choose(PasoUno().cboTipoEnsenanza, 3);
    DirectSession::Choose(PasoUno().cboCursos, 32);
    DirectSession::Choose(PasoUno().cboSecciones, 321);
    DirectSession::Choose(PasoUno().cboEvaluaciones, 4);
  }

  static FormPasoUno& PasoUno() { return FormInstance<FormPasoUno>::Get(); }
  static FormPasoDos& Form() { return FormInstance<FormPasoDos>::Get(); }

  FormPasoDos& Opened() {
    auto& form = Form();
    form.ShowModal();
    static_cast<void>(session_.Statements());
    return form;
  }

  /// What the frame with the animation says while the form loads and saves.
  Lines CaptionsOfWork() {
    // Held here, as saving drops the form.
    auto form = std::static_pointer_cast<FormPasoDos>(Form().shared_from_this());
    Lines captions;
    session_.screen.Painting = [&] {
      if (form->fraAniCarga.Visible()) captions.push_back(form->fraAniCarga.Caption());
    };
    form->ShowModal();
    form->cmdAceptar_Click();
    session_.screen.Painting = nullptr;
    return captions;
  }

  FinalSchool school_;
  DirectSession session_{school_, 4};
};

/// By subject.
class FinalBySubjectDirect : public FinalSubjectDirect<frmNotaMateria1, frmNotaMateriaFinal> {};

/// By the subjects of student 1.
class FinalSectionBySubjectDirect
    : public FinalSubjectDirect<frmNotaSeccionMateria1, frmNotaSeccionMateriaFinal> {
 protected:
  FinalSectionBySubjectDirect() { DirectSession::Choose(PasoUno().cboAlumno, 1); }
};

}  // namespace quorvane::test

#pragma once

#include <cstdlib>
#include <cxxabi.h>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>

#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
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
#include "tests/grades/FinalForm.h"
#include "tests/grades/OrdinaryForms.h"

namespace quorvane::test {

/// A grade form on its small school, opened by user 1, for what no gesture reaches. Step one stands
/// loaded, with section 321, its evaluation and, where it asks for them, subject 3111 or student 1
/// chosen.
template <class FormPasoUno, class FormPasoDos, const auto& kForm>
class GradeDirect : public ::testing::Test {
 public:
  using Grades = FormPasoDos;
  static const auto& Known() { return kForm; }

 protected:
  GradeDirect() {
    auto& stepOne = PasoUno();
    stepOne.ShowModal();
    DirectSession::Choose(stepOne.cboTipoEnsenanza, 3);
    DirectSession::Choose(stepOne.cboCursos, 32);
    DirectSession::Choose(stepOne.cboSecciones, 321);
    DirectSession::Choose(stepOne.cboEvaluaciones, kForm.evaluacion);
    if constexpr (requires { stepOne.cboMateria; }) DirectSession::Choose(stepOne.cboMateria, 3111);
    if constexpr (requires { stepOne.cboAlumno; }) DirectSession::Choose(stepOne.cboAlumno, 1);
    session_.Forget();
  }

  static FormPasoUno& PasoUno() { return FormInstance<FormPasoUno>::Get(); }
  static FormPasoDos& Form() { return FormInstance<FormPasoDos>::Get(); }
  /// The form, held, as saving or leaving drops it.
  static std::shared_ptr<FormPasoDos> Held() {
    return std::static_pointer_cast<FormPasoDos>(Form().shared_from_this());
  }

  FormPasoDos& Shown() {
    Form().ShowModal();
    return Form();
  }
  FormPasoDos& Opened() {
    auto& form = Shown();
    session_.Forget();
    return form;
  }

  static ComboBox& Combo() {
    if constexpr (requires { Form().cboAlumnos; })
      return Form().cboAlumnos;
    else
      return Form().cboMaterias;
  }
  static std::int32_t ErrorOf(const std::function<void()>& action) {
    return DirectSession::ErrorOf(action);
  }

  typename std::remove_cvref_t<decltype(kForm)>::School school_;
  DirectSession session_{school_};
};

/// The same for an ordinary form.
template <class FormPasoUno, class FormPasoDos, const auto& kForm>
class OrdinaryDirect : public GradeDirect<FormPasoUno, FormPasoDos, kForm> {
 protected:
  /// Opened with subject 3111 of student 1 in row 1.
  FormPasoDos& OpenedAtLengua() {
    auto& form = this->Opened();
    this->Combo().ListIndex(kForm.index);
    this->session_.Forget();
    return form;
  }
  static auto& Lengua() {
    return *OrdinaryDirect::Form().colAlumnos["1"]->colMateria[std::to_string(kForm.keyOfSubject)];
  }
};

using NotaManualDirect = OrdinaryDirect<frmNotaManual1, frmNotaManual, kByStudent>;
using NotaMateriaDirect = OrdinaryDirect<frmNotaMateria1, frmNotaMateria, kBySubject>;
using NotaSeccionAlumnoDirect =
    OrdinaryDirect<frmNotaSeccionAlumno1, frmNotaSeccionAlumno, kSectionByStudent>;
using NotaSeccionMateriaDirect =
    OrdinaryDirect<frmNotaSeccionMateria1, frmNotaSeccionMateria, kSectionBySubject>;

/// The columns of a grid, each as its width and its heading.
inline Lines Columns(const Retivo& grid) {
  Lines told;
  for (int column = 0; column < grid.Cols(); ++column)
    told.push_back(std::to_string(grid.ColWidth(column)) + " " + grid.TextMatrix(0, column));
  return told;
}

/// A test's name for the form of such a type: its class's. What another file knows of the form may
/// not be there yet when the names are asked for, at the program's begin.
struct NameOfDirect {
  template <class Direct>
  static std::string GetName(int /*place*/) {
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(typename Direct::Grades).name(), nullptr, nullptr, nullptr),
        &std::free);
    return std::string(name.get()).substr(std::string_view("quorvane::").size());
  }
};

}  // namespace quorvane::test

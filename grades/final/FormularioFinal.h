#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <string>
#include <vector>

#include "grades/dialog/FormularioPasoDos.h"
#include "grades/final/SegundaFinal.h"
#include "grades/grid/Anchos.h"
#include "grades/grid/Escala.h"
#include "grades/subject/MateriasDeCombo.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

/// What each of the four final grade forms has, under these names. The forms are classes of their
/// own without a common base: whatever they do to the word alike is a template over this concept,
/// or a function that needs no form, and each calls the pieces in an order that is its own.
template <class F>
concept FormularioFinal = FormularioPasoDos<F> &&
    requires(F& form, cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  // The controls.
  { form.fraObservacion } -> std::same_as<std::array<Frame, 1>&>;
  { form.lblNotaManual } -> std::same_as<std::array<Label, 2>&>;  // combo box, observation
  { form.cmdAnterior } -> std::same_as<CommandButton&>;
  { form.cmdSiguiente } -> std::same_as<CommandButton&>;
  { form.fraNota } -> std::same_as<Frame&>;
  { form.rtvNotasAlumno } -> std::same_as<Retivo&>;
  { form.cboObservacion } -> std::same_as<ComboBox&>;
  { form.chkPromocion } -> std::same_as<CheckBox&>;
  { form.cmdAceptar } -> std::same_as<CommandButton&>;
  { form.cmdCancelar } -> std::same_as<CommandButton&>;

  // The fields: who is graded and by whom, its grid.
  { form.elegida } -> std::same_as<FinalElegida&>;
  { form.colAlumnos } -> std::same_as<Collection<cAlumno>&>;
  { form.blnTutor } -> std::same_as<bool&>;
  { form.blnConPublicacion } -> std::same_as<bool&>;
  { form.blnCargando } -> std::same_as<bool&>;
  { form.blnMedidas } -> std::same_as<bool&>;
  { form.bytPromocion } -> std::same_as<std::uint8_t&>;
  { form.strColumna } -> std::same_as<Titulos&>;
  { form.intAnchosAlumno } -> std::same_as<Anchos&>;

  // The handlers that the controls raise.
  form.cmdAnterior_Click();
  form.cmdSiguiente_Click();
  form.cmdAceptar_Click();
  form.cmdCancelar_Click();
  form.rtvNotasAlumno_InicioEdicion();
  form.rtvNotasAlumno_FinEdicion();
  form.rtvNotasAlumno_CambioAncho();
  form.cboObservacion_Click();
  form.chkPromocion_Click();

  // What each does in its own way.
  form.CargarMateria(alumno, fila, clase);
  form.ConfigurarColumnas();
  form.RestaurarAnchosAlumno();
};

/// Those that walk students: a row of the grid is a subject of the student in `cboAlumnos`.
template <class F>
concept FinalPorAlumno = FormularioFinal<F> && requires(F& form) {
  { form.cboAlumnos } -> std::same_as<ComboBox&>;
  form.cboAlumnos_Click();
  { form.AlumnoActual() } -> std::same_as<cAlumno&>;
};

/// Those that walk subjects: a row is a student who has the subject in `cboMaterias`.
template <class F>
concept FinalPorMateria = FormularioFinal<F> && requires(F& form) {
  { form.cboMaterias } -> std::same_as<ComboBox&>;
  form.cboMaterias_Click();
  form.rtvNotasAlumno_CambioAlto();
  { form.ListaMaterias } -> std::same_as<std::vector<MateriaDeCombo>&>;
  { form.ObservacionAlumno } -> std::same_as<std::string&>;
  { form.EntradaActual() } -> std::same_as<const MateriaDeCombo&>;
};

/// The combo box that the form walks.
template <FinalPorAlumno F>
ComboBox& Recorrido(F& form) {
  return form.cboAlumnos;
}
template <FinalPorMateria F>
ComboBox& Recorrido(F& form) {
  return form.cboMaterias;
}

}  // namespace quorvane

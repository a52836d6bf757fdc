#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <string>
#include <vector>

#include "grades/dialog/FormularioPasoDos.h"
#include "grades/grid/Anchos.h"
#include "grades/grid/Escala.h"
#include "grades/grid/NotasTutor.h"
#include "grades/subject/MateriasDeCombo.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "register/cAlumno.h"

namespace quorvane {

// The contract of the ordinary grade forms: frmNotaManual, frmNotaMateria, frmNotaSeccionAlumno,
// frmNotaSeccionMateria. Each is a class of its own, tells its own order of steps, and keeps what
// it does otherwise in its own files. The routines that the four share are templates over these
// concepts, and touch no other member than the ones named here.

/// `lblNotaManual` of such a form: of the walk, of the observation, of the two counters.
inline std::array<Label, 4> RotulosNotas(Form& form, const Frame& fraObservacion,
                                         const Frame& fraAusencia) {
  return {Label(form, "lblNotaManual(0)"), Label(form, "lblNotaManual(1)", &fraObservacion),
          Label(form, "lblNotaManual(2)", &fraAusencia),
          Label(form, "lblNotaManual(3)", &fraAusencia)};
}

/// The controls: the walk is `NotasPorAlumno`'s or `NotasPorMateria`'s.
template <class F>
concept ControlesDeNotas = requires(F& form) {
  { form.cmdAnterior } -> std::same_as<CommandButton&>;  // steps of the walk
  { form.cmdSiguiente } -> std::same_as<CommandButton&>;
  { form.tabNotaManual } -> std::same_as<TabStrip&>;
  { form.fraNotaManual } -> std::same_as<std::array<Frame, 2>&>;  // of the grades, of the tutor
  { form.fraNota } -> std::same_as<std::array<Frame, 1>&>;
  { form.rtvNotasAlumno } -> std::same_as<Retivo&>;
  { form.fraNotaTutor } -> std::same_as<std::array<Frame, 1>&>;
  { form.rtvNotasTutor } -> std::same_as<Retivo&>;
  { form.fraObservacion } -> std::same_as<std::array<Frame, 1>&>;
  { form.cboObservacion } -> std::same_as<ComboBox&>;
  { form.fraAusencia } -> std::same_as<std::array<Frame, 1>&>;
  { form.txtAusencias } -> std::same_as<TextBox&>;
  { form.txtRetrasos } -> std::same_as<TextBox&>;
  { form.lblNotaManual } -> std::same_as<std::array<Label, 4>&>;  // of walk, observation, counters
  { form.cmdAceptar } -> std::same_as<CommandButton&>;
  { form.cmdCancelar } -> std::same_as<CommandButton&>;
};

/// What the form knows.
template <class F>
concept CamposDeNotas = requires(F& form) {
  { form.colAlumnos } -> std::same_as<Collection<cAlumno>&>;
  { form.blnTutor } -> std::same_as<bool&>;
  { form.blnCargando } -> std::same_as<bool&>;
  { form.strColumna } -> std::same_as<Titulos&>;
  { form.intAnchosAlumno } -> std::same_as<Anchos&>;
  { form.tutor } -> std::same_as<EstadoTutor&>;
};

/// What `Conectar` wires to the controls, and what the shared routines call.
template <class F>
concept ManejadoresDeNotas = requires(F& form, bool siempre) {
  form.cmdAnterior_Click();
  form.cmdSiguiente_Click();
  form.cmdAceptar_Click();
  form.cmdCancelar_Click();
  form.tabNotaManual_Click();
  form.rtvNotasAlumno_InicioEdicion();
  form.rtvNotasAlumno_FinEdicion();
  form.rtvNotasAlumno_CambioAncho();
  form.rtvNotasTutor_InicioEdicion();
  form.rtvNotasTutor_FinEdicion();
  form.rtvNotasTutor_CambioAncho();
  form.cboObservacion_Click();
  form.txtAusencias_Change();
  form.txtRetrasos_Change();
  form.GuardarAnchosAlumno(siempre);
  form.RestaurarAnchosAlumno();
  form.ConfigurarColumnas();
};

template <class F>
concept FormularioNotas =
    FormularioPasoDos<F> && ControlesDeNotas<F> && CamposDeNotas<F> && ManejadoresDeNotas<F>;

/// A form that walks students and has their subjects in its rows.
template <class F>
concept NotasPorAlumno = FormularioNotas<F> && requires(F& form) {
  { form.cboAlumnos } -> std::same_as<ComboBox&>;
  form.cboAlumnos_Click();
};

/// A form that walks subjects and has the students of each in its rows.
template <class F>
concept NotasPorMateria = FormularioNotas<F> && requires(F& form) {
  { form.cboMaterias } -> std::same_as<ComboBox&>;
  { form.aryMaterias } -> std::same_as<std::vector<MateriaDeCombo>&>;
  { form.intAltosTutor } -> std::same_as<std::vector<std::int16_t>&>;
  form.cboMaterias_Click();
  form.CargarNotasTutor();
};

/// The combo box of the walk.
template <NotasPorAlumno F>
ComboBox& Recorrido(F& form) {
  return form.cboAlumnos;
}
template <NotasPorMateria F>
ComboBox& Recorrido(F& form) {
  return form.cboMaterias;
}

}  // namespace quorvane

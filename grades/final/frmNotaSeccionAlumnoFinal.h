#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "grades/dialog/FormularioEncogido.h"
#include "grades/final/SegundaFinal.h"
#include "grades/grid/Anchos.h"
#include "grades/grid/Escala.h"
#include "grades/loading/DatosPasoUno.h"
#include "grades/locks/Publicacion.h"
#include "platform/controls/Animation.h"
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

class frmNotaSeccionAlumno1;

/// Step two of grade entry by section and subject, for final evaluations: walks the students who
/// have the subject that `frmNotaSeccionAlumno1` has fixed and saves all their grades at once. A
/// teacher who isn't the tutor sees all his subjects of each student. In the second final
/// evaluation what the first passed isn't offered again.
///
/// The list of the tutor's observation is filled for each student, out of sight. A student has
/// neither `Promocion` nor `Observacion`: the handlers of the two controls are error 438 when they
/// run.
class frmNotaSeccionAlumnoFinal : public Form {
 public:
  std::string mstrCaption;  ///< written by step one; not shown

  // The tutor's observation.
  std::array<Frame, 1> fraObservacion{Frame(*this, "fraObservacion(0)")};
  std::array<Label, 2> lblNotaManual{Label(*this, "lblNotaManual(0)"),
                                     Label(*this, "lblNotaManual(1)", &fraObservacion[0])};

  // The walk.
  Collection<cAlumno> colAlumnos;  ///< keyed by `IDAlumno`; subjects by `CodMatDet`
  ComboBox cboAlumnos{*this, "cboAlumnos"};
  CommandButton cmdAnterior{*this, "cmdAnterior"};
  CommandButton cmdSiguiente{*this, "cmdSiguiente"};
  /// Said instead of a form without anything to walk.
  static constexpr const char* kSinNotas = "No existen materias o alumnos para poner notas";
  /// Said while it works.
  static constexpr const char* kCargando = "Cargando... Espere por favor";
  static constexpr const char* kGuardando = "Grabando... Espere por favor";

  // The grid and the rest of the dialog.
  Frame fraNota{*this, "fraNota"};
  Retivo rtvNotasAlumno{*this, "rtvNotasAlumno", &fraNota};
  ComboBox cboObservacion{*this, "cboObservacion", &fraObservacion[0]};
  CheckBox chkPromocion{*this, "chkPromocion"};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};
  Frame fraAniCarga{*this, "fraAniCarga"};
  Animation aniCarga{*this, "aniCarga", &fraAniCarga};
  FormularioEncogido carga;  ///< with `blnOcultando`

  /// Fixes what is graded, and comes back behind this form.
  using PasoAnterior = frmNotaSeccionAlumno1;

  FinalElegida elegida;            ///< written by step one
  Publicacion publicacion;         ///< with `IDPublicacion`
  std::string strMateriasBloqueo;  ///< "0,{a},{b}": the subjects loaded; empty without any
  bool blnConPublicacion = false;  ///< `Form_Load` found a publication, and has said so
  bool blnTutor = false;           ///< sees the whole section: its tutor, or profile 0 or below
  bool blnCargando = false;        ///< the first pass of `Form_Activate` runs
  bool blnEdicionActiva = false;   ///< the grid may answer edit events
  bool blnMedidas = false;         ///< shows the measures; this form never does
  std::uint8_t bytPromocion = 0;   ///< 1 shows `chkPromocion`; this form never does
  Titulos strColumna;
  Anchos intAnchosAlumno;

  frmNotaSeccionAlumnoFinal();

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_KeyDown(int& keyCode) override;
  void Form_Unload() override;

  void cboAlumnos_Click();
  void cmdAnterior_Click();
  void cmdSiguiente_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();
  void rtvNotasAlumno_InicioEdicion();
  /// Fills the list of the observation, out of sight.
  void RehacerObservacion();
  void rtvNotasAlumno_FinEdicion();
  void rtvNotasAlumno_CambioAncho();
  void cboObservacion_Click();
  void chkPromocion_Click();

  /// What step one has fixed. Error 381 while one of its lists has no selected entry.
  [[nodiscard]] DatosPasoUno PasoUno() const;

  /// False shrinks the form to the animation, True gives it back its measures and controls.
  void MostrarCarga(bool mostrar);
  void CargarNotas();
  /// The subject that step one has fixed.
  [[nodiscard]] static std::int32_t MateriaFijada();
  /// Gives the student the subject of that row, which is of that kind.
  void CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase);
  void ConfigurarRejillaInicial();
  void ConfigurarColumnas();
  void RestaurarAnchosAlumno();
  /// The student of `cboAlumnos`. Error 381 with none selected, 5 when he isn't there.
  [[nodiscard]] cAlumno& AlumnoActual() const;
};

}  // namespace quorvane

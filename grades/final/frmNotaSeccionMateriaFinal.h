#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "grades/dialog/FormularioEncogido.h"
#include "grades/final/SegundaFinal.h"
#include "grades/grid/Anchos.h"
#include "grades/grid/Escala.h"
#include "grades/loading/DatosPasoUno.h"
#include "grades/locks/Publicacion.h"
#include "grades/subject/MateriasDeCombo.h"
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

class frmNotaSeccionMateria1;

/// Step two of the section flow by subject, for final evaluations: walks the subjects of the one
/// student whom `frmNotaSeccionMateria1` has fixed and saves all their grades at once. In the
/// second final evaluation what the first passed isn't offered again.
///
/// Neither the observation nor the check box is ever left on the screen, whatever the course says.
/// A student has neither `Promocion` nor `Observacion`: the handlers of the two controls are error
/// 438 when they run.
class frmNotaSeccionMateriaFinal : public Form {
 public:
  std::string mstrCaption;  ///< written by step one; not shown

  // The tutor's observation.
  std::string ObservacionAlumno;  ///< the name of the tutor's kind of grade
  std::array<Frame, 1> fraObservacion{Frame(*this, "fraObservacion(0)")};
  std::array<Label, 2> lblNotaManual{Label(*this, "lblNotaManual(0)"),
                                     Label(*this, "lblNotaManual(1)", &fraObservacion[0])};

  // The walk.
  Collection<cAlumno> colAlumnos;             ///< keyed by `IDAlumno`; subjects by `CodMatDet`
  std::vector<MateriaDeCombo> ListaMaterias;  ///< counted from 1 by the data of `cboMaterias`
  ComboBox cboMaterias{*this, "cboMaterias"};
  CommandButton cmdAnterior{*this, "cmdAnterior"};
  CommandButton cmdSiguiente{*this, "cmdSiguiente"};
  /// Said instead of a form without anything to walk.
  static constexpr const char* kSinNotas = "No existen alumnos o materias para introducir notas";
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
  using PasoAnterior = frmNotaSeccionMateria1;

  FinalElegida elegida;            ///< written by step one
  Publicacion publicacion;         ///< with `IDPublicacion`
  std::string strMateriasBloqueo;  ///< "0,{a},{b}": the subjects loaded; empty without any
  bool blnConPublicacion = false;  ///< `Form_Load` found a publication, and has said so
  bool blnTutor = false;           ///< sees the whole section: its tutor, or profile 0 or below
  bool blnCargando = false;        ///< the first pass of `Form_Activate` runs
  bool blnEdicionActiva = false;   ///< the grid may answer edit events
  bool blnMedidas = false;         ///< shows the measures: the course has them
  std::uint8_t bytPromocion = 0;   ///< 1 shows `chkPromocion`, until the end of the load
  Titulos strColumna;
  Anchos intAnchosAlumno;

  frmNotaSeccionMateriaFinal();

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_KeyDown(int& keyCode) override;
  void Form_Unload() override;

  void cboMaterias_Click();
  void cmdAnterior_Click();
  void cmdSiguiente_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();
  void rtvNotasAlumno_InicioEdicion();
  /// Names and fills the observation of the student in the current row, out of sight.
  void RehacerObservacion();
  void rtvNotasAlumno_FinEdicion();
  void rtvNotasAlumno_CambioAncho();
  void rtvNotasAlumno_CambioAlto();
  void cboObservacion_Click();
  void chkPromocion_Click();

  /// What step one has fixed. Error 381 while one of its lists has no selected entry.
  [[nodiscard]] DatosPasoUno PasoUno() const;

  /// False shrinks the form to the animation, True gives it back its measures and controls.
  void MostrarCarga(bool mostrar);
  void CargarNotas();
  /// The student whom step one has fixed.
  [[nodiscard]] static std::int32_t AlumnoFijado();
  /// Gives the student the subject of that row, which is of that kind.
  void CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase);
  void ConfigurarRejillaInicial();
  void ConfigurarColumnas();
  void RestaurarAnchosAlumno();
  /// The entry that is selected in `cboMaterias`. Error 381 with none selected.
  [[nodiscard]] const MateriaDeCombo& EntradaActual() const;
};

}  // namespace quorvane

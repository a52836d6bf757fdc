#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "grades/Anchos.h"
#include "grades/Carga.h"
#include "grades/DialogoNotas.h"
#include "grades/Escala.h"
#include "grades/NotasTutor.h"
#include "grades/Publicacion.h"
#include "platform/controls/Animation.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/Retivo.h"
#include "platform/controls/TabStrip.h"
#include "platform/controls/TextBox.h"
#include "platform/data/Recordset.h"
#include "register/cAlumno.h"

namespace quorvane {

/// Step two of the section flow by student, for ordinary evaluations: walks the students of the
/// section that `frmNotaSeccionAlumno1` has fixed and shows the chosen subject of each. A teacher
/// who isn't the tutor sees all his subjects of the student, not only the chosen one. Saving
/// respects the mark of a later evaluation.
///
/// The pane of the tutor is there and filled, but has no tab. What its handlers write, a student
/// doesn't have: each is error 438 when it runs.
class frmNotaSeccionAlumno : public Form {
 public:
  frmNotaSeccionAlumno();

  ComboBox cboAlumnos{*this, "cboAlumnos"};
  CommandButton cmdAnterior{*this, "cmdAnterior"};
  CommandButton cmdSiguiente{*this, "cmdSiguiente"};
  TabStrip tabNotaManual{*this, "tabNotaManual"};
  std::array<Frame, 2> fraNotaManual{Frame(*this, "fraNotaManual(0)"),
                                     Frame(*this, "fraNotaManual(1)")};
  std::array<Frame, 1> fraNota{Frame(*this, "fraNota(0)", &fraNotaManual[0])};
  std::array<Frame, 1> fraNotaTutor{Frame(*this, "fraNotaTutor(0)", &fraNotaManual[1])};
  std::array<Frame, 1> fraObservacion{Frame(*this, "fraObservacion(0)", &fraNotaTutor[0])};
  std::array<Frame, 1> fraAusencia{Frame(*this, "fraAusencia(0)", &fraNotaTutor[0])};
  std::array<Label, 4> lblNotaManual{Label(*this, "lblNotaManual(0)"),
                                     Label(*this, "lblNotaManual(1)", &fraObservacion[0]),
                                     Label(*this, "lblNotaManual(2)", &fraAusencia[0]),
                                     Label(*this, "lblNotaManual(3)", &fraAusencia[0])};
  Retivo rtvNotasAlumno{*this, "rtvNotasAlumno", &fraNota[0]};
  Retivo rtvNotasTutor{*this, "rtvNotasTutor", &fraNotaTutor[0]};
  ComboBox cboObservacion{*this, "cboObservacion", &fraObservacion[0]};
  TextBox txtAusencias{*this, "txtAusencias", &fraAusencia[0]};
  TextBox txtRetrasos{*this, "txtRetrasos", &fraAusencia[0]};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};
  Frame fraAniCarga{*this, "fraAniCarga"};
  Animation aniCarga{*this, "aniCarga", &fraAniCarga};

  std::string mstrCaption;         ///< written by step one; not shown
  Publicacion publicacion;         ///< with `IDPublicacion`
  std::string strMateriasBloqueo;  ///< "0,{a},{b}": the subjects loaded; empty without any
  bool blnConPublicacion = false;  ///< `Form_Load` found a publication; nobody reads it
  bool blnTutor = false;           ///< sees the whole section: its tutor, or profile 0 or below
  bool blnCargando = false;        ///< `Form_Activate` runs, and the scale is read
  bool blnEdicionActiva = false;   ///< the grids may answer edit events
  Collection<cAlumno> colAlumnos;  ///< keyed by `IDAlumno`; subjects by `CodMatDet`
  Titulos strColumna;
  Anchos intAnchosAlumno;
  EstadoTutor tutor;
  Carga carga;  ///< with `blnOcultando`

  void cboAlumnos_Click();
  void cmdAnterior_Click();
  void cmdSiguiente_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();
  void tabNotaManual_Click();
  void rtvNotasAlumno_InicioEdicion();
  void rtvNotasAlumno_FinEdicion();
  void rtvNotasAlumno_CambioAncho();
  void rtvNotasTutor_InicioEdicion();
  void rtvNotasTutor_FinEdicion();
  void rtvNotasTutor_CambioAncho();
  void cboObservacion_Click();
  void txtAusencias_Change();
  void txtRetrasos_Change();

  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_KeyDown(int& keyCode) override;
  void Form_Unload() override;

  /// False shrinks the form to the animation, True gives it back its measures and controls.
  void MostrarCarga(bool mostrar);
  void CargarNotas();
  void CargarNotasTutor();
  void ConfigurarRejillas();
  void ConfigurarColumnas();
  void GuardarAnchosAlumno(bool siempre);
  void RestaurarAnchosAlumno();
  void GuardarAnchosTutor(bool siempre);
  void RestaurarAnchosTutor();

  // Nobody calls these three: they work on objectives, which the pending register doesn't have.

  /// Reads the objectives of that subject and student, and keeps nothing.
  void CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno);
  void AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno, std::int32_t& materia,
                                            std::int32_t& objetivo);
  void QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno, std::int32_t& materia,
                                            std::int32_t& objetivo);

 private:
  [[nodiscard]] ControlesNotas Controles();
  /// The student of `cboAlumnos`. Error 381 with none selected, 5 when he isn't there.
  [[nodiscard]] cAlumno& AlumnoActual() const;
  /// The subject of the grid's current row. Error 5 when it isn't there, 438 for an objective.
  [[nodiscard]] cMateria& MateriaDeFila() const;
  void ActivarControles(bool activar);
  void LlenarAlumnos();
  void TomarBloqueos();
  /// Gives back the keys of the rows whose subject is gone.
  std::vector<std::int32_t> CargarMaterias(cAlumno& alumno, Recordset& filas);
  void CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase);
};

}  // namespace quorvane

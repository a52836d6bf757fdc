#pragma once

#include <cstdint>
#include <vector>

#include "grades/dialog/FormularioNotas.h"
#include "platform/data/Recordset.h"

namespace quorvane {

/// Step two of the section flow by subject, for ordinary evaluations: walks the subjects of the one
/// student whom `frmNotaSeccionMateria1` has fixed. Saving respects the mark of a later evaluation.
///
/// The pane of the tutor is there, but has no tab; a tutor's edits fill it. What its handlers
/// write, a student doesn't have: each is error 438 when it runs.
class frmNotaSeccionMateria : public Form {
 public:
  frmNotaSeccionMateria();

  ComboBox cboMaterias{*this, "cboMaterias"};  ///< the chosen student's
  CommandButton cmdAnterior{*this, "cmdAnterior"};
  CommandButton cmdSiguiente{*this, "cmdSiguiente"};

  TabStrip tabNotaManual{*this, "tabNotaManual"};
  std::array<Frame, 2> fraNotaManual{Frame(*this, "fraNotaManual(0)"),
                                     Frame(*this, "fraNotaManual(1)")};
  std::array<Frame, 1> fraNota{Frame(*this, "fraNota(0)", &fraNotaManual[0])};
  std::array<Frame, 1> fraNotaTutor{Frame(*this, "fraNotaTutor(0)", &fraNotaManual[1])};
  std::array<Frame, 1> fraObservacion{Frame(*this, "fraObservacion(0)", &fraNotaTutor[0])};
  std::array<Frame, 1> fraAusencia{Frame(*this, "fraAusencia(0)", &fraNotaTutor[0])};
  std::array<Label, 4> lblNotaManual = RotulosNotas(*this, fraObservacion[0], fraAusencia[0]);
  Retivo rtvNotasAlumno{*this, "rtvNotasAlumno", &fraNota[0]};  ///< one row, the chosen student's
  bool blnCargando = false;  ///< `Form_Activate` runs, and the scale is read
  Titulos strColumna;
  Anchos intAnchosAlumno;
  bool blnEdicionActiva = false;  ///< the grids may answer edit events

  Retivo rtvNotasTutor{*this, "rtvNotasTutor", &fraNotaTutor[0]};
  EstadoTutor tutor;
  std::vector<std::int16_t> intAltosTutor;  ///< one entry for each row of `rtvNotasTutor`
  ComboBox cboObservacion{*this, "cboObservacion", &fraObservacion[0]};
  TextBox txtAusencias{*this, "txtAusencias", &fraAusencia[0]};
  TextBox txtRetrasos{*this, "txtRetrasos", &fraAusencia[0]};

  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};
  Frame fraAniCarga{*this, "fraAniCarga"};  ///< "Cargando...", "Grabando..."
  Animation aniCarga{*this, "aniCarga", &fraAniCarga};
  FormularioEncogido carga;  ///< with `blnOcultando`

  std::string mstrCaption;         ///< written by step one; not shown
  bool blnTutor = false;           ///< sees the whole section: its tutor, or profile 0 or below
  Collection<cAlumno> colAlumnos;  ///< keyed by `IDAlumno`; subjects by `CodMatDet`
  std::vector<MateriaDeCombo> aryMaterias;  ///< counted from 1 by the item data of `cboMaterias`
  std::string strMateriasBloqueo;           ///< "0,{a},{b}": the subjects loaded; empty without any
  Publicacion publicacion;                  ///< with `IDPublicacion`
  bool blnConPublicacion = false;  ///< `Form_Load` found a publication, and has told the user
  bool blnSeguimiento = false;     ///< never set: nobody asks the section
  bool blnAcumularObjetivos = false;

  /// What step one has fixed. Error 381 while one of its lists has no entry selected.
  [[nodiscard]] DatosPasoUno PasoUno() const;

  // The steps of its life.
  void Form_Load() override;      ///< the chosen student, whatever has become of him
  void Form_Activate() override;  ///< loads and locks the subjects of the one student
  void Form_Resize() override;
  void Form_KeyDown(int& keyCode) override;
  void Form_Unload() override;
  /// False shrinks the form to the animation, True gives it back its measures and controls.
  void MostrarCarga(bool mostrar);

  // Loading, saving, leaving.
  void CargarNotas();       ///< fails at a subject that is gone, and deletes nothing of it
  void cmdAceptar_Click();  ///< saves the one student; later marks stay
  void cmdCancelar_Click();

  // The tutor's pane.
  void rtvNotasTutor_InicioEdicion();
  void rtvNotasTutor_FinEdicion();
  void rtvNotasTutor_CambioAncho();
  void rtvNotasTutor_CambioAlto();
  void cboObservacion_Click();
  void txtAusencias_Change();
  void txtRetrasos_Change();
  void CargarNotasTutor();
  void GuardarAnchosTutor(bool siempre);
  void RestaurarAnchosTutor();

  // The walk.
  void cboMaterias_Click();  ///< shows the subject, and then offers grades as for an edit
  void cmdAnterior_Click();
  void cmdSiguiente_Click();
  void tabNotaManual_Click();

  // Nobody calls these three: they work on objectives, which the pending register doesn't have.

  /// Reads the objectives, and not even their grades.
  void CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno);
  void AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno, std::int32_t& materia,
                                            std::int32_t& objetivo);
  void QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno, std::int32_t& materia,
                                            std::int32_t& objetivo);

  // The grid of grades.
  void rtvNotasAlumno_InicioEdicion();
  void rtvNotasAlumno_FinEdicion();  ///< takes nothing while no subject is selected
  void rtvNotasAlumno_CambioAncho();
  void ConfigurarRejillas();  ///< headed as in the other one by subject
  void ConfigurarColumnas();
  void GuardarAnchosAlumno(bool siempre);
  void RestaurarAnchosAlumno();

 private:
  void LlenarMaterias();
  void CargarMaterias(cAlumno& alumno, Recordset& filas);
  void CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase);
};

}  // namespace quorvane

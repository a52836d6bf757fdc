#pragma once

#include "grades/dialog/FormularioNotas.h"
#include "platform/data/Recordset.h"

namespace quorvane {

/// Step two of grade entry by student, for ordinary evaluations: walks the students of the section
/// that `frmNotaManual1` has fixed, shows the pending subjects of each, and saves all of them at
/// once.
///
/// All grades are read when the form opens, and those that are stored aren't looked at again.
/// Opening it writes the publication and the locks, and purges the subjects that are gone; grades
/// are written by `cmdAceptar_Click` alone. What is read later is the scale and the texts of the
/// grades.
///
/// The pane of the tutor is there and filled, but has no tab. What its handlers write, a student
/// doesn't have: each is error 438 when it runs.
class frmNotaManual : public Form {
 public:
  frmNotaManual();

  ComboBox cboAlumnos{*this, "cboAlumnos"};  ///< all of the section, or a teacher's
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
  Retivo rtvNotasAlumno{*this, "rtvNotasAlumno", &fraNota[0]};  ///< a row for each pending subject
  Retivo rtvNotasTutor{*this, "rtvNotasTutor", &fraNotaTutor[0]};
  ComboBox cboObservacion{*this, "cboObservacion", &fraObservacion[0]};
  TextBox txtAusencias{*this, "txtAusencias", &fraAusencia[0]};
  TextBox txtRetrasos{*this, "txtRetrasos", &fraAusencia[0]};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};
  Frame fraAniCarga{*this, "fraAniCarga"};  ///< "Cargando datos", "Grabando datos"
  Animation aniCarga{*this, "aniCarga", &fraAniCarga};

  std::string mstrCaption;  ///< written by step one; not shown
  /// "B" once the host has forbidden saving. It is given to the host, which alone reads it.
  std::string strNotasActivas;
  Publicacion publicacion;         ///< with `IDPublicacion`
  std::string strMateriasBloqueo;  ///< "0,{a},{b}": the subjects loaded; empty without any
  bool blnConPublicacion = false;  ///< `Form_Load` found a publication; nobody reads it
  bool blnTutor = false;           ///< sees the whole section: its tutor, or profile 0 or below
  bool blnCargando = false;        ///< `Form_Activate` runs, and the scale is read
  bool blnEdicionActiva = false;   ///< the grids may answer edit events
  Collection<cAlumno> colAlumnos;  ///< keyed by `IDAlumno`; subjects by `IDAlumnoPte_MatDet`
  Titulos strColumna;
  Anchos intAnchosAlumno;
  EstadoTutor tutor;
  FormularioEncogido carga;  ///< with `blnOcultando`

  /// What step one has fixed. Error 381 while one of its lists has no entry selected.
  [[nodiscard]] DatosPasoUno PasoUno() const;

  void cboAlumnos_Click();  ///< shows the student's subjects, and the pane of the tutor
  void cmdAnterior_Click();
  void cmdSiguiente_Click();
  void cmdAceptar_Click();  ///< saves, and takes the mark from every other evaluation
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

  void Form_Load() override;      ///< the students, and the observation's name
  void Form_Activate() override;  ///< loads, locks, and asks the host whether to save
  void Form_Resize() override;
  void Form_KeyDown(int& keyCode) override;
  void Form_Unload() override;

  /// False shrinks the form to the animation, True gives it back its measures and controls.
  void MostrarCarga(bool mostrar);
  void CargarNotas();  ///< a subject that is gone is purged at once
  void CargarNotasTutor();
  void ConfigurarRejillas();  ///< headed "Materia", "Valores/Actitudes"
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
  void PreguntarNotasActivas();
  void CargarMaterias(cAlumno& alumno, Recordset& filas);
  void CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase);
  void GuardarMateria(const cMateria& materia, std::int32_t evaluacion) const;
};

}  // namespace quorvane

#include "grades/subject/frmNotaMateria.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "grades/dialog/DialogoNotas.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/loading/Objetivos.h"
#include "grades/saving/EvaluacionesPosteriores.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/MessageBox.h"
#include "selection/Navegacion.h"
#include "selection/frmNotaMateria1.h"

namespace quorvane {

static_assert(NotasPorMateria<frmNotaMateria>);

frmNotaMateria::frmNotaMateria() : Form("frmNotaMateria") {
  DibujarNotas(*this, "Materias y objetivos:", 1700);
  Conectar(*this);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
  rtvNotasTutor.CambioAlto = [this] { rtvNotasTutor_CambioAlto(); };
}

DatosPasoUno frmNotaMateria::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<frmNotaMateria1>::Get());
}

void frmNotaMateria::Form_Load() {
  const auto paso = PasoUno();
  if (Publicacion::YaAbierta(paso.seccion, paso.evaluacion)) {
    blnConPublicacion = true;
    return;
  }
  Vaciar(*this, paso.seccion);
  ConfigurarRejillas();
  auto alumnos = AlumnosVisibles(Centro(), paso, blnTutor);
  if (alumnos.IsOpen())
    for (; !alumnos.Eof(); alumnos.MoveNext()) {
      AnadirAlumno(colAlumnos, alumnos);
      // Asked again for each student, though the answer is the section's.
      const auto seguimiento = Centro().Execute(Sql(
          "SELECT Seguimiento, AcumularObjetivos FROM Seccion WHERE IDSeccion={}", paso.seccion));
      blnSeguimiento = seguimiento.Fields("Seguimiento").Flag();
      blnAcumularObjetivos = seguimiento.Fields("AcumularObjetivos").Flag();
    }
  if (const auto nombre = NombreObservacion(Centro(), paso.tipo)) lblNotaManual[1].Caption(*nombre);
}

void frmNotaMateria::Form_Activate() {
  EmpezarCarga(*this, "Cargando Datos...");
  CargarNotas();
  DejarActuar(*this);
  if (PasoUno().blnRecuperar) OcultarTutoria(*this);
  if (colAlumnos.Count() == 0 || cboMaterias.ListCount() == 0 || !PuedeCalificar(PasoUno())) {
    if (!blnConPublicacion)
      BeepAndMessage("No exiten alumnos o materias para introducir notas",
                     MessageIcon::Information);
    cmdCancelar_Click();
    return;
  }
  TomarBloqueos(*this);
  static_cast<void>(PersonalDelUsuario(Centro()));  // asked, and not looked at
  TerminarCarga(*this);
}

void frmNotaMateria::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this);
}

void frmNotaMateria::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaMateria::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaMateria>::Drop();
}

void frmNotaMateria::MostrarCarga(bool mostrar) { EncogerORestaurar(*this, mostrar); }

void frmNotaMateria::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaMateria1>::Get().ShowInTurn();
}

void frmNotaMateria::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaMateria::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaMateria::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaMateria::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  RecorrerObjetivos(Centro(), LeerObjetivos(Centro(), paso.evaluacion, idAlumno, codMateria),
                    paso.evaluacion, paso.blnRecuperar);
}

void frmNotaMateria::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                          std::int32_t& materia,
                                                          std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      {.mensaje = "Error al insertar registros en Base de Datos",
       .buscarObjetivo =
           "SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}",
       .insertarNotas = "INSERT INTO Evaluacion  VALUES ({},{},{},0,0,0,0,0,0,0,0,0,0,0,0,0)"});
}

void frmNotaMateria::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                          std::int32_t& materia,
                                                          std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      "DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}");
}

}  // namespace quorvane

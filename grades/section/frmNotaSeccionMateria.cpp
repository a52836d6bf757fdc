#include "grades/section/frmNotaSeccionMateria.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "grades/dialog/DialogoNotas.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/loading/Objetivos.h"
#include "grades/saving/EvaluacionesPosteriores.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/MessageBox.h"
#include "selection/Navegacion.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {

static_assert(NotasPorMateria<frmNotaSeccionMateria>);

frmNotaSeccionMateria::frmNotaSeccionMateria() : Form("frmNotaSeccionMateria") {
  DibujarNotas(*this, "Materias y objetivos:", 1700);
  Conectar(*this);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
  rtvNotasTutor.CambioAlto = [this] { rtvNotasTutor_CambioAlto(); };
}

DatosPasoUno frmNotaSeccionMateria::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<frmNotaSeccionMateria1>::Get());
}

void frmNotaSeccionMateria::Form_Load() {
  const auto paso = PasoUno();
  if (Publicacion::YaAbierta(paso.seccion, paso.evaluacion)) {
    blnConPublicacion = true;
    return;
  }
  Vaciar(*this, paso.seccion);
  ConfigurarRejillas();
  auto alumnos =
      AlumnoElegido(Centro(), FormInstance<frmNotaSeccionMateria1>::Get().cboAlumno.SelectedData());
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
  const auto nombres = Centro().Execute(Sql(
      "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=5 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})",
      paso.tipo));
  if (!nombres.Eof()) lblNotaManual[1].Caption(nombres.Fields("Nombre").Text());
}

void frmNotaSeccionMateria::Form_Activate() {
  EmpezarCarga(*this, "Cargando... Espere por favor");
  CargarNotas();
  DejarActuar(*this);
  if (PasoUno().blnRecuperar) OcultarTutoria(*this);
  if (colAlumnos.Count() == 0 || cboMaterias.ListCount() == 0 || !PuedeCalificar(PasoUno())) {
    if (!blnConPublicacion)
      BeepAndMessage("No existen alumnos o materias para calificar", MessageIcon::Information);
    cmdCancelar_Click();
    return;
  }
  TomarBloqueos(*this);
  static_cast<void>(PersonalDelUsuario(Centro()));  // asked, and not looked at
  TerminarCarga(*this);
}

void frmNotaSeccionMateria::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this);
}

void frmNotaSeccionMateria::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionMateria::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaSeccionMateria>::Drop();
}

void frmNotaSeccionMateria::MostrarCarga(bool mostrar) { EncogerORestaurar(*this, mostrar); }

void frmNotaSeccionMateria::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionMateria1>::Get().ShowInTurn();
}

void frmNotaSeccionMateria::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaSeccionMateria::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaSeccionMateria::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaSeccionMateria::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  static_cast<void>(LeerObjetivos(Centro(), paso.evaluacion, idAlumno, codMateria));
}

void frmNotaSeccionMateria::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                 std::int32_t& materia,
                                                                 std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      {.mensaje = "Error al insertar datos en la base de datos",
       .buscarObjetivo =
           "SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}",
       .insertarNotas = "INSERT INTO EvaluacionPte  VALUES ({},{},{},0,0,0,0,0,0,0,0,0,0,0,0,0)"});
}

void frmNotaSeccionMateria::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                 std::int32_t& materia,
                                                                 std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      "DELETE FROM EvaluacionPte WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}");
}

}  // namespace quorvane

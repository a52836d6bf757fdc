#include "grades/student/frmNotaManual.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "grades/dialog/DialogoNotas.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/loading/Objetivos.h"
#include "grades/saving/EvaluacionesPosteriores.h"
#include "grades/student/RejillaPorAlumno.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/CentroApi.h"
#include "platform/host/MessageBox.h"
#include "selection/Navegacion.h"
#include "selection/frmNotaManual1.h"

namespace quorvane {

static_assert(NotasPorAlumno<frmNotaManual>);

frmNotaManual::frmNotaManual() : Form("frmNotaManual") {
  DibujarNotas(*this, "Alumno:", 780);
  Conectar(*this);
  cboAlumnos.Click = [this] { cboAlumnos_Click(); };
}

DatosPasoUno frmNotaManual::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<frmNotaManual1>::Get());
}

void frmNotaManual::Form_Load() {
  const auto paso = PasoUno();
  if (Publicacion::YaAbierta(paso.seccion, paso.evaluacion)) {
    blnConPublicacion = true;
    return;
  }
  Vaciar(*this, paso.seccion);
  ConfigurarRejillas();
  auto alumnos = AlumnosVisibles(Centro(), paso, blnTutor);
  if (alumnos.IsOpen())
    for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
  if (const auto nombre = NombreObservacion(Centro(), paso.tipo)) lblNotaManual[1].Caption(*nombre);
}

void frmNotaManual::Form_Activate() {
  EmpezarCarga(*this, "Cargando datos");
  CargarNotas();
  LlenarRecorrido(*this);
  DejarActuar(*this);
  if (PasoUno().blnRecuperar) OcultarTutoria(*this);
  if (colAlumnos.Count() == 0 || !PuedeCalificar(PasoUno())) {
    BeepAndMessage("No existen alumnos o materias para introducir notas", MessageIcon::Information);
    cmdCancelar_Click();
    return;
  }
  TomarBloqueos(*this);
  PreguntarNotasActivas();
  TerminarCarga(*this);
}

void frmNotaManual::PreguntarNotasActivas() {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto paso = PasoUno();
  const auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  auto idPersonal = PersonalDelUsuario(Centro());
  auto idSeccion = ToInteger(paso.seccion);
  auto idEvaluacion = ToInteger(paso.evaluacion);
  if (!api->notasactivas(Centro(), strNotasActivas, configuracion.intIDUsuario, idPersonal,
                         idSeccion, idEvaluacion))
    return;
  cmdAceptar.Enabled(false);
  strNotasActivas = "B";
}

void frmNotaManual::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this);
}

void frmNotaManual::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaManual::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaManual>::Drop();
}

void frmNotaManual::MostrarCarga(bool mostrar) { EncogerORestaurar(*this, mostrar); }

void frmNotaManual::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaManual1>::Get().ShowInTurn();
}

void frmNotaManual::cmdAnterior_Click() { SeleccionarAnterior(cboAlumnos); }

void frmNotaManual::cmdSiguiente_Click() { SeleccionarSiguiente(cboAlumnos); }

void frmNotaManual::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaManual::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  RecorrerObjetivos(Centro(), LeerObjetivos(Centro(), paso.evaluacion, idAlumno, codMateria),
                    paso.evaluacion, paso.blnRecuperar);
}

void frmNotaManual::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                         std::int32_t& materia,
                                                         std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      {.maximaInscripcion = "SELECT MAX(IDAlumno_NumEvaluacion) FROM [Alumno_NumEvaluacion]",
       .maximoObjetivo = "SELECT MAX(IDAlumno_MateriaDetalles) FROM [Alumno_MateriaDetalles]",
       .maximasNotas = "SELECT MAX(IDEvaluacion) FROM [Evaluacion]",
       .mensaje = "Error al insertar la evaluacion",
       .buscarObjetivo =
           "SELECT IDAlumno_MateriaDetalles, Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}",
       .insertarNotas = "INSERT INTO Evaluacion  VALUES ({},{},{},0,0,0,0,0,0,0,0,0,0,0,0,0)"});
}

void frmNotaManual::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                         std::int32_t& materia,
                                                         std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      "DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}");
}

}  // namespace quorvane

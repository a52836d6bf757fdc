#include "grades/section/frmNotaSeccionAlumno.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "grades/dialog/DialogoNotas.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/Objetivos.h"
#include "grades/saving/EvaluacionesPosteriores.h"
#include "grades/student/RejillaPorAlumno.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/MessageBox.h"
#include "selection/Navegacion.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {

static_assert(NotasPorAlumno<frmNotaSeccionAlumno>);

frmNotaSeccionAlumno::frmNotaSeccionAlumno() : Form("frmNotaSeccionAlumno") {
  DibujarNotas(*this, "Alumno:", 780);
  Conectar(*this);
  cboAlumnos.Click = [this] { cboAlumnos_Click(); };
}

DatosPasoUno frmNotaSeccionAlumno::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<frmNotaSeccionAlumno1>::Get());
}

void frmNotaSeccionAlumno::Form_Load() {
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
}

void frmNotaSeccionAlumno::Form_Activate() {
  EmpezarCarga(*this, "Cargando... Espere por favor");
  CargarNotas();
  LlenarRecorrido(*this);
  DejarActuar(*this);
  if (colAlumnos.Count() == 0 || !PuedeCalificar(PasoUno())) {
    BeepAndMessage("No existen alumnos o materias para introducir sus notas",
                   MessageIcon::Information);
    cmdCancelar_Click();
    return;
  }
  TomarBloqueos(*this);
  static_cast<void>(PersonalDelUsuario(Centro()));  // asked, and not looked at
  TerminarCarga(*this);
}

void frmNotaSeccionAlumno::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this);
}

void frmNotaSeccionAlumno::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionAlumno::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaSeccionAlumno>::Drop();
}

void frmNotaSeccionAlumno::MostrarCarga(bool mostrar) { EncogerORestaurar(*this, mostrar); }

void frmNotaSeccionAlumno::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionAlumno1>::Get().ShowInTurn();
}

void frmNotaSeccionAlumno::cmdAnterior_Click() { SeleccionarAnterior(cboAlumnos); }

void frmNotaSeccionAlumno::cmdSiguiente_Click() { SeleccionarSiguiente(cboAlumnos); }

void frmNotaSeccionAlumno::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaSeccionAlumno::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  RecorrerObjetivos(Centro(),
                    LeerColumnasDeObjetivos(Centro(), paso.evaluacion, idAlumno, codMateria),
                    paso.evaluacion, paso.blnRecuperar);
}

void frmNotaSeccionAlumno::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                std::int32_t& materia,
                                                                std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      {.mensaje = "Error al insertar datos en la base de datos",
       .buscarObjetivo =
           "SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}",
       .insertarNotas = "INSERT INTO Evaluacion  VALUES ({},{},{},0,0,0,0,0,0,0,0,0,0,0,0,0)"});
}

void frmNotaSeccionAlumno::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                std::int32_t& materia,
                                                                std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(
      paso.seccion, paso.evaluacion, alumno, materia, objetivo,
      "DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}");
}

}  // namespace quorvane

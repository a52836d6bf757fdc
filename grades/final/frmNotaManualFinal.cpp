#include "grades/final/frmNotaManualFinal.h"

#include "frame/Conexiones.h"
#include "grades/dialog/PasosPasoDos.h"
#include "grades/final/AperturaFinal.h"
#include "grades/final/CargaFinal.h"
#include "grades/final/DialogoFinal.h"
#include "grades/final/GuardadoFinal.h"
#include "grades/final/PorAlumnoFinal.h"
#include "grades/loading/Alumnos.h"
#include "grades/locks/MateriasBloqueo.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "selection/Navegacion.h"
#include "selection/frmNotaManual1.h"

namespace quorvane {

static_assert(FinalPorAlumno<frmNotaManualFinal>);

frmNotaManualFinal::frmNotaManualFinal() : Form("frmNotaManualFinal") {
  DibujarFinal(*this, "Alumno:", 780);
  ConectarFinal(*this);
  cboAlumnos.Click = [this] { cboAlumnos_Click(); };
}

DatosPasoUno frmNotaManualFinal::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<PasoAnterior>::Get());
}

void frmNotaManualFinal::Form_Load() {
  EmpezarApertura(*this);
  const auto paso = PasoUno();
  blnConPublicacion = Publicacion::YaAbierta(paso.seccion, paso.evaluacion);
  if (blnConPublicacion) return;
  DecidirTutor(*this, paso.seccion);
  ConfigurarRejillaInicial();
  AnadirAlumnosFinales(Centro(), colAlumnos, paso, blnTutor);
  if (const auto nombre = NombreObservacion(Centro(), paso.tipo)) lblNotaManual[1].Caption(*nombre);
}

void frmNotaManualFinal::Form_Activate() {
  EmpezarCarga(*this, kCargando);
  CargarNotas();
  LlenarComboAlumnos(Centro(), cboAlumnos, colAlumnos);
  DejarActuar(*this, Pointer::Arrow);
  const auto paso = PasoUno();
  if (colAlumnos.Count() == 0 || !PuedeCalificar(paso)) return CerrarSinNotas(*this, kSinNotas);
  PublicarFinal(*this);
  TerminarCarga(*this);
}

void frmNotaManualFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot())
    if (auto filas = PendientesVisibles(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      CargarPendientes(*this, *alumno, *filas);
  CerrarLista(strMateriasBloqueo);
}

void frmNotaManualFinal::CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  const auto codMatDet = AnotarFila(*this, fila);
  const auto materia = NuevaMateriaFinal(fila, clase, fila.Fields("IDAlumnoPte_MatDet").Long());
  const auto evaluacion = PasoUno().evaluacion;
  if (!materia->Fct) LeerNotasFinales(Centro(), *materia, evaluacion);
  // The row of the subject holds its teachers, but in this dialog nobody takes them.
  TomarDetalles(Centro(), *materia, LeerDetalles(Centro(), codMatDet, false));
  // The table has no such column: no subject of these kinds can be loaded here.
  if (materia->Fct)
    TomarNotasFct(
        Centro(), *materia,
        Centro().Execute(Sql(
            "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}",
            evaluacion, materia->CodAlumno_MateriaDetalles)));
  alumno.colMateria.Add(materia, Key(materia->IDMatDetalle));
}

void frmNotaManualFinal::cmdAceptar_Click() {
  EmpezarGrabacion(*this, kGuardando);
  for (const auto& alumno : colAlumnos) GuardarAlumno(*this, *alumno);
  TerminarGuardado(*this);
}

void frmNotaManualFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<PasoAnterior>::Get().ShowInTurn();
}

void frmNotaManualFinal::cmdAnterior_Click() { SeleccionarAnterior(cboAlumnos); }

void frmNotaManualFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboAlumnos); }

void frmNotaManualFinal::Form_Resize() { AjustarFinal(*this); }

void frmNotaManualFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaManualFinal::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaManualFinal>::Drop();
}

void frmNotaManualFinal::MostrarCarga(bool mostrar) {
  if (!mostrar)
    carga.Encoger(*this, fraAniCarga);
  else if (blnTutor)
    carga.Restaurar(*this, {});
  else
    carga.Restaurar(*this, {&fraObservacion[0]});
}

}  // namespace quorvane

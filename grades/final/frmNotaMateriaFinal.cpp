#include "grades/final/frmNotaMateriaFinal.h"

#include "frame/Conexiones.h"
#include "grades/dialog/PasosPasoDos.h"
#include "grades/final/AperturaFinal.h"
#include "grades/final/CargaFinal.h"
#include "grades/final/DialogoFinal.h"
#include "grades/final/GuardadoFinal.h"
#include "grades/final/PorMateriaFinal.h"
#include "grades/loading/Alumnos.h"
#include "grades/locks/MateriasBloqueo.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "selection/Navegacion.h"
#include "selection/frmNotaMateria1.h"

namespace quorvane {

static_assert(FinalPorMateria<frmNotaMateriaFinal>);

frmNotaMateriaFinal::frmNotaMateriaFinal() : Form("frmNotaMateriaFinal") {
  DibujarFinal(*this, "Materias:", 900);
  ConectarFinal(*this);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
  rtvNotasAlumno.CambioAlto = [this] { rtvNotasAlumno_CambioAlto(); };
}

DatosPasoUno frmNotaMateriaFinal::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<PasoAnterior>::Get());
}

void frmNotaMateriaFinal::Form_Load() {
  EmpezarApertura(*this);
  const auto paso = PasoUno();
  blnConPublicacion = Publicacion::YaAbierta(paso.seccion, paso.evaluacion);
  if (blnConPublicacion) return;
  DecidirTutor(*this, paso.seccion);
  ConfigurarRejillaInicial();
  AnadirAlumnosFinales(Centro(), colAlumnos, paso, blnTutor);
  if (const auto nombre = NombreObservacion(Centro(), paso.tipo)) ObservacionAlumno = *nombre;
}

void frmNotaMateriaFinal::Form_Activate() {
  EmpezarCarga(*this, kCargando);
  LeerCurso(Centro(), *this, PasoUno().curso);
  CargarNotas();
  DejarActuar(*this, Pointer::Default);
  const auto paso = PasoUno();
  if (colAlumnos.Count() == 0 || cboMaterias.ListCount() == 0 || !PuedeCalificar(paso))
    return CerrarSinNotas(*this, kSinNotas);
  PublicarFinal(*this);
  TerminarCarga(*this);
  EsconderObservacion(*this);
}

void frmNotaMateriaFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot())
    if (auto filas = PendientesVisibles(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      CargarPendientes(*this, *alumno, *filas);
  ListaMaterias = ReunirMaterias(colAlumnos);
  LlenarComboMaterias(cboMaterias, ListaMaterias);
  CerrarLista(strMateriasBloqueo);
}

void frmNotaMateriaFinal::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                        std::int32_t clase) {
  const auto codMatDet = AnotarFila(*this, fila);
  const auto materia = NuevaMateriaFinal(fila, clase, codMatDet);
  const auto evaluacion = PasoUno().evaluacion;
  if (!materia->Fct) {
    LeerNotasFinales(Centro(), *materia, evaluacion);
    TomarDetalles(Centro(), *materia, LeerDetalles(Centro(), codMatDet));
  } else {
    // A pending row has neither of the two columns: no subject of these kinds can be loaded here.
    TomarDetalles(Centro(), *materia,
                  LeerDetalles(Centro(), fila.Fields("CodMateriaDetalles").Long()));
    TomarNotasFct(
        Centro(), *materia,
        Centro().Execute(Sql(
            "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActa WHERE CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}",
            evaluacion, fila.Fields("IDAlumno_MateriaDetalles").Long())));
  }
  alumno.colMateria.Add(materia, Key(materia->IDMatDetalle));
}

void frmNotaMateriaFinal::cmdAceptar_Click() {
  EmpezarGrabacion(*this, kGuardando);
  for (const auto& alumno : colAlumnos) {
    // Looked at, and dropped.
    if (cboObservacion.Visible()) static_cast<void>(cboObservacion.ListIndex());
    GuardarAlumno(*this, *alumno);
  }
  TerminarGuardado(*this);
}

void frmNotaMateriaFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<PasoAnterior>::Get().ShowInTurn();
}

void frmNotaMateriaFinal::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaMateriaFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaMateriaFinal::Form_Resize() { AjustarFinal(*this); }

void frmNotaMateriaFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaMateriaFinal::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaMateriaFinal>::Drop();
}

void frmNotaMateriaFinal::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {});
  else
    carga.Encoger(*this, fraAniCarga);
}

}  // namespace quorvane

#include "grades/final/frmNotaSeccionAlumnoFinal.h"

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
#include "selection/Navegacion.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {

static_assert(FinalPorAlumno<frmNotaSeccionAlumnoFinal>);

frmNotaSeccionAlumnoFinal::frmNotaSeccionAlumnoFinal() : Form("frmNotaSeccionAlumnoFinal") {
  DibujarFinal(*this, "Alumno:", 780);
  ConectarFinal(*this);
  cboAlumnos.Click = [this] { cboAlumnos_Click(); };
}

DatosPasoUno frmNotaSeccionAlumnoFinal::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<PasoAnterior>::Get());
}

void frmNotaSeccionAlumnoFinal::Form_Load() {
  EmpezarApertura(*this);
  const auto paso = PasoUno();
  blnConPublicacion = Publicacion::YaAbierta(paso.seccion, paso.evaluacion);
  if (blnConPublicacion) return;
  DecidirTutor(*this, paso.seccion);
  ConfigurarRejillaInicial();
  AnadirAlumnosFinales(Centro(), colAlumnos, paso, blnTutor);
  if (const auto nombre = NombreObservacion(Centro(), paso.tipo)) lblNotaManual[1].Caption(*nombre);
}

void frmNotaSeccionAlumnoFinal::Form_Activate() {
  EmpezarCarga(*this, kCargando);
  CargarNotas();
  LlenarComboAlumnos(Centro(), cboAlumnos, colAlumnos);
  DejarActuar(*this, Pointer::Arrow);
  const auto paso = PasoUno();
  if (colAlumnos.Count() == 0 || !PuedeCalificar(paso)) return CerrarSinNotas(*this, kSinNotas);
  PublicarFinal(*this);
  TerminarCarga(*this);
}

void frmNotaSeccionAlumnoFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  const auto materia = MateriaFijada();
  for (const auto& alumno : colAlumnos.Snapshot())
    if (auto filas = PendientesDeMateria(Centro(), alumno->IDAlumno, materia, PasoUno(), blnTutor))
      CargarPendientes(*this, *alumno, *filas);
  CerrarLista(strMateriasBloqueo);
}

std::int32_t frmNotaSeccionAlumnoFinal::MateriaFijada() {
  return FormInstance<PasoAnterior>::Get().cboMateria.SelectedData();
}

void frmNotaSeccionAlumnoFinal::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                              std::int32_t clase) {
  const auto codMatDet = AnotarFila(*this, fila);
  const auto materia = NuevaMateriaFinal(fila, clase, codMatDet);
  const auto evaluacion = PasoUno().evaluacion;
  if (!materia->Fct) LeerNotasFinales(Centro(), *materia, evaluacion);
  TomarDetalles(Centro(), *materia, LeerDetalles(Centro(), codMatDet));
  if (materia->Fct) LeerNotasFct(Centro(), *materia, evaluacion);
  alumno.colMateria.Add(materia, Key(materia->IDMatDetalle));
}

void frmNotaSeccionAlumnoFinal::cmdAceptar_Click() {
  EmpezarGrabacion(*this, kGuardando);
  for (const auto& alumno : colAlumnos) GuardarAlumno(*this, *alumno);
  TerminarGuardado(*this);
}

void frmNotaSeccionAlumnoFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<PasoAnterior>::Get().ShowInTurn();
}

void frmNotaSeccionAlumnoFinal::cmdAnterior_Click() { SeleccionarAnterior(cboAlumnos); }

void frmNotaSeccionAlumnoFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboAlumnos); }

void frmNotaSeccionAlumnoFinal::Form_Resize() { AjustarFinal(*this); }

void frmNotaSeccionAlumnoFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionAlumnoFinal::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaSeccionAlumnoFinal>::Drop();
}

void frmNotaSeccionAlumnoFinal::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {&fraObservacion[0]});
  else
    carga.Encoger(*this, fraAniCarga);
}

}  // namespace quorvane

#include "grades/final/frmNotaSeccionMateriaFinal.h"

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
#include "selection/Navegacion.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {

static_assert(FinalPorMateria<frmNotaSeccionMateriaFinal>);

frmNotaSeccionMateriaFinal::frmNotaSeccionMateriaFinal() : Form("frmNotaSeccionMateriaFinal") {
  DibujarFinal(*this, "Materias:", 900);
  ConectarFinal(*this);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
  rtvNotasAlumno.CambioAlto = [this] { rtvNotasAlumno_CambioAlto(); };
}

DatosPasoUno frmNotaSeccionMateriaFinal::PasoUno() const {
  return DatosPasoUnoDe(FormInstance<PasoAnterior>::Get());
}

void frmNotaSeccionMateriaFinal::Form_Load() {
  EmpezarApertura(*this);
  const auto paso = PasoUno();
  blnConPublicacion = Publicacion::YaAbierta(paso.seccion, paso.evaluacion);
  if (blnConPublicacion) return;
  DecidirTutor(*this, paso.seccion);
  ConfigurarRejillaInicial();
  auto alumnos = AlumnoElegido(Centro(), AlumnoFijado());
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
  if (const auto nombre = NombreObservacion(Centro(), paso.tipo)) ObservacionAlumno = *nombre;
}

void frmNotaSeccionMateriaFinal::Form_Activate() {
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

std::int32_t frmNotaSeccionMateriaFinal::AlumnoFijado() {
  return FormInstance<PasoAnterior>::Get().cboAlumno.SelectedData();
}

void frmNotaSeccionMateriaFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot())
    if (auto filas = PendientesVisibles(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      CargarPendientes(*this, *alumno, *filas);
  ListaMaterias = ReunirMaterias(colAlumnos);
  LlenarComboMaterias(cboMaterias, ListaMaterias);
  CerrarLista(strMateriasBloqueo);
}

void frmNotaSeccionMateriaFinal::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                               std::int32_t clase) {
  const auto codMatDet = AnotarFila(*this, fila);
  const auto materia = NuevaMateriaFinal(fila, clase, codMatDet);
  const auto evaluacion = PasoUno().evaluacion;
  if (!materia->Fct) LeerNotasFinales(Centro(), *materia, evaluacion);
  TomarDetalles(Centro(), *materia, LeerDetalles(Centro(), codMatDet));
  if (materia->Fct) LeerNotasFct(Centro(), *materia, evaluacion);
  alumno.colMateria.Add(materia, Key(materia->IDMatDetalle));
}

void frmNotaSeccionMateriaFinal::cmdAceptar_Click() {
  EmpezarGrabacion(*this, kGuardando);
  for (const auto& alumno : colAlumnos) GuardarAlumno(*this, *alumno);
  TerminarGuardado(*this);
}

void frmNotaSeccionMateriaFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<PasoAnterior>::Get().ShowInTurn();
}

void frmNotaSeccionMateriaFinal::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaSeccionMateriaFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaSeccionMateriaFinal::Form_Resize() { AjustarFinal(*this); }

void frmNotaSeccionMateriaFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionMateriaFinal::Form_Unload() {
  DevolverYOcultar(*this);
  FormInstance<frmNotaSeccionMateriaFinal>::Drop();
}

void frmNotaSeccionMateriaFinal::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {});
  else
    carga.Encoger(*this, fraAniCarga);
}

}  // namespace quorvane

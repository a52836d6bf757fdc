#include "grades/final/frmNotaSeccionMateriaFinal.h"

#include "frame/Conexiones.h"
#include "grades/dialog/Navegacion.h"
#include "grades/final/AperturaFinal.h"
#include "grades/final/CargaFinal.h"
#include "grades/final/CierreFinal.h"
#include "grades/final/DialogoFinal.h"
#include "grades/final/GuardadoFinal.h"
#include "grades/final/PorMateriaFinal.h"
#include "grades/loading/Alumnos.h"
#include "grades/locks/MateriasBloqueo.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {

frmNotaSeccionMateriaFinal::frmNotaSeccionMateriaFinal() : Form("frmNotaSeccionMateriaFinal") {
  DibujarFinal(*this, "Materias:", 900);
  ConectarFinal(*this);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
  rtvNotasAlumno.CambioAlto = [this] { rtvNotasAlumno_CambioAlto(); };
}

void frmNotaSeccionMateriaFinal::Form_Load() {
  EmpezarApertura(*this);
  const auto paso = PasoUnoDe(*this);
  blnConPublicacion = Publicacion::YaAbierta(paso.seccion, paso.evaluacion);
  if (blnConPublicacion) return;
  DecidirTutor(*this, paso.seccion);
  ConfigurarRejillaInicial();
  auto alumnos = AlumnoElegido(AlumnoFijado());
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
  if (const auto nombre = NombreObservacion(paso.tipo)) ObservacionAlumno = *nombre;
}

void frmNotaSeccionMateriaFinal::Form_Activate() {
  EmpezarCarga(*this, kCargando);
  LeerCurso(Centro(), *this, PasoUnoDe(*this).curso);
  CargarNotas();
  TerminarCarga(*this, Pointer::Default);
  const auto paso = PasoUnoDe(*this);
  if (colAlumnos.Count() == 0 || cboMaterias.ListCount() == 0 || !PuedeCalificar(paso))
    return CerrarSinNotas(*this, kSinNotas);
  PublicarFinal(*this, paso);
  MostrarFinal(*this);
  EsconderObservacion(*this);
}

std::int32_t frmNotaSeccionMateriaFinal::AlumnoFijado() {
  return FormInstance<frmNotaSeccionMateria1>::Get().cboAlumno.SelectedData();
}

void frmNotaSeccionMateriaFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot())
    if (auto filas = PendientesVisibles(Centro(), alumno->IDAlumno, PasoUnoDe(*this), blnTutor))
      CargarPendientes(*this, *alumno, *filas);
  ListaMaterias = ReunirMaterias(colAlumnos);
  LlenarComboMaterias(cboMaterias, ListaMaterias);
  CerrarLista(strMateriasBloqueo);
}

void frmNotaSeccionMateriaFinal::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                               std::int32_t clase) {
  const auto codMatDet = AnotarFila(*this, fila);
  const auto materia = NuevaMateriaFinal(fila, clase, codMatDet);
  const auto evaluacion = PasoUnoDe(*this).evaluacion;
  if (!materia->Fct) LeerNotasFinales(Centro(), *materia, evaluacion);
  TomarDetalles(*materia, LeerDetalles(codMatDet));
  if (materia->Fct) LeerNotasFct(Centro(), *materia, evaluacion);
  alumno.colMateria.Add(materia, Key(materia->IDMatDetalle));
}

void frmNotaSeccionMateriaFinal::cmdAceptar_Click() {
  EmpezarGuardado(*this, kGuardando);
  for (const auto& alumno : colAlumnos) GuardarAlumno(*this, *alumno);
  TerminarGuardado(*this);
}

void frmNotaSeccionMateriaFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionMateria1>::Get().ShowModal();
}

void frmNotaSeccionMateriaFinal::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaSeccionMateriaFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaSeccionMateriaFinal::Form_Resize() { AjustarFinal(*this); }

void frmNotaSeccionMateriaFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionMateriaFinal::Form_Unload() { DescargarFinal(*this); }

void frmNotaSeccionMateriaFinal::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {});
  else
    carga.Encoger(*this, fraAniCarga);
}

}  // namespace quorvane

#include "grades/final/frmNotaSeccionAlumnoFinal.h"

#include "frame/cConfiguracion.h"
#include "grades/Usuario.h"
#include "grades/dialog/Navegacion.h"
#include "grades/final/DialogoFinal.h"
#include "grades/final/GuardadoFinal.h"
#include "grades/loading/Alumnos.h"
#include "grades/locks/MateriasBloqueo.h"
#include "platform/Application.h"
#include "platform/CentroApi.h"
#include "platform/FormInstance.h"
#include "platform/FrontEnd.h"
#include "platform/MessageBox.h"
#include "selection/EvaluacionElegida.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

DatosPasoUno PasoUno() { return DatosPasoUnoDe(FormInstance<frmNotaSeccionAlumno1>::Get()); }

FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace

frmNotaSeccionAlumnoFinal::frmNotaSeccionAlumnoFinal() : Form("frmNotaSeccionAlumnoFinal") {
  DibujarFinal(*this, ControlesDe(*this, cboAlumnos), "Alumno:", 780);
  cboAlumnos.Click = [this] { cboAlumnos_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
  cmdAceptar.Click = [this] { cmdAceptar_Click(); };
  cmdCancelar.Click = [this] { cmdCancelar_Click(); };
  rtvNotasAlumno.InicioEdicion = [this] { rtvNotasAlumno_InicioEdicion(); };
  rtvNotasAlumno.FinEdicion = [this] { rtvNotasAlumno_FinEdicion(); };
  rtvNotasAlumno.CambioAncho = [this] { rtvNotasAlumno_CambioAncho(); };
  cboObservacion.Click = [this] { cboObservacion_Click(); };
  chkPromocion.Click = [this] { chkPromocion_Click(); };
}

void frmNotaSeccionAlumnoFinal::Form_Load() {
  Pantalla().MousePointer(Pointer::Hourglass);
  colAlumnos.Clear();
  Icon(cConfiguracion::Instancia().RutaIcono);
  blnConPublicacion = false;
  const auto paso = PasoUno();
  if (Publicacion::YaAbierta(paso.seccion, paso.evaluacion)) {
    blnConPublicacion = true;
    return;
  }
  blnTutor = EsTutor(paso.seccion);
  if (!blnTutor) {
    fraObservacion[0].Visible(false);
    chkPromocion.Visible(false);
  }
  ConfigurarRejillaInicial();
  AnadirAlumnosFinales(colAlumnos, paso, blnTutor);
  if (const auto nombre = NombreObservacion(paso.tipo)) lblNotaManual[1].Caption(*nombre);
}

void frmNotaSeccionAlumnoFinal::Form_Activate() {
  const auto& configuracion = cConfiguracion::Instancia();
  blnCargando = true;
  Pantalla().MousePointer(Pointer::Hourglass);
  ActivarControles(false);
  MostrarCarga(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Cargando... Espere por favor");
  Pantalla().DoEvents();
  CargarNotas();
  LlenarAlumnos();
  Pantalla().MousePointer(Pointer::Arrow);
  ActivarControles(true);
  Enabled(true);
  const auto paso = PasoUno();
  if (colAlumnos.Count() == 0 || (paso.gIDPersonal == 0 && configuracion.intIDPerfil > 0)) {
    if (!blnConPublicacion)
      BeepAndMessage("No existen materias o alumnos para poner notas", MessageIcon::Information);
    cmdCancelar_Click();
    return;
  }
  publicacion.InsertarPublicacion(paso.gIDPersonal, paso.evaluacion);
  publicacion.InsertarBloqueos(strMateriasBloqueo, paso.gIDPersonal, paso.evaluacion);
  // Neither the component nor the answer is used.
  static_cast<void>(Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId));
  static_cast<void>(PersonalDelUsuario("CodUsuario"));
  aniCarga.Stop();
  MostrarCarga(true);
  chkPromocion.Visible(bytPromocion == 1);
  if (configuracion.intIDPerfil != 0 && !blnTutor) {
    cboObservacion.Enabled(false);
    chkPromocion.Enabled(false);
  }
  fraAniCarga.Visible(false);
  if (!configuracion.Activa) {
    cmdAceptar.Enabled(false);
    cboAlumnos.Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  blnCargando = false;
}

void frmNotaSeccionAlumnoFinal::ActivarControles(bool activar) {
  cboAlumnos.Enabled(activar);
  cmdAceptar.Enabled(activar);
  cmdCancelar.Enabled(activar);
}

void frmNotaSeccionAlumnoFinal::LlenarAlumnos() {
  if (colAlumnos.Count() == 0) return;
  cboAlumnos.Clear();
  for (const auto& alumno : colAlumnos)
    cboAlumnos.AddItem(AlumnoConOrden(alumno->IDAlumno), alumno->IDAlumno);
  cboAlumnos.ListIndex(0);
}

void frmNotaSeccionAlumnoFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  const auto materia = FormInstance<frmNotaSeccionAlumno1>::Get().cboMateria.SelectedData();
  const auto condicion = "codmatdet=" + std::to_string(materia) + " AND ";
  for (const auto& alumno : colAlumnos.Snapshot()) {
    auto filas = PendientesVisibles(alumno->IDAlumno, PasoUno(), blnTutor, condicion);
    if (!filas) continue;
    const auto mantener = RecorrerPendientes(
        *filas, elegida,
        [&](const Recordset& fila, std::int32_t clase) { CargarMateria(*alumno, fila, clase); });
    if (alumno->colMateria.Count() == 0 || (elegida.mblnFinalSeptiembre && !mantener))
      colAlumnos.Remove(Key(alumno->IDAlumno));
  }
  CerrarLista(strMateriasBloqueo);
}

void frmNotaSeccionAlumnoFinal::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                              std::int32_t clase) {
  const auto codMatDet = fila.Fields("codmatdet").Long();
  AnotarMateria(strMateriasBloqueo, codMatDet);
  const auto materia = NuevaMateriaFinal(fila, codMatDet);
  const auto evaluacion = PasoUno().evaluacion;
  if (clase == kClaseOrdinaria) {
    LeerNotasFinales(*materia, evaluacion);
    materia->Fct = false;
    TomarDetalles(*materia, LeerDetalles(codMatDet));
  } else {
    materia->Fct = true;
    TomarDetalles(*materia, LeerDetalles(codMatDet));
    LeerNotasFct(*materia, "EvaluacionActaPte", "CodAlumnoPte_MatDet", evaluacion,
                 materia->CodAlumno_MateriaDetalles);
  }
  alumno.colMateria.Add(materia, Key(materia->IDMatDetalle));
}

void frmNotaSeccionAlumnoFinal::cmdAceptar_Click() {
  MostrarCarga(false);
  Enabled(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Grabando... Espere por favor");
  Pantalla().DoEvents();
  Pantalla().MousePointer(Pointer::Hourglass);
  for (const auto& alumno : colAlumnos)
    for (const auto& materia : alumno->colMateria)
      GuardarMateriaFinal(*materia, PasoUno().evaluacion);
  Pantalla().MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

void frmNotaSeccionAlumnoFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionAlumno1>::Get().ShowModal();
}

void frmNotaSeccionAlumnoFinal::cmdAnterior_Click() { SeleccionarAnterior(cboAlumnos); }

void frmNotaSeccionAlumnoFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboAlumnos); }

void frmNotaSeccionAlumnoFinal::Form_Resize() {
  if (!carga.blnOcultando) AjustarFinal(*this, ControlesDe(*this, cboAlumnos));
}

void frmNotaSeccionAlumnoFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionAlumnoFinal::Form_Unload() {
  const auto paso = PasoUno();
  publicacion.Devolver(paso.seccion, paso.evaluacion);
  blnEdicionActiva = false;
  Hide();
  Pantalla().DoEvents();
  FormInstance<frmNotaSeccionAlumnoFinal>::Drop();
}

void frmNotaSeccionAlumnoFinal::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {&fraObservacion[0]});
  else
    carga.Encoger(*this, fraAniCarga);
}

}  // namespace quorvane

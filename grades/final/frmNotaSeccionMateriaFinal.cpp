#include "grades/final/frmNotaSeccionMateriaFinal.h"

#include "frame/cConfiguracion.h"
#include "grades/Usuario.h"
#include "grades/dialog/Navegacion.h"
#include "grades/final/DialogoFinal.h"
#include "grades/final/GuardadoFinal.h"
#include "grades/final/PorMateriaFinal.h"
#include "grades/loading/Alumnos.h"
#include "grades/locks/MateriasBloqueo.h"
#include "platform/Application.h"
#include "platform/CentroApi.h"
#include "platform/FormInstance.h"
#include "platform/FrontEnd.h"
#include "platform/MessageBox.h"
#include "selection/EvaluacionElegida.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {
namespace {

DatosPasoUno PasoUno() { return DatosPasoUnoDe(FormInstance<frmNotaSeccionMateria1>::Get()); }

FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace

frmNotaSeccionMateriaFinal::frmNotaSeccionMateriaFinal() : Form("frmNotaSeccionMateriaFinal") {
  DibujarFinal(*this, ControlesDe(*this, cboMaterias), "Materias:", 900);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
  cmdAceptar.Click = [this] { cmdAceptar_Click(); };
  cmdCancelar.Click = [this] { cmdCancelar_Click(); };
  rtvNotasAlumno.InicioEdicion = [this] { rtvNotasAlumno_InicioEdicion(); };
  rtvNotasAlumno.FinEdicion = [this] { rtvNotasAlumno_FinEdicion(); };
  rtvNotasAlumno.CambioAncho = [this] { rtvNotasAlumno_CambioAncho(); };
  rtvNotasAlumno.CambioAlto = [this] { rtvNotasAlumno_CambioAlto(); };
  cboObservacion.Click = [this] { cboObservacion_Click(); };
  chkPromocion.Click = [this] { chkPromocion_Click(); };
}

void frmNotaSeccionMateriaFinal::Form_Load() {
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
  auto alumnos =
      AlumnoElegido(FormInstance<frmNotaSeccionMateria1>::Get().cboAlumno.SelectedData());
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
  if (const auto nombre = NombreObservacion(paso.tipo)) ObservacionAlumno = *nombre;
}

void frmNotaSeccionMateriaFinal::Form_Activate() {
  const auto& configuracion = cConfiguracion::Instancia();
  blnCargando = true;
  Pantalla().MousePointer(Pointer::Hourglass);
  ActivarControles(false);
  MostrarCarga(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Cargando... Espere por favor");
  Pantalla().DoEvents();
  LeerCurso(PasoUno().curso, chkPromocion, bytPromocion, blnMedidas);
  CargarNotas();
  Pantalla().MousePointer(Pointer::Default);
  ActivarControles(true);
  Enabled(true);
  const auto paso = PasoUno();
  if (colAlumnos.Count() == 0 || cboMaterias.ListCount() == 0 ||
      (configuracion.intIDPerfil >= 1 && paso.gIDPersonal == 0)) {
    if (!blnConPublicacion)
      BeepAndMessage("No existen alumnos o materias para introducir notas",
                     MessageIcon::Information);
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
    cboMaterias.Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  blnCargando = false;
  // Whatever the course and the tutor said, the two are never left on the screen.
  lblNotaManual[1].Caption(ObservacionAlumno + " al alumno ");
  fraObservacion[0].Visible(false);
  chkPromocion.Visible(false);
  Pantalla().MousePointer(Pointer::Default);
}

void frmNotaSeccionMateriaFinal::ActivarControles(bool activar) {
  cboMaterias.Enabled(activar);
  cmdAceptar.Enabled(activar);
  cmdCancelar.Enabled(activar);
}

void frmNotaSeccionMateriaFinal::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    auto filas = PendientesVisibles(alumno->IDAlumno, PasoUno(), blnTutor);
    if (!filas) continue;
    const auto mantener = RecorrerPendientes(
        *filas, elegida,
        [&](const Recordset& fila, std::int32_t clase) { CargarMateria(*alumno, fila, clase); });
    if (alumno->colMateria.Count() == 0 || (elegida.mblnFinalSeptiembre && !mantener))
      colAlumnos.Remove(Key(alumno->IDAlumno));
  }
  ListaMaterias = ReunirMaterias(colAlumnos);
  LlenarComboMaterias(cboMaterias, ListaMaterias);
  CerrarLista(strMateriasBloqueo);
}

void frmNotaSeccionMateriaFinal::CargarMateria(cAlumno& alumno, const Recordset& fila,
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

void frmNotaSeccionMateriaFinal::cmdAceptar_Click() {
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

void frmNotaSeccionMateriaFinal::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionMateria1>::Get().ShowModal();
}

void frmNotaSeccionMateriaFinal::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaSeccionMateriaFinal::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaSeccionMateriaFinal::Form_Resize() {
  if (!carga.blnOcultando) AjustarFinal(*this, ControlesDe(*this, cboMaterias));
}

void frmNotaSeccionMateriaFinal::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionMateriaFinal::Form_Unload() {
  const auto paso = PasoUno();
  publicacion.Devolver(paso.seccion, paso.evaluacion);
  blnEdicionActiva = false;
  Hide();
  Pantalla().DoEvents();
  FormInstance<frmNotaSeccionMateriaFinal>::Drop();
}

void frmNotaSeccionMateriaFinal::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {});
  else
    carga.Encoger(*this, fraAniCarga);
}

}  // namespace quorvane

#include "grades/section/frmNotaSeccionAlumno.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "grades/Alumnos.h"
#include "grades/EvaluacionesPosteriores.h"
#include "grades/MateriasPendientes.h"
#include "grades/Navegacion.h"
#include "grades/Objetivos.h"
#include "grades/Seleccion.h"
#include "platform/Application.h"
#include "platform/FormInstance.h"
#include "platform/MessageBox.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionAlumno1>::Get()); }

FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace

frmNotaSeccionAlumno::frmNotaSeccionAlumno() : Form("frmNotaSeccionAlumno") {
  DibujarNotas(*this, Controles(), "Alumno:", 780);
  cboAlumnos.Click = [this] { cboAlumnos_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
  cmdAceptar.Click = [this] { cmdAceptar_Click(); };
  cmdCancelar.Click = [this] { cmdCancelar_Click(); };
  tabNotaManual.Click = [this] { tabNotaManual_Click(); };
  rtvNotasAlumno.InicioEdicion = [this] { rtvNotasAlumno_InicioEdicion(); };
  rtvNotasAlumno.FinEdicion = [this] { rtvNotasAlumno_FinEdicion(); };
  rtvNotasAlumno.CambioAncho = [this] { rtvNotasAlumno_CambioAncho(); };
  rtvNotasTutor.InicioEdicion = [this] { rtvNotasTutor_InicioEdicion(); };
  rtvNotasTutor.FinEdicion = [this] { rtvNotasTutor_FinEdicion(); };
  rtvNotasTutor.CambioAncho = [this] { rtvNotasTutor_CambioAncho(); };
  cboObservacion.Click = [this] { cboObservacion_Click(); };
  txtAusencias.KeyPress = SoloCifras;
  txtRetrasos.KeyPress = SoloCifras;
  txtAusencias.Change = [this] { txtAusencias_Change(); };
  txtRetrasos.Change = [this] { txtRetrasos_Change(); };
}

ControlesNotas frmNotaSeccionAlumno::Controles() {
  return {lblNotaManual,     cboAlumnos,     cmdAnterior,    cmdSiguiente,    tabNotaManual,
          fraNotaManual,     fraNota[0],     rtvNotasAlumno, fraNotaTutor[0], rtvNotasTutor,
          fraObservacion[0], cboObservacion, fraAusencia[0], txtAusencias,    txtRetrasos,
          cmdAceptar,        cmdCancelar,    fraAniCarga,    aniCarga};
}

void frmNotaSeccionAlumno::Form_Load() {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto paso = PasoUno();
  if (Publicacion::YaAbierta(paso.seccion, paso.evaluacion)) {
    blnConPublicacion = true;
    return;
  }
  Pantalla().MousePointer(Pointer::Hourglass);
  strMateriasBloqueo.clear();
  colAlumnos.Clear();
  Icon(configuracion.RutaIcono);
  blnTutor = EsTutor(Centro(), paso.seccion);
  ConfigurarRejillas();
  Recordset alumnos;
  if (configuracion.intIDPerfil == 0 || blnTutor)
    alumnos = AlumnosDeSeccion(paso.seccion);
  else if (paso.gIDPersonal > 0)
    alumnos = AlumnosDeProfesor(paso.seccion, paso.evaluacion, paso.gIDPersonal, "EvaluacionPte");
  if (alumnos.IsOpen())
    for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
}

void frmNotaSeccionAlumno::Form_Activate() {
  blnCargando = true;
  Pantalla().MousePointer(Pointer::Hourglass);
  ActivarControles(false);
  Refresh();
  Pantalla().DoEvents();
  MostrarCarga(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Cargando... Espere por favor");
  Pantalla().DoEvents();
  Enabled(false);
  CargarNotas();
  LlenarAlumnos();
  Pantalla().MousePointer(Pointer::Arrow);
  ActivarControles(true);
  Enabled(true);
  if (colAlumnos.Count() == 0 ||
      (PasoUno().gIDPersonal == 0 && cConfiguracion::Instancia().intIDPerfil >= 1)) {
    BeepAndMessage("No existen alumnos o materias para introducir sus notas",
                   MessageIcon::Information);
    cmdCancelar_Click();
    return;
  }
  TomarBloqueos();
  static_cast<void>(PersonalDelUsuario(Centro()));  // asked, and not looked at
  aniCarga.Stop();
  MostrarCarga(true);
  fraAniCarga.Visible(false);
  if (!cConfiguracion::Instancia().Activa) {
    cmdAceptar.Enabled(false);
    cboAlumnos.Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  blnCargando = false;
}

void frmNotaSeccionAlumno::ActivarControles(bool activar) {
  cboAlumnos.Enabled(activar);
  cmdAceptar.Enabled(activar);
  cmdCancelar.Enabled(activar);
  tabNotaManual.Enabled(activar);
  cmdAnterior.Enabled(activar);
  cmdSiguiente.Enabled(activar);
}

void frmNotaSeccionAlumno::LlenarAlumnos() {
  if (colAlumnos.Count() == 0) return;
  cboAlumnos.Clear();
  for (const auto& alumno : colAlumnos)
    cboAlumnos.AddItem(TextoAlumno(alumno->IDAlumno), alumno->IDAlumno);
  cboAlumnos.ListIndex(0);
}

void frmNotaSeccionAlumno::TomarBloqueos() {
  const auto paso = PasoUno();
  publicacion.InsertarPublicacion(paso.gIDPersonal, paso.evaluacion);
  publicacion.InsertarBloqueos(strMateriasBloqueo, paso.gIDPersonal, paso.evaluacion);
}

void frmNotaSeccionAlumno::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this, Controles());
}

void frmNotaSeccionAlumno::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionAlumno::Form_Unload() {
  const auto paso = PasoUno();
  publicacion.Devolver(paso.seccion, paso.evaluacion);
  blnEdicionActiva = false;
  Hide();
  Pantalla().DoEvents();
  FormInstance<frmNotaSeccionAlumno>::Drop();
}

void frmNotaSeccionAlumno::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {&fraNotaManual[1]});
  else
    carga.Encoger(*this, fraAniCarga);
}

void frmNotaSeccionAlumno::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionAlumno1>::Get().ShowModal();
}

void frmNotaSeccionAlumno::cmdAnterior_Click() { SeleccionarAnterior(cboAlumnos); }

void frmNotaSeccionAlumno::cmdSiguiente_Click() { SeleccionarSiguiente(cboAlumnos); }

void frmNotaSeccionAlumno::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaSeccionAlumno::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  RecorrerObjetivos(LeerObjetivos("IDAlumno_MateriaDetalles, CodMateriaDetalles, "
                                  "CodMateriaDetallesAsociada, Orden",
                                  paso.evaluacion, idAlumno, codMateria),
                    paso.evaluacion, paso.blnRecuperar);
}

void frmNotaSeccionAlumno::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                std::int32_t& materia,
                                                                std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(paso.seccion, paso.evaluacion, alumno, materia, objetivo,
                              {SiguienteIdMax, "Error al insertar datos en la base de datos",
                               "Orden", "INSERT INTO Evaluacion VALUES ("});
}

void frmNotaSeccionAlumno::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                std::int32_t& materia,
                                                                std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(paso.seccion, paso.evaluacion, alumno, materia, objetivo,
                                  "DELETE FROM Evaluacion");
}

}  // namespace quorvane

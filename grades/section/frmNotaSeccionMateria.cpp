#include "grades/section/frmNotaSeccionMateria.h"

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
#include "platform/Connection.h"
#include "platform/FormInstance.h"
#include "platform/MessageBox.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {
namespace {

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionMateria1>::Get()); }

FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace

frmNotaSeccionMateria::frmNotaSeccionMateria() : Form("frmNotaSeccionMateria") {
  DibujarNotas(*this, Controles(), "Materias y objetivos:", 1700);
  cboMaterias.Click = [this] { cboMaterias_Click(); };
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
  rtvNotasTutor.CambioAlto = [this] { rtvNotasTutor_CambioAlto(); };
  cboObservacion.Click = [this] { cboObservacion_Click(); };
  txtAusencias.KeyPress = SoloCifras;
  txtRetrasos.KeyPress = SoloCifras;
  txtAusencias.Change = [this] { txtAusencias_Change(); };
  txtRetrasos.Change = [this] { txtRetrasos_Change(); };
}

ControlesNotas frmNotaSeccionMateria::Controles() {
  return {lblNotaManual,     cboMaterias,    cmdAnterior,    cmdSiguiente,    tabNotaManual,
          fraNotaManual,     fraNota[0],     rtvNotasAlumno, fraNotaTutor[0], rtvNotasTutor,
          fraObservacion[0], cboObservacion, fraAusencia[0], txtAusencias,    txtRetrasos,
          cmdAceptar,        cmdCancelar,    fraAniCarga,    aniCarga};
}

void frmNotaSeccionMateria::Form_Load() {
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
  auto alumnos =
      AlumnoElegido(FormInstance<frmNotaSeccionMateria1>::Get().cboAlumno.SelectedData());
  for (; !alumnos.Eof(); alumnos.MoveNext()) AnadirAlumno(colAlumnos, alumnos);
  const auto nombres = Centro().Execute(
      "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=5 AND CodSistemaCalificacion "
      "IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza=" +
      std::to_string(paso.tipo) + ")");
  if (!nombres.Eof()) lblNotaManual[1].Caption(nombres.Fields("Nombre").Text());
}

void frmNotaSeccionMateria::Form_Activate() {
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
  Pantalla().MousePointer(Pointer::Arrow);
  ActivarControles(true);
  Enabled(true);
  if (PasoUno().blnRecuperar) {
    fraObservacion[0].Visible(false);
    fraAusencia[0].Visible(false);
  }
  if (colAlumnos.Count() == 0 || cboMaterias.ListCount() == 0 ||
      (PasoUno().gIDPersonal == 0 && cConfiguracion::Instancia().intIDPerfil >= 1)) {
    if (!blnConPublicacion)
      BeepAndMessage("No existen alumnos o materias para calificar", MessageIcon::Information);
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
    cboMaterias.Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  blnCargando = false;
}

void frmNotaSeccionMateria::ActivarControles(bool activar) {
  cboMaterias.Enabled(activar);
  cmdAceptar.Enabled(activar);
  cmdCancelar.Enabled(activar);
  tabNotaManual.Enabled(activar);
  cmdAnterior.Enabled(activar);
  cmdSiguiente.Enabled(activar);
}

void frmNotaSeccionMateria::TomarBloqueos() {
  const auto paso = PasoUno();
  publicacion.InsertarPublicacion(paso.gIDPersonal, paso.evaluacion);
  publicacion.InsertarBloqueos(strMateriasBloqueo, paso.gIDPersonal, paso.evaluacion);
}

void frmNotaSeccionMateria::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this, Controles());
}

void frmNotaSeccionMateria::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaSeccionMateria::Form_Unload() {
  const auto paso = PasoUno();
  publicacion.Devolver(paso.seccion, paso.evaluacion);
  blnEdicionActiva = false;
  Hide();
  Pantalla().DoEvents();
  FormInstance<frmNotaSeccionMateria>::Drop();
}

void frmNotaSeccionMateria::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {&fraNotaManual[1]});
  else
    carga.Encoger(*this, fraAniCarga);
}

void frmNotaSeccionMateria::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaSeccionMateria1>::Get().ShowModal();
}

void frmNotaSeccionMateria::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaSeccionMateria::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaSeccionMateria::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaSeccionMateria::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  static_cast<void>(LeerObjetivos("*", paso.evaluacion, idAlumno, codMateria));
}

void frmNotaSeccionMateria::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                 std::int32_t& materia,
                                                                 std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(paso.seccion, paso.evaluacion, alumno, materia, objetivo,
                              {SiguienteIdMax, "Error al insertar datos en la base de datos",
                               "Orden", "INSERT INTO EvaluacionPte  VALUES ("});
}

void frmNotaSeccionMateria::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                                 std::int32_t& materia,
                                                                 std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(paso.seccion, paso.evaluacion, alumno, materia, objetivo,
                                  "DELETE FROM EvaluacionPte");
}

}  // namespace quorvane

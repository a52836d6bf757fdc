#include "grades/subject/frmNotaMateria.h"

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
#include "selection/frmNotaMateria1.h"

namespace quorvane {
namespace {

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaMateria1>::Get()); }

FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace

frmNotaMateria::frmNotaMateria() : Form("frmNotaMateria") {
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

ControlesNotas frmNotaMateria::Controles() {
  return {lblNotaManual,     cboMaterias,    cmdAnterior,    cmdSiguiente,    tabNotaManual,
          fraNotaManual,     fraNota[0],     rtvNotasAlumno, fraNotaTutor[0], rtvNotasTutor,
          fraObservacion[0], cboObservacion, fraAusencia[0], txtAusencias,    txtRetrasos,
          cmdAceptar,        cmdCancelar,    fraAniCarga,    aniCarga};
}

void frmNotaMateria::Form_Load() {
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
    for (; !alumnos.Eof(); alumnos.MoveNext()) {
      AnadirAlumno(colAlumnos, alumnos);
      // Asked again for each student, though the answer is the section's.
      const auto seguimiento =
          Centro().Execute("SELECT Seguimiento, AcumularObjetivos FROM Seccion WHERE IDSeccion=" +
                           std::to_string(paso.seccion));
      blnSeguimiento = seguimiento.Fields("Seguimiento").Flag();
      blnAcumularObjetivos = seguimiento.Fields("AcumularObjetivos").Flag();
    }
  if (const auto nombre = NombreObservacion(paso.tipo)) lblNotaManual[1].Caption(*nombre);
}

void frmNotaMateria::Form_Activate() {
  blnCargando = true;
  Pantalla().MousePointer(Pointer::Hourglass);
  ActivarControles(false);
  Refresh();
  Pantalla().DoEvents();
  MostrarCarga(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Cargando Datos...");
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
      BeepAndMessage("No exiten alumnos o materias para introducir notas",
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
    cboMaterias.Enabled(true);
  }
  Pantalla().MousePointer(Pointer::Default);
  blnCargando = false;
}

void frmNotaMateria::ActivarControles(bool activar) {
  cboMaterias.Enabled(activar);
  cmdAceptar.Enabled(activar);
  cmdCancelar.Enabled(activar);
  tabNotaManual.Enabled(activar);
  cmdAnterior.Enabled(activar);
  cmdSiguiente.Enabled(activar);
}

void frmNotaMateria::TomarBloqueos() {
  const auto paso = PasoUno();
  publicacion.InsertarPublicacion(paso.gIDPersonal, paso.evaluacion);
  publicacion.InsertarBloqueos(strMateriasBloqueo, paso.gIDPersonal, paso.evaluacion);
}

void frmNotaMateria::Form_Resize() {
  if (!carga.blnOcultando) AjustarNotas(*this, Controles());
}

void frmNotaMateria::Form_KeyDown(int& keyCode) {
  PulsarConFlechas(keyCode, cmdAnterior, cmdSiguiente);
}

void frmNotaMateria::Form_Unload() {
  const auto paso = PasoUno();
  publicacion.Devolver(paso.seccion, paso.evaluacion);
  blnEdicionActiva = false;
  Hide();
  Pantalla().DoEvents();
  FormInstance<frmNotaMateria>::Drop();
}

void frmNotaMateria::MostrarCarga(bool mostrar) {
  if (mostrar)
    carga.Restaurar(*this, {&fraNotaManual[1]});
  else
    carga.Encoger(*this, fraAniCarga);
}

void frmNotaMateria::cmdCancelar_Click() {
  colAlumnos.Clear();
  Unload();
  FormInstance<frmNotaMateria1>::Get().ShowModal();
}

void frmNotaMateria::cmdAnterior_Click() { SeleccionarAnterior(cboMaterias); }

void frmNotaMateria::cmdSiguiente_Click() { SeleccionarSiguiente(cboMaterias); }

void frmNotaMateria::tabNotaManual_Click() { MostrarPanel(tabNotaManual, fraNotaManual); }

void frmNotaMateria::CargarObjetivos(std::int32_t codMateria, std::int32_t idAlumno) {
  const auto paso = PasoUno();
  RecorrerObjetivos(LeerObjetivos("*", paso.evaluacion, idAlumno, codMateria), paso.evaluacion,
                    paso.blnRecuperar);
}

void frmNotaMateria::AnadirMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                          std::int32_t& materia,
                                                          std::int32_t& objetivo) {
  const auto paso = PasoUno();
  AnadirEnEvaluacionSiguiente(paso.seccion, paso.evaluacion, alumno, materia, objetivo,
                              {SiguienteIdMax, "Error al insertar registros en Base de Datos",
                               "Orden", "INSERT INTO Evaluacion VALUES ("});
}

void frmNotaMateria::QuitarMateriaEvaluacionesPosteriores(std::int32_t& alumno,
                                                          std::int32_t& materia,
                                                          std::int32_t& objetivo) {
  const auto paso = PasoUno();
  QuitarDeEvaluacionesPosteriores(paso.seccion, paso.evaluacion, alumno, materia, objetivo,
                                  "DELETE FROM Evaluacion");
}

}  // namespace quorvane

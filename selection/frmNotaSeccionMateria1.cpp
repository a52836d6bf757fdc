#include "selection/frmNotaSeccionMateria1.h"

#include "frame/Conexiones.h"
#include "frame/PrimeraPantalla.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"
#include "platform/text/StringTable.h"
#include "selection/AlumnosSeccion.h"
#include "selection/AperturaPasoDos.h"
#include "selection/EvaluacionElegida.h"
#include "selection/FechaNotas.h"
#include "selection/ListasPasoUno.h"
#include "selection/PasoUno.h"

namespace quorvane {

frmNotaSeccionMateria1::frmNotaSeccionMateria1() : Form("frmNotaSeccionMateria1") {
  DibujarPasoUno(*this);
  DibujarEleccion(*this, cboAlumno, "(*) Alumno:");
  ConectarPasoUno(*this);
  cboAlumno.Click = [this] { cboAlumno_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
}

void frmNotaSeccionMateria1::Form_Load() {
  blnTutor = false;
  blnEntrar = true;
  Application::Instance().Screen().MousePointer(Pointer::Hourglass);
  OcultarOpciones(*this);
  Icon(cConfiguracion::Instancia().RutaIcono);
  BuscarPersonal(*this, Centro());
  LlenarTipos(Centro(), cboTipoEnsenanza, gIDPersonal);
  if (cboTipoEnsenanza.ListCount() > 0) cboTipoEnsenanza.ListIndex(0);
  LlenarEvaluacionesOrdinarias(Centro(), cboEvaluaciones);
  Application::Instance().Screen().MousePointer(Pointer::Default);
}

void frmNotaSeccionMateria1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  blnPosibleRecuperacion = TieneRecuperaciones(Centro(), cboTipoEnsenanza.SelectedData());
  LlenarCursos(Centro(), cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaSeccionMateria1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(Centro(), cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaSeccionMateria1::cboSecciones_Click() {
  if (!blnEntrar || cboSecciones.ListIndex() == -1) return;
  blnEntrar = false;
  const auto seccion = cboSecciones.SelectedData();
  blnTutor = EsTutor(Centro(), seccion);
  if (cboEvaluaciones.ListIndex() != -1) {
    const auto evaluacion = LeerFinal(Centro(), cboEvaluaciones.SelectedData());
    if (evaluacion.Eof()) {
      blnEntrar = true;
      return;
    }
    // Once hidden the box stays hidden here.
    AdmiteRecuperacion(Centro(), chkRecuperacion, evaluacion.Fields("Final").Flag(),
                       blnPosibleRecuperacion, seccion);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(Centro(), cboEvaluaciones, seccion);
  cboAlumno.Clear();
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionMateria1::cboEvaluaciones_Click() {
  if (cboSecciones.ListIndex() == -1 || cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  const auto elegida = LeerEvaluacion(Centro(), cboEvaluaciones.SelectedData());
  AdmiteRecuperacion(Centro(), chkRecuperacion, elegida.Final, blnPosibleRecuperacion,
                     cboSecciones.SelectedData());
  const AlumnosSeccion alumnos{
      .seccion = cboSecciones.SelectedData(),
      .evaluacion = cboEvaluaciones.SelectedData(),
      .idPersonal = gIDPersonal,
      .blnDocente = cConfiguracion::Instancia().intIDPerfil != 0 && !blnTutor};
  // A teacher who is no member of staff has no students: nothing is read, the list stays empty.
  if (!alumnos.blnDocente || gIDPersonal >= 1)
    LlenarCombo("IDAlumno", cboAlumno, alumnos.Leer(Centro(), elegida));
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionMateria1::cboAlumno_Click() {
  if (cboAlumno.ListIndex() != -1 && cboEvaluaciones.ListIndex() != -1)
    cmdNotaManual1[0].Enabled(true);
}

void frmNotaSeccionMateria1::cmdAnterior_Click() { ElegirAnterior(cboAlumno); }

void frmNotaSeccionMateria1::cmdSiguiente_Click() { ElegirSiguiente(cboAlumno); }

void frmNotaSeccionMateria1::cmdNotaManual1_Click(int Index) {
  gblnMostrarAnchoNotas = chkMostrar.Value() == 1;
  if (Index != 0) {
    Unload();
    return;
  }
  if (FaltanDatos({&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones, &cboAlumno}))
    return;
  const auto periodo = PeriodoDeEntrada(AppEntrada(), Centro(), cboSecciones.SelectedData(),
                                        cboEvaluaciones.SelectedData());
  if (!periodo || EnFecha(FormatoFecha(FechaServidor(Centro())), *periodo))
    AbrirPasoDos();
  else
    MessageBox(LoadString(kTextoFueraDeFecha), MessageIcon::Exclamation);
}

void frmNotaSeccionMateria1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(Centro(), cboEvaluaciones.SelectedData());
  TomarOpciones(*this);
  Hide();
  const auto titulo = TituloPasoDos(*this);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaSeccionMateriaFinal();
    pasoDos.mstrCaption(titulo);
    screen.MousePointer(Pointer::Default);
    if (EsSegundaFinal(evaluacion)) MarcarSegundaFinal(Centro(), pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(AppEntrada(), pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaSeccionMateria();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(AppEntrada(), pasoDos);
}

void frmNotaSeccionMateria1::Form_Unload() {
  OcultarYCeder(*this);
  FormInstance<frmNotaSeccionMateria1>::Drop();
}

void MostrarFrmNotaSeccionMateria1() {
  FormInstance<frmNotaSeccionMateria1>::Get().ShowModal();
  FormInstance<frmNotaSeccionMateria1>::Drop();
}

}  // namespace quorvane

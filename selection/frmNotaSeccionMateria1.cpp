#include "selection/frmNotaSeccionMateria1.h"

#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"
#include "platform/text/StringTable.h"
#include "selection/AlumnosSeccion.h"
#include "selection/AperturaPasoDos.h"
#include "selection/ControlesPasoUno.h"
#include "selection/EvaluacionElegida.h"
#include "selection/FechaNotas.h"
#include "selection/ListasPasoUno.h"

namespace quorvane {
namespace {

/// The string table has no such entry, so this refusal ends in error 326.
constexpr int kTextoFueraDeFecha = 28001;

}  // namespace

frmNotaSeccionMateria1::frmNotaSeccionMateria1() : Form("frmNotaSeccionMateria1") {
  DibujarPasoUno(*this, ControlesDe(*this));
  DibujarEleccion(*this, ControlesDe(*this),
                  {fraNotaManual1[2], lblNotamanual1[4], cboAlumno, cmdAnterior, cmdSiguiente},
                  "(*) Alumno:");
  cboTipoEnsenanza.Click = [this] { cboTipoEnsenanza_Click(); };
  cboCursos.Click = [this] { cboCursos_Click(); };
  cboSecciones.Click = [this] { cboSecciones_Click(); };
  cboEvaluaciones.Click = [this] { cboEvaluaciones_Click(); };
  cboAlumno.Click = [this] { cboAlumno_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
  cmdNotaManual1[0].Click = [this] { cmdNotaManual1_Click(0); };
  cmdNotaManual1[1].Click = [this] { cmdNotaManual1_Click(1); };
}

void frmNotaSeccionMateria1::Form_Load() {
  blnTutor = false;
  blnEntrar = true;
  CargarPasoUno(*this, ControlesDe(*this), gIDPersonal);
}

void frmNotaSeccionMateria1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  blnPosibleRecuperacion = TieneRecuperaciones(cboTipoEnsenanza.SelectedData());
  LlenarCursos(cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaSeccionMateria1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaSeccionMateria1::cboSecciones_Click() {
  if (!blnEntrar || cboSecciones.ListIndex() == -1) return;
  blnEntrar = false;
  const auto seccion = cboSecciones.SelectedData();
  blnTutor = EsTutor(seccion);
  if (cboEvaluaciones.ListIndex() != -1) {
    const auto evaluacion = LeerFinal(cboEvaluaciones.SelectedData());
    if (evaluacion.Eof()) {
      blnEntrar = true;
      return;
    }
    // Once hidden the box stays hidden here.
    AdmiteRecuperacion(chkRecuperacion, evaluacion.Fields("Final").Flag(), blnPosibleRecuperacion,
                       seccion);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(cboEvaluaciones, seccion);
  cboAlumno.Clear();
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionMateria1::cboEvaluaciones_Click() {
  if (cboSecciones.ListIndex() == -1 || cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  const auto elegida = LeerEvaluacion(cboEvaluaciones.SelectedData());
  AdmiteRecuperacion(chkRecuperacion, elegida.Final, blnPosibleRecuperacion,
                     cboSecciones.SelectedData());
  const AlumnosSeccion alumnos{
      .seccion = cboSecciones.SelectedData(),
      .evaluacion = cboEvaluaciones.SelectedData(),
      .idPersonal = gIDPersonal,
      .blnDocente = cConfiguracion::Instancia().intIDPerfil != 0 && !blnTutor};
  // A teacher who is no member of staff has no students: nothing is read, the list stays empty.
  if (!alumnos.blnDocente || gIDPersonal >= 1)
    LlenarCombo("IDAlumno", cboAlumno, alumnos.Leer(elegida), TextoAlumno);
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionMateria1::cboAlumno_Click() {
  if (cboAlumno.ListIndex() != -1 && cboEvaluaciones.ListIndex() != -1)
    cmdNotaManual1[0].Enabled(true);
}

void frmNotaSeccionMateria1::cmdAnterior_Click() {
  if (cboAlumno.ListIndex() > 0) cboAlumno.ListIndex(cboAlumno.ListIndex() - 1);
}

void frmNotaSeccionMateria1::cmdSiguiente_Click() {
  if (cboAlumno.ListIndex() < cboAlumno.ListCount() - 1)
    cboAlumno.ListIndex(cboAlumno.ListIndex() + 1);
}

void frmNotaSeccionMateria1::cmdNotaManual1_Click(int Index) {
  gblnMostrarAnchoNotas = chkMostrar.Value() == 1;
  if (Index != 0) {
    Unload();
    return;
  }
  if (!TodosElegidos(
          {&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones, &cboAlumno})) {
    BeepAndMessage("Intruduzca todos los datos", MessageIcon::Information);
    return;
  }
  const auto periodo =
      PeriodoDeEntrada(cboSecciones.SelectedData(), cboEvaluaciones.SelectedData());
  if (!periodo || EnFecha(FormatoFecha(FechaServidor()), *periodo))
    AbrirPasoDos();
  else
    MessageBox(LoadString(kTextoFueraDeFecha), MessageIcon::Exclamation);
}

void frmNotaSeccionMateria1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(cboEvaluaciones.SelectedData());
  blnRecuperar = chkRecuperacion.Value() == 1;
  gblnTPromocion = chkTodosProm.Value() == 1;
  Hide();
  const auto titulo = TituloPasoDos(cboTipoEnsenanza, cboCursos, cboSecciones);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaSeccionMateriaFinal();
    pasoDos.mstrCaption(titulo);
    screen.MousePointer(Pointer::Default);
    if (evaluacion.Fields("ORDEN").Long() == kOrdenSegundaFinal) MarcarSegundaFinal(pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaSeccionMateria();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(pasoDos);
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

#include "selection/frmNotaSeccionAlumno1.h"

#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"
#include "platform/text/StringTable.h"
#include "selection/AperturaPasoDos.h"
#include "selection/ControlesPasoUno.h"
#include "selection/EvaluacionElegida.h"
#include "selection/FechaNotas.h"
#include "selection/ListasPasoUno.h"
#include "selection/MateriasSeccion.h"

namespace quorvane {
namespace {

/// The string table has no such entry, so this refusal ends in error 326.
constexpr int kTextoFueraDeFecha = 28001;

}  // namespace

frmNotaSeccionAlumno1::frmNotaSeccionAlumno1() : Form("frmNotaSeccionAlumno1") {
  DibujarPasoUno(*this, ControlesDe(*this));
  DibujarEleccion(*this, ControlesDe(*this),
                  {fraNotaManual1[2], lblNotamanual1[4], cboMateria, cmdAnterior, cmdSiguiente},
                  "(*) Materia:");
  cboTipoEnsenanza.Click = [this] { cboTipoEnsenanza_Click(); };
  cboCursos.Click = [this] { cboCursos_Click(); };
  cboSecciones.Click = [this] { cboSecciones_Click(); };
  cboEvaluaciones.Click = [this] { cboEvaluaciones_Click(); };
  cboMateria.Click = [this] { cboMateria_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
  cmdNotaManual1[0].Click = [this] { cmdNotaManual1_Click(0); };
  cmdNotaManual1[1].Click = [this] { cmdNotaManual1_Click(1); };
}

void frmNotaSeccionAlumno1::Form_Load() {
  blnTutor = false;
  blnEntrar = true;
  CargarPasoUno(*this, ControlesDe(*this), gIDPersonal);
}

void frmNotaSeccionAlumno1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  blnPosibleRecuperacion = TieneRecuperaciones(cboTipoEnsenanza.SelectedData());
  LlenarCursos(cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaSeccionAlumno1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaSeccionAlumno1::cboSecciones_Click() {
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
    if (AdmiteRecuperacion(chkRecuperacion, evaluacion.Fields("Final").Flag(),
                           blnPosibleRecuperacion, seccion))
      chkRecuperacion.Visible(true);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(cboEvaluaciones, seccion);
  cboMateria.Clear();
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionAlumno1::cboEvaluaciones_Click() {
  if (cboSecciones.ListIndex() == -1 || cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  const auto elegida = LeerEvaluacion(cboEvaluaciones.SelectedData());
  AdmiteRecuperacion(chkRecuperacion, elegida.Final, blnPosibleRecuperacion,
                     cboSecciones.SelectedData());
  const MateriasSeccion materias{.seccion = cboSecciones.SelectedData(),
                                 .evaluacion = cboEvaluaciones.SelectedData(),
                                 .tipoEnsenanza = cboTipoEnsenanza.SelectedData(),
                                 .idPersonal = gIDPersonal,
                                 .blnTutor = blnTutor};
  LlenarCombo("IDMateriaDetalles", cboMateria, materias.Leer(elegida), TextoMateria);
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionAlumno1::cboMateria_Click() {
  if (cboMateria.ListIndex() != -1 && cboEvaluaciones.ListIndex() != -1)
    cmdNotaManual1[0].Enabled(true);
}

void frmNotaSeccionAlumno1::cmdAnterior_Click() {
  if (cboMateria.ListIndex() > 0) cboMateria.ListIndex(cboMateria.ListIndex() - 1);
}

void frmNotaSeccionAlumno1::cmdSiguiente_Click() {
  if (cboMateria.ListIndex() < cboMateria.ListCount() - 1)
    cboMateria.ListIndex(cboMateria.ListIndex() + 1);
}

void frmNotaSeccionAlumno1::cmdNotaManual1_Click(int Index) {
  gblnMostrarAnchoNotas = chkMostrar.Value() == 1;
  if (Index != 0) {
    Unload();
    return;
  }
  if (!TodosElegidos(
          {&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones, &cboMateria})) {
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

void frmNotaSeccionAlumno1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(cboEvaluaciones.SelectedData());
  blnRecuperar = chkRecuperacion.Value() == 1;
  gblnTPromocion = chkTodosProm.Value() == 1;
  Hide();
  const auto titulo = TituloPasoDos(cboTipoEnsenanza, cboCursos, cboSecciones);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaSeccionAlumnoFinal();
    pasoDos.mstrCaption(titulo);
    screen.MousePointer(Pointer::Default);
    if (evaluacion.Fields("ORDEN").Long() == kOrdenSegundaFinal) MarcarSegundaFinal(pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaSeccionAlumno();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(pasoDos);
}

void frmNotaSeccionAlumno1::Form_Unload() {
  OcultarYCeder(*this);
  FormInstance<frmNotaSeccionAlumno1>::Drop();
}

void MostrarFrmNotaSeccionAlumno1() {
  FormInstance<frmNotaSeccionAlumno1>::Get().ShowModal();
  FormInstance<frmNotaSeccionAlumno1>::Drop();
}

}  // namespace quorvane

#include "selection/frmNotaManual1.h"

#include <string>

#include "frame/Conexiones.h"
#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"
#include "selection/AperturaPasoDos.h"
#include "selection/ControlesPasoUno.h"
#include "selection/EvaluacionElegida.h"
#include "selection/FechaNotas.h"
#include "selection/ListasPasoUno.h"

namespace quorvane {

frmNotaManual1::frmNotaManual1() : Form("frmNotaManual1") {
  DibujarPasoUno(*this, ControlesDe(*this));
  cboTipoEnsenanza.Click = [this] { cboTipoEnsenanza_Click(); };
  cboCursos.Click = [this] { cboCursos_Click(); };
  cboSecciones.Click = [this] { cboSecciones_Click(); };
  cboEvaluaciones.Click = [this] { cboEvaluaciones_Click(); };
  cmdNotaManual1[0].Click = [this] { cmdNotaManual1_Click(0); };
  cmdNotaManual1[1].Click = [this] { cmdNotaManual1_Click(1); };
}

void frmNotaManual1::Form_Load() {
  blnEntrar = true;
  CargarPasoUno(*this, ControlesDe(*this), gIDPersonal);
}

void frmNotaManual1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  blnPosibleRecuperacion = TieneRecuperaciones(cboTipoEnsenanza.SelectedData());
  LlenarCursos(cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaManual1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaManual1::cboSecciones_Click() {
  if (cboSecciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  if (cboEvaluaciones.ListIndex() != -1) {
    cmdNotaManual1[0].Enabled(true);
    const auto evaluacion = LeerFinal(cboEvaluaciones.SelectedData());
    if (evaluacion.Eof()) {
      blnEntrar = true;
      return;
    }
    if (evaluacion.Fields("Final").Flag() || !blnPosibleRecuperacion)
      OcultarRecuperacion(chkRecuperacion);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(cboEvaluaciones, cboSecciones.SelectedData());
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaManual1::cboEvaluaciones_Click() {
  if (cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  if (cboSecciones.ListIndex() != -1) {
    cmdNotaManual1[0].Enabled(true);
    // What it gives isn't looked at: this dialog offers neither recovery nor promotion.
    Centro().Execute("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion = " +
                     std::to_string(cboEvaluaciones.SelectedData()));
    chkTodosProm.Visible(false);
    chkRecuperacion.Visible(false);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  blnEntrar = true;
}

void frmNotaManual1::cmdNotaManual1_Click(int Index) {
  gblnMostrarAnchoNotas = chkMostrar.Value() == 1;
  if (Index != 0) {
    Unload();
    return;
  }
  if (!TodosElegidos({&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones})) {
    BeepAndMessage("Intruduzca todos los datos", MessageIcon::Information);
    return;
  }
  const auto periodo =
      PeriodoDeEntrada(cboSecciones.SelectedData(), cboEvaluaciones.SelectedData());
  if (!periodo || EnFecha(FormatoFecha(FechaServidor()), *periodo))
    AbrirPasoDos();
  else
    MessageBox("La fecha de la evaluación se ha superado", MessageIcon::Exclamation);
}

void frmNotaManual1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(cboEvaluaciones.SelectedData());
  blnRecuperar = chkRecuperacion.Value() == 1;
  gblnTPromocion = chkTodosProm.Value() == 1;
  Hide();
  const auto titulo = TituloPasoDos(cboTipoEnsenanza, cboCursos, cboSecciones);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaManualFinal();
    pasoDos.mstrCaption(titulo);
    screen.MousePointer(Pointer::Default);
    if (evaluacion.Fields("ORDEN").Long() == kOrdenSegundaFinal) MarcarSegundaFinal(pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaManual();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(pasoDos);
}

void frmNotaManual1::Form_Unload() {
  OcultarYCeder(*this);
  FormInstance<frmNotaManual1>::Drop();
}

void MostrarFrmNotaManual1() {
  FormInstance<frmNotaManual1>::Get().ShowModal();
  FormInstance<frmNotaManual1>::Drop();
}

}  // namespace quorvane

#include "selection/frmNotaManual1.h"

#include "frame/Conexiones.h"
#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"
#include "selection/AperturaPasoDos.h"
#include "selection/EvaluacionElegida.h"
#include "selection/FechaNotas.h"
#include "selection/ListasPasoUno.h"
#include "selection/PasoUno.h"

namespace quorvane {

frmNotaManual1::frmNotaManual1() : Form("frmNotaManual1") {
  DibujarPasoUno(*this);
  ConectarPasoUno(*this);
}

void frmNotaManual1::Form_Load() {
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

void frmNotaManual1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  blnPosibleRecuperacion = TieneRecuperaciones(Centro(), cboTipoEnsenanza.SelectedData());
  LlenarCursos(Centro(), cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaManual1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(Centro(), cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaManual1::cboSecciones_Click() {
  if (cboSecciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  if (cboEvaluaciones.ListIndex() != -1) {
    cmdNotaManual1[0].Enabled(true);
    const auto evaluacion = LeerFinal(Centro(), cboEvaluaciones.SelectedData());
    if (evaluacion.Eof()) {
      blnEntrar = true;
      return;
    }
    if (evaluacion.Fields("Final").Flag() || !blnPosibleRecuperacion)
      OcultarRecuperacion(chkRecuperacion);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(Centro(), cboEvaluaciones, cboSecciones.SelectedData());
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaManual1::cboEvaluaciones_Click() {
  if (cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  if (cboSecciones.ListIndex() != -1) {
    cmdNotaManual1[0].Enabled(true);
    // What it gives isn't looked at: this dialog offers neither recovery nor promotion.
    LeerFinalAlElegir(Centro(), cboEvaluaciones.SelectedData());
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
  if (FaltanDatos({&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones})) return;
  const auto periodo = PeriodoDeEntrada(AppEntrada(), Centro(), cboSecciones.SelectedData(),
                                        cboEvaluaciones.SelectedData());
  if (!periodo || EnFecha(FormatoFecha(FechaServidor(Centro())), *periodo))
    AbrirPasoDos();
  else
    MessageBox("La fecha de la evaluación se ha superado", MessageIcon::Exclamation);
}

void frmNotaManual1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(Centro(), cboEvaluaciones.SelectedData());
  TomarOpciones(*this);
  Hide();
  const auto titulo = TituloPasoDos(*this);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaManualFinal();
    pasoDos.mstrCaption(titulo);
    screen.MousePointer(Pointer::Default);
    if (EsSegundaFinal(evaluacion)) MarcarSegundaFinal(Centro(), pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(AppEntrada(), pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaManual();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(AppEntrada(), pasoDos);
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

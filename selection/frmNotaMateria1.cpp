#include "selection/frmNotaMateria1.h"

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
namespace {

/// Asked twice for an empty date, before and after it is formatted.
std::string FechaDelDia(const Connection& centro) {
  auto fecha = FormatoFecha(FechaServidor(centro));
  return fecha.empty() ? FechaLocal() : fecha;
}

}  // namespace

frmNotaMateria1::frmNotaMateria1() : Form("frmNotaMateria1") {
  DibujarPasoUno(*this);
  ConectarPasoUno(*this);
}

void frmNotaMateria1::Form_Load() {
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

void frmNotaMateria1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  LlenarCursos(Centro(), cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaMateria1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(Centro(), cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaMateria1::cboSecciones_Click() {
  if (cboSecciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  if (cboEvaluaciones.ListIndex() != -1) {
    cmdNotaManual1[0].Enabled(true);
    const auto evaluacion = LeerFinal(Centro(), cboEvaluaciones.SelectedData());
    if (evaluacion.Eof()) {
      blnEntrar = true;
      return;
    }
    AdmiteRecuperacion(Centro(), chkRecuperacion, evaluacion.Fields("Final").Flag(),
                       blnPosibleRecuperacion, cboSecciones.SelectedData());
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(Centro(), cboEvaluaciones, cboSecciones.SelectedData());
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaMateria1::cboEvaluaciones_Click() {
  if (cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  if (cboSecciones.ListIndex() != -1) {
    cmdNotaManual1[0].Enabled(true);
    const auto evaluacion = LeerFinalAlElegir(Centro(), cboEvaluaciones.SelectedData());
    if (evaluacion.Eof()) {
      blnEntrar = true;
      return;
    }
    AdmiteRecuperacion(Centro(), chkRecuperacion, evaluacion.Fields("Final").Flag(),
                       blnPosibleRecuperacion, cboSecciones.SelectedData());
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  blnEntrar = true;
}

void frmNotaMateria1::cmdNotaManual1_Click(int Index) {
  gblnMostrarAnchoNotas = chkMostrar.Value() == 1;
  if (Index != 0) {
    Unload();
    return;
  }
  if (FaltanDatos({&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones})) return;
  const auto periodo = PeriodoDeEntrada(AppEntrada(), Centro(), cboSecciones.SelectedData(),
                                        cboEvaluaciones.SelectedData());
  if (!periodo || EnFecha(FechaDelDia(Centro()), *periodo))
    AbrirPasoDos();
  else
    MessageBox("La fecha de la evaluación se ha superado", MessageIcon::Exclamation);
}

void frmNotaMateria1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(Centro(), cboEvaluaciones.SelectedData());
  TomarOpciones(*this);
  Hide();
  const auto titulo = TituloPasoDos(*this);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaMateriaFinal();
    screen.MousePointer(Pointer::Default);
    if (EsSegundaFinal(evaluacion)) MarcarSegundaFinal(Centro(), pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(AppEntrada(), pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaMateria();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(AppEntrada(), pasoDos);
}

void frmNotaMateria1::Form_Unload() {
  OcultarYCeder(*this);
  FormInstance<frmNotaMateria1>::Drop();
}

void MostrarFrmNotaMateria1() {
  FormInstance<frmNotaMateria1>::Get().ShowModal();
  FormInstance<frmNotaMateria1>::Drop();
}

}  // namespace quorvane

#include "selection/frmNotaSeccionAlumno1.h"

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
#include "selection/AperturaPasoDos.h"
#include "selection/EvaluacionElegida.h"
#include "selection/FechaNotas.h"
#include "selection/ListasPasoUno.h"
#include "selection/MateriasSeccion.h"
#include "selection/PasoUno.h"

namespace quorvane {

frmNotaSeccionAlumno1::frmNotaSeccionAlumno1() : Form("frmNotaSeccionAlumno1") {
  DibujarPasoUno(*this);
  DibujarEleccion(*this, cboMateria, "(*) Materia:");
  ConectarPasoUno(*this);
  cboMateria.Click = [this] { cboMateria_Click(); };
  cmdAnterior.Click = [this] { cmdAnterior_Click(); };
  cmdSiguiente.Click = [this] { cmdSiguiente_Click(); };
}

void frmNotaSeccionAlumno1::Form_Load() {
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

void frmNotaSeccionAlumno1::cboTipoEnsenanza_Click() {
  if (!AbrirLista(cboTipoEnsenanza, cboCursos, cmdNotaManual1[0])) return;
  blnPosibleRecuperacion = TieneRecuperaciones(Centro(), cboTipoEnsenanza.SelectedData());
  LlenarCursos(Centro(), cboCursos, cboTipoEnsenanza.SelectedData(), gIDPersonal);
}

void frmNotaSeccionAlumno1::cboCursos_Click() {
  if (!AbrirLista(cboCursos, cboSecciones, cmdNotaManual1[0])) return;
  LlenarSecciones(Centro(), cboSecciones, cboCursos.SelectedData(), gIDPersonal);
}

void frmNotaSeccionAlumno1::cboSecciones_Click() {
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
    if (AdmiteRecuperacion(Centro(), chkRecuperacion, evaluacion.Fields("Final").Flag(),
                           blnPosibleRecuperacion, seccion))
      chkRecuperacion.Visible(true);
  } else {
    cmdNotaManual1[0].Enabled(false);
  }
  LlenarEvaluaciones(Centro(), cboEvaluaciones, seccion);
  cboMateria.Clear();
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionAlumno1::cboEvaluaciones_Click() {
  if (cboSecciones.ListIndex() == -1 || cboEvaluaciones.ListIndex() == -1 || !blnEntrar) return;
  blnEntrar = false;
  const auto elegida = LeerEvaluacion(Centro(), cboEvaluaciones.SelectedData());
  AdmiteRecuperacion(Centro(), chkRecuperacion, elegida.Final, blnPosibleRecuperacion,
                     cboSecciones.SelectedData());
  const MateriasSeccion materias{.seccion = cboSecciones.SelectedData(),
                                 .evaluacion = cboEvaluaciones.SelectedData(),
                                 .tipoEnsenanza = cboTipoEnsenanza.SelectedData(),
                                 .idPersonal = gIDPersonal,
                                 .blnTutor = blnTutor};
  LlenarCombo("IDMateriaDetalles", cboMateria, materias.Leer(Centro(), elegida));
  cmdNotaManual1[0].Enabled(false);
  blnEntrar = true;
}

void frmNotaSeccionAlumno1::cboMateria_Click() {
  if (cboMateria.ListIndex() != -1 && cboEvaluaciones.ListIndex() != -1)
    cmdNotaManual1[0].Enabled(true);
}

void frmNotaSeccionAlumno1::cmdAnterior_Click() { ElegirAnterior(cboMateria); }

void frmNotaSeccionAlumno1::cmdSiguiente_Click() { ElegirSiguiente(cboMateria); }

void frmNotaSeccionAlumno1::cmdNotaManual1_Click(int Index) {
  gblnMostrarAnchoNotas = chkMostrar.Value() == 1;
  if (Index != 0) {
    Unload();
    return;
  }
  if (FaltanDatos({&cboTipoEnsenanza, &cboCursos, &cboSecciones, &cboEvaluaciones, &cboMateria}))
    return;
  const auto periodo = PeriodoDeEntrada(AppEntrada(), Centro(), cboSecciones.SelectedData(),
                                        cboEvaluaciones.SelectedData());
  if (!periodo || EnFecha(FormatoFecha(FechaServidor(Centro())), *periodo))
    AbrirPasoDos();
  else
    MessageBox(LoadString(kTextoFueraDeFecha), MessageIcon::Exclamation);
}

void frmNotaSeccionAlumno1::AbrirPasoDos() {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  const auto evaluacion = LeerFinalYOrden(Centro(), cboEvaluaciones.SelectedData());
  TomarOpciones(*this);
  Hide();
  const auto titulo = TituloPasoDos(*this);
  if (evaluacion.Fields("Final").Flag()) {
    auto& pasoDos = PasoDosFrmNotaSeccionAlumnoFinal();
    pasoDos.mstrCaption(titulo);
    screen.MousePointer(Pointer::Default);
    if (EsSegundaFinal(evaluacion)) MarcarSegundaFinal(Centro(), pasoDos);
    pasoDos.mstrCaption(titulo);
    MostrarPasoDos(AppEntrada(), pasoDos);
    return;
  }
  auto& pasoDos = PasoDosFrmNotaSeccionAlumno();
  pasoDos.mstrCaption(titulo);
  MostrarPasoDos(AppEntrada(), pasoDos);
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

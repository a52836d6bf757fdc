#include "register/frmPendientes.h"

#include "frame/Conexiones.h"
#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/MessageBox.h"
#include "register/AceptarCancelar.h"
#include "register/FillList.h"
#include "register/frmAlumnoPendiente.h"

namespace quorvane {

void MostrarFrmPendientes() {
  FormInstance<frmPendientes>::Get().ShowModal();
  FormInstance<frmPendientes>::Drop();
}

frmPendientes::frmPendientes() : Form("frmPendientes") {
  Caption("Alumnos con materias pendientes");
  Width(6240);
  Height(2640);
  Label1.Caption("Tipo de Enseñanza:");
  Label1.Place(180, 240, 1755, 255);
  cboTEnsenanza.Place(2040, 195, 3900, 315);
  Label2.Caption("Curso:");
  Label2.Place(180, 705, 1755, 255);
  cboCurso.Place(2040, 660, 3900, 315);
  Label3.Caption("Sección:");
  Label3.Place(180, 1170, 1755, 255);
  cboSeccion.Place(2040, 1125, 3900, 315);
  PonerAceptarCancelar(*this, 3210, 1710);
  cmdAceptar.Caption("Siguiente >");
  cmdCancelar.Caption("Salir");

  cboTEnsenanza.Click = [this] { cboTEnsenanza_Click(); };
  cboCurso.Click = [this] { cboCurso_Click(); };
}

void frmPendientes::Form_Load() {
  const auto& configuracion = cConfiguracion::Instancia();
  Application::Instance()
      .Objects()
      .Create<CentroApi>(CentroApi::kProgId)
      ->marcar_Obligatorios(*this);
  Icon(configuracion.RutaIcono);
  auto tipos = Centro().Execute(Sql(
      "SELECT DISTINCT IDTipoEnsenanza, Nombre, orden FROM TipoEnsenanza INNER JOIN Centro_tipoensenanza ON Centro_tipoensenanza.CodTipoEnsenanza=TipoEnsenanza.IDTipoEnsenanza WHERE codtipoensenanza not in (1,2) AND codCentro={} ORDER BY Orden",
      configuracion.intIdCentro));
  FillList(cboTEnsenanza, tipos, "Nombre", "IDTipoEnsenanza");
}

void frmPendientes::cboTEnsenanza_Click() {
  if (cboTEnsenanza.ListIndex() < 0) return;
  cboCurso.Clear();
  auto cursos = Centro().Execute(
      Sql("SELECT IDCurso, Descripcion FROM Curso WHERE codTipoEnsenanza={} ORDER BY Orden",
          cboTEnsenanza.SelectedData()));
  FillList(cboCurso, cursos, "Descripcion", "IDCurso");
}

void frmPendientes::cboCurso_Click() {
  if (cboCurso.ListIndex() < 0) return;
  cboSeccion.Clear();
  auto secciones = Centro().Execute(
      Sql("SELECT IDSeccion, Descripcion FROM Seccion WHERE codCurso={} ORDER BY Descripcion",
          cboCurso.SelectedData()));
  FillList(cboSeccion, secciones, "Descripcion", "IDSeccion");
}

void frmPendientes::cmdAceptar_Click() {
  if (cboTEnsenanza.ListIndex() < 0 || cboCurso.ListIndex() < 0 || cboSeccion.ListIndex() < 0) {
    BeepAndMessage("Debe seleccionar un tipo de enseñanza, curso y sección",
                   MessageIcon::Exclamation);
    return;
  }
  Hide();
  FormInstance<frmAlumnoPendiente>::Get().ShowModal();
}

void frmPendientes::cmdCancelar_Click() { Unload(); }

void frmPendientes::Form_Unload() { FormInstance<frmPendientes>::Drop(); }

}  // namespace quorvane

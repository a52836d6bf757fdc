#include "register/frmPropMatProf.h"

#include <memory>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/MessageBox.h"
#include "platform/host/PersonSearch.h"
#include "register/AceptarCancelar.h"
#include "register/PersonName.h"
#include "register/ResumeNext.h"
#include "register/SelectedKey.h"
#include "register/frmAlumnoPendiente.h"

namespace quorvane {
namespace {

/// Error 91 for a component that could not be created.
template <class T>
T& Existing(const std::unique_ptr<T>& component) {
  if (component == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
  return *component;
}

}  // namespace

frmPropMatProf::frmPropMatProf() : Form("frmPropMatProf") {
  Caption("Propiedades de la Materia");
  Width(6960);
  Height(2175);
  Label1.Caption("Materia");
  Label1.Place(180, 240, 1035, 255);
  lblMateria.Place(1320, 240, 5340, 255);
  Label2.Caption("Profesor");
  Label2.Place(180, 705, 1035, 255);
  lblProfesor.Place(1320, 705, 4260, 255);
  cmdNProfesor.Place(5700, 645, 420, 375);
  cmdElimProfesor.Place(6240, 645, 420, 375);
  PonerAceptarCancelar(*this, 3930, 1245);

  cmdNProfesor.Click = [this] { cmdNProfesor_Click(); };
  cmdElimProfesor.Click = [this] { cmdElimProfesor_Click(); };
}

cMatProf& frmPropMatProf::MatProf() {
  const auto& registro = FormInstance<frmAlumnoPendiente>::Get();
  return *registro.colMatProf[SelectedKey(registro.msgMaterias)];
}

void frmPropMatProf::Form_Load() {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto objCentro = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  objCentro->marcar_Obligatorios(*this);
  Icon(configuracion.RutaIcono);
  cmdNProfesor.Picture(configuracion.CarpetaIconos() + "Buscar.ico");
  cmdElimProfesor.Picture(configuracion.CarpetaIconos() + "delete.ico");
  IDProfesorSeleccionado = MatProf().IDPersonal;
  const auto& msgMaterias = FormInstance<frmAlumnoPendiente>::Get().msgMaterias;
  lblProfesor.Caption(msgMaterias.TextMatrix(msgMaterias.RowSel(), 1));
  lblMateria.Caption(msgMaterias.TextMatrix(msgMaterias.RowSel(), 0));
  objCentro->acortartextolabel(lblProfesor);
  objCentro->acortartextolabel(lblMateria);
}

void frmPropMatProf::cmdNProfesor_Click() {
  const auto& configuracion = cConfiguracion::Instancia();
  const auto& objects = Application::Instance().Objects();
  ResumeNext errores;
  std::unique_ptr<CentroApi> objCentro;
  std::unique_ptr<PersonSearch> objBuscar;
  std::int32_t id = 0;
  Recordset persona;
  errores.Try([&] { objCentro = objects.Create<CentroApi>(CentroApi::kProgId); });
  errores.Try([&] { objBuscar = objects.Create<PersonSearch>(PersonSearch::kProgId); });
  errores.Try([&] {
    Existing(objBuscar).pasarconexiones(
        configuracion.conLocalCentro, configuracion.conLocalBorradoCentro,
        configuracion.conLocalCentro, configuracion.conLocalBorradoCentro);
  });
  errores.Try(
      [&] { Existing(objBuscar).ObtenerDatos(configuracion.Activa, configuracion.RutaIcono); });
  errores.Try([&] { id = Existing(objBuscar).Buscar("Docente"); });
  errores.Try([&] {
    persona = Centro().Execute(
        Sql("SELECT IDPersonal,Apellido1,Apellido2,Nombre FROM Personal WHERE IDPersonal={}", id));
  });
  // The one test: a failure of the host's components before the statement shows here too.
  if (errores.Number() != 0) {
    BeepAndMessage("ERROR al consultar la base de datos.\r" + errores.Description(),
                   MessageIcon::Critical);
    return;
  }
  errores.Try([&] {
    lblProfesor.Caption(PersonName(persona.Fields("Apellido1"), persona.Fields("Apellido2"),
                                   persona.Fields("Nombre")));
  });
  if (id > 0) IDProfesorSeleccionado = id;
  errores.Try([&] { Existing(objCentro).acortartextolabel(lblProfesor); });
}

void frmPropMatProf::cmdElimProfesor_Click() {
  IDProfesorSeleccionado = 0;
  lblProfesor.Caption("");
  lblProfesor.ToolTipText("");
}

void frmPropMatProf::cmdAceptar_Click() {
  auto& matProf = MatProf();
  if (matProf.IDPersonal != IDProfesorSeleccionado) {
    if (matProf.Estado == estados_.NUEVO) {
      matProf.IDPersonal = IDProfesorSeleccionado;
    } else if (matProf.Estado == estados_.NoModificado) {
      matProf.IDPersonal = IDProfesorSeleccionado;
      matProf.Estado = estados_.Modificado;
    }
    // In any other state the first change is the one that is saved, whatever the list shows.
    auto& msgMaterias = FormInstance<frmAlumnoPendiente>::Get().msgMaterias;
    msgMaterias.TextMatrix(msgMaterias.RowSel(), 1, lblProfesor.Caption());
  }
  Unload();
}

void frmPropMatProf::cmdCancelar_Click() { Unload(); }

void frmPropMatProf::Form_Unload() { FormInstance<frmPropMatProf>::Drop(); }

}  // namespace quorvane

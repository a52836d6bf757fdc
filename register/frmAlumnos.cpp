#include "register/frmAlumnos.h"

#include <memory>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/SqlList.h"
#include "register/AceptarCancelar.h"
#include "register/DualList.h"
#include "register/PersonName.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmPendientes.h"

namespace quorvane {
namespace {

Collection<cAlumno>& Alumnos() { return FormInstance<frmAlumnoPendiente>::Get().colAlumnos; }

}  // namespace

frmAlumnos::frmAlumnos() : Form("frmAlumnos") {
  Caption("Selección de Alumnos con Materias Pendientes");
  Width(9240);
  Height(5685);
  PonerDosListas(*this);
  lblDisponibles.Place(120, 120, 3600, 255);
  lstSeleccionados.Place(120, 420, 3600, 4050);
  cmdAgregarUno.Place(3840, 1080, 1440, 375);
  cmdAgregarTodos.Place(3840, 1560, 1440, 375);
  cmdEliminarUno.Place(3840, 2520, 1440, 375);
  cmdEliminarTodos.Place(3840, 3000, 1440, 375);
  lblSeleccionadas.Place(5400, 120, 3600, 255);
  lstDisponibles.Place(5400, 420, 3600, 4050);
  PonerAceptarCancelar(*this, 6270, 4785);
}

void frmAlumnos::Form_Load() {
  Icon(cConfiguracion::Instancia().RutaIcono);
  SqlList ids;
  for (const auto& alumno : Alumnos()) {
    auto& list = alumno->Estado == estados_.Eliminado ? lstDisponibles : lstSeleccionados;
    list.AddItem(alumno->Nombre, alumno->IDAlumno);
    ids.Add(alumno->IDAlumno);
  }
  const auto seccion = FormInstance<frmPendientes>::Get().cboSeccion.SelectedData();
  auto rows = Centro().Execute(Sql(
      "SELECT alumno.IDAlumno, Alumno.Apellido_1, Alumno.Apellido_2, Alumno.nombre FROM Alumno INNER JOIN Seccion_Alumno ON Alumno.IDAlumno=Seccion_Alumno.codAlumno WHERE idalumno not in ({}) AND (FechaBaja='' OR FechaBaja IS NULL) AND alumno.codSeccion={}",
      ids, seccion));
  for (; !rows.Eof(); rows.MoveNext())
    lstDisponibles.AddItem(
        PersonName(rows.Fields("Apellido_1"), rows.Fields("Apellido_2"), rows.Fields("nombre")),
        rows.Fields("IDAlumno").Long());
}

void frmAlumnos::cmdAgregarUno_Click() { MoveSelected(lstDisponibles, lstSeleccionados); }

void frmAlumnos::cmdAgregarTodos_Click() { MoveAll(lstDisponibles, lstSeleccionados); }

void frmAlumnos::cmdEliminarUno_Click() { MoveSelected(lstSeleccionados, lstDisponibles); }

void frmAlumnos::cmdEliminarTodos_Click() { MoveAll(lstSeleccionados, lstDisponibles); }

void frmAlumnos::cmdAceptar_Click() {
  for (int i = 0; i < lstSeleccionados.ListCount(); ++i)
    PutOnRegister(lstSeleccionados.ItemData(i), lstSeleccionados.List(i));
  for (int i = 0; i < lstDisponibles.ListCount(); ++i) TakeOffRegister(lstDisponibles.ItemData(i));
  Unload();
}

void frmAlumnos::PutOnRegister(std::int32_t id, const std::string& nombre) {
  auto& colAlumnos = Alumnos();
  if (colAlumnos.Contains(Key(id))) {
    const auto& alumno = colAlumnos[Key(id)];
    const auto conFila = alumno->EstadoAnterior == estados_.Modificado;
    alumno->Estado = conFila ? estados_.Modificado : estados_.NUEVO;
    return;
  }
  const auto alumno = std::make_shared<cAlumno>();
  alumno->Estado = estados_.NUEVO;
  alumno->EstadoAnterior = estados_.NUEVO;
  alumno->IDAlumno = id;
  alumno->Nombre = nombre;
  colAlumnos.Add(alumno, Key(id));
}

void frmAlumnos::TakeOffRegister(std::int32_t id) {
  auto& colAlumnos = Alumnos();
  if (!colAlumnos.Contains(Key(id))) return;
  const auto& alumno = colAlumnos[Key(id)];
  if (alumno->EstadoAnterior == estados_.Modificado) {
    alumno->Estado = estados_.Eliminado;
    alumno->colMateria.Clear();
  } else {
    colAlumnos.Remove(Key(id));
  }
}

void frmAlumnos::cmdCancelar_Click() { Unload(); }

void frmAlumnos::Form_Unload() { FormInstance<frmAlumnos>::Drop(); }

}  // namespace quorvane

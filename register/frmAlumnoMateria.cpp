#include "register/frmAlumnoMateria.h"

#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Value.h"
#include "register/CopiarAlumno.h"
#include "register/SelectedKey.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmMateriaEv.h"
#include "register/frmMateriaPend.h"

namespace quorvane {
namespace {

constexpr std::uint8_t kOrdenEliminada = 255;

}  // namespace

frmAlumnoMateria::frmAlumnoMateria() : Form("frmAlumnoMateria") {
  Caption("Materias Pendientes del Alumno");
  Width(9720);
  Height(5925);
  Label1.Caption("Alumno:");
  Label1.Place(120, 150, 960, 255);
  Label2.Place(1140, 150, 8340, 255);
  Label3.Caption("Materias:");
  Label3.Place(120, 540, 960, 255);
  msgMaterias.Place(120, 840, 7320, 3960);
  cmdSubir.Caption("subir");
  cmdSubir.Place(7560, 840, 465, 465);
  cmdBajar.Caption("bajar");
  cmdBajar.Place(7560, 1425, 465, 465);
  cmdAgregar.Caption("Agregar");
  cmdAgregar.Place(8145, 840, 1335, 375);
  cmdEliminar.Caption("Eliminar");
  cmdEliminar.Place(8145, 1320, 1335, 375);
  cmdPropiedades.Caption("Propiedades");
  cmdPropiedades.Place(8145, 1800, 1335, 375);
  cmdAceptar.Caption("Aceptar");
  cmdAceptar.Default = true;
  cmdAceptar.Place(6720, 5025, 1305, 375);
  cmdCancelar.Caption("Cancelar");
  cmdCancelar.Cancel = true;
  cmdCancelar.Place(8175, 5025, 1305, 375);

  cmdSubir.Click = [this] { cmdSubir_Click(); };
  cmdBajar.Click = [this] { cmdBajar_Click(); };
  cmdAgregar.Click = [this] { cmdAgregar_Click(); };
  cmdEliminar.Click = [this] { cmdEliminar_Click(); };
  cmdPropiedades.Click = [this] { cmdPropiedades_Click(); };
  msgMaterias.DblClick = [this] { cmdPropiedades_Click(); };
  cmdAceptar.Click = [this] { cmdAceptar_Click(); };
  cmdCancelar.Click = [this] { cmdCancelar_Click(); };
}

void frmAlumnoMateria::Form_Load() {
  const auto& configuracion = cConfiguracion::Instancia();
  Icon(configuracion.RutaIcono);
  cmdSubir.Caption("");
  cmdSubir.Picture(configuracion.CarpetaIconos() + "FlechaArriba.ico");
  cmdBajar.Caption("");
  cmdBajar.Picture(configuracion.CarpetaIconos() + "FlechaAbajo.ico");
  const auto& registro = FormInstance<frmAlumnoPendiente>::Get();
  objAlumno = CopiarAlumno(*registro.colAlumnos[SelectedKey(registro.msgAlumnos)]);
  Label2.Caption(objAlumno->Nombre);
  CargarRejillaMaterias();
}

cMateria& frmAlumnoMateria::Materia(int fila) const {
  return *objAlumno->colMateria[RowKey(msgMaterias, fila)];
}

void frmAlumnoMateria::cmdSubir_Click() {
  const auto fila = msgMaterias.Row();
  if (fila >= 2) Mover(fila, fila - 1);
  MostrarFila();
}

void frmAlumnoMateria::cmdBajar_Click() {
  const auto fila = msgMaterias.Row();
  if (fila < msgMaterias.Rows() - 1) Mover(fila, fila + 1);
  MostrarFila();
}

void frmAlumnoMateria::Mover(int fila, int destino) {
  auto& movida = Materia(fila);
  auto& otra = Materia(destino);
  const auto paso = destino - fila;
  movida.Orden = ToByte(movida.Orden + paso);
  otra.Orden = ToByte(otra.Orden - paso);
  if (movida.Estado != estados_.NUEVO) movida.Estado = estados_.Modificado;
  if (otra.Estado != estados_.NUEVO) otra.Estado = estados_.Modificado;
  msgMaterias.RowPosition(fila, destino);
  msgMaterias.Row(destino);
}

void frmAlumnoMateria::MostrarFila() {
  if (msgMaterias.Row() >= 1) msgMaterias.TopRow(msgMaterias.Row());
  msgMaterias.SetFocus();
}

void frmAlumnoMateria::cmdAgregar_Click() {
  FormInstance<frmMateriaPend>::Get().ShowModal();
  CargarRejillaMaterias();
}

void frmAlumnoMateria::cmdPropiedades_Click() {
  if (msgMaterias.RowSel() < 1) return;
  FormInstance<frmMateriaEv>::Get().ShowModal();
  CargarRejillaMaterias();
}

void frmAlumnoMateria::cmdEliminar_Click() {
  if (msgMaterias.RowSel() < 1) return;
  const auto elegida = msgMaterias.RowData(msgMaterias.RowSel());
  for (const auto& materia : objAlumno->colMateria.Snapshot()) {
    if (materia->IDMatDetalle == elegida) {
      if (materia->EstadoAnterior == estados_.NUEVO) {
        objAlumno->colMateria.Remove(Key(elegida));
      } else {
        materia->Estado = estados_.Eliminado;
        materia->Orden = kOrdenEliminada;
      }
    } else if (materia->Estado != estados_.NUEVO && materia->Estado != estados_.Eliminado) {
      materia->Estado = estados_.Modificado;  // its order can change
    }
  }
  CargarRejillaMaterias();
}

void frmAlumnoMateria::cmdAceptar_Click() {
  auto& registro = FormInstance<frmAlumnoPendiente>::Get();
  if (objAlumno->Estado != estados_.NUEVO) objAlumno->Estado = estados_.Modificado;
  registro.colAlumnos.Remove(SelectedKey(registro.msgAlumnos));
  registro.colAlumnos.Add(objAlumno, Key(objAlumno->IDAlumno));
  Unload();
}

void frmAlumnoMateria::cmdCancelar_Click() { Unload(); }

void frmAlumnoMateria::Form_Unload() {
  objAlumno = nullptr;
  FormInstance<frmAlumnoMateria>::Drop();
}

}  // namespace quorvane

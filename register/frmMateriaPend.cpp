#include "register/frmMateriaPend.h"

#include <memory>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/SqlList.h"
#include "platform/data/Value.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/MessageBox.h"
#include "register/AceptarCancelar.h"
#include "register/FillList.h"
#include "register/frmAlumnoMateria.h"
#include "register/frmPendientes.h"

namespace quorvane {
namespace {

constexpr std::int32_t kSinPersonal = 255;

}  // namespace

frmMateriaPend::frmMateriaPend() : Form("frmMateriaPend") {
  Caption("Materia Pendiente");
  Width(6240);
  Height(2640);
  Label1.Caption("Curso:");
  Label1.Place(180, 240, 1155, 255);
  cboCurso.Place(1440, 195, 4500, 315);
  Label3.Caption("Sección:");
  Label3.Place(180, 705, 1155, 255);
  cboSeccion.Place(1440, 660, 4500, 315);
  Label2.Caption("Materia:");
  Label2.Place(180, 1170, 1155, 255);
  cboMateria.Place(1440, 1125, 4500, 315);
  PonerAceptarCancelar(*this, 3210, 1710);

  cboCurso.Click = [this] { cboCurso_Click(); };
  cboSeccion.Click = [this] { cboSeccion_Click(); };
}

void frmMateriaPend::Form_Load() {
  Application::Instance()
      .Objects()
      .Create<CentroApi>(CentroApi::kProgId)
      ->marcar_Obligatorios(*this);
  Icon(cConfiguracion::Instancia().RutaIcono);
  const auto tipo = FormInstance<frmPendientes>::Get().cboTEnsenanza.SelectedData();
  auto cursos = Centro().Execute(Sql(
      "SELECT DISTINCT IDCurso, Descripcion, Curso.Orden FROM Curso WHERE codTipoEnsenanza={} ORDER BY Curso.Orden",
      tipo));
  FillList(cboCurso, cursos, "Descripcion", "IDCurso");
}

void frmMateriaPend::cboCurso_Click() {
  if (cboCurso.ListIndex() < 0) return;
  cboSeccion.Clear();
  auto secciones = Centro().Execute(Sql(
      "SELECT Seccion.IDSeccion, Seccion.Descripcion FROM Seccion WHERE codCurso={} ORDER BY Descripcion",
      cboCurso.SelectedData()));
  FillList(cboSeccion, secciones, "Descripcion", "IDSeccion");
}

void frmMateriaPend::cboSeccion_Click() {
  if (cboSeccion.ListIndex() < 0) return;
  cboMateria.Clear();
  SqlList ids;
  for (const auto& materia : FormInstance<frmAlumnoMateria>::Get().objAlumno->colMateria)
    if (materia->Estado != estados_.Eliminado) ids.Add(materia->IDMatDetalle);
  auto materias = Centro().Execute(Sql(
      "SELECT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Materia.Optativa FROM MateriaDetalles INNER JOIN Materia ON MAteria.IDMateria=MateriaDetalles.codMAteria WHERE MateriaDetalles.codSeccion={} AND MateriaDetalles.IDMateriaDetalles NOT IN ({}) AND Materia.codMateriaAsociada=0 ORDER BY Materia.Nombre",
      cboSeccion.SelectedData(), ids));
  for (; !materias.Eof(); materias.MoveNext()) {
    auto nombre = materias.Fields("Nombre").Text();
    if (materias.Fields("Optativa").Flag()) nombre += " (Optativa)";
    cboMateria.AddItem(nombre, materias.Fields("IDMateriaDetalles").Long());
  }
}

void frmMateriaPend::cmdAceptar_Click() {
  if (cboMateria.ListIndex() < 0) {
    BeepAndMessage("Debe seleccionar una materia", MessageIcon::Exclamation);
    return;
  }
  const auto& alumnoMateria = FormInstance<frmAlumnoMateria>::Get();
  auto& colMateria = alumnoMateria.objAlumno->colMateria;
  const auto id = cboMateria.SelectedData();
  // With the heading, so that it sorts last; showing the matrix again closes the numbering.
  const auto orden = ToByte(alumnoMateria.msgMaterias.Rows());
  if (colMateria.Contains(Key(id))) {
    const auto& materia = colMateria[Key(id)];
    materia->Estado = estados_.Modificado;
    materia->Orden = orden;
  } else {
    const auto materia = std::make_shared<cMateria>();
    materia->Estado = estados_.NUEVO;
    materia->EstadoAnterior = estados_.NUEVO;
    materia->IDMatDetalle = id;
    materia->IDPersonal = kSinPersonal;
    materia->Nombre = cboMateria.Text();
    materia->Orden = orden;
    colMateria.Add(materia, Key(id));
  }
  Unload();
}

void frmMateriaPend::cmdCancelar_Click() { Unload(); }

void frmMateriaPend::Form_Unload() { FormInstance<frmMateriaPend>::Drop(); }

}  // namespace quorvane

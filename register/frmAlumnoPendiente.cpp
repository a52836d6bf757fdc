#include "register/frmAlumnoPendiente.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/MessageBox.h"
#include "register/AceptarCancelar.h"
#include "register/RegisterLoader.h"
#include "register/RegisterPurge.h"
#include "register/RegisterWriter.h"
#include "register/TeacherLoader.h"
#include "register/frmAlumnoMateria.h"
#include "register/frmAlumnos.h"
#include "register/frmPendientes.h"
#include "register/frmPropMatProf.h"

namespace quorvane {
namespace {

constexpr int kFirstRevisionWithTeachers = 9;
constexpr int kTeachersTab = 2;
constexpr std::int32_t kMateriasColumn = 4000;

}  // namespace

frmAlumnoPendiente::frmAlumnoPendiente() : Form("frmAlumnoPendiente") {
  Caption("Alumnos con materias pendientes");
  Width(9120);
  Height(6765);
  TabDatos.AddTab("Alumnos");
  TabDatos.AddTab("Materias");
  TabDatos.Place(120, 120, 8760, 5580);
  for (auto& frame : fraTab) frame.Place(240, 540, 8520, 5040);
  fraTab[1].Visible(false);
  fraTab[1].Enabled(false);
  Label1.Caption("Listado de Alumnos:");
  Label1.Place(120, 120, 6600, 255);
  msgAlumnos.Place(120, 420, 6720, 4500);
  cmdListar.Caption("Listar Alumnos");
  cmdListar.Place(6960, 420, 1440, 375);
  cmdPropiedades.Caption("Propiedades");
  cmdPropiedades.Place(6960, 900, 1440, 375);
  Label2.Caption("Listado de Materias:");
  Label2.Place(120, 120, 6600, 255);
  msgMaterias.Place(120, 420, 6720, 4500);
  cmdPropMat.Caption("Propiedades");
  cmdPropMat.Place(6960, 420, 1440, 375);
  PonerAceptarCancelar(*this, 6150, 5865);

  TabDatos.Click = [this] { TabDatos_Click(); };
  cmdListar.Click = [this] { cmdListar_Click(); };
  cmdPropiedades.Click = [this] { cmdPropiedades_Click(); };
  msgAlumnos.DblClick = [this] { cmdPropiedades_Click(); };
  cmdPropMat.Click = [this] { cmdPropMat_Click(); };
  msgMaterias.DblClick = [this] { cmdPropMat_Click(); };
}

bool frmAlumnoPendiente::WithTeachers() {
  return Application::Instance().Version().revision >= kFirstRevisionWithTeachers;
}

void frmAlumnoPendiente::Form_Load() {
  const auto& seleccion = FormInstance<frmPendientes>::Get();
  auto& screen = Application::Instance().Screen();
  auto& centro = Centro();
  Icon(cConfiguracion::Instancia().RutaIcono);
  screen.MousePointer(Pointer::Hourglass);

  PurgeMissingStudents(centro);
  PurgeMissingSubjects(centro);
  auto bloqueado = RegisterLoader(centro, colAlumnos).Load(seleccion.cboSeccion.SelectedData());
  CargarListaAlumnos();

  if (WithTeachers()) {
    bloqueado = LoadTeachers(centro, seleccion.cboTEnsenanza.SelectedData(),
                             seleccion.cboCurso.SelectedData(), bloqueado, colMatProf);
    CargarListaMaterias();
  } else {
    bloqueado = false;
    TabDatos.RemoveTab(kTeachersTab);
  }

  if (bloqueado) {
    BeepAndMessage(
        "¡Atención! Existe una publicación de notas o un profesor poniendo notas pendientes. Los "
        "cambios no se grabarán.",
        MessageIcon::Information);
    cmdAceptar.Enabled(false);
  }
  screen.MousePointer(Pointer::Default);
}

void frmAlumnoPendiente::CargarListaAlumnos() {
  msgAlumnos.Clear();
  msgAlumnos.Rows(1);
  msgAlumnos.Cols(1);
  msgAlumnos.FixedCols(0);
  msgAlumnos.FixedRows(0);
  msgAlumnos.Rows(0);
  msgAlumnos.Cols(1);
  msgAlumnos.ColWidth(0, msgAlumnos.Width());
  for (const auto& alumno : colAlumnos) {
    if (alumno->Estado == estados_.Eliminado) continue;
    // Set, not added with the row, which a tab in a name would part into cells.
    msgAlumnos.AddItem("");
    msgAlumnos.TextMatrix(msgAlumnos.Rows() - 1, 0, alumno->Nombre);
    msgAlumnos.RowData(msgAlumnos.Rows() - 1, alumno->IDAlumno);
  }
  if (msgAlumnos.Rows() == 0) return;
  msgAlumnos.Col(0);
  msgAlumnos.SortAscending();
}

void frmAlumnoPendiente::CargarListaMaterias() {
  msgMaterias.Clear();
  msgMaterias.Rows(2);
  msgMaterias.Cols(2);
  msgMaterias.FixedCols(0);
  msgMaterias.FixedRows(1);
  msgMaterias.TextMatrix(0, 0, "Materia");
  msgMaterias.TextMatrix(0, 1, "Profesor");
  msgMaterias.Rows(1);
  msgMaterias.Cols(2);
  msgMaterias.ColWidth(0, kMateriasColumn);
  msgMaterias.ColWidth(1, kMateriasColumn);
  for (const auto& matProf : colMatProf) {
    if (matProf->Estado == estados_.Eliminado) continue;
    msgMaterias.AddItem("");
    const auto fila = msgMaterias.Rows() - 1;
    msgMaterias.TextMatrix(fila, 0, matProf->NombreMat);
    msgMaterias.TextMatrix(fila, 1, matProf->NombreProf);
    msgMaterias.RowData(fila, matProf->IDMatDetalle);
  }
}

void frmAlumnoPendiente::TabDatos_Click() {
  for (auto& frame : fraTab) {
    frame.Visible(false);
    frame.Enabled(false);
  }
  auto& selected = fraTab.at(static_cast<std::size_t>(TabDatos.SelectedTab() - 1));
  selected.Visible(true);
  selected.Enabled(true);
}

void frmAlumnoPendiente::cmdListar_Click() {
  FormInstance<frmAlumnos>::Get().ShowModal();
  CargarListaAlumnos();
}

void frmAlumnoPendiente::cmdPropiedades_Click() {
  if (msgAlumnos.Rows() >= 1) FormInstance<frmAlumnoMateria>::Get().ShowModal();
}

void frmAlumnoPendiente::cmdPropMat_Click() {
  if (msgMaterias.Rows() > 1) FormInstance<frmPropMatProf>::Get().ShowModal();
}

void frmAlumnoPendiente::cmdAceptar_Click() {
  RegisterWriter writer(Centro(), FormInstance<frmPendientes>::Get().cboSeccion.SelectedData());
  if (WithTeachers()) writer.SaveTeachers(colMatProf);
  writer.SaveStudents(colAlumnos);
  Unload();
}

void frmAlumnoPendiente::cmdCancelar_Click() { Unload(); }

void frmAlumnoPendiente::Form_Unload() {
  colAlumnos.Clear();
  FormInstance<frmAlumnoPendiente>::Drop();
  colMatProf.Clear();
}

}  // namespace quorvane

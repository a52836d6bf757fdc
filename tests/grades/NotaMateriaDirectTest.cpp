#include <gmock/gmock.h>

#include "tests/grades/OrdinaryDirect.h"
#include "tests/grades/OrdinaryStatements.h"

// Entry by subject: objects, grids and pane where no gesture reaches.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const Role kUser{1, 0, 0, true, true, false};

TEST_F(NotaMateriaDirect, SubjectsBehindTheComboAndTheSectionsFlags) {
  school_.Sql("UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1 WHERE IDSeccion=321");
  auto& form = Opened();
  ASSERT_EQ(form.aryMaterias.size(), 3U);
  const auto& lengua = form.aryMaterias[1];
  EXPECT_EQ(lengua.CodAsociada, 0);
  EXPECT_EQ(lengua.IDMatDet, 3111);
  EXPECT_EQ(lengua.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(lengua.Orden, 1);
  EXPECT_EQ(form.aryMaterias[2].Orden, 2);
  EXPECT_TRUE(form.blnSeguimiento && form.blnAcumularObjetivos);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3113,3111,3112");
}

TEST_F(NotaMateriaDirect, OrderIsThatOfTheStudentWhoBringsTheSubjectFirst) {
  school_.Sql("UPDATE AlumnoPte_MatDet SET Orden=7 WHERE IDAlumnoPte_MatDet=3");
  EXPECT_EQ(Opened().aryMaterias[1].Orden, 1);
}

TEST_F(NotaMateriaDirect, WithoutStudentsTheSectionIsNotAskedAndItsFlagsStayFalse) {
  school_.Sql(
      "UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1; UPDATE Alumno SET Anticipado=-1");
  auto& form = Form();
  form.Form_Load();
  EXPECT_FALSE(form.blnSeguimiento || form.blnAcumularObjetivos);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(FormLoadBySubject(kUser, 1, 0)));
}

TEST_F(NotaMateriaDirect, LoadedSubjectIsKeyedByTheSubjectAndSavedByItsRow) {
  school_.Sql("UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111");
  const auto& subject = *Opened().colAlumnos["2"]->colMateria["3111"];
  EXPECT_EQ(subject.IDMatDetalle, 3111);
  EXPECT_EQ(subject.CodAlumno_MateriaDetalles, 3);
  EXPECT_EQ(subject.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(subject.IDMateria, 1);
  EXPECT_EQ(subject.IDseccion, 311);
  EXPECT_EQ(subject.IDProfesor, 2);
  EXPECT_EQ(subject.IDProfesorAsociado, 3);
  EXPECT_FALSE(subject.Fct || subject.MateriaExterna || subject.Recuperacion || subject.Evaluado);
}

TEST_F(NotaMateriaDirect, EachColumnWritesItsOwnFieldOfTheStudentOfTheRow) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  for (int column = 1; column <= 5; ++column) {
    form.rtvNotasAlumno.ColWidth(column, 1000);
    form.GuardarAnchosAlumno(true);
    form.rtvNotasAlumno.BeginEdit(2, column);
    form.rtvNotasAlumno.ListaLimpiar(column);
    form.rtvNotasAlumno.ListaAnadir(column, "x", 10 + column);
    form.rtvNotasAlumno.EndEdit(0);
  }
  const auto& subject = *form.colAlumnos["2"]->colMateria["3111"];
  EXPECT_EQ(subject.Nota, 11);
  EXPECT_EQ(subject.Concepto, 12);
  EXPECT_EQ(subject.Procedimiento, 13);
  EXPECT_EQ(subject.Actitud, 14);
  EXPECT_EQ(subject.Observacion, 15);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3111"]->Nota, 0);
}

TEST_F(NotaMateriaDirect, SubjectOfAnotherKindGetsNoListAlsoBelowAnotherStudents) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  auto& subject = *form.colAlumnos["2"]->colMateria["3111"];
  subject.Fct = true;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  form.rtvNotasAlumno.BeginEdit(2, 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaMateriaDirect, ObjectivesWouldStandIndentedUnderTheirSubject) {
  auto& form = Opened();
  form.aryMaterias = {{0, 3113, "Francés", 1}, {9, 3111, "Lectura", 2}, {0, 3111, "Lengua", 1}};
  form.cboMaterias.Clear();
  form.CargarComboMaterias();
  ASSERT_EQ(form.cboMaterias.ListCount(), 3);
  EXPECT_EQ(form.cboMaterias.List(1), "Lengua");
  EXPECT_EQ(form.cboMaterias.List(2), "     Lectura");
  EXPECT_EQ(form.cboMaterias.ItemData(2), 3) << "a running number, no longer the array's";
}

TEST_F(NotaMateriaDirect, ObjectiveIsAMemberThatAStudentDoesNotHave) {
  auto& form = Opened();
  form.aryMaterias[0].CodAsociada = 9;
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.cboMaterias_Click(); }), 438);
}

TEST_F(NotaMateriaDirect, RowOfAStudentWhoIsNotThereIsAnError) {
  auto& form = Opened();
  form.rtvNotasAlumno.TextMatrix(1, 6, "77");
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.BeginEdit(1, 1); }), 5);
}

TEST_F(NotaMateriaDirect, SelectingASubjectDoesNotBeginAnEdit) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  static_cast<void>(session_.Statements());
  form.cboMaterias.ListIndex(1);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(SubjectGrid(kUser, false, {{1}, {2}})));
  form.cboMaterias.ListIndex(-1);
  form.cboMaterias_Click();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaMateriaDirect, TutorsPaneIsFilledBeforeEveryGuard) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(0, 0);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(TutorPane(kUser, 1)));
  EXPECT_TRUE(form.blnEdicionActiva);
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.blnEdicionActiva = true;
  form.blnTutor = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), ElementsAre(CellList(kUser, 1, 3113, 0, 1)));
}

TEST_F(NotaMateriaDirect, HeightsOfTheTutorsGridHaveAnEntryForEachRow) {
  auto& form = Opened();
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.DragRow();
  ASSERT_EQ(form.intAltosTutor.size(), 2U);
  form.intAltosTutor[1] = 77;
  form.rtvNotasTutor.AddItem("");
  form.blnCargando = true;
  form.rtvNotasTutor.DragRow();
  EXPECT_EQ(form.intAltosTutor.size(), 2U) << "not while it loads";
  form.blnCargando = false;
  form.rtvNotasTutor.DragRow();
  EXPECT_THAT(form.intAltosTutor, ElementsAre(0, 77, 0));
}

TEST_F(NotaMateriaDirect, DraggedColumnOfTheGradesSpringsBack) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(1, 100);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
}

// Its widths are measured while a form loads, and here the pane isn't filled until an edit.
TEST_F(NotaMateriaDirect, WidthsOfTheTutorsGridAreNotKept) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasTutor.ColWidth(2, 3456);
  form.rtvNotasTutor_FinEdicion();
  form.rtvNotasTutor.DragColumn(2, 100);
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(2), 100);
}

TEST_F(NotaMateriaDirect, MembersThatTheStudentOfTheRowDoesNotHaveAreAnError) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  const auto error = [](const auto& action) { return DirectSession::ErrorOf(action); };
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(1); }), 438);
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(error([&form] { form.txtAusencias.TypeKey("3"); }), 438);
  EXPECT_EQ(error([&form] { form.txtRetrasos.Text("2"); }), 438);
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  for (const int column : {1, 2}) {
    form.rtvNotasTutor.BeginEdit(1, column);
    EXPECT_EQ(error([&form] { form.rtvNotasTutor.EndEdit(0); }), 438) << column;
  }
  // The student is that of the grid's row, so a row of nobody is the collection's error.
  form.rtvNotasAlumno.TextMatrix(1, 6, "");
  EXPECT_EQ(error([&form] { form.txtAusencias_Change(); }), 5);
  EXPECT_EQ(error([&form] { form.cboObservacion_Click(); }), 0) << "nothing selected";
}

// Step one never hands on a recovery in this flow; the branches stand all the same.
TEST_F(NotaMateriaDirect, RecoveryShowsNoGradesHidesBothFramesAndSavesNothing) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107");
  PasoUno().blnRecuperar = true;
  auto& form = Opened();
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 1), "");
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 6), "3");
  EXPECT_FALSE(form.fraObservacion[0].Shown() || form.fraAusencia[0].Shown());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 438);
  static_cast<void>(session_.Statements());
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  auto leave = Leave(kUser, 1);
  leave.erase(leave.begin() + 1);  // what the host is told is no statement
  EXPECT_THAT(session_.Statements(), ElementsAreArray(leave));
}

TEST_F(NotaMateriaDirect, WhileItSavesTheBusySignShows) {
  auto& form = Opened();
  std::string caption;
  bool enabled = true;
  session_.screen.Painting = [&] {
    if (!form.aniCarga.Playing()) return;
    caption = form.fraAniCarga.Caption();
    enabled = form.Enabled();
    session_.screen.Painting = nullptr;
  };
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  EXPECT_EQ(caption, "Grabando Datos...");
  EXPECT_FALSE(enabled);
  EXPECT_FALSE(FormInstance<frmNotaMateria>::Exists());
}

TEST_F(NotaMateriaDirect, OpensWithTheNormalPointerAndItsMeasures) {
  auto& form = Opened();
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Default);
  EXPECT_TRUE(form.Enabled());
  EXPECT_FALSE(form.blnCargando);
  form.ResizeByUser(100, 100);
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
}

}  // namespace
}  // namespace quorvane::test

#include <gmock/gmock.h>

#include "tests/grades/OrdinaryDirect.h"
#include "tests/grades/OrdinaryStatements.h"

// The two ordinary forms of a section: objects, grids and pane where no gesture reaches.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

const Role kUser{1, 0, 0, true, true, false};

/// What the user is told while the form saves.
template <class Form>
std::string CaptionWhileItSaves(DirectSession& session, Form& form) {
  std::string caption;
  session.screen.Painting = [&] {
    if (form.aniCarga.Playing()) caption = form.fraAniCarga.Caption();
    session.screen.Painting = nullptr;
  };
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  return caption;
}

Lines LeaveWithoutHost() {
  auto leave = Leave(kUser, 1);
  leave.erase(leave.begin() + 1);
  return leave;
}

TEST_F(NotaSeccionAlumnoDirect, LoadedSubjectIsKeyedByTheSubjectAndSavedByItsRow) {
  const auto& form = Opened();
  const auto& subject = *form.colAlumnos["2"]->colMateria["3111"];
  EXPECT_EQ(subject.IDMatDetalle, 3111);
  EXPECT_EQ(subject.CodAlumno_MateriaDetalles, 3);
  EXPECT_EQ(subject.IDMateria, 1);
  EXPECT_EQ(subject.IDseccion, 311);
  EXPECT_EQ(subject.IDProfesor, 2);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3111");
  EXPECT_FALSE(form.colAlumnos.Contains("3"));
}

TEST_F(NotaSeccionAlumnoDirect, SubjectOfAnotherKindIsLoaded) {
  school_.Evalua(school_.Pendiente(1, 3116, 3), 1, 401);
  DirectSession::Choose(PasoUno().cboMateria, 3116);
  const auto& subject = *Opened().colAlumnos["1"]->colMateria["3116"];
  EXPECT_TRUE(subject.Fct);
  EXPECT_FALSE(subject.Recuperacion || subject.Evaluado);
  EXPECT_EQ(subject.Nota, 0);
  EXPECT_EQ(subject.Nombre, "Taller (1º ESO)");
}

TEST_F(NotaSeccionAlumnoDirect, SelectingAStudentBeginsTheEditOnce) {
  auto& form = Opened();
  const auto list = Lines{CellList(kUser, 1, 3111, 2, 1)};
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(list)) << "no pane of the tutor before it";
  form.cboAlumnos.ListIndex(1);
  EXPECT_THAT(session_.Statements(),
              ElementsAreArray(Grids(kUser, 1, false, {0, 0, 0, 0, 0}) + list));
  form.cboAlumnos.ListIndex(-1);
  form.cboAlumnos_Click();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaSeccionAlumnoDirect, SubjectOfAnotherKindGetsNoList) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  auto& subject = *form.colAlumnos["1"]->colMateria["3111"];
  subject.Fct = true;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaSeccionAlumnoDirect, FirstColumnsAreNotHeadedBeforeAStudentIsShown) {
  auto& form = Form();
  form.Form_Load();
  EXPECT_EQ(form.rtvNotasAlumno.Cols(), 6);
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 0), "");
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 1), "Nota");
  EXPECT_EQ(form.rtvNotasTutor.Cols(), 3);
  EXPECT_EQ(form.rtvNotasTutor.TextMatrix(0, 0), "");
  EXPECT_EQ(form.rtvNotasTutor.TextMatrix(0, 1), "Nota");
}

TEST_F(NotaSeccionAlumnoDirect, RowOfAnObjectiveIsAnErrorAndARowWithoutItsSubjectToo) {
  auto& form = Opened();
  const auto edit = [&form] { form.rtvNotasAlumno.BeginEdit(1, 1); };
  form.rtvNotasAlumno.TextMatrix(1, 6, "3111");
  EXPECT_EQ(DirectSession::ErrorOf(edit), 438);
  form.rtvNotasAlumno.TextMatrix(1, 6, "0");
  form.rtvNotasAlumno.TextMatrix(1, 7, "12345");
  EXPECT_EQ(DirectSession::ErrorOf(edit), 5);
}

TEST_F(NotaSeccionAlumnoDirect, MembersThatAStudentDoesNotHaveAreAnError) {
  auto& form = Opened();
  const auto error = [](const auto& action) { return DirectSession::ErrorOf(action); };
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(0); }), 438);
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(error([&form] { form.txtAusencias.TypeKey("3"); }), 438);
  EXPECT_EQ(error([&form] { form.txtRetrasos.Text("2"); }), 438);
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  for (const int column : {1, 2}) {
    form.rtvNotasTutor.BeginEdit(1, column);
    EXPECT_EQ(error([&form] { form.rtvNotasTutor.EndEdit(0); }), 438) << column;
  }
}

TEST_F(NotaSeccionAlumnoDirect, WidthsSpringBackWhenTheyAreDragged) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(1, 100);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
  form.rtvNotasTutor.ColWidth(2, 3456);
  form.rtvNotasTutor_FinEdicion();
  form.rtvNotasTutor.DragColumn(2, 100);
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(2), 3456);
}

TEST_F(NotaSeccionAlumnoDirect, WhileItSavesTheBusySignShows) {
  auto& form = Opened();
  EXPECT_EQ(CaptionWhileItSaves(session_, form), "Grabando... Espere por favor");
  EXPECT_FALSE(FormInstance<frmNotaSeccionAlumno>::Exists());
}

TEST_F(NotaSeccionMateriaDirect, SubjectsBehindTheComboAndTheSectionsFlagsThatNobodyReads) {
  school_.Sql("UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1 WHERE IDSeccion=321");
  const auto& form = Opened();
  ASSERT_EQ(form.aryMaterias.size(), 2U);
  EXPECT_EQ(form.aryMaterias[0].IDMatDet, 3111);
  EXPECT_EQ(form.aryMaterias[1].IDMatDet, 3112);
  EXPECT_EQ(form.aryMaterias[1].Orden, 2);
  EXPECT_FALSE(form.blnSeguimiento || form.blnAcumularObjetivos);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3112"]->CodAlumno_MateriaDetalles, 1);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3111,3112");
}

TEST_F(NotaSeccionMateriaDirect, StudentWhoIsGoneLeavesNothingToGrade) {
  school_.Sql("DELETE FROM Alumno WHERE IDAlumno=1");
  const auto held = Form().shared_from_this();
  Form().ShowModal();
  EXPECT_THAT(session_.screen.messages,
              ElementsAre(::testing::HasSubstr("No existen alumnos o materias para calificar")));
}

TEST_F(NotaSeccionMateriaDirect, SelectingASubjectBeginsTheEditOnce) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(),
              ElementsAreArray(TutorPane(kUser, 1) + Lines{CellList(kUser, 1, 3111, 2, 1)}));
  form.cboMaterias.ListIndex(1);
  EXPECT_THAT(session_.Statements(),
              ElementsAreArray(SubjectGrid(kUser, false, {{1}}) + TutorPane(kUser, 1) +
                               Lines{CellList(kUser, 1, 3112, 0, 1)}));
  form.cboMaterias.ListIndex(-1);
  form.cboMaterias_Click();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaSeccionMateriaDirect, SubjectOfAnotherKindGetsNoList) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  auto& subject = *form.colAlumnos["1"]->colMateria["3111"];
  subject.Fct = true;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaSeccionMateriaDirect, EndOfAnEditWantsASelectedSubject) {
  auto& form = Opened();
  auto& subject = *form.colAlumnos["1"]->colMateria["3111"];
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.cboMaterias.ListIndex(-1);
  form.rtvNotasAlumno.EndEdit(1);
  EXPECT_EQ(subject.Nota, 0);
  form.cboMaterias.ListIndex(0);
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.EndEdit(1);
  EXPECT_EQ(subject.Nota, 100);
}

TEST_F(NotaSeccionMateriaDirect, PaneOfTheTutorLooksItsStudentUpByTheRow) {
  auto& form = Opened();
  EXPECT_EQ(form.cboObservacion.ListIndex(), -1) << "he has no observation to select";
  form.rtvNotasAlumno.TextMatrix(1, 6, "77");
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.CargarNotasTutor(); }), 5);
}

TEST_F(NotaSeccionMateriaDirect, ObjectiveIsAMemberThatAStudentDoesNotHave) {
  auto& form = Opened();
  form.aryMaterias[0].CodAsociada = 9;
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.BeginEdit(1, 1); }), 438);
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.cboMaterias_Click(); }), 438);
}

TEST_F(NotaSeccionMateriaDirect, HeightsOfTheTutorsGridHaveAnEntryForEachRow) {
  auto& form = Opened();
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.DragRow();
  form.intAltosTutor[1] = 77;
  form.rtvNotasTutor.AddItem("");
  form.blnCargando = true;
  form.rtvNotasTutor.DragRow();
  EXPECT_THAT(form.intAltosTutor, ElementsAre(0, 77));
  form.blnCargando = false;
  form.rtvNotasTutor.DragRow();
  EXPECT_THAT(form.intAltosTutor, ElementsAre(0, 77, 0));
}

TEST_F(NotaSeccionMateriaDirect, MembersThatTheStudentOfTheRowDoesNotHaveAreAnError) {
  auto& form = Opened();
  const auto error = [](const auto& action) { return DirectSession::ErrorOf(action); };
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(1); }), 438);
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(error([&form] { form.txtAusencias.TypeKey("3"); }), 438);
  EXPECT_EQ(error([&form] { form.txtRetrasos.Text("2"); }), 438);
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  form.rtvNotasTutor.BeginEdit(1, 1);
  EXPECT_EQ(error([&form] { form.rtvNotasTutor.EndEdit(0); }), 438);
  form.rtvNotasAlumno.TextMatrix(1, 6, "");
  EXPECT_EQ(error([&form] { form.txtRetrasos_Change(); }), 5);
}

TEST_F(NotaSeccionMateriaDirect, RecoveryShowsNoGradesAndSavesNothing) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107");
  PasoUno().blnRecuperar = true;
  auto& form = Opened();
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 1), "");
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 6), "1");
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 438);
  static_cast<void>(session_.Statements());
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  EXPECT_THAT(session_.Statements(), ElementsAreArray(LeaveWithoutHost()));
}

TEST_F(NotaSeccionMateriaDirect, WhileItSavesTheBusySignShows) {
  auto& form = Opened();
  EXPECT_EQ(CaptionWhileItSaves(session_, form), "Grabando... Espere por favor");
  EXPECT_FALSE(FormInstance<frmNotaSeccionMateria>::Exists());
}

}  // namespace
}  // namespace quorvane::test

#include "tests/grades/GradeDirect.h"
#include "tests/support/Matchers.h"

// What the other ordinary forms have of their own where no gesture reaches.

namespace quorvane::test {
namespace {

// Entry by subject: objects, grids and pane where no gesture reaches.

using NotaMateriaDirectTest = NotaMateriaDirect;

TEST_F(NotaMateriaDirectTest, SubjectsBehindTheComboAndTheSectionsFlags) {
  school_.Sql(
      "UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1 WHERE IDSeccion=321;"
      "UPDATE AlumnoPte_MatDet SET Orden=7 WHERE IDAlumnoPte_MatDet=3");
  auto& form = Opened();
  ASSERT_EQ(form.aryMaterias.size(), 3U);
  const auto& lengua = form.aryMaterias[1];
  EXPECT_EQ(lengua.CodAsociada, 0);
  EXPECT_EQ(lengua.IDMatDet, 3111);
  EXPECT_EQ(lengua.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(lengua.Orden, 1) << "that of the student who brings the subject first";
  EXPECT_EQ(form.aryMaterias[2].Orden, 2);
  EXPECT_TRUE(form.blnSeguimiento && form.blnAcumularObjetivos);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3113,3111,3112");
}

TEST_F(NotaMateriaDirectTest, WithoutStudentsTheSectionIsNotAskedAndItsFlagsStayFalse) {
  school_.Sql(
      "UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1; UPDATE Alumno SET Anticipado=-1");
  auto& form = Form();
  form.Form_Load();
  EXPECT_FALSE(form.blnSeguimiento || form.blnAcumularObjetivos);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(FormLoadBySubject(kUnrestricted, 1, 0)));
}

TEST_F(NotaMateriaDirectTest, SubjectOfAnotherKindGetsNoListBelowAnotherStudents) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  auto& subject = *form.colAlumnos["2"]->colMateria["3111"];
  subject.Fct = true;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  form.rtvNotasAlumno.BeginEdit(2, 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaMateriaDirectTest, EditWritesToTheStudentOfTheRowAlone) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  form.rtvNotasAlumno.BeginEdit(2, 1);
  form.rtvNotasAlumno.EndEdit(8);
  EXPECT_EQ(form.colAlumnos["2"]->colMateria["3111"]->Nota, 106);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3111"]->Nota, 0);
}

TEST_F(NotaMateriaDirectTest, ObjectivesWouldStandIndentedUnderTheirSubject) {
  auto& form = Opened();
  form.aryMaterias = {{0, 3113, "Francés", 1}, {9, 3111, "Lectura", 2}, {0, 3111, "Lengua", 1}};
  form.cboMaterias.Clear();
  form.CargarComboMaterias();
  ASSERT_EQ(form.cboMaterias.ListCount(), 3);
  EXPECT_EQ(form.cboMaterias.List(1), "Lengua");
  EXPECT_EQ(form.cboMaterias.List(2), "     Lectura");
  EXPECT_EQ(form.cboMaterias.ItemData(2), 3) << "a running number, no longer the array's";
}

TEST_F(NotaMateriaDirectTest, TutorsPaneIsFilledBeforeEveryGuard) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(0, 0);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(TutorPane(kUnrestricted, 1)));
  EXPECT_TRUE(form.blnEdicionActiva);
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.blnEdicionActiva = true;
  form.blnTutor = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), ElementsAre(CellList(kUnrestricted, 1, 3113, 0, 1)));
}

// The two ordinary forms of a section: objects, grids and pane where no gesture reaches.

using NotaSeccionAlumnoDirectTest = NotaSeccionAlumnoDirect;
using NotaSeccionMateriaDirectTest = NotaSeccionMateriaDirect;

TEST_F(NotaSeccionAlumnoDirectTest, OnlyTheStudentsOfTheSubjectAreLoaded) {
  const auto& form = Opened();
  EXPECT_EQ(form.colAlumnos["2"]->colMateria["3111"]->CodAlumno_MateriaDetalles, 3);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3111");
  EXPECT_FALSE(form.colAlumnos.Contains("3"));
}

TEST_F(NotaSeccionAlumnoDirectTest, SubjectOfAnotherKindIsLoaded) {
  school_.Evalua(school_.Pendiente(1, 3116, 3), 1, 401);
  DirectSession::Choose(PasoUno().cboMateria, 3116);
  const auto& subject = *Opened().colAlumnos["1"]->colMateria["3116"];
  EXPECT_TRUE(subject.Fct);
  EXPECT_FALSE(subject.Recuperacion || subject.Evaluado);
  EXPECT_EQ(subject.Nota, 0);
  EXPECT_EQ(subject.Nombre, "Taller (1º ESO)");
}

TEST_F(NotaSeccionAlumnoDirectTest, FirstColumnsAreNotHeadedBeforeAStudentIsShown) {
  auto& form = Form();
  form.Form_Load();
  EXPECT_EQ(form.rtvNotasAlumno.Cols(), 6);
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 0), "");
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 1), "Nota");
  EXPECT_EQ(form.rtvNotasTutor.Cols(), 3);
  EXPECT_EQ(form.rtvNotasTutor.TextMatrix(0, 0), "");
  EXPECT_EQ(form.rtvNotasTutor.TextMatrix(0, 1), "Nota");
}

TEST_F(NotaSeccionMateriaDirectTest, SubjectsBehindTheComboAndTheSectionsFlagsThatNobodyReads) {
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

TEST_F(NotaSeccionMateriaDirectTest, StudentWhoIsGoneLeavesNothingToGrade) {
  school_.Sql("DELETE FROM Alumno WHERE IDAlumno=1");
  const auto held = Form().shared_from_this();
  Form().ShowModal();
  EXPECT_THAT(session_.screen.messages,
              ElementsAre(HasSubstr("No existen alumnos o materias para calificar")));
}

TEST_F(NotaSeccionMateriaDirectTest, PaneOfTheTutorLooksItsStudentUpByTheRow) {
  auto& form = Opened();
  EXPECT_EQ(form.cboObservacion.ListIndex(), -1) << "he has no observation to select";
  form.rtvNotasAlumno.TextMatrix(1, 6, "77");
  EXPECT_EQ(ErrorOf([&form] { form.CargarNotasTutor(); }), 5);
}

TEST_F(NotaSeccionMateriaDirectTest, EndOfAnEditWantsASelectedSubject) {
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

}  // namespace
}  // namespace quorvane::test

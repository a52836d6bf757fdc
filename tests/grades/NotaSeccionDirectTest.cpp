#include "tests/grades/GradeDirect.h"
#include "tests/support/Matchers.h"

// The two ordinary forms of a section: objects, grids and pane where no gesture reaches.

namespace quorvane::test {
namespace {

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

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// Entry by the students of a section: what it refuses, leaves out and purges.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNothing =
    "informacion \"Zendria Escuela\" \"No existen alumnos o materias para introducir sus notas\"";
constexpr const char* kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";
constexpr const char* kTake3111 = "sql \"INSERT INTO BloqueoPte VALUES (2,1,3111,3,9)\"\n";

std::string KindOf(int matDet) {
  return Sql(
      "SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
      "CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles={})",
      {matDet});
}

Lines Purge(int pending) {
  return {Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}", {pending}),
          Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}", {pending}),
          Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}", {pending})};
}

TEST(NotaSeccionAlumno, SubjectThatNoStudentHasClosesTheFormWithItsMessage) {
  const GradeSchool school;
  const auto result =
      RunScript(school,
                OpenSectionByStudent(1, 3111,
                                     "sql \"DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet IN "
                                     "(2,3,5)\"\n") +
                    "ver\n",
                Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
  EXPECT_THAT(school.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST(NotaSeccionAlumno, LockLeftByAFormBySubjectHidesTheSubjectEvenFromTheTutor) {
  const GradeSchool school;
  const auto result =
      RunScript(school, OpenSectionByStudent(1, 3111, kTake3111) + "ver\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte"), ElementsAre("3111"));
}

TEST(NotaSeccionAlumno, FormBySubjectThatDiedHidesItsSubjectsFromStepOne) {
  const GradeSchool school;
  RunScript(school, OpenBySubject(), Tutor());
  const auto result = RunScript(school, OpenSectionByStudent(), Unrestricted());
  EXPECT_THAT(result.Of("rechazo"), Contains(HasSubstr("elegir cboMateria =3111")));
}

TEST(NotaSeccionAlumno, OwnPublicationRefusesTheFormAndASecondMessageFollows) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,1)");
  const auto result =
      RunScript(school, OpenSectionByStudent() + "ver\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kInUse, kNothing));
  EXPECT_EQ(result.Of("pitido").size(), 2U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOneSectionByStudent(kTutor, 1) +
                               Lines{FormLoad(kTutor, 1).front()} + Leave(kTutor, 0)));
}

TEST(NotaSeccionAlumno, ClosedSchoolYearCanBeReadAndNotSaved) {
  const GradeSchool school;
  auto closed = Tutor();
  closed.activa = false;
  const FormView form(RunScript(school, OpenSectionByStudent() + "ver\n", closed));
  EXPECT_FALSE(form.Enabled("cmdAceptar"));
  EXPECT_TRUE(form.Enabled("cboAlumnos") && form.Enabled("cmdCancelar"));
}

TEST(NotaSeccionAlumno, HostIsNotAskedWhetherGradesAreActive) {
  const GradeSchool school;
  const auto result =
      RunScript(school, "notasactivas 1\n" + OpenSectionByStudent() + "ver\n", Tutor());
  EXPECT_THAT(result.Of("host"), Not(Contains("ZendriaApi.cCentroApi.notasactivas")));
  EXPECT_TRUE(FormView(result).Enabled("cmdAceptar"));
}

TEST(NotaSeccionAlumno, PurgeFollowsTheCheckThatRemovesTheStudent) {
  const GradeSchool school;
  school.Sql("INSERT INTO EvaluacionActaPte VALUES (1,2,4,0,0,0,0,0)");
  const auto result =
      RunScript(school,
                OpenSectionByStudent(
                    1, 3111, "sql \"DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111\"\n") +
                    "pulsar cmdNotaManual1(1)\n",
                Tutor());
  EXPECT_THAT(result.Of("error"), IsEmpty()) << result.Text();
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  const auto rows = [](int student) { return LoadChosen(kTutor, 1, student, 3111, {}); };
  const Lines kind = {KindOf(3111)};
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOneSectionByStudent(kTutor, 1) +
                               FormLoadSectionByStudent(kTutor, 1) + rows(3) + rows(1) + kind +
                               Purge(2) + rows(2) + kind + Purge(3) + Leave(kTutor, 0)));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("1", "4", "5"));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), IsEmpty());
}

TEST(NotaSeccionAlumno, PurgeWaitsForTheOtherSubjectsOfTheStudentWhoStays) {
  const GradeSchool school;
  school.Sql(
      "UPDATE AlumnoPte_MatDet SET CodMatDet=3999, Orden=1 WHERE IDAlumnoPte_MatDet=2;"
      "INSERT INTO Profesor_Pte VALUES (2,3999)");
  const auto result = RunScript(school, OpenSectionByStudent(1, 3113) + "ver\n", Teacher());
  const auto traffic = Traffic(result);
  auto expected = Load(kTeacher, 1, 1, {{1, 3112, 2}});
  expected.insert(expected.begin() + 1, KindOf(3999));
  expected = expected + Purge(2);
  const auto first = std::find(traffic.begin(), traffic.end(), expected.front());
  ASSERT_GE(traffic.end() - first, static_cast<std::ptrdiff_t>(expected.size()));
  EXPECT_THAT(Lines(first, first + static_cast<std::ptrdiff_t>(expected.size())),
              ElementsAreArray(expected));
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").size(), 2U);
}

}  // namespace
}  // namespace quorvane::test

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// Entry by subject: what it refuses, leaves out and fails at.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNothing =
    "informacion \"Zendria Escuela\" \"No exiten alumnos o materias para introducir notas\"";
constexpr const char* kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";

TEST(NotaMateria, NothingToGradeEndsInItsMessage) {
  const GradeSchool school;
  for (const auto subject : {3111, 3112, 3113}) school.Bloquea(9, 1, subject, 77, 500);
  const auto result = RunScript(school, OpenBySubject() + "ver\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("INSERT INTO"))));
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
}

TEST(NotaMateria, OwnPublicationRefusesTheFormAndNoSecondMessageFollows) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,1)");
  const auto result =
      RunScript(school, OpenBySubject() + "ver\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kInUse));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaMateria1");
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOneBySubject(kTutor, 1) + Lines{FormLoad(kTutor, 1).front()} +
                               Leave(kTutor, 0)));
}

TEST(NotaMateria, SubjectLockedBySomebodyElseIsNotOffered) {
  const GradeSchool school;
  school.Bloquea(9, 1, 3111, 77, 500);
  const FormView form(RunScript(school, OpenBySubject() + "ver\n", Tutor()));
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Francés (1º ESO)=1", "Matemáticas (1º ESO)=2"));
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte WHERE CodPublicacion=1 ORDER BY 1"),
              ElementsAre("3112", "3113"));
}

// Its last statement names a table that isn't there.
TEST(NotaMateria, PurgeOfASubjectThatIsGoneStopsAndKeepsTheRow) {
  const GradeSchool school;
  school.Sql(
      "DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111;"
      "INSERT INTO EvaluacionActaPte VALUES (1,2,4,0,0,0,0,0)");
  const auto result = RunScript(school, OpenBySubject(), Tutor());
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"),
              ElementsAre(::testing::AllOf(HasSubstr("-2147467259 "),
                                           HasSubstr("AlumnoPte_MateriaDetalles"))));
  const auto traffic = Traffic(result);
  ASSERT_GE(traffic.size(), 3U);
  EXPECT_THAT(Lines(traffic.end() - 3, traffic.end()),
              ElementsAre(Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2"),
                          Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=2"),
                          Sql("DELETE FROM AlumnoPte_MateriaDetalles WHERE IDAlumnoPte_MatDet=2")));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM AlumnoPte_MatDet"), ElementsAre("5"));
  EXPECT_THAT(school.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST(NotaMateria, SubjectOfAnotherKindStopsTheLoadAtAFieldThatIsNotThere) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3116, 2), 1, 402);
  const auto result = RunScript(school, OpenBySubject(), Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_EQ(Traffic(result).back(),
            Sql("SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
                "CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles=3116)"));
}

TEST(NotaMateria, ValuesAreLeftOutAndNotLocked) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3115, 2), 1);
  const FormView form(RunScript(school, OpenBySubject() + "ver\n", Tutor()));
  EXPECT_EQ(form.Entries("cboMaterias").size(), 3U);
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte WHERE CodMatDet=3115"), IsEmpty());
}

// The subject is its own key here.
TEST(NotaMateria, SubjectThatAStudentOwesTwiceIsADuplicateKey) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(3, 3113, 2), 1);
  EXPECT_THAT(RunScript(school, OpenBySubject(), Tutor()).Of("error"),
              ElementsAre(HasSubstr("457 ")));
}

TEST(NotaMateria, OrderBeyondAByteIsAnOverflow) {
  const GradeSchool school;
  school.Sql("UPDATE AlumnoPte_MatDet SET Orden=256 WHERE IDAlumnoPte_MatDet=4");
  EXPECT_THAT(RunScript(school, OpenBySubject(), Tutor()).Of("error"),
              ElementsAre(HasSubstr("6 ")));
}

}  // namespace
}  // namespace quorvane::test

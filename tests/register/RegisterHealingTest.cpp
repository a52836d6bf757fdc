#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

std::vector<std::string> DeletesOf(int pendiente) {
  const auto id = std::to_string(pendiente);
  return {"delete from evaluacionpte where codAlumnoPte_MatDet=" + id,
          "delete from evaluacionactapte where codAlumnoPte_MatDet=" + id,
          "delete from alumnopte_matdet where idAlumnoPte_MatDet=" + id};
}

std::vector<std::string> Deletes(const ScriptResult& run) {
  std::vector<std::string> deletes;
  for (const auto& statement : run.Sql())
    if (statement.starts_with("delete") || statement.starts_with("Delete"))
      deletes.push_back(statement);
  return deletes;
}

/// Opens the register and leaves it with Cancel: what happened is for good.
ScriptResult OpenAndCancel(const SmallSchool& school) {
  auto run = RunScript(school, kOpen + "pulsar cmdCancelar\n");
  EXPECT_EQ(run.status, 0) << run.Text();
  return run;
}

TEST(RegisterHealingTest, AStudentWhoIsGoneDisappearsOnOpeningAnyRegister) {
  const SmallSchool school;
  const auto gone = school.Pendiente(98, 3111, 1);
  school.Evalua(gone, 1, 105);
  school.Evalua(gone, 4, 105);
  static_cast<void>(school.Pendiente(98, 3112, 2));
  static_cast<void>(school.Pendiente(99, 3111, 1));
  school.Registra(331, 98);
  school.Registra(331, 99);
  school.Registra(331, 5);
  const auto statements = OpenAndCancel(school).Sql();
  const auto purge = [](const std::string& id) -> std::vector<std::string> {
    return {
        "Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT "
        "idAlumnopte_matdet FROM Alumnopte_matdet WHERE codalumno=" +
            id + ")",
        "Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet "
        "FROM Alumnopte_matdet WHERE codalumno=" +
            id + ")",
        "Delete From Seccion_AlumnoPte where codalumno=" + id,
        "Delete From Alumnopte_matdet where codalumno=" + id};
  };
  auto expected = OpeningStatements();
  const auto deletes = Join({purge("98"), purge("99")});
  expected.insert(expected.begin() + 1, deletes.begin(), deletes.end());
  EXPECT_THAT(std::vector(statements.begin() + 3, statements.end()), ElementsAreArray(expected));
  EXPECT_THAT(school.Modulo(), ElementsAre("Seccion_AlumnoPte 331|5|0|0"));
}

TEST(RegisterHealingTest, ASubjectDetailThatIsGoneDisappearsFromTheRegister) {
  const SmallSchool school;
  school.Registra(331, 5);
  const auto gone = school.Pendiente(5, 9999, 1);
  school.Evalua(gone, 2, 105);
  school.Evalua(gone, 6, 105);
  const auto statements = OpenAndCancel(school).Sql();
  auto expected = OpeningStatements();
  const std::vector<std::string> deletes{
      "Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM "
      "Alumnopte_matdet WHERE codmatdet=9999)",
      "Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM "
      "Alumnopte_matdet WHERE codmatdet=9999)",
      "Delete From Alumnopte_matdet where codmatdet=9999"};
  expected.insert(expected.begin() + 2, deletes.begin(), deletes.end());
  EXPECT_THAT(std::vector(statements.begin() + 3, statements.end()), ElementsAreArray(expected));
  EXPECT_THAT(school.Modulo(), ElementsAre("Seccion_AlumnoPte 331|5|0|0"));
}

TEST(RegisterHealingTest, APlaceOfAMissingStudentWithoutSubjectsIsPassedOver) {
  const SmallSchool school;
  school.Registra(321, 99);
  school.Registra(321, 1);
  const auto run = RunScript(school, kOpen + "ver\n");
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[1]");
  EXPECT_THAT(school.Modulo(), Contains("Seccion_AlumnoPte 321|99|0|0"));
}

TEST(RegisterHealingTest, ASubjectThatStandsTwiceWithItsEvaluationsLosesTheSecond) {
  const SmallSchool school;
  school.Registra(321, 1);
  const auto first = school.Pendiente(1, 3111, 1);
  const auto second = school.Pendiente(1, 3111, 2);
  school.Evalua(first, 1, 105);
  school.Evalua(second, 1, 107);
  const auto run = OpenAndCancel(school);
  EXPECT_THAT(Deletes(run), ElementsAreArray(DeletesOf(second)));
  // One subject was seen, so one lock test.
  auto expected = OpeningStatements({3111});
  const auto deletes = DeletesOf(second);
  expected.insert(expected.begin() + 4, deletes.begin(), deletes.end());
  const auto statements = run.Sql();
  EXPECT_THAT(std::vector(statements.begin() + 3, statements.end()), ElementsAreArray(expected));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet"), ElementsAre("1"));
  EXPECT_THAT(school.Rows("SELECT CodAlumnoPte_MatDet, CodNota FROM EvaluacionPte"),
              ElementsAre("1|105"));
  EXPECT_THAT(Deletes(OpenAndCancel(school)), IsEmpty());
}

TEST(RegisterHealingTest, EachDoubledEvaluationDeletesOnceMore) {
  const SmallSchool school;
  school.Registra(321, 1);
  const auto first = school.Pendiente(1, 3111, 1);
  const auto second = school.Pendiente(1, 3111, 2);
  for (const auto pendiente : {first, second})
    for (const auto evaluacion : {1, 2, 4}) school.Evalua(pendiente, evaluacion);
  EXPECT_THAT(Deletes(OpenAndCancel(school)),
              ElementsAreArray(Join({DeletesOf(second), DeletesOf(second), DeletesOf(second)})));
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionPte"), 2);
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionActaPte"), 1);
}

TEST(RegisterHealingTest, ASubjectThatComesBackAfterAnotherLosesItsLastRow) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 1), 1);
  static_cast<void>(school.Pendiente(1, 3112, 2));
  const auto third = school.Pendiente(1, 3111, 3);
  school.Evalua(third, 2);
  const auto run = OpenAndCancel(school);
  EXPECT_THAT(Deletes(run), ElementsAreArray(DeletesOf(third)));
  EXPECT_THAT(run.Sql(),
              Contains("SELECT codmatdet FROM BloqueoPte where codmatdet=3111").Times(2));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet"),
              ElementsAre("1", "2"));
}

TEST(RegisterHealingTest, OfSeveralRowsThatComeBackAfterAnotherOnlyTheLastGoes) {
  const SmallSchool school;
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  static_cast<void>(school.Pendiente(1, 3112, 2));
  school.Evalua(school.Pendiente(1, 3111, 3), 2);
  const auto last = school.Pendiente(1, 3111, 4);
  school.Evalua(last, 3);
  EXPECT_THAT(Deletes(OpenAndCancel(school)), ElementsAreArray(DeletesOf(last)));
}

TEST(RegisterHealingTest, NeighboursOfOneSubjectWithoutACommonEvaluationAreOneSubject) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 1), 1);
  school.Evalua(school.Pendiente(1, 3111, 2), 2);
  static_cast<void>(school.Pendiente(1, 3111, 3));
  const auto run = RunScript(school, kOpen + "pulsar cmdPropiedades\nver\n");
  EXPECT_THAT(Deletes(run), IsEmpty());
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::EndsWith(R"x(["Lengua (1º ESO)","","","","","X","X","","","1"]])x"));
}

TEST(RegisterHealingTest, AFailureOfTheDeletesIsNotCaught) {
  for (const auto failing : {0, 1, 2}) {
    const SmallSchool school;
    school.Registra(321, 1);
    const auto first = school.Pendiente(1, 3111, 1);
    const auto second = school.Pendiente(1, 3111, 2);
    school.Evalua(first, 1);
    school.Evalua(second, 1);
    // Two purges, the register and one lock test come before.
    const auto run = RunScript(school,
                               "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\n"
                               "elegir cboSeccion =321\nfallo " +
                                   std::to_string(5 + failing) + "\npulsar cmdAceptar\n");
    EXPECT_THAT(run.Of("error"), ElementsAre("-2147467259 fallo")) << run.Text();
    EXPECT_EQ(Deletes(run).size(), static_cast<std::size_t>(failing) + 1);
  }
}

TEST(RegisterHealingTest, AnEvaluationThatIsGoneIsNotPartOfTheSubject) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 1), 3);
  school.Sql("DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=3");
  const auto run = RunScript(school, kOpen + "pulsar cmdPropiedades\nver\n");
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::EndsWith(R"x(["Lengua (1º ESO)","","","","","","","","1"]])x"));
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionPte"), 1);
}

}  // namespace
}  // namespace quorvane::test

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// What saving leaves in the database. Stored rows read: the grades of columns 1 to 5, `Evaluado`,
// `UltimaEvaluada`.

namespace quorvane::test {
namespace {

class NotaManualSaveTest : public OneFormTest<kByStudent> {
 protected:
  ScriptResult Save(const std::string& gestures = {}) const {
    return Play(gestures + "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  }
};

TEST_F(NotaManualSaveTest, AllFiveGradesAreStored) {
  school_.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (13,'Concepto',2,-1,-1,0,-1,10), "
      "(14,'Procedimiento',3,-1,-1,0,-1,10), (15,'Actitud',4,-1,-1,0,-1,10);"
      "INSERT INTO Nota (IDNota, DescripcionCorta, Aprobado, NotaExcepcional, CodModelo, "
      "CodCurso, CodNumEvaluacion, CodMateria, CodPersonal, CodTipoNota) VALUES "
      "(120,'C',-1,0,0,0,0,0,0,13), (130,'P',-1,0,0,0,0,0,0,14), "
      "(140,'A',-1,0,0,0,0,0,0,15)");
  Save(
      "editar rtvNotasAlumno 1 1 =107\neditar rtvNotasAlumno 1 2 =120\n"
      "editar rtvNotasAlumno 1 3 =130\neditar rtvNotasAlumno 1 4 =140\n"
      "editar rtvNotasAlumno 1 5 =202\n");
  EXPECT_EQ(school_.Stored(4, 1), "107|120|130|140|202|-1|-1");
}

TEST_F(NotaManualSaveTest, SavingWithoutAChangeRewritesAllRowsAndMovesTheMark) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=103, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
      "CodAlumnoPte_MatDet=2;"
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=2");
  Save();
  EXPECT_EQ(school_.Stored(2, 1), "103|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(2, 2), "107|0|0|0|0|-1|0") << "though it is the later evaluation";
  EXPECT_EQ(school_.Stored(1, 1), "0|0|0|0|0|0|0");
}

TEST_F(NotaManualSaveTest, ClearedGradeKeepsItsEvaluadoAndItsMark) {
  Save("editar rtvNotasAlumno 1 1 =107\n");
  EXPECT_EQ(school_.Stored(4, 1), "107|0|0|0|0|-1|-1");
  Save("editar rtvNotasAlumno 1 1 #0\n");
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|0|-1|-1");
}

TEST_F(NotaManualSaveTest, OtherGradesWithoutTheMainOneAreStoredAndEvaluadoStays) {
  const auto result = Save("editar rtvNotasAlumno 1 5 =201\n");
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|201|0|0");
  EXPECT_THAT(Traffic(result), Contains(SaveUngraded(1, 4, {0, 201, 0, 0})));
}

TEST_F(NotaManualSaveTest, EvaluationWithoutAMainGradeLeavesTheMarkWhereItWas) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=2");
  Save();
  EXPECT_EQ(school_.Stored(2, 2), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(2, 1), "0|0|0|0|0|0|0");
}

TEST_F(NotaManualSaveTest, GradeThatIsGoneStopsTheSaveInTheMiddle) {
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\n"
      "editar rtvNotasAlumno 1 1 =108\n"
      "sql \"DELETE FROM Nota WHERE IDNota=108\"\n"
      "pulsar cmdAceptar\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(school_.Stored(4, 1), "107|0|0|0|0|-1|-1") << "what was written stays";
  EXPECT_EQ(school_.Stored(2, 1), "0|0|0|0|0|0|0");
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("3"));
}

TEST_F(NotaManualSaveTest, GradeThatIsGoneStopsTheLoad) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=999 WHERE CodAlumnoPte_MatDet=2");
  const auto result = Play();
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), Sql(expected::kPasses, {999}));
}

TEST_F(NotaManualSaveTest, RowThatIsMissingIsNoError) {
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 =107\n"
      "sql \"DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=4\"\n"
      "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(result.status, 0) << result.Text();
}

TEST_F(NotaManualSaveTest, TeacherRewritesHisOwnSubjectsAlone) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=2");
  Play("pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n", Teacher());
  EXPECT_EQ(school_.Stored(2, 1), "107|0|0|0|0|0|0") << "not his: neither mark nor `Evaluado`";
}

}  // namespace
}  // namespace quorvane::test

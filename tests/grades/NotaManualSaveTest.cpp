#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"

// What saving leaves in the database. Stored rows read: the grades of columns 1 to 5, `Evaluado`,
// `UltimaEvaluada`.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

ScriptResult Save(const GradeSchool& school, int evaluacion, const std::string& gestures = "") {
  return RunScript(
      school, Open(evaluacion) + gestures + "pulsar cmdAceptar\nver\npulsar cmdNotaManual1(1)\n",
      Tutor());
}

TEST(NotaManualSave, SavingEndsAtStepOneWithItsChoices) {
  const GradeSchool school;
  const auto result = Save(school, 1);
  const FormView stepOne(result);
  EXPECT_EQ(stepOne.Form(), "frmNotaManual1");
  EXPECT_EQ(stepOne.Index("cboEvaluaciones"), 0);
  EXPECT_TRUE(stepOne.Enabled("cmdNotaManual1(0)"));
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("124"));
  EXPECT_THAT(result.Of("descarga"), ElementsAre("frmNotaManual", "frmNotaManual1"));
}

TEST(NotaManualSave, CancelWritesNothingAndAsksNothing) {
  const GradeSchool school;
  const auto before = school.Modulo();
  const auto result = RunScript(school,
                                Open() +
                                    "editar rtvNotasAlumno 1 1 =107\npulsar cmdCancelar\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                Tutor());
  EXPECT_THAT(result.Of("mensaje"), ::testing::IsEmpty());
  EXPECT_EQ(school.Modulo(), before);
}

TEST(NotaManualSave, AllFiveGradesAreStored) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (13,'Concepto',2,-1,-1,0,-1,10), "
      "(14,'Procedimiento',3,-1,-1,0,-1,10), (15,'Actitud',4,-1,-1,0,-1,10);"
      "INSERT INTO Nota (IDNota, DescripcionCorta, Aprobado, NotaExcepcional, CodModelo, "
      "CodCurso, CodNumEvaluacion, CodMateria, CodPersonal, CodTipoNota) VALUES "
      "(120,'C',-1,0,0,0,0,0,0,13), (130,'P',-1,0,0,0,0,0,0,14), "
      "(140,'A',-1,0,0,0,0,0,0,15)");
  Save(school, 1,
       "editar rtvNotasAlumno 1 1 =107\neditar rtvNotasAlumno 1 2 =120\n"
       "editar rtvNotasAlumno 1 3 =130\neditar rtvNotasAlumno 1 4 =140\n"
       "editar rtvNotasAlumno 1 5 =202\n");
  EXPECT_EQ(school.Stored(4, 1), "107|120|130|140|202|-1|-1");
}

TEST(NotaManualSave, SavingWithoutAChangeRewritesAllRowsAndMovesTheMark) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=103, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
      "CodAlumnoPte_MatDet=2;"
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=2");
  Save(school, 1);
  EXPECT_EQ(school.Stored(2, 1), "103|0|0|0|0|-1|-1");
  EXPECT_EQ(school.Stored(2, 2), "107|0|0|0|0|-1|0") << "though it is the later evaluation";
  EXPECT_EQ(school.Stored(1, 1), "0|0|0|0|0|0|0");
}

TEST(NotaManualSave, ClearedGradeKeepsItsEvaluadoAndItsMark) {
  const GradeSchool school;
  Save(school, 1, "editar rtvNotasAlumno 1 1 =107\n");
  EXPECT_EQ(school.Stored(4, 1), "107|0|0|0|0|-1|-1");
  Save(school, 1, "editar rtvNotasAlumno 1 1 #0\n");
  EXPECT_EQ(school.Stored(4, 1), "0|0|0|0|0|-1|-1");
}

TEST(NotaManualSave, OtherGradesWithoutTheMainOneAreStoredAndEvaluadoStays) {
  const GradeSchool school;
  const auto result = Save(school, 1, "editar rtvNotasAlumno 1 5 =201\n");
  EXPECT_EQ(school.Stored(4, 1), "0|0|0|0|201|0|0");
  EXPECT_THAT(Traffic(result), Contains(SaveUngraded(1, 4, {0, 201, 0, 0})));
}

TEST(NotaManualSave, EvaluationWithoutAMainGradeLeavesTheMarkWhereItWas) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=2");
  Save(school, 1);
  EXPECT_EQ(school.Stored(2, 2), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school.Stored(2, 1), "0|0|0|0|0|0|0");
}

TEST(NotaManualSave, GradeThatIsGoneStopsTheSaveInTheMiddle) {
  const GradeSchool school;
  const auto result = RunScript(school,
                                Open() +
                                    "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\n"
                                    "editar rtvNotasAlumno 1 1 =108\n"
                                    "sql \"DELETE FROM Nota WHERE IDNota=108\"\n"
                                    "pulsar cmdAceptar\n",
                                Tutor());
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(school.Stored(4, 1), "107|0|0|0|0|-1|-1") << "what was written stays";
  EXPECT_EQ(school.Stored(2, 1), "0|0|0|0|0|0|0");
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("3"));
}

TEST(NotaManualSave, GradeThatIsGoneStopsTheLoad) {
  const GradeSchool school;
  school.Sql("UPDATE EvaluacionPte SET CodNota=999 WHERE CodAlumnoPte_MatDet=2");
  const auto result = RunScript(school, Open(), Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), Sql("SELECT Aprobado FROM Nota WHERE IDNota=999"));
}

TEST(NotaManualSave, RowThatIsMissingIsNoError) {
  const GradeSchool school;
  const auto result =
      RunScript(school,
                Open() +
                    "editar rtvNotasAlumno 1 1 =107\n"
                    "sql \"DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=4\"\n"
                    "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n",
                Tutor());
  EXPECT_EQ(result.status, 0) << result.Text();
}

TEST(NotaManualSave, TeacherRewritesHisOwnSubjectsAlone) {
  const GradeSchool school;
  school.Sql("UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=2");
  RunScript(school, Open() + "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n", Teacher());
  EXPECT_EQ(school.Stored(2, 1), "107|0|0|0|0|0|0") << "not his: neither mark nor `Evaluado`";
}

TEST(NotaManualSave, ManyRoundsNestWithoutHarm) {
  const GradeSchool school;
  std::string script =
      "nodo 124\nelegir cboCursos =32\nelegir cboSecciones =321\n"
      "elegir cboEvaluaciones =1\n";
  for (int i = 0; i < 20; ++i)
    script += std::string("pulsar cmdNotaManual1(0)\neditar rtvNotasAlumno 1 1 #") +
              std::to_string(i % 5 + 1) + "\npulsar cmdAceptar\n";
  const auto result = RunScript(school, script + "pulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_THAT(school.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
  EXPECT_THAT(result.Of("carga").size(), 21U) << "a fresh form each time";
}

}  // namespace
}  // namespace quorvane::test

#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kAccept = "pulsar cmdAceptar\n";
const std::string kEditFirst = "fila msgAlumnos 0\npulsar cmdPropiedades\n";

std::string AddSubject(int section, int matDet) {
  return "pulsar cmdAgregar\nelegir cboCurso =" + std::to_string(section / 10) +
         "\nelegir cboSeccion =" + std::to_string(section) +
         "\nelegir cboMateria =" + std::to_string(matDet) + "\n" + kAccept;
}

TEST(RegisterSavingTest, WithNothingChangedTheFirstSaveGivesEachSubjectDetailARow) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  school.Profesor(1, 3112);
  const auto first = RunScript(school, kOpen + kAccept);
  std::vector<std::string> lines;
  for (const auto matDet : {3113, 3114, 3111, 3116, 3115, 3123, 3121, 3122})
    lines.push_back("sql centro INSERT INTO Profesor_Pte VALUES (0," + std::to_string(matDet) +
                    ")");
  lines.insert(lines.end(), {"descarga frmAlumnoPendiente", "vuelve 123"});
  EXPECT_THAT(first.After("pulsar cmdAceptar"), ElementsAreArray(lines));
  EXPECT_THAT(first.Of("mensaje"), IsEmpty());
  const auto before = school.Modulo();
  const auto second = RunScript(school, kOpen + kAccept);
  EXPECT_THAT(second.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST(RegisterSavingTest, BeforeRevisionNineNoTeacherIsWritten) {
  const SmallSchool school;
  const AsRevision older(8);
  RunScript(school, kOpen + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM Profesor_Pte"), IsEmpty());
}

TEST(RegisterSavingTest, TeachersAreWrittenBeforeStudents) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Sql("DELETE FROM Profesor_Pte WHERE CodMatDet=3122");
  const auto run = RunScript(school, kOpen +
                                         "pulsar cmdListar\nelegir lstDisponibles =1\n"
                                         "pulsar cmdAgregarUno\n" +
                                         kAccept + kAccept);
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro INSERT INTO Profesor_Pte VALUES (0,3122)",
                          StartsWith("sql centro DELETE FROM Seccion_AlumnoPte"),
                          "sql centro INSERT INTO Seccion_AlumnoPte VALUES (321,1,0,0)",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST(RegisterSavingTest, AStudentWithoutSubjectsGetsHisPlaceAlone) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(school, kOpen +
                                         "pulsar cmdListar\nelegir lstDisponibles =1\n"
                                         "pulsar cmdAgregarUno\n" +
                                         kAccept + kAccept);
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro DELETE FROM Seccion_AlumnoPte WHERE codSeccion = 321 AND "
                          "codAlumno = 1",
                          "sql centro INSERT INTO Seccion_AlumnoPte VALUES (321,1,0,0)",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST(RegisterSavingTest, ALeftoverPlaceIsNotDoubled) {
  const SmallSchool school;
  const auto run = RunScript(
      school, kOpen +
                  "pulsar cmdListar\nelegir lstDisponibles =1\n"
                  "pulsar cmdAgregarUno\n" +
                  kAccept + "sql \"INSERT INTO Seccion_AlumnoPte VALUES (321,1,0,0)\"\n" + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte"), ElementsAre("321|1|0|0"))
      << run.Text();
}

TEST(RegisterSavingTest, ANewStudentIsWrittenWithHisSubjectsAndTheirEvaluations) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  const auto run = RunScript(
      school, kOpen + "pulsar cmdListar\nelegir lstDisponibles =1\npulsar cmdAgregarUno\n" +
                  kAccept + kEditFirst + AddSubject(311, 3111) + AddSubject(312, 3122) +
                  "pulsar cmdPropiedades\nelegir lstDisponibles =6\npulsar cmdAgregarUno\n"
                  "elegir lstDisponibles =1\npulsar cmdAgregarUno\n" +
                  kAccept + kAccept + kAccept);
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro DELETE FROM Seccion_AlumnoPte WHERE codSeccion = 321 AND "
                          "codAlumno = 1",
                          "sql centro INSERT INTO Seccion_AlumnoPte VALUES (321,1,0,0)",
                          "sql centro SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
                          "sql centro INSERT INTO Alumnopte_MatDet VALUES (1,1,3111,1,0)",
                          "sql centro SELECT MAX(IDEvaluacionActaPte) FROM [EvaluacionActaPte]",
                          "sql centro INSERT INTO EvaluacionActaPte VALUES (1,1,6,0,0,0,0,0)",
                          "sql centro SELECT MAX(IDEvaluacionPte) FROM [EvaluacionPte]",
                          "sql centro INSERT INTO EvaluacionPte VALUES (1,1,1,0,0,0,0,0,0,0)",
                          "sql centro SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
                          "sql centro INSERT INTO Alumnopte_MatDet VALUES (2,1,3122,2,0)",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST(RegisterSavingTest, ASubjectWithoutEvaluationsGetsItsRowAlone) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  RunScript(school, kOpen + kEditFirst + AddSubject(311, 3111) + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), ElementsAre("1|1|3111|1|0"));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), IsEmpty());
}

TEST(RegisterSavingTest, AnOrdinaryAndAFinalEvaluationOfANewSubjectGoToATableEach) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  school.Evalua(school.Pendiente(5, 3311, 1), 3, 105);
  RunScript(school, kOpen + kEditFirst + AddSubject(311, 3111) +
                        "pulsar cmdPropiedades\nelegir lstDisponibles =2\npulsar cmdAgregarUno\n"
                        "elegir lstDisponibles =4\npulsar cmdAgregarUno\n" +
                        kAccept + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2"),
              ElementsAre("2|2|2|0|0|0|0|0|0|0"));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), ElementsAre("1|2|4|0|0|0|0|0"));
}

TEST(RegisterSavingTest, ADeletedStudentLosesHisPlacesOnOtherRegistersToo) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  school.Registra(331, 1);
  school.Registra(331, 5);
  RunScript(school, kOpen + "pulsar cmdListar\npulsar cmdEliminarTodos\n" + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT CodSeccion, CodAlumno FROM Seccion_AlumnoPte"),
              ElementsAre("331|5"));
}

TEST(RegisterSavingTest, KeysAreTheLargestPlusOne) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Sql(
      "INSERT INTO AlumnoPte_MatDet VALUES (41,5,3311,1,0);"
      "INSERT INTO EvaluacionPte VALUES (70,41,1,0,0,0,0,0,0,0)");
  RunScript(school, kOpen + kEditFirst + AddSubject(311, 3111) +
                        "pulsar cmdPropiedades\nelegir lstDisponibles =1\npulsar cmdAgregarUno\n" +
                        kAccept + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT IDEvaluacionPte, CodAlumnoPte_MatDet FROM EvaluacionPte"),
              ElementsAre("70|41", "71|42"));
}

TEST(RegisterSavingTest, OneRemovedAndOneAddedDeletesInsertsAndOrdersThoseThatStay) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  static_cast<void>(school.Pendiente(1, 3112, 2));
  const auto run = RunScript(school, kOpen + kEditFirst + "pulsar cmdEliminar\n" +
                                         AddSubject(311, 3113) + kAccept + kAccept);
  EXPECT_THAT(
      run.After("pulsar cmdAceptar"),
      ElementsAre("sql centro DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT "
                  "idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=3111 AND CodAlumno=1)",
                  "sql centro DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT "
                  "idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=3111 AND CodAlumno=1)",
                  "sql centro DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=3111 AND CodAlumno=1",
                  "sql centro SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=3112 "
                  "AND CodAlumno=1",
                  "sql centro UPDATE AlumnoPte_MatDet SET Orden=1 WHERE IDAlumnoPte_MatDet=2",
                  "sql centro SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
                  "sql centro INSERT INTO Alumnopte_MatDet VALUES (3,1,3113,2,0)",
                  "descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST(RegisterSavingTest, OnALockedRegisterNothingIsSavedWhateverWasChanged) {
  const SmallSchool school;
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  school.Bloquea(2, 1, 3111, 3, 7);
  const auto before = school.Modulo();
  const auto run =
      RunScript(school, kOpen + "pulsar cmdListar\npulsar cmdAgregarTodos\n" + kAccept +
                            "fila msgAlumnos 1\npulsar cmdPropiedades\npulsar cmdEliminar\n" +
                            kAccept + "ver\n" + kAccept + "pulsar cmdCancelar\n");
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[3,1,2]");
  EXPECT_THAT(run.Of("rechazo"), testing::SizeIs(1));
  EXPECT_EQ(school.Modulo(), before);
}

TEST(RegisterSavingTest, AChangedSubjectWhoseRowAnotherUserDeletedFails) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  static_cast<void>(school.Pendiente(1, 3112, 2));
  const auto run =
      RunScript(school, kOpen + kEditFirst + "pulsar cmdBajar\n" + kAccept +
                            "sql \"DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=3112\"\n" +
                            kAccept + "nodo 123\npulsar cmdCancelar\n");
  EXPECT_THAT(run.Of("error"), ElementsAre(StartsWith("3021 ")));
  // What was written before stays.
  EXPECT_THAT(school.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet"), ElementsAre("3111|2"));
  EXPECT_THAT(run.After("pulsar cmdCancelar"), Contains("vuelve 123"));
}

TEST(RegisterSavingTest, AKeyThatAnotherUserTookIsTheEnginesError) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 1);
  // Another user's row appears between the key and the INSERT.
  school.Sql(
      "CREATE TRIGGER otro BEFORE INSERT ON AlumnoPte_MatDet WHEN NEW.CodAlumno=1 BEGIN "
      "INSERT INTO AlumnoPte_MatDet VALUES (NEW.IDAlumnoPte_MatDet,5,3311,1,0); END");
  const auto run =
      RunScript(school, kOpen + kEditFirst + AddSubject(311, 3111) + kAccept + kAccept);
  EXPECT_THAT(run.Of("error"), ElementsAre(StartsWith("-2147467259 ")));
}

TEST(RegisterSavingTest, TwoRegistersShareAStudentAndHisSubjects) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(321, 5);
  school.Registra(331, 5);
  school.Evalua(school.Pendiente(5, 3111, 1), 1, 105);
  const std::string open331 =
      "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =33\nelegir cboSeccion =331\n" + kAccept;
  RunScript(school, kOpen + kEditFirst + AddSubject(312, 3122) + kAccept + kAccept);
  const auto there = RunScript(school, open331 + kEditFirst + "ver\n");
  EXPECT_EQ(View(there, "msgMaterias", "datos"), "[0,3111,3122]");
  // Taking him off one register takes him off both, with his subjects.
  RunScript(school, open331 + "pulsar cmdListar\npulsar cmdEliminarTodos\n" + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), IsEmpty());
  const auto here = RunScript(school, kOpen + "ver\n");
  EXPECT_EQ(View(here, "msgAlumnos", "datos"), "[]");
}

TEST(RegisterSavingTest, StudentsOfOtherRegistersAreLeftAlone) {
  const SmallSchool school;
  GiveRowsToAllMaterias(school);
  school.Registra(331, 5);
  school.Evalua(school.Pendiente(5, 3111, 1), 1, 105);
  const auto before = school.Modulo();
  RunScript(school, kOpen + kAccept);
  EXPECT_EQ(school.Modulo(), before);
}

}  // namespace
}  // namespace quorvane::test

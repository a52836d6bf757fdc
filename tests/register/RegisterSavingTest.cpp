#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

const std::string kEditFirst = "fila msgAlumnos 0\n" + kProperties;

using RegisterSavingTest = RegisterTest;
using RegisterStudentsTest = RegisterWithRowsTest;

TEST_F(RegisterSavingTest, WithNothingChangedTheFirstSaveGivesEachSubjectDetailARow) {
  Registra({1});
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  school.Profesor(1, 3112);
  const auto first = Run(kOpen + kAccept);
  Lines inserts;
  for (const auto matDet : {3113, 3114, 3111, 3116, 3115, 3123, 3121, 3122})
    inserts.push_back(InsertTeacher(0, matDet));
  EXPECT_EQ(Saved(first), inserts);
  EXPECT_THAT(first.Of("mensaje"), IsEmpty());
  const auto before = school.Modulo();
  const auto second = Run(kOpen + kAccept);
  EXPECT_THAT(Saved(second), IsEmpty());
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(RegisterStudentsTest, TeachersAreWrittenBeforeStudents) {
  school.Sql("DELETE FROM Profesor_Pte WHERE CodMatDet=3122");
  const auto run = Run(kOpen + kList + TakeIn(1) + kAccept + kAccept);
  EXPECT_EQ(Saved(run), Join({{InsertTeacher(0, 3122)}, InsertStudent(1)}));
}

TEST_F(RegisterSavingTest, ALeftoverPlaceIsNotDoubled) {
  const auto run = Run(kOpen + kList + TakeIn(1) + kAccept +
                       "sql \"INSERT INTO Seccion_AlumnoPte VALUES (321,1,0,0)\"\n" + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte"), ElementsAre("321|1|0|0"))
      << run.Text();
}

TEST_F(RegisterStudentsTest, ANewStudentIsWrittenWithHisSubjectsAndTheirEvaluations) {
  const auto run =
      Run(kOpen + kList + TakeIn(1) + kAccept + kEditFirst + AddSubject(3111) + AddSubject(3122) +
          kProperties + TakeIn(6) + TakeIn(1) + kAccept + kAccept + kAccept);
  EXPECT_EQ(Saved(run), Join({InsertStudent(1), InsertSubject(1, 3111, 1), InsertFinal(1, 1, 6),
                              InsertOrdinary(1, 1, 1), InsertSubject(2, 3122, 2)}));
}

TEST_F(RegisterStudentsTest, ASubjectWithoutEvaluationsGetsItsRowAlone) {
  Registra({1});
  Run(kOpen + kEditFirst + AddSubject(3111) + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), ElementsAre("1|1|3111|1|0"));
  ExpectEmpty({"EvaluacionPte", "EvaluacionActaPte"});
}

TEST_F(RegisterSavingTest, TheEvaluationsOfANewSubjectGoToATableEachAndKeysAreTheLargestPlusOne) {
  Registra({1});
  school.Sql(
      "INSERT INTO AlumnoPte_MatDet VALUES (41,5,3311,1,0);"
      "INSERT INTO EvaluacionPte VALUES (70,41,3,0,105,0,0,0,0,0)");
  Run(kOpen + kEditFirst + AddSubject(3111) + kProperties + TakeIn(2) + TakeIn(4) + kAccept +
      kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionPte"),
              ElementsAre("70|41|3|0|105|0|0|0|0|0", "71|42|2|0|0|0|0|0|0|0"));
  EXPECT_THAT(school.Rows("SELECT * FROM EvaluacionActaPte"), ElementsAre("1|42|4|0|0|0|0|0"));
}

TEST_F(RegisterStudentsTest, OneRemovedAndOneAddedDeletesInsertsAndOrdersThoseThatStay) {
  Pendientes(1, {3111, 3112});
  const auto run = Run(kOpen + kEditFirst + kRemove + AddSubject(3113) + kAccept + kAccept);
  EXPECT_EQ(Saved(run),
            Join({DeleteSubject(3111), UpdateSubject(3112, 2, 1), InsertSubject(3, 3113, 2)}));
}

TEST_F(RegisterSavingTest, OnALockedRegisterNothingIsSavedWhateverWasChanged) {
  Pendientes(1, {3111});
  school.Bloquea(2, 1, 3111, 3, 7);
  const auto before = school.Modulo();
  const auto run =
      Run(kOpen + kList + "pulsar cmdAgregarTodos\n" + kAccept + "fila msgAlumnos 1\n" +
          kProperties + kRemove + kAccept + kSee + kAccept + kCancel);
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[3,1,2]");
  EXPECT_THAT(run.Of("rechazo"), SizeIs(1));
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(RegisterStudentsTest, AChangedSubjectWhoseRowAnotherUserDeletedFails) {
  Pendientes(1, {3111, 3112});
  const auto run = Run(kOpen + kEditFirst + "pulsar cmdBajar\n" + kAccept +
                       "sql \"DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=3112\"\n" + kAccept +
                       "nodo 123\n" + kCancel);
  ExpectError(run, 3021);
  // What was written before stays.
  EXPECT_THAT(school.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet"), ElementsAre("3111|2"));
  EXPECT_THAT(run.After("pulsar cmdCancelar"), Contains("vuelve 123"));
}

TEST_F(RegisterStudentsTest, AKeyThatAnotherUserTookIsTheEnginesError) {
  Registra({1});
  // Another user's row appears between the key and the INSERT.
  school.Sql(
      "CREATE TRIGGER otro BEFORE INSERT ON AlumnoPte_MatDet WHEN NEW.CodAlumno=1 BEGIN "
      "INSERT INTO AlumnoPte_MatDet VALUES (NEW.IDAlumnoPte_MatDet,5,3311,1,0); END");
  const auto run = Run(kOpen + kEditFirst + AddSubject(3111) + kAccept + kAccept);
  EXPECT_THAT(run.Of("error"), ElementsAre(StartsWith("-2147467259 ")));
}

TEST_F(RegisterStudentsTest, TwoRegistersShareAStudentAndHisSubjects) {
  Registra({5});
  school.Registra(331, 5);
  school.Evalua(school.Pendiente(5, 3111, 1), 1, 105);
  const auto open331 = ChooseSection(331) + kAccept;
  Run(kOpen + kEditFirst + AddSubject(3122) + kAccept + kAccept);
  const auto there = Run(open331 + kEditFirst + kSee);
  EXPECT_EQ(View(there, "msgMaterias", "datos"), "[0,3111,3122]");
  // Taking him off one register takes him off both, with his subjects.
  Run(open331 + kList + "pulsar cmdEliminarTodos\n" + kAccept + kAccept);
  ExpectEmpty({"Seccion_AlumnoPte", "AlumnoPte_MatDet"});
  const auto here = Run(kOpen + kSee);
  EXPECT_EQ(View(here, "msgAlumnos", "datos"), "[]");
}

TEST_F(RegisterStudentsTest, StudentsOfOtherRegistersAreLeftAlone) {
  school.Registra(331, 5);
  school.Evalua(school.Pendiente(5, 3111, 1), 1, 105);
  const auto before = school.Modulo();
  Run(kOpen + kAccept);
  EXPECT_EQ(school.Modulo(), before);
}

}  // namespace
}  // namespace quorvane::test

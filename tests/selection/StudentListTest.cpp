#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

const std::string kName =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM "
    "Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN ";
const std::string kActive =
    " ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON "
    "Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR "
    "FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={}";
const std::string kWhole =
    "centro " + kName +
    "(AlumnoPte_MatDet INNER JOIN EvaluacionPte ON "
    "EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet)" +
    kActive + " AND codNumEvaluacion={} UNION " + kName +
    "(AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
    "EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet)" +
    kActive + " AND codNumEvaluacion={}";
const std::string kSubjectOf =
    " INNER JOIN MateriaDetalles ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet)";
const std::string kHis =
    " AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM profesor_Pte WHERE "
    "CodProfesor={})";
const std::string kTaught =
    "centro " + kName +
    "((AlumnoPte_MatDet INNER JOIN EvaluacionPte ON "
    "EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet)" +
    kSubjectOf + kActive + kHis + " AND codNumEvaluacion={} UNION " + kName +
    "((AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
    "EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet)" +
    kSubjectOf + kActive + kHis + " AND codNumEvaluacion={}";
const std::string kPending =
    "centro SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN "
    "(AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
    "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON "
    "Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON "
    "Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR "
    "FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={} ";
const std::string kPendingTaught =
    "centro SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN "
    "(AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
    "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON "
    "Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON "
    "Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR "
    "FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND AlumnoPte_MatDet.codMatDet IN "
    "(SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={} ";
const std::string kKept =
    "centro SELECT codAlumno FROM TipoMateria INNER JOIN (MateriaDetalles INNER JOIN "
    "Alumno_MateriaDetalles ON MateriaDetalles.IDMateriaDetalles = "
    "Alumno_MateriaDetalles.codMateriaDetalles) ON "
    "MateriaDetalles.codTipoMateria=TipoMateria.IDTipoMateria WHERE IDAlumno_MateriaDetalles in(";
const std::string kKeptEnd = ") AND codEspecificarTipoMateria=4";

std::string Failed(int firstFinal, const std::string& pending) {
  const auto half =
      Fill(
          "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS "
          "Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN "
          "(Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) "
          "ON Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON "
          "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON "
          "Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion={}",
          {firstFinal}) +
      " AND CodAlumnoPte_MatDet IN (" + pending +
      ") AND Nota.Aprobado=0 AND Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND "
      "Seccion_AlumnoPte.codSeccion=321 ";
  return "centro " + half + " UNION " + half;
}

const std::string kShown =
    "centro SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS "
    "Nombre FROM Alumno WHERE IDAlumno IN(";

/// `cboAlumno`: the students of the section's register with rows in an evaluation.
class StudentList : public ::testing::Test {
 protected:
  [[nodiscard]] ScriptResult ChooseEvaluation(int evaluation,
                                              const ScriptOptions& options = Unrestricted()) {
    command = "elegir cboEvaluaciones =" + std::to_string(evaluation);
    return Play(school, kSectionBySubject,
                "elegir cboCursos =32\nelegir cboSecciones =321\n" + command + "\nver", options);
  }
  [[nodiscard]] std::vector<std::string> Read(const ScriptResult& result) const {
    return Statements(result.After(command));
  }
  [[nodiscard]] static std::vector<std::string> Students(const ScriptResult& result) {
    return View(result).Entries("cboAlumno");
  }
  /// The keys that the main grade book has for a placement of the student, as pending keys have.
  void Keep(int key, int student) const {
    school.Sql(
        "INSERT INTO Alumno_MateriaDetalles (IDAlumno_MateriaDetalles, CodAlumno, "
        "CodMateriaDetalles) VALUES (" +
        std::to_string(key) + "," + std::to_string(student) + ",3116)");
  }

  PendingSchool school;
  std::string command;
};

TEST_F(StudentList, OfAnOrdinaryEvaluationLeavesOutWhoHasLeft) {
  const auto result = ChooseEvaluation(1);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kWhole, {321, 1, 321, 1})))
      << result.Text();
  EXPECT_THAT(Students(result), UnorderedElementsAre("Díaz Cano, Marta=1", "Ñúñez Sanz, Íñigo=2"));
}

TEST_F(StudentList, LeavesOutWhoWasTakenOutOfTheYear) {
  school.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=2");
  EXPECT_THAT(Students(ChooseEvaluation(1)), ElementsAre("Díaz Cano, Marta=1"));
}

TEST_F(StudentList, OfTheFirstFinalAndOfHigherOnesTakesThePlainPath) {
  const auto result = ChooseEvaluation(4);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {4}), Fill(kWhole, {321, 4, 321, 4})));
  EXPECT_THAT(Students(result), UnorderedElementsAre("Díaz Cano, Marta=1", "Ñúñez Sanz, Íñigo=2"));
  school.Evalua(3, 6);
  const auto third = ChooseEvaluation(6);
  EXPECT_THAT(Read(third), ElementsAre(Fill(kFinalAndOrder, {6}), Fill(kWhole, {321, 6, 321, 6})));
  EXPECT_THAT(Students(third), ElementsAre("Ñúñez Sanz, Íñigo=2"));
}

TEST_F(StudentList, TheTutorSeesTheWholeSection) {
  EXPECT_THAT(Read(ChooseEvaluation(1, Tutor())),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kWhole, {321, 1, 321, 1})));
}

TEST_F(StudentList, ATeacherSeesTheStudentsWhoOweHisSubject) {
  const auto result = ChooseEvaluation(1, Teacher());
  EXPECT_THAT(Read(result),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kTaught, {321, 2, 1, 321, 2, 1})));
  EXPECT_THAT(Students(result), ElementsAre("Díaz Cano, Marta=1"));
}

// Only when the session changes under the dialog does a teacher without a row in Personal come
// here: nothing is read for him.
TEST_F(StudentList, WithoutStaffNothingIsRead) {
  const std::string choice = "elegir cboEvaluaciones =";
  for (const auto evaluation : {1, 5}) {
    const auto chosen = choice + std::to_string(evaluation);
    const auto result = Play(
        school, kSectionBySubject,
        "elegir cboCursos =32\nsesion perfil=3\nelegir cboSecciones =321\n" + chosen + "\nver");
    EXPECT_THAT(First(Statements(result.After(chosen)), 1),
                ElementsAre(Fill(kFinalAndOrder, {evaluation})));
    EXPECT_THAT(Statements(result.After(chosen)), ::testing::SizeIs(evaluation == 5 ? 2 : 1));
    EXPECT_THAT(Students(result), IsEmpty());
    EXPECT_FALSE(View(result).Enabled("cmdNotaManual1(0)"));
    EXPECT_THAT(result.Of("error"), IsEmpty());
  }
}

TEST_F(StudentList, AProfileBelowZeroSeesTheWholeSection) {
  const std::string choice = "elegir cboEvaluaciones =1";
  const auto result =
      Play(school, kSectionBySubject,
           "elegir cboCursos =32\nsesion perfil=-1\nelegir cboSecciones =321\n" + choice);
  EXPECT_THAT(Statements(result.After(choice)),
              ElementsAre(Fill(kFinalAndOrder, {1}), Fill(kWhole, {321, 1, 321, 1})));
}

TEST_F(StudentList, ALockDoesNotTakeAStudentOffTheList) {
  school.Bloquea(2, 1, 3111, 3, 1);
  EXPECT_THAT(Students(ChooseEvaluation(1)), ::testing::SizeIs(2));
}

TEST_F(StudentList, OfTheSecondFinalHasWhoFailedTheFirst) {
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=107 WHERE CodAlumnoPte_MatDet IN (1,2) AND "
      "CodNumEvaluacion=4;"
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=1 AND "
      "CodNumEvaluacion=5");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kPending, {321, 5}), kKept + "1,2,3,4" + kKeptEnd,
                                        Failed(4, "1,2,3,4")))
      << result.Text();
  EXPECT_THAT(Students(result), ElementsAre("Ñúñez Sanz, Íñigo=2"))
      << "failing the second final itself doesn't count";
}

TEST_F(StudentList, OfTheSecondFinalPutsTheKeptBeforeTheFailed) {
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodAlumnoPte_MatDet=3 AND "
      "CodNumEvaluacion=4");
  Keep(2, 1);
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kPending, {321, 5}), kKept + "1,2,3,4" + kKeptEnd,
                                        Failed(4, "1,2,3,4"), kShown + "1,2)"));
  EXPECT_THAT(Students(result), UnorderedElementsAre("Díaz Cano, Marta=1", "Ñúñez Sanz, Íñigo=2"));
}

// The keys of pending subjects are compared with those of the main grade book: whoever has that
// key there is kept, on the register or not.
TEST_F(StudentList, OfTheSecondFinalKeepsByTheKeysOfAnotherTable) {
  Keep(3, 5);
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ::testing::Contains(kShown + "5)"));
  EXPECT_THAT(Students(result), ElementsAre("Blanco Mas, Hugo=5"));
}

TEST_F(StudentList, OfTheSecondFinalWithNobodyFailedIsEmpty) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=107");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ::testing::SizeIs(5));
  EXPECT_THAT(Students(result), IsEmpty());
  EXPECT_FALSE(View(result).Enabled("cboAlumno"));
  EXPECT_FALSE(View(result).Enabled("cmdNotaManual1(0)"));
}

// The evaluation is still offered for the student who has left, and nobody else has rows in it.
TEST_F(StudentList, OfTheSecondFinalWithoutRowsReadsNoMore) {
  school.Sql("DELETE FROM EvaluacionActaPte WHERE CodNumEvaluacion=5 AND CodAlumnoPte_MatDet<>5");
  const auto result = ChooseEvaluation(5);
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kPending, {321, 5})));
  EXPECT_THAT(Students(result), IsEmpty());
}

TEST_F(StudentList, OfTheSecondFinalForATeacher) {
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103");
  const auto result = ChooseEvaluation(5, Teacher());
  EXPECT_THAT(Read(result), ElementsAre(Fill(kFinalAndOrder, {5}), Fill(kFirstFinalOfList, {-1}),
                                        Fill(kPendingTaught, {321, 2, 5}), kKept + "2" + kKeptEnd,
                                        Failed(4, "2")));
  EXPECT_THAT(Students(result), ElementsAre("Díaz Cano, Marta=1"));
}

TEST_F(StudentList, OnSqlServerTrueIsWrittenOne) {
  school.Sql("UPDATE NumEvaluacion SET Final=1 WHERE Final=-1");
  auto options = Unrestricted();
  options.sqlServer = true;
  EXPECT_THAT(Read(ChooseEvaluation(5, options)),
              ::testing::Contains(Fill(kFirstFinalOfList, {1})));
}

}  // namespace
}  // namespace quorvane::test

// How far the evaluations have come: in a file, or on the server that the tests run beside.

#include <algorithm>
#include <map>

#include "apps/escuela/Today.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/state/SchoolState.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using testing::Field;

constexpr auto kFirstFinal = 4;
constexpr auto kSecondFinal = 5;

class SchoolStateTest : public testing::Test {
 protected:
  SchoolState State() { return {school_.Db(), "2025/03/03"}; }
  int Pending(std::int32_t evaluation) { return Sum(State().Sections(Of(evaluation))).pending; }
  Outcome Estado(const std::string& rest) { return Escuela("estado " + school_.Argument() + rest); }
  static StateFilter Of(std::int32_t evaluation) {
    StateFilter filter;
    filter.evaluation = evaluation;
    return filter;
  }
  static StateRow Sum(const std::vector<StateRow>& rows) {
    StateRow sum;
    for (const auto& row : rows) {
      sum.pending += row.pending;
      sum.entered += row.entered;
      sum.locked += row.locked;
    }
    return sum;
  }
  /// By another road than the one under test.
  int Rows(const std::string& table, int evaluation, const std::string& more = {}) {
    return school_.Count(
        table + " WHERE CodNumEvaluacion=" + std::to_string(evaluation) + more +
        " AND CodAlumnoPte_MatDet IN (SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE "
        "CodMatDet IN (SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodTipoMateria "
        "IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria IN (1" +
        (table == "EvaluacionActaPte" ? ",4" : "") + "))))");
  }

  AnySchool school_;
};

TEST_F(SchoolStateTest, CountsOrdinaryOnesInTheirTableAndFinalsInTheMinutes) {
  for (const auto evaluation : {1, 2, 3, kFirstFinal}) {
    const std::string table = evaluation < kFirstFinal ? "EvaluacionPte" : "EvaluacionActaPte";
    for (const auto& rows : {State().Sections(Of(evaluation)), State().Subjects(Of(evaluation))}) {
      EXPECT_EQ(Sum(rows).pending, Rows(table, evaluation)) << evaluation;
      EXPECT_EQ(Sum(rows).entered, Rows(table, evaluation, " AND CodNota>0")) << evaluation;
    }
  }
}

TEST_F(SchoolStateTest, AFinalThatAFormerOneHasSettledIsNotMissing) {
  const auto before = Pending(kSecondFinal);
  const auto row = school_.Number(
      "SELECT MIN(IDEvaluacionActaPte) FROM EvaluacionActaPte WHERE CodNumEvaluacion=4 AND "
      "CodNota=0 AND CodAlumnoPte_MatDet IN (SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet INNER "
      "JOIN MateriaDetalles ON IDMateriaDetalles=CodMatDet WHERE CodTipoMateria=1)");
  const auto grade = [&](int flag) {
    school_.Sql(
        "UPDATE EvaluacionActaPte SET CodNota=(SELECT MIN(IDNota) FROM Nota WHERE "
        "CodTipoNota=1 AND " +
        std::string(flag == 0 ? "Aprobado=0" : "Aprobado<>0") +
        ") WHERE IDEvaluacionActaPte=" + std::to_string(row));
  };
  grade(0);
  EXPECT_EQ(Pending(kSecondFinal), before + 1) << "failed in the first";
  grade(1);
  EXPECT_EQ(Pending(kSecondFinal), before) << "passed in the first";
}

TEST_F(SchoolStateTest, LeavesOutWhoHasLeftOrIsAheadOfTheYear) {
  const auto before = Pending(1);
  const auto of = [this](int student) {
    return Rows("EvaluacionPte", 1,
                " AND CodAlumnoPte_MatDet IN (SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet "
                "WHERE CodAlumno=" +
                    std::to_string(student) + ")");
  };
  school_.Sql("UPDATE Alumno SET FechaBaja='2025/01/01' WHERE IDAlumno=29");
  EXPECT_EQ(Pending(1), before - of(29));
  school_.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=30");
  EXPECT_EQ(Pending(1), before - of(29) - of(30));
  school_.Sql("UPDATE Alumno SET FechaBaja='' WHERE IDAlumno=29");
  EXPECT_EQ(Pending(1), before - of(30));
}

TEST_F(SchoolStateTest, FiltersByWhatIsMissingAndWhoMayGrade) {
  StateFilter filter = Of(2);
  const auto all = State().Subjects(filter);
  filter.missingOnly = true;
  const auto missing = State().Subjects(filter);
  EXPECT_LT(missing.size(), all.size());
  EXPECT_EQ(
      static_cast<std::ptrdiff_t>(missing.size()),
      std::count_if(all.begin(), all.end(), [](const auto& row) { return row.Missing() > 0; }));
  const auto tutor = school_.Number("SELECT CodTutor FROM Seccion WHERE IDSeccion=5");
  filter = Of(2);
  filter.tutor = tutor;
  EXPECT_THAT(State().Subjects(filter), AllOf(Not(IsEmpty()), Each(Field(&StateRow::section, 5))));
  filter = Of(2);
  filter.teacher = school_.Number("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=20");
  EXPECT_THAT(State().Subjects(filter),
              AllOf(Not(IsEmpty()), Each(Field(&StateRow::teacher, filter.teacher))));
  filter = Of(2);
  filter.either = tutor;
  EXPECT_THAT(State().Subjects(filter),
              AllOf(Not(IsEmpty()), Each(testing::AnyOf(Field(&StateRow::section, 5),
                                                        Field(&StateRow::teacher, tutor)))));
  filter = Of(2);
  filter.centre = 99;
  EXPECT_THAT(State().Sections(filter), IsEmpty());
  filter.centre = 1;
  EXPECT_EQ(Sum(State().Sections(filter)).pending, Sum(all).pending);
}

TEST_F(SchoolStateTest, TellsWindowsAndWhatIsLocked) {
  const auto state = State();
  EXPECT_FALSE(state.Window(5, 1).open);
  EXPECT_TRUE(state.Window(5, 2).open);
  EXPECT_EQ(state.Window(5, 2).from, "2025/01/08");
  EXPECT_TRUE(state.Window(5, 3).open);
  EXPECT_EQ(state.Window(5, 3).to, "");
  EXPECT_EQ(Sum(state.Sections(Of(2))).locked, 2);
  EXPECT_EQ(Sum(state.Subjects(Of(2))).locked, 2);
  EXPECT_EQ(Sum(state.Sections(Of(1))).locked, 0);
  EXPECT_EQ(Today(school_.Db()).size(), 10U);
}

TEST_F(SchoolStateTest, TeachersOfOneNameAreToldApartAndAlikeInTheReports) {
  school_.Sql(
      "UPDATE Personal SET Apellido1='Cano', Apellido2='Ruiz', Nombre='Eva' WHERE "
      "IDPersonal IN (1,14,15)");
  // Doubled, as repairs find them: both go by the same one.
  school_.Sql("INSERT INTO Profesor_Pte (CodProfesor, CodMatDet) VALUES (1,20)");
  const auto state = State();
  EXPECT_EQ(state.TeacherName(1), "Cano Ruiz, Eva (1)");
  EXPECT_EQ(state.TeacherName(13), "Gutiérrez Iglesias, Marcos") << "the only one";
  const ReportReader reader(school_.Db(), "IES", "03/03/2025");
  std::map<std::string, std::string> teachers;
  for (const auto& student : reader.Section(5).students)
    for (const auto& subject : student.subjects) teachers[subject.name] = subject.teacher;
  EXPECT_EQ(teachers["Matemáticas (2º ESO A)"], "Cano Ruiz, Eva (14)");
  auto seen = 0;
  for (const auto& row : state.Subjects(Of(1))) {
    if (row.section != 5) continue;
    ++seen;
    EXPECT_EQ(teachers[state.SubjectName(row.subject)], state.TeacherName(row.teacher));
  }
  EXPECT_GT(seen, 3);
  EXPECT_THAT(Estado(" --evaluacion 2 --profesores").text,
              AllOf(HasSubstr("  Cano Ruiz, Eva (1): "), HasSubstr("  Cano Ruiz, Eva (14): ")));
}

TEST_F(SchoolStateTest, ReadsWithoutATransactionInFewStatements) {
  auto statements = 0;
  school_.Db().Observe([&](const Connection&, const std::string& statement) {
    ++statements;
    EXPECT_TRUE(statement.starts_with("SELECT ")) << statement;
  });
  EXPECT_FALSE(State().Sections({}).empty());
  school_.Db().Observe({});
  EXPECT_LE(statements, 13);
  EXPECT_NO_THROW(school_.Sql("UPDATE EvaluacionPte SET CodNota=0 WHERE IDEvaluacionPte=1"));
}

TEST_F(SchoolStateTest, TheProgramPrintsTextCsvAndJson) {
  EXPECT_THAT(
      Estado(" --evaluacion 2"),
      FieldsAre(0, AllOf(HasSubstr("2ª Evaluación: [###-------] 13 de 33, faltan 20\n"),
                         HasSubstr("  2º ESO B: [#---------] 1 de 6, faltan 5; plazo 2025/01/08 a "
                                   "2099/12/31, abierto; en uso 2\n"))));
  EXPECT_THAT(Estado(" --evaluacion 2 --detalle").text,
              HasSubstr("    Matemáticas (2º ESO A), Ortega García, Javier: [#####-----] 1 de 2, "
                        "faltan 1\n"));
  EXPECT_THAT(Estado(" --evaluacion 2 --profesores").text, HasSubstr("  Ortega García, Javier: "));
  EXPECT_THAT(Estado(" --csv").text,
              HasSubstr("2ª Evaluación;3º ESO A;Matemáticas (2º ESO A);\"Ortega García, "
                        "Javier\";2;1;1;2025/01/08;2099/12/31;"));
  EXPECT_THAT(Estado(" --json --evaluacion 2").text,
              HasSubstr("\"materia\":\"Matemáticas (2º ESO A)\""));
  EXPECT_EQ(Estado(" --evaluacion 77").status, 1);
  EXPECT_EQ(Estado(" --csv --json").status, 2);
}

}  // namespace
}  // namespace quorvane::test

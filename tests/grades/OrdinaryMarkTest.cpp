#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryFlow.h"

// How the three forms that respect a later mark move `UltimaEvaluada` when they save. Pending row
// 2 is graded in evaluations 1, 2 and 3. Stored rows read: the grades of columns 1 to 5,
// `Evaluado`, `UltimaEvaluada`.

namespace quorvane::test {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;

class OrdinaryMark : public ::testing::TestWithParam<OrdinaryFlow> {
 protected:
  OrdinaryMark() { school_.Evalua(2, 3); }

  /// The grade of that row as it stands before the test.
  void Stands(int evaluacion, int nota, bool marked) const {
    school_.Sql("UPDATE EvaluacionPte SET Evaluado=-1, CodNota=" + std::to_string(nota) +
                ", UltimaEvaluada=" + (marked ? "-1" : "0") +
                " WHERE CodAlumnoPte_MatDet=2 AND CodNumEvaluacion=" + std::to_string(evaluacion));
  }

  /// Picks an entry for the main grade in that evaluation, and saves.
  Lines Save(int evaluacion, const std::string& entry) const {
    const auto result =
        RunScript(school_,
                  GetParam().open(evaluacion, "") + GetParam().toLengua +
                      (entry.empty() ? "" : "editar rtvNotasAlumno 1 1 " + entry + "\n") +
                      "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n",
                  Tutor());
    EXPECT_EQ(result.status, 0) << result.Text();
    return Traffic(result.After("pulsar cmdAceptar"));
  }

  [[nodiscard]] Lines Stored() const {
    return {school_.Stored(2, 1), school_.Stored(2, 2), school_.Stored(2, 3)};
  }

  GradeSchool school_;
};

const std::string kUnmarked = "0|0|0|0|0|0|0";

TEST_P(OrdinaryMark, GradeTakesTheMarkFromAnEarlierEvaluation) {
  Stands(1, 103, true);
  const auto traffic = Save(2, "=107");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|0", "107|0|0|0|0|-1|-1", kUnmarked));
  EXPECT_THAT(traffic, IsSupersetOf(SaveMarked(kTutor, 2, 2, 107, GetParam().equals)));
}

TEST_P(OrdinaryMark, FailingGradeTakesItWithTheSameStatements) {
  Stands(1, 107, true);
  const auto traffic = Save(2, "=103");
  EXPECT_THAT(Stored(), ElementsAre("107|0|0|0|0|-1|0", "103|0|0|0|0|-1|-1", kUnmarked));
  EXPECT_THAT(traffic, IsSupersetOf(SaveMarked(kTutor, 2, 2, 103, GetParam().equals)));
}

TEST_P(OrdinaryMark, GradeBeforeTheMarkedEvaluationLeavesTheMarkWhereItIs) {
  Stands(3, 105, true);
  const auto traffic = Save(2, "=107");
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "107|0|0|0|0|-1|0", "105|0|0|0|0|-1|-1"));
  EXPECT_THAT(traffic, IsSupersetOf(SaveBehindTheMark(kTutor, 2, 2, 107)));
  EXPECT_THAT(
      traffic,
      Not(Contains(AllOf(HasSubstr("SET UltimaEvaluada"), HasSubstr("CodAlumnoPte_MatDet = 2")))));
}

// Later goes by the key of the evaluation, whatever its order.
TEST_P(OrdinaryMark, LaterIsWhatHasTheGreaterKey) {
  school_.Sql("UPDATE NumEvaluacion SET Orden=0 WHERE IDNumEvaluacion=3");
  Stands(3, 105, true);
  Save(2, "=107");
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "107|0|0|0|0|-1|0", "105|0|0|0|0|-1|-1"));
}

TEST_P(OrdinaryMark, ClearedGradeLeavesItsRowMarkedAndMarksTheFirstEarlierOneToo) {
  Stands(1, 103, false);
  Stands(2, 107, true);
  const auto traffic = Save(2, "#0");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|-1", "0|0|0|0|0|-1|-1", kUnmarked))
      << "two rows hold the mark, and the cleared one stays evaluated";
  const auto key = school_.Numero(
      "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=1");
  EXPECT_THAT(traffic,
              IsSupersetOf({SaveUngraded(2, 2), LaterMark(kTutor, 2, 2), EarlierGrade(kTutor, 2, 2),
                            Sql("UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE "
                                "IDEvaluacionPte={}",
                                {key})}));
}

TEST_P(OrdinaryMark, OfSeveralEarlierRowsTheFirstThatTheDatabaseGivesIsMarked) {
  Stands(1, 103, false);
  Stands(2, 105, false);
  Stands(3, 107, true);
  Save(3, "#0");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|-1", "105|0|0|0|0|-1|0", "0|0|0|0|0|-1|-1"));
}

TEST_P(OrdinaryMark, ClearedGradeWithoutAnEarlierOneStaysMarked) {
  Stands(2, 107, true);
  const auto traffic = Save(2, "#0");
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "0|0|0|0|0|-1|-1", kUnmarked));
  EXPECT_THAT(traffic, IsSupersetOf(SaveNothing(kTutor, 2, 2)));
}

TEST_P(OrdinaryMark, ClearedGradeBeforeTheMarkedEvaluationTouchesNothing) {
  Stands(1, 103, false);
  Stands(2, 105, false);
  Stands(3, 107, true);
  const auto traffic = Save(2, "#0");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|0", "0|0|0|0|0|-1|0", "107|0|0|0|0|-1|-1"));
  EXPECT_THAT(traffic, Not(Contains(EarlierGrade(kTutor, 2, 2))));
}

TEST_P(OrdinaryMark, SubjectThatWasNeverGradedHereMarksAnEarlierOneWithoutAnEdit) {
  Stands(1, 103, false);
  Save(2, "");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|-1", kUnmarked, kUnmarked));
}

TEST_P(OrdinaryMark, SavingWithoutAChangeRewritesTheGradeAndMovesTheMark) {
  Stands(1, 103, true);
  Stands(2, 107, false);
  Save(2, "");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|0", "107|0|0|0|0|-1|-1", kUnmarked));
}

TEST_P(OrdinaryMark, OtherGradesAloneDoNotMakeItEvaluated) {
  RunScript(school_,
            GetParam().open(2, "") + GetParam().toLengua +
                "editar rtvNotasAlumno 1 5 \"Mejora\"\npulsar cmdAceptar\n",
            Tutor());
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "0|0|0|0|202|0|0", kUnmarked));
}

// A grade that has gone while the form was open.
TEST_P(OrdinaryMark, GradeThatIsGoneStopsTheSaveBeforeItsUpdate) {
  const auto result = RunScript(school_,
                                GetParam().open(2, "") + GetParam().toLengua +
                                    "editar rtvNotasAlumno 1 1 =108\n"
                                    "sql \"DELETE FROM Nota WHERE IDNota=108\"\n"
                                    "pulsar cmdAceptar\n",
                                Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), Sql("SELECT Aprobado FROM Nota WHERE IDNota=108"));
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, kUnmarked, kUnmarked));
}

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryMark,
                         ::testing::Values(kBySubject, kSectionByStudent, kSectionBySubject),
                         [](const auto& flow) { return std::string(flow.param.form); });

// The other engine stores True as 1: a mark of -1, as the module writes it, isn't found there.
TEST(OrdinaryMarkOnSqlServer, ComparesWithOneAndWritesMinusOne) {
  const GradeSchool school;
  school.FlagsOfSqlServer();
  school.Evalua(2, 3);
  school.Sql(
      "UPDATE EvaluacionPte SET Evaluado=1, UltimaEvaluada=1, CodNota=105 WHERE "
      "CodAlumnoPte_MatDet=2 AND CodNumEvaluacion=3");
  RunScript(school,
            OpenBySubject(2) +
                "elegir cboMaterias #0\neditar rtvNotasAlumno 1 1 =107\npulsar cmdAceptar\n",
            SessionOf(OnEngine(kTutor, true)));
  EXPECT_EQ(school.Stored(2, 2), "107|0|0|0|0|-1|0");
  EXPECT_EQ(school.Stored(2, 3), "105|0|0|0|0|1|1");
}

}  // namespace
}  // namespace quorvane::test

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// How the three forms that respect a later mark move `UltimaEvaluada` when they save. Pending row
// 2 is graded in evaluations 1, 2 and 3. Stored rows read: the grades of columns 1 to 5,
// `Evaluado`, `UltimaEvaluada`.

namespace quorvane::test {
namespace {

class OrdinaryMarkTest : public EachFormTest {
 protected:
  OrdinaryMarkTest() { school_.Evalua(2, 3); }

  /// The grade of that row as it stands before the test.
  void Stands(int evaluacion, int nota, bool marked) const {
    school_.Sql("UPDATE EvaluacionPte SET Evaluado=-1, CodNota=" + std::to_string(nota) +
                ", UltimaEvaluada=" + (marked ? "-1" : "0") +
                " WHERE CodAlumnoPte_MatDet=2 AND CodNumEvaluacion=" + std::to_string(evaluacion));
  }

  /// Opens the form in that evaluation at the row and goes on.
  [[nodiscard]] ScriptResult PlayIn(int evaluacion, const std::string& gestures) const {
    return RunScript(school_, form_.Open(evaluacion) + form_.toLengua + gestures, Tutor());
  }

  /// Picks an entry for the main grade in that evaluation, and saves.
  Lines Save(int evaluacion, const std::string& entry) const {
    const auto edit = entry.empty() ? "" : "editar rtvNotasAlumno 1 1 " + entry + "\n";
    const auto result = PlayIn(evaluacion, edit + "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
    EXPECT_EQ(result.status, 0) << result.Text();
    return Traffic(result.After("pulsar cmdAceptar"));
  }

  /// What saving that grade in row 2 takes where no later evaluation holds the mark.
  [[nodiscard]] Lines Marked(int nota) const {
    return SaveMarked(
        kTutor, 2, 2, nota,
        form_.node == kBySubject.node ? expected::kMarkBySubject : expected::kMarkBySection);
  }

  [[nodiscard]] Lines Stored() const {
    return {school_.Stored(2, 1), school_.Stored(2, 2), school_.Stored(2, 3)};
  }
};

const std::string kUnmarked = "0|0|0|0|0|0|0";

TEST_P(OrdinaryMarkTest, GradeTakesTheMarkFromAnEarlierEvaluation) {
  Stands(1, 103, true);
  const auto traffic = Save(2, "=107");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|0", "107|0|0|0|0|-1|-1", kUnmarked));
  EXPECT_THAT(traffic, IsSupersetOf(Marked(107)));
}

TEST_P(OrdinaryMarkTest, FailingGradeTakesItWithTheSameStatements) {
  Stands(1, 107, true);
  const auto traffic = Save(2, "=103");
  EXPECT_THAT(Stored(), ElementsAre("107|0|0|0|0|-1|0", "103|0|0|0|0|-1|-1", kUnmarked));
  EXPECT_THAT(traffic, IsSupersetOf(Marked(103)));
}

TEST_P(OrdinaryMarkTest, GradeBeforeTheMarkedEvaluationLeavesTheMarkWhereItIs) {
  Stands(3, 105, true);
  const auto traffic = Save(2, "=107");
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "107|0|0|0|0|-1|0", "105|0|0|0|0|-1|-1"));
  EXPECT_THAT(traffic, IsSupersetOf(SaveBehindTheMark(kTutor, 2, 2, 107)));
  EXPECT_THAT(
      traffic,
      Not(Contains(AllOf(HasSubstr("SET UltimaEvaluada"), HasSubstr("CodAlumnoPte_MatDet = 2")))));
}

// Later goes by the key of the evaluation, whatever its order.
TEST_P(OrdinaryMarkTest, LaterIsWhatHasTheGreaterKey) {
  school_.Sql("UPDATE NumEvaluacion SET Orden=0 WHERE IDNumEvaluacion=3");
  Stands(3, 105, true);
  Save(2, "=107");
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "107|0|0|0|0|-1|0", "105|0|0|0|0|-1|-1"));
}

TEST_P(OrdinaryMarkTest, ClearedGradeLeavesItsRowMarkedAndMarksTheFirstEarlierOneToo) {
  Stands(1, 103, false);
  Stands(2, 107, true);
  const auto traffic = Save(2, "#0");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|-1", "0|0|0|0|0|-1|-1", kUnmarked))
      << "two rows hold the mark, and the cleared one stays evaluated";
  const auto key = school_.Numero(
      "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=1");
  EXPECT_THAT(traffic, IsSupersetOf({SaveUngraded(2, 2), LaterMark(kTutor, 2, 2),
                                     EarlierGrade(kTutor, 2, 2), Sql(expected::kMarkRow, {key})}));
}

TEST_P(OrdinaryMarkTest, OfSeveralEarlierRowsTheFirstThatTheDatabaseGivesIsMarked) {
  Stands(1, 103, false);
  Stands(2, 105, false);
  Stands(3, 107, true);
  Save(3, "#0");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|-1", "105|0|0|0|0|-1|0", "0|0|0|0|0|-1|-1"));
}

TEST_P(OrdinaryMarkTest, ClearedGradeWithoutAnEarlierOneStaysMarked) {
  Stands(2, 107, true);
  const auto traffic = Save(2, "#0");
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "0|0|0|0|0|-1|-1", kUnmarked));
  EXPECT_THAT(traffic, IsSupersetOf(SaveNothing(kTutor, 2, 2)));
}

TEST_P(OrdinaryMarkTest, ClearedGradeBeforeTheMarkedEvaluationTouchesNothing) {
  Stands(1, 103, false);
  Stands(2, 105, false);
  Stands(3, 107, true);
  const auto traffic = Save(2, "#0");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|0", "0|0|0|0|0|-1|0", "107|0|0|0|0|-1|-1"));
  EXPECT_THAT(traffic, Not(Contains(EarlierGrade(kTutor, 2, 2))));
}

TEST_P(OrdinaryMarkTest, SubjectThatWasNeverGradedHereMarksAnEarlierOneWithoutAnEdit) {
  Stands(1, 103, false);
  Save(2, "");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|-1", kUnmarked, kUnmarked));
}

TEST_P(OrdinaryMarkTest, SavingWithoutAChangeRewritesTheGradeAndMovesTheMark) {
  Stands(1, 103, true);
  Stands(2, 107, false);
  Save(2, "");
  EXPECT_THAT(Stored(), ElementsAre("103|0|0|0|0|-1|0", "107|0|0|0|0|-1|-1", kUnmarked));
}

TEST_P(OrdinaryMarkTest, OtherGradesAloneDoNotMakeItEvaluated) {
  static_cast<void>(PlayIn(2, "editar rtvNotasAlumno 1 5 \"Mejora\"\npulsar cmdAceptar\n"));
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, "0|0|0|0|202|0|0", kUnmarked));
}

// A grade that has gone while the form was open.
TEST_P(OrdinaryMarkTest, GradeThatIsGoneStopsTheSaveBeforeItsUpdate) {
  const auto result = PlayIn(2,
                             "editar rtvNotasAlumno 1 1 =108\n"
                             "sql \"DELETE FROM Nota WHERE IDNota=108\"\npulsar cmdAceptar\n");
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), Sql(expected::kPasses, {108}));
  EXPECT_THAT(Stored(), ElementsAre(kUnmarked, kUnmarked, kUnmarked));
}

INSTANTIATE_TEST_SUITE_P(Forms, OrdinaryMarkTest, ::testing::ValuesIn(FormsThatRespectTheMark()),
                         kNameOfForm);

// The other engine stores True as 1: a mark of -1, as the module writes it, isn't found there.
TEST(OrdinaryMarkOnSqlServerTest, ComparesWithOneAndWritesMinusOne) {
  const GradeSchool school;
  school.FlagsOfSqlServer();
  school.Evalua(2, 3);
  school.Sql(
      "UPDATE EvaluacionPte SET Evaluado=1, UltimaEvaluada=1, CodNota=105 WHERE "
      "CodAlumnoPte_MatDet=2 AND CodNumEvaluacion=3");
  RunScript(school,
            kBySubject.Open(2) +
                "elegir cboMaterias #0\neditar rtvNotasAlumno 1 1 =107\npulsar cmdAceptar\n",
            SessionOf(OnEngine(kTutor, true)));
  EXPECT_EQ(school.Stored(2, 2), "107|0|0|0|0|-1|0");
  EXPECT_EQ(school.Stored(2, 3), "105|0|0|0|0|1|1");
}

}  // namespace
}  // namespace quorvane::test

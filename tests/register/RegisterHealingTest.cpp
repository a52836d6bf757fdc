#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

Lines Deletes(const ScriptResult& run) { return Beginning(run, {"delete", "Delete"}); }

class RegisterHealingTest : public RegisterTest {
 protected:
  /// Opens the register and leaves it with Cancel: what happened is for good. The statements are
  /// those of an opening with these behind the one at that place.
  void ExpectHealed(const std::vector<int>& lockTests, std::ptrdiff_t place,
                    const Lines& deletes) const {
    auto expected = Opening(lockTests);
    expected.insert(expected.begin() + place, deletes.begin(), deletes.end());
    const auto statements = OpenAndCancel().Sql();
    EXPECT_THAT(std::vector(statements.begin() + 3, statements.end()), ElementsAreArray(expected));
  }

  [[nodiscard]] ScriptResult OpenAndCancel() const {
    auto run = Run(kOpen + kCancel);
    EXPECT_EQ(run.status, 0) << run.Text();
    return run;
  }

  /// A pending subject of student 1, in those evaluations.
  [[nodiscard]] int Pendiente(int matDet, int orden,
                              std::initializer_list<int> evaluaciones) const {
    const auto id = school.Pendiente(1, matDet, orden);
    for (const auto evaluacion : evaluaciones) school.Evalua(id, evaluacion);
    return id;
  }
  void DebeEn(int matDet, int orden, std::initializer_list<int> evaluaciones) const {
    static_cast<void>(Pendiente(matDet, orden, evaluaciones));
  }
};

TEST_F(RegisterHealingTest, AStudentWhoIsGoneDisappearsOnOpeningAnyRegister) {
  const auto gone = school.Pendiente(98, 3111, 1);
  school.Evalua(gone, 1, 105);
  school.Evalua(gone, 4, 105);
  Debe(98, 3112, 2);
  Debe(99, 3111, 1);
  school.Registra(331, 98);
  school.Registra(331, 99);
  school.Registra(331, 5);
  ExpectHealed({}, 1, Join({PurgeStudent(98), PurgeStudent(99)}));
  EXPECT_THAT(school.Modulo(), ElementsAre("Seccion_AlumnoPte 331|5|0|0"));
}

TEST_F(RegisterHealingTest, ASubjectDetailThatIsGoneDisappearsFromTheRegister) {
  school.Registra(331, 5);
  const auto gone = school.Pendiente(5, 9999, 1);
  school.Evalua(gone, 2, 105);
  school.Evalua(gone, 6, 105);
  ExpectHealed({}, 2, PurgeSubject(9999));
  EXPECT_THAT(school.Modulo(), ElementsAre("Seccion_AlumnoPte 331|5|0|0"));
}

TEST_F(RegisterHealingTest, APlaceOfAMissingStudentWithoutSubjectsIsPassedOver) {
  Registra({99, 1});
  const auto run = Run(kOpen + kSee);
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[1]");
  EXPECT_THAT(school.Modulo(), Contains("Seccion_AlumnoPte 321|99|0|0"));
}

TEST_F(RegisterHealingTest, ASubjectThatStandsTwiceWithItsEvaluationsLosesTheSecond) {
  Registra({1});
  const auto first = school.Pendiente(1, 3111, 1);
  const auto second = school.Pendiente(1, 3111, 2);
  school.Evalua(first, 1, 105);
  school.Evalua(second, 1, 107);
  // One subject was seen, so one lock test.
  ExpectHealed({3111}, 4, DropDoubled(second));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet"), ElementsAre("1"));
  EXPECT_THAT(school.Rows("SELECT CodAlumnoPte_MatDet, CodNota FROM EvaluacionPte"),
              ElementsAre("1|105"));
  EXPECT_THAT(Deletes(OpenAndCancel()), IsEmpty());
}

TEST_F(RegisterHealingTest, EachDoubledEvaluationDeletesOnceMore) {
  Registra({1});
  DebeEn(3111, 1, {1, 2, 4});
  const auto once = DropDoubled(Pendiente(3111, 2, {1, 2, 4}));
  EXPECT_THAT(Deletes(OpenAndCancel()), ElementsAreArray(Join({once, once, once})));
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionPte"), 2);
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionActaPte"), 1);
}

TEST_F(RegisterHealingTest, ASubjectThatComesBackAfterAnotherLosesItsLastRow) {
  Registra({1});
  DebeEn(3111, 1, {1});
  DebeEn(3112, 2, {});
  const auto third = Pendiente(3111, 3, {2});
  const auto run = OpenAndCancel();
  EXPECT_THAT(Deletes(run), ElementsAreArray(DropDoubled(third)));
  EXPECT_THAT(run.Sql(), Contains(LockOfSubject(3111)).Times(2));
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet"),
              ElementsAre("1", "2"));
}

TEST_F(RegisterHealingTest, OfSeveralRowsThatComeBackAfterAnotherOnlyTheLastGoes) {
  Registra({1});
  DebeEn(3111, 1, {});
  DebeEn(3112, 2, {});
  DebeEn(3111, 3, {2});
  const auto last = Pendiente(3111, 4, {3});
  EXPECT_THAT(Deletes(OpenAndCancel()), ElementsAreArray(DropDoubled(last)));
}

TEST_F(RegisterHealingTest, NeighboursOfOneSubjectWithoutACommonEvaluationAreOneSubject) {
  Registra({1});
  DebeEn(3111, 1, {1});
  DebeEn(3111, 2, {2});
  DebeEn(3111, 3, {});
  const auto run = Run(kOpen + kProperties + kSee);
  EXPECT_THAT(Deletes(run), IsEmpty());
  EXPECT_THAT(Materias(run), EndsWith(R"x(["Lengua (1º ESO)","","","","","X","X","","","1"]])x"));
}

class RegisterHealingFailureTest : public RegisterHealingTest,
                                   public testing::WithParamInterface<int> {};

TEST_P(RegisterHealingFailureTest, OfADeleteIsNotCaught) {
  Registra({1});
  DebeEn(3111, 1, {1});
  DebeEn(3111, 2, {1});
  // Two purges, the register and one lock test come before.
  const auto failing = GetParam();
  const auto run =
      Run(ChooseSection(321) + "fallo " + std::to_string(4 + failing) + "\n" + kAccept);
  EXPECT_THAT(run.Of("error"), ElementsAre("-2147467259 fallo")) << run.Text();
  EXPECT_THAT(Deletes(run), SizeIs(failing));
}

INSTANTIATE_TEST_SUITE_P(Deletes, RegisterHealingFailureTest, testing::Range(1, 4));

TEST_F(RegisterHealingTest, AnEvaluationThatIsGoneIsNotPartOfTheSubject) {
  Registra({1});
  DebeEn(3111, 1, {3});
  school.Sql("DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=3");
  const auto run = Run(kOpen + kProperties + kSee);
  EXPECT_THAT(Materias(run), EndsWith(R"x(["Lengua (1º ESO)","","","","","","","","1"]])x"));
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionPte"), 1);
}

}  // namespace
}  // namespace quorvane::test

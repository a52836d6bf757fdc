#include <algorithm>
#include <string>

#include "tests/grades/FinalForm.h"
#include "tests/grades/FinalStatements.h"
#include "tests/support/Matchers.h"

// What the final dialogs make of a subject that is neither of the ordinary kind nor the tutor's:
// a work placement, which is kind 4, or any other.

namespace quorvane::test {
namespace {

using ::testing::_;

/// The row's student owes subject 3116, pending row 6, of that kind, graded 402 in evaluation 4.
template <const FinalForm& kForm>
class FinalKindsTest : public FinalTest, public ::testing::WithParamInterface<int> {
 protected:
  FinalKindsTest() : FinalTest(On(kForm, 3116)) {
    school_.Evalua(school_.Pendiente(kForm.student, 3116, 3), 4, 402);
    school_.Sql("UPDATE TipoMateria SET CodEspecificarTipoMateria=" + std::to_string(GetParam()) +
                " WHERE IDTipoMateria=40");
  }

  /// The statements from the question for the kind of 3116 on, so many of them.
  static Lines Load(const Lines& traffic, int count) {
    const auto kind = std::find(traffic.begin(), traffic.end(), KindOf(3116));
    return {kind, kind + std::min<std::ptrdiff_t>(count, traffic.end() - kind)};
  }

  static bool IsWorkPlacement() { return GetParam() == 4; }
};

std::string KindName(const ::testing::TestParamInfo<int>& kind) {
  return "Kind" + std::to_string(kind.param);
}

using FinalKindsByStudentTest = FinalKindsTest<kFinalByStudent>;

// The statement names a column that isn't there.
TEST_P(FinalKindsByStudentTest, EndTheLoadInTheDatabasesError) {
  const auto result = Play("");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("-2147467259 ")));
  EXPECT_THAT(Load(Traffic(result), 99),
              ElementsAreArray(Lines{KindOf(3116)} + FinalNames(3116, 6) +
                               Lines{OtherKindByStudent(4, 6)}));
}

// Kind 4 is kept in the second final without a look at the first, so its load gets as far as in
// the first; any other kind asks.
TEST_P(FinalKindsByStudentTest, AskTheFirstFinalUnlessItIsAWorkPlacement) {
  school_.Evalua(6, 5, 402);
  const auto traffic = Traffic(Play("", kTutor, 5));
  EXPECT_EQ(traffic.back(), OtherKindByStudent(5, 6));
  EXPECT_EQ(std::count(traffic.begin(), traffic.end(), PassedFirst(6)), IsWorkPlacement() ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FinalKindsByStudentTest, ::testing::Values(4, 2), KindName);

using FinalKindsBySubjectTest = FinalKindsTest<kFinalBySubject>;

// The row has no such field: the load ends there, with nothing published.
TEST_P(FinalKindsBySubjectTest, EndTheLoadWithAnUnknownField) {
  const auto result = Play("");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_EQ(Traffic(result).back(), KindOf(3116));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
}

TEST_P(FinalKindsBySubjectTest, AskTheFirstFinalUnlessItIsAWorkPlacement) {
  school_.Evalua(6, 5, 402);
  const auto result = Play("", kTutor, 5);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_EQ(Traffic(result).back(), IsWorkPlacement() ? KindOf(3116) : PassedFirst(6));
}

// Where a school's rows had the two fields, the grades would come from the host's own table.
TEST_P(FinalKindsBySubjectTest, WouldReadTheHostsGrades) {
  school_.Sql(
      "ALTER TABLE AlumnoPte_MatDet ADD COLUMN CodMateriaDetalles INTEGER DEFAULT 3113;"
      "ALTER TABLE AlumnoPte_MatDet ADD COLUMN IDAlumno_MateriaDetalles INTEGER DEFAULT 77;"
      "INSERT INTO EvaluacionActa (CodAlumno_MateriaDetalles, CodNumEvaluacion, CodNota, "
      "CodNotaObservacion) VALUES (77,4,401,0)");
  const auto result = Play("pulsar cmdSiguiente\nlista rtvNotasAlumno 1 1\nver\n");
  EXPECT_THAT(Load(Traffic(result), 6),
              ElementsAreArray(Lines{KindOf(3116)} + FinalNames(3113, 3) +
                               Lines{OtherKindBySubject(4, 77), Passes(401)}));
  EXPECT_THAT(Traffic(result), Contains(FinalCellListOfSubject(kTutor, 4, 3116, 0, 1, 4)));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"), ElementsAre(_, form_.Row("Apto||||| ")));
}

INSTANTIATE_TEST_SUITE_P(Kinds, FinalKindsBySubjectTest, ::testing::Values(4, 2), KindName);

/// The forms of a section, whose statement names a column that is there. Their measure isn't read,
/// and so not kept.
template <const FinalForm& kForm>
class FinalKindsSectionTest : public FinalKindsTest<kForm> {
 protected:
  FinalKindsSectionTest() { this->Set(6, "RE_AC_DIV=2"); }

  void ExpectLoaded(const ScriptResult& result) const {
    EXPECT_THAT(this->Load(Traffic(result), 6),
                ElementsAreArray(Lines{KindOf(3116)} + FinalNames(3116, 6) +
                                 Lines{OtherKindOfSection(4, 6), Passes(402)}));
  }
};

using FinalKindsSectionByStudentTest = FinalKindsSectionTest<kFinalSectionByStudent>;

TEST_P(FinalKindsSectionByStudentTest, AreLoadedWithAListOfTheirOwnAndSaved) {
  const auto result = Play(
      "ver\nlista rtvNotasAlumno 1 1\neditar rtvNotasAlumno 1 1 \"Apto\"\npulsar cmdAceptar\n");
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              Contains("Taller (1º ESO)|No apto||||| |0|3116"));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"Apto\",401],[\"No apto\",402]]"));
  ExpectLoaded(result);
  EXPECT_THAT(Traffic(result), Contains(FinalCellList(kTutor, 4, 3116, 0, 1, 4)));
  EXPECT_EQ(school_.Stored(6, 4), "401|0|0|-1|-1");
}

TEST_P(FinalKindsSectionByStudentTest, AreKeptInTheSecondFinal) {
  school_.Evalua(6, 5, 402);
  Set(6, "CodNota=401");
  EXPECT_THAT(Entries(kTutor, 5), ElementsAre("2   Díaz Cano, Marta=1"));
}

// Its step one offers no other kind.
INSTANTIATE_TEST_SUITE_P(Kinds, FinalKindsSectionByStudentTest, ::testing::Values(4), KindName);

using FinalKindsSectionBySubjectTest = FinalKindsSectionTest<kFinalSectionBySubject>;

TEST_P(FinalKindsSectionBySubjectTest, AreLoadedWithAListOfTheirOwnAndSaved) {
  const auto result =
      Play("elegir cboMaterias #2\nver\nlista rtvNotasAlumno 1 1\npulsar cmdAceptar\n");
  EXPECT_THAT(FormView(result).Entries("cboMaterias"), Contains("Taller (1º ESO)=3"));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(), form_.Row("No apto||||| "));
  ExpectLoaded(result);
  EXPECT_THAT(Traffic(result), Contains(FinalCellListOfSubject(kTutor, 4, 3116, 0, 1, 4)));
  EXPECT_EQ(school_.Stored(6, 4), "402|0|0|-1|-1");
}

// Student 1 passed 3111 in the first final and failed 3112.
TEST_P(FinalKindsSectionBySubjectTest, AreKeptInTheSecondFinalWhenTheyAreWorkPlacements) {
  GradeFirst(1, 105);
  GradeFirst(2, 103);
  school_.Evalua(6, 5, 402);
  Set(6, "CodNota=401");
  EXPECT_EQ(Entries(kTutor, 5), IsWorkPlacement()
                                    ? Lines({"Matemáticas (1º ESO)=1", "Taller (1º ESO)=2"})
                                    : Lines{"Matemáticas (1º ESO)=1"});
}

INSTANTIATE_TEST_SUITE_P(Kinds, FinalKindsSectionBySubjectTest, ::testing::Values(4, 2), KindName);

}  // namespace
}  // namespace quorvane::test

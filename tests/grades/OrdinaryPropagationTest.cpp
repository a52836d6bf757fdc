#include "tests/grades/OrdinaryDirect.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// The routines without a caller, on objectives in the host's grade book: subject 1 "Lengua" and its
// objective 4 "Lectura" as taught in section 321.

namespace quorvane::test {
namespace {

constexpr const char* kLectura =
    "INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, CodPersonal, "
    "CodPersonalAsociado, CodTipoMateria) VALUES (3214,4,321,0,0,10);"
    "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3214,3211,1,6,-1,0)";

template <class Direct>
class OrdinaryPropagationTest : public Direct {
 protected:
  void Add() { this->Form().AnadirMateriaEvaluacionesPosteriores(student_, subject_, objective_); }
  void Remove() {
    this->Form().QuitarMateriaEvaluacionesPosteriores(student_, subject_, objective_);
  }
  /// Whether the form takes the grades for those of pending subjects, whose table hasn't the
  /// columns: adding and removing end in the engine's error there.
  bool Stumbles() const {
    return std::string(this->Known().insertGrades) == expected::kInsertPendingGrades;
  }
  static constexpr std::int32_t kFailed = -2147467259;

  std::int32_t student_ = 1;
  std::int32_t subject_ = 1;
  std::int32_t objective_ = 4;
};
TYPED_TEST_SUITE(OrdinaryPropagationTest, AllFour, NameOfDirect);

const Lines kDetails = {Sql(expected::kDetailOfSubject, {1, 321}),
                        Sql(expected::kDetailOfSubject, {4, 321})};

TYPED_TEST(OrdinaryPropagationTest, ObjectivesAreReadOnceForEachThatRepeatsAndNothingIsKept) {
  this->school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3114,3111,1,1,-1,0), "
      "(52,1,3114,3111,1,2,-1,0), (53,1,3113,3111,1,3,-1,0), (54,1,3114,0,1,4,-1,0), "
      "(55,2,3114,3111,1,1,-1,0)");
  for (const bool recovery : {false, true}) {
    this->PasoUno().blnRecuperar = recovery;
    this->Form().CargarObjetivos(1, 1);
    const auto* const grades = recovery ? expected::kObjectiveRecovery : expected::kObjectiveGrades;
    Lines asked = {Sql(this->Known().objectives, {1, 1, 1})};
    // By section and subject their grades aren't asked for.
    if (!this->Stumbles()) asked = asked + Lines{Sql(grades, {1, 51}), Sql(grades, {1, 53})};
    EXPECT_THAT(this->session_.Statements(), ElementsAreArray(asked));
  }
}

TYPED_TEST(OrdinaryPropagationTest, ObjectiveIsAddedToTheNextEvaluationAlone) {
  this->school_.Sql(kLectura);
  EXPECT_EQ(this->ErrorOf([this] { this->Add(); }), this->Stumbles() ? this->kFailed : 0);
  const auto& form = this->Known();
  EXPECT_THAT(
      this->session_.Statements(),
      ElementsAreArray(
          Lines{Sql(expected::kLaterToAdd, {1, 321}), Sql(expected::kStudentInEvaluation, {1, 2}),
                Sql(expected::kLastInEvaluation, {form.keyName}),
                Sql(expected::kInsertInEvaluation, {1, 1, 2})} +
          kDetails +
          Lines{Sql(expected::kObjectiveOrder, {1, 1, 3214}),
                Sql(form.objectiveSought, {1, 2, 3214}),
                Sql(expected::kLastObjective, {form.keyName}),
                Sql(expected::kInsertObjective, {52, 1, 3214, 3211, 2, 6}),
                Sql(expected::kLastGrades, {form.keyName}), Sql(form.insertGrades, {1, 52, 2})}));
  EXPECT_THAT(this->session_.screen.messages, IsEmpty());
  EXPECT_THAT(this->school_.Rows("SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles"),
              ElementsAre("51", "52"));
  EXPECT_THAT(this->school_.Rows("SELECT IDEvaluacion, CodAlumno_MateriaDetalles FROM Evaluacion"),
              ElementsAreArray(this->Stumbles() ? Lines{} : Lines{"1|52"}));
}

TYPED_TEST(OrdinaryPropagationTest, StudentAndObjectiveThatAreThereAreNotInsertedAgain) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,1,2,0,0,0,0,0,0);"
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0)");
  this->Add();
  EXPECT_THAT(this->session_.Statements(), SizeIs(6)) << "nothing but the questions";
}

TYPED_TEST(OrdinaryPropagationTest, KeysOfFilledTablesAreOneMore) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,2,2,0,0,0,0,0,0);"
      "INSERT INTO Evaluacion VALUES (30,1,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  static_cast<void>(this->ErrorOf([this] { this->Add(); }));
  EXPECT_THAT(this->school_.Rows("SELECT MAX(IDAlumno_NumEvaluacion) FROM Alumno_NumEvaluacion"),
              ElementsAre("10"));
  EXPECT_THAT(this->session_.Statements(), Contains(Sql(this->Known().insertGrades, {31, 52, 2})));
}

TYPED_TEST(OrdinaryPropagationTest, WithoutALaterEvaluationNothingHappens) {
  this->school_.Sql(kLectura);
  this->school_.Sql("DELETE FROM Seccion_NumEvaluacion WHERE CodNumEvaluacion<>1");
  this->Add();
  this->Remove();
  EXPECT_THAT(this->session_.Statements(), ElementsAre(Sql(expected::kLaterToAdd, {1, 321}),
                                                       Sql(expected::kLaterToRemove, {1, 321})));
}

TYPED_TEST(OrdinaryPropagationTest, RowThatHasToBeThereIsNotTested) {
  this->school_.Sql(kLectura);
  this->objective_ = 999;
  EXPECT_EQ(this->ErrorOf([this] { this->Add(); }), 3021);
  EXPECT_EQ(this->ErrorOf([this] { this->Remove(); }), 3021);
  EXPECT_THAT(this->school_.Rows("SELECT COUNT(*) FROM Alumno_NumEvaluacion"), ElementsAre("1"))
      << "what was written stays";
}

TYPED_TEST(OrdinaryPropagationTest, FailedInsertGoesUpAsItsErrorAndShowsNoMessage) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "CREATE TRIGGER lleno BEFORE INSERT ON Evaluacion BEGIN SELECT RAISE(FAIL, 'lleno'); END");
  EXPECT_EQ(this->ErrorOf([this] { this->Add(); }), this->kFailed);
  EXPECT_THAT(this->session_.screen.messages, IsEmpty());
}

TYPED_TEST(OrdinaryPropagationTest, ObjectiveIsRemovedFromAllLaterEvaluations) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0), "
      "(61,1,3214,3211,3,6,-1,0), (62,2,3214,3211,2,6,-1,0);"
      "INSERT INTO Evaluacion VALUES (1,60,2,0,0,0,0,0,0,0,0,0,0,0,0,0), "
      "(2,61,3,0,0,0,0,0,0,0,0,0,0,0,0,0), (3,62,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  EXPECT_EQ(this->ErrorOf([this] { this->Remove(); }), this->Stumbles() ? this->kFailed : 0);
  const auto key = [](int evaluation) {
    return kDetails + Lines{Sql(expected::kObjectiveKey, {1, evaluation, 3211, 3214})};
  };
  const Lines asked = Lines{Sql(expected::kLaterToRemove, {1, 321})} + key(2);
  const std::string remaining = "SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles";
  if (this->Stumbles()) {
    EXPECT_THAT(this->session_.Statements(),
                ElementsAreArray(asked + Lines{Sql(expected::kDeletePendingGrades, {60, 2})}));
    EXPECT_THAT(this->school_.Rows(remaining), ElementsAre("51", "60", "61", "62"));
    return;
  }
  const auto deletes = [](int id, int evaluation) {
    return Lines{Sql(expected::kDeleteObjectiveGrades, {id, evaluation}),
                 Sql(expected::kDeleteObjective, {1, evaluation, 3211, 3214})};
  };
  // The reserved evaluation is the last; the student isn't in it.
  EXPECT_THAT(this->session_.Statements(),
              ElementsAreArray(asked + deletes(60, 2) + key(3) + deletes(61, 3) + key(11)));
  EXPECT_THAT(this->school_.Rows(remaining), ElementsAre("51", "62"));
  EXPECT_THAT(this->school_.Rows("SELECT IDEvaluacion FROM Evaluacion"), ElementsAre("3"));
}

TYPED_TEST(OrdinaryPropagationTest, WithoutAnObjectiveNothingIsRemoved) {
  this->objective_ = 0;
  this->Remove();
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

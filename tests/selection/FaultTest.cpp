#include "tests/selection/StepOne.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

/// Step one catches no error: each comes out to the host, and the program lives.
class FaultTest : public EachDialogTest {
 protected:
  FaultTest() {
    school.Sql(
        "UPDATE Usuario SET CodPadre=0, AdminSistema=0;"
        "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
        "UPDATE Seccion SET Seguimiento=-1, CodTutor=1 WHERE IDSeccion=321;"
        "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4;"
        "INSERT INTO Alumno_MateriaDetalles (IDAlumno_MateriaDetalles, CodAlumno, "
        "CodMateriaDetalles) VALUES (2,1,3116);"
        "INSERT INTO FechaNotas (FechaInicio, FechaFin, CodSeccion, CodNumEvaluacion) VALUES "
        "('1990/01/01','1990/01/02',321,5)");
  }

  /// A whole session of the tutor's, from the opening to the refusal of the date, by way of a
  /// former evaluation and the second final.
  [[nodiscard]] std::string Session() const {
    return Node() + "\n" + Choose(dialog_, 1) + Choose(dialog_, 5) + kNext + "\n" + kLeave + "\n";
  }
  [[nodiscard]] ScriptResult Run(const std::string& script) const {
    auto options = Tutor();
    options.hoy = "15/01/2026";
    return RunScript(school, script, options);
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, FaultTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(FaultTest, EveryStatementThatFailsComesOutAndTheDialogOpensAgain) {
  const auto whole = Statements(Run(Session()).lines);
  ASSERT_GE(whole.size(), 12U);
  const auto rows = school.Modulo();
  for (std::size_t k = 1; k <= whole.size(); k += FailureStride(1)) {
    const auto result = Run("fallo " + std::to_string(k) + "\n" + Session() + Session());
    EXPECT_EQ(First(result.Of("error"), 1), Lines{"-2147467259 fallo"}) << k;
    EXPECT_EQ(result.status, 1) << k;
    // Up to the failure and then once more from the start: nothing of the first time is left.
    EXPECT_EQ(Statements(result.lines), First(whole, k) + whole) << k;
    EXPECT_EQ(school.Modulo(), rows) << k;
  }
}

TEST_P(FaultTest, ATypeWithoutMarkingSystemIsAnErrorWhereRecoveriesAreRead) {
  school.Sql("DELETE FROM SistemaCalificacion");
  const auto result = Play("ver");
  if (dialog_.node == kBySubject.node) {
    EXPECT_THAT(result.Of("error"), IsEmpty()) << "this dialog doesn't ask";
    EXPECT_THAT(result.Of("muestra"), ElementsAre(dialog_.Form()));
  } else {
    ExpectError(result, 3021);
    EXPECT_THAT(result.Of("muestra"), IsEmpty());
    EXPECT_THAT(Statements(result.lines), ElementsAre(Sql(kAllTypes), Sql(kRecoveries, {3})));
  }
}

TEST_P(FaultTest, AMissingTableIsTheEnginesError) {
  school.Sql("DROP TABLE FechaNotas");
  const auto result = Run(Session());
  EXPECT_THAT(result.Of("error"), Contains(StartsWith("-2147467259 ")));
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

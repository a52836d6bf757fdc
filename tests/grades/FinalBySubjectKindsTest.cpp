#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"
#include "tests/grades/OrdinaryStatements.h"

// What the final evaluations by subject make of subjects that aren't of the ordinary kind.

namespace quorvane::test {
namespace {

using ::testing::_;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

TEST(FinalBySubjectTutorsKind, IsPassedOver) {
  const FinalSchool school;
  school.Evalua(school.Pendiente(3, 3115, 2), 4);
  const auto result = RunScript(school, OpenBySubject(4) + "ver\n", SessionOf(kTutor));
  EXPECT_EQ(FormView(result).Entries("cboMaterias").size(), 3U);
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM BloqueoPte"), Not(Contains("3115")));
}

/// A kind of subject that is neither ordinary nor the tutor's.
class FinalBySubjectOtherKind : public ::testing::TestWithParam<int> {
 protected:
  FinalBySubjectOtherKind() {
    const auto pending = school_.Pendiente(3, 3116, 2);
    for (const auto evaluation : {4, 5}) school_.Evalua(pending, evaluation, 402);
    school_.Sql("UPDATE TipoMateria SET CodEspecificarTipoMateria=" + std::to_string(GetParam()) +
                " WHERE IDTipoMateria=40");
  }

  FinalSchool school_;
};

// The row has no such field: the load ends there, with nothing published.
TEST_P(FinalBySubjectOtherKind, EndsTheLoadWithAnUnknownField) {
  const auto result = RunScript(school_, OpenBySubject(4), SessionOf(kTutor));
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_EQ(Traffic(result).back(), KindOf(3116));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM PublicacionPte"), ElementsAre("0"));
}

// A work placement is kept without a look at the first final; any other kind asks.
TEST_P(FinalBySubjectOtherKind, AsksTheFirstFinalUnlessItIsAWorkPlacement) {
  const auto result = RunScript(school_, OpenBySubject(5), SessionOf(kTutor));
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_EQ(Traffic(result).back(), GetParam() == 4 ? KindOf(3116) : PassedFirst(6));
}

// Where a school's rows had the two fields, the grades would come from the host's own table.
TEST_P(FinalBySubjectOtherKind, WouldReadTheHostsGrades) {
  school_.Sql(
      "ALTER TABLE AlumnoPte_MatDet ADD COLUMN CodMateriaDetalles INTEGER DEFAULT 3113;"
      "ALTER TABLE AlumnoPte_MatDet ADD COLUMN IDAlumno_MateriaDetalles INTEGER DEFAULT 77;"
      "INSERT INTO EvaluacionActa (CodAlumno_MateriaDetalles, CodNumEvaluacion, CodNota, "
      "CodNotaObservacion) VALUES (77,4,401,0)");
  const auto result =
      RunScript(school_, OpenBySubject(4) + "pulsar cmdSiguiente\nlista rtvNotasAlumno 1 1\nver\n",
                SessionOf(kTutor));
  const auto traffic = Traffic(result);
  const auto kind = std::find(traffic.begin(), traffic.end(), KindOf(3116));
  ASSERT_GE(traffic.end() - kind, 6);
  EXPECT_THAT(Lines(kind + 1, kind + 6),
              ElementsAre(Sql("SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion "
                              "FROM MateriaDetalles WHERE IDMateriaDetalles=3113"),
                          Sql("SELECT Nombre FROM Materia WHERE IDMateria=3"),
                          Sql("SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
                              "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=311"),
                          Sql("SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActa "
                              "WHERE CodNumEvaluacion=4 AND CodAlumno_MateriaDetalles=77"),
                          Sql("SELECT Aprobado FROM Nota WHERE IDNota=401")));
  EXPECT_THAT(traffic, Contains(FinalCellListOfSubject(kTutor, 4, 3116, 0, 1, 4)));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(_, "1   Abad Rey, Jorge|Apto||||| |3"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, FinalBySubjectOtherKind, ::testing::Values(4, 2),
                         [](const auto& kind) { return "Kind" + std::to_string(kind.param); });

}  // namespace
}  // namespace quorvane::test

// What writes a school in one piece while somebody else holds it.

#include <chrono>
#include <fstream>

#include "apps/escuela/history/GradeHistory.h"
#include "tests/escuela/AnySchool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

TEST(HeldSchoolTest, TheOrdersWaitAMomentAndSayWhatToDo) {
  const AnySchool school;
  school.Sql("DELETE FROM BloqueoPte");
  school.Sql("DELETE FROM PublicacionPte");
  school.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  GradeHistory history(school.Db());
  history.Activate();
  const TempFolder folder;
  const auto csv = folder / "pendientes.csv";
  std::ofstream(csv) << "alumno;sección;materia;curso;evaluaciones\n"
                        "37;3º ESO B;Música;2º ESO B;todas\n";
  const auto order = [&](const std::string& before, const std::string& after) {
    return "(" QUORVANE_ESCUELA " " + before + " " + school.Argument() + " " + after +
           "; echo estado $?) & ";
  };
  const auto orders = order("importar", csv) + order("reparar", "--con-copia-hecha") +
                      order("historial", "desactivar") +
                      order("historial", "purgar --antes 2025-01-01") + order("estado", "") +
                      order("informe", "--seccion 5 --salida " + (folder / "a.html"));
  // A file is read while somebody writes.
  const auto held = OnServer() ? 6U : 4U;
  Outcome outcome;
  const auto begin = std::chrono::steady_clock::now();
  {
    Transaction holding(school.Db());
    school.Sql(OnServer() ? "LOCK TABLE EvaluacionPte" : "DELETE FROM BloqueoPte WHERE 1=0");
    outcome = RunCommand("{ " + orders + "wait; }");
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
  EXPECT_THAT(outcome.text, Not(HasSubstr("locked")));
  std::size_t told = 0;
  std::size_t failed = 0;
  for (std::size_t at = 0; (at = outcome.text.find("tiene ocupada", at)) != std::string::npos; ++at)
    ++told;
  for (std::size_t at = 0; (at = outcome.text.find("estado 1\n", at)) != std::string::npos; ++at)
    ++failed;
  EXPECT_EQ(told, held) << outcome.text;
  EXPECT_EQ(failed, held) << outcome.text;
  EXPECT_EQ(folder.Files(), OnServer() ? 1U : 2U) << "no report of what can't be read";
  EXPECT_EQ(school.Number("SELECT COUNT(*) FROM Seccion_AlumnoPte WHERE CodAlumno=777777"), 1);
  EXPECT_TRUE(history.Active());
  // On a server the next test takes the same database.
  history.Deactivate();
  school.Sql("DROP TABLE HistorialNotas");
}

}  // namespace
}  // namespace quorvane::test

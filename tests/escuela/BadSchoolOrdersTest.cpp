// The orders of the head of studies on schools that they can't use: in a file, or on the server
// that the tests run beside.

#include <chrono>
#include <fstream>

#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class BadSchoolOrdersTest : public testing::Test {
 protected:
  BadSchoolOrdersTest() {
    std::ofstream(folder_ / "p.csv") << "alumno;sección;materia;curso;evaluaciones\n"
                                        "37;3º ESO B;Música;2º ESO B;todas\n";
  }
  /// The order, where S stands for the school, C for the list and F for the folder.
  [[nodiscard]] std::string Command(std::string order) const {
    const auto put = [&order](const char* letter, const std::string& text) {
      if (const auto at = order.find(letter); at != std::string::npos)
        order.replace(at + 1, 1, text);
    };
    put(" S", school_.Argument());
    put(" C", folder_ / "p.csv");
    put(" F", folder_ / "a");
    return QUORVANE_ESCUELA " " + order;
  }
  [[nodiscard]] Outcome Run(const std::string& order) const { return RunCommand(Command(order)); }

  static constexpr const char* kWriters[] = {"importar S C", "reparar S --con-copia-hecha",
                                             "historial S activar",
                                             "historial S purgar --antes 2099-01-01"};
  static constexpr const char* kReaders[] = {"estado S", "informe S --seccion 5 --salida F.html",
                                             "informe S --todas --salida F", "historial S ver"};
  AnySchool school_;
  TempFolder folder_;
};

TEST_F(BadSchoolOrdersTest, WithoutATableEveryOrderNamesItAndDoesNothing) {
  for (const std::string table : {"NumEvaluacion", "EvaluacionActaPte"}) {
    school_.Sql("ALTER TABLE " + table + " RENAME TO Guardada");
    for (const auto* const orders : {&kWriters, &kReaders})
      for (const std::string order : *orders)
        EXPECT_THAT(Run(order), FieldsAre(1, HasSubstr("Falta la tabla " + table))) << order;
    school_.Sql("ALTER TABLE Guardada RENAME TO " + table);
  }
  EXPECT_EQ(folder_.Files(), 1U);
  EXPECT_EQ(Run("historial S ver").status, 0) << "it was the table";
}

TEST_F(BadSchoolOrdersTest, OfOneThatIsReadAloneReadersTellAndWritersSaySo) {
  if (!OnServer()) GTEST_SKIP() << "to whom these tests are, every file can be written";
  school_.Rest();
  const auto before = school_.Count("AlumnoPte_MatDet");
  const auto name = school_.Path();
  school_.Sql(
      "INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0);"
      "CREATE TABLE HistorialNotas (IDHistorial int, Momento varchar(32))");
  school_.Sql("ALTER DATABASE " + name + " SET default_transaction_read_only=on");
  for (const std::string order : kWriters)
    EXPECT_THAT(Run(order), FieldsAre(1, HasSubstr(". La base de datos o el usuario con el que se "
                                                   "conecta son de solo lectura")))
        << order;
  EXPECT_EQ(Run("estado S").status, 0);
  EXPECT_EQ(Run("informe S --todas --salida F").status, 0);
  school_.Sql("ALTER DATABASE " + name + " RESET default_transaction_read_only");
  school_.Sql("DROP TABLE HistorialNotas");
  EXPECT_EQ(school_.Count("AlumnoPte_MatDet"), before);
  EXPECT_EQ(school_.Count("Seccion_AlumnoPte WHERE CodAlumno=777777"), 1);
}

/// While somebody else holds it, what writes it does so in one piece.
class HeldSchoolTest : public BadSchoolOrdersTest {};

TEST_F(HeldSchoolTest, TheOrdersWaitAMomentAndSayWhatToDo) {
  school_.Rest();
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  GradeHistory history(school_.Db());
  history.Activate();
  std::string orders;
  for (const std::string order : {"importar S C", "reparar S --con-copia-hecha",
                                  "historial S desactivar", "historial S purgar --antes 2025-01-01",
                                  "estado S", "informe S --seccion 5 --salida F.html"})
    orders += "(" + Command(order) + "; echo estado $?) & ";
  // A file is read while somebody writes.
  const auto held = OnServer() ? 6 : 4;
  Outcome outcome;
  const auto begin = std::chrono::steady_clock::now();
  {
    Transaction holding(school_.Db());
    school_.Sql(OnServer() ? "LOCK TABLE EvaluacionPte" : "DELETE FROM BloqueoPte WHERE 1=0");
    outcome = RunCommand("{ " + orders + "wait; }");
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
  EXPECT_THAT(outcome.text, Not(HasSubstr("locked")));
  EXPECT_EQ(Occurrences(outcome.text, "tiene ocupada"), held) << outcome.text;
  EXPECT_EQ(Occurrences(outcome.text, "estado 1\n"), held) << outcome.text;
  EXPECT_EQ(folder_.Files(), OnServer() ? 1U : 2U) << "no report of what can't be read";
  EXPECT_EQ(school_.Count("Seccion_AlumnoPte WHERE CodAlumno=777777"), 1);
  EXPECT_TRUE(history.Active());
  school_.ForgetHistory();
}

}  // namespace
}  // namespace quorvane::test

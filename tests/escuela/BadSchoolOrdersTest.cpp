// The orders of the head of studies on schools that they can't use: in a file, or on the server
// that the tests run beside.

#include <fstream>

#include "tests/escuela/AnySchool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
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
  [[nodiscard]] Outcome Run(std::string order) const {
    const auto put = [&order](const char* letter, const std::string& text) {
      if (const auto at = order.find(letter); at != std::string::npos)
        order.replace(at + 1, 1, text);
    };
    put(" S", school_.Argument());
    put(" C", folder_ / "p.csv");
    put(" F", folder_ / "a");
    return RunCommand(QUORVANE_ESCUELA " " + order);
  }

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
      for (const std::string order : *orders) {
        const auto told = Run(order);
        EXPECT_EQ(told.status, 1) << order << "\n" << told.text;
        EXPECT_THAT(told.text, HasSubstr("Falta la tabla " + table)) << order;
      }
    school_.Sql("ALTER TABLE Guardada RENAME TO " + table);
  }
  EXPECT_EQ(folder_.Files(), 1U);
  EXPECT_EQ(Run("historial S ver").status, 0) << "it was the table";
}

TEST_F(BadSchoolOrdersTest, OfOneThatIsReadAloneReadersTellAndWritersSaySo) {
  if (!OnServer()) GTEST_SKIP() << "to whom these tests are, every file can be written";
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("DELETE FROM PublicacionPte");
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  const auto name = school_.Path();
  const auto rows = "SELECT COUNT(*) FROM AlumnoPte_MatDet";
  const auto before = school_.Number(rows);
  school_.Sql("CREATE TABLE HistorialNotas (IDHistorial int, Momento varchar(32))");
  school_.Sql("ALTER DATABASE " + name + " SET default_transaction_read_only=on");
  for (const std::string order : kWriters) {
    const auto told = Run(order);
    EXPECT_EQ(told.status, 1) << order << "\n" << told.text;
    EXPECT_THAT(told.text, HasSubstr(". La base de datos o el usuario con el que se conecta son de "
                                     "solo lectura"))
        << order;
  }
  EXPECT_EQ(Run("estado S").status, 0);
  EXPECT_EQ(Run("informe S --todas --salida F").status, 0);
  school_.Sql("ALTER DATABASE " + name + " RESET default_transaction_read_only");
  school_.Sql("DROP TABLE HistorialNotas");
  EXPECT_EQ(school_.Number(rows), before);
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM Seccion_AlumnoPte WHERE CodAlumno=777777"), 1);
}

}  // namespace
}  // namespace quorvane::test

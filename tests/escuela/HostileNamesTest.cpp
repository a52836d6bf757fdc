// What a school's names, and those that a user gives, do to a terminal.

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "frame/schema/SchoolSchema.h"
#include "platform/text/VisibleText.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/escuela/Orders.h"
#include "tests/support/AllScreens.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"

namespace quorvane::test {
namespace {

/// Clears the screen, forges a line, and turns what follows round; as the shell and as SQL has it.
const std::string kHostile = "\x1B[2J\nPublicaci\xC3\xB3n 9: falsa\r\x7F\xC2\x9B\xE2\x80\xAE\x9B";
const std::string kHostileSql =
    "CAST(char(27)||'[2J'||char(10)||'Publicación 9: falsa'||char(13,127,155,8238)||x'9b' AS TEXT)";

/// That nothing in it acts on a terminal but the ends of its lines, none of which a name has made:
/// but in a CSV, whose cells have lines.
void ExpectHarmless(const std::string& printed, bool csv = false) {
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);) {
    if (csv && line.ends_with('\r')) line.pop_back();
    EXPECT_EQ(VisibleText(line), line);
    EXPECT_TRUE(csv || !line.starts_with("Publicación 9: falsa")) << line;
  }
}

class HostileNamesTest : public testing::Test {
 protected:
  HostileNamesTest() {
    for (const auto& table : SchoolTables())
      for (const auto& column : table.columns)
        if (column.kind == SchemaKind::Text)
          school_.Sql("UPDATE " + table.name + " SET " + column.name + "=" + kHostileSql);
  }
  static Outcome Run(const std::string& program, const std::string& arguments) {
    return RunCommand("timeout 20 " + program + " " + arguments);
  }

  OpenSchool school_;
  TempFolder folder_;
};

TEST_F(HostileNamesTest, NoCommandPrintsThemAsTheyAre) {
  school_.Sql("CREATE TABLE [a\x1B[2J\nPublicaci\xC3\xB3n 9: falsa] (b)");
  for (const auto& arguments :
       {"bloqueos " + school_.Path(), "comprobar " + school_.Path(),
        "copiar " + school_.Path() + " " + folder_ / "copia",
        "bloqueos --odbc 'Driver=SQLite3;Database=" + school_.Path() + "'"}) {
    const auto told = Run(QUORVANE_ESCUELA, arguments);
    EXPECT_NE(told.text, "");
    ExpectHarmless(told.text);
  }
  EXPECT_THAT(Run(QUORVANE_ESCUELA, "bloqueos " + school_.Path()).text, HasSubstr("\\x1b[2J\\n"));
}

TEST_F(HostileNamesTest, NoOrderPrintsThemAsTheyAre) {
  school_.Sql(
      "UPDATE AlumnoPte_MatDet SET CodMatDet=99999 WHERE IDAlumnoPte_MatDet=(SELECT "
      "MIN(IDAlumnoPte_MatDet) FROM AlumnoPte_MatDet)");
  const auto school = folder_ / kHostile;
  // The copy is of the file alone.
  school_.Sql("PRAGMA wal_checkpoint(TRUNCATE)");
  std::filesystem::copy_file(school_.Path(), school);
  const auto csv = folder_ / "a.csv";
  std::ofstream(csv) << "alumno,seccion,materia,curso,evaluaciones\n\"" << kHostile << "\",\""
                     << kHostile << "\",\"" << kHostile << "\",,todas\n";
  std::string all;
  auto turn = 0;
  for (const auto& order : AllOrders()) {
    const auto free = folder_ / ("nueva" + std::to_string(++turn) + kHostile);
    const auto words = ForShell(WithPaths(order, school, free, csv));
    const auto told = Run(QUORVANE_ESCUELA, words + " </dev/null").text;
    SCOPED_TRACE(words);
    EXPECT_NE(told, "");
    ExpectHarmless(told, words.find("--csv") != std::string::npos);
    all += told;
  }
  // Every kind of text has been printed, and not its refusal alone.
  for (const auto* const text :
       {"-- Reparada", "-- Como estaba antes", "Escrito ", "Escritas ", "No encajan", ": [",
        "; plazo", "sin contraseña", "No hay ninguna evaluación 99", "Historial activado"})
    EXPECT_THAT(all, HasSubstr(text));
}

TEST_F(HostileNamesTest, NoOrderRepeatsAWordAsItWasGiven) {
  const auto csv = folder_ / "a.csv";
  std::ofstream(csv) << "alumno,sección,materia\n";
  for (const auto& order : AllOrders())
    for (std::size_t at = 0; at < order.size(); ++at) {
      auto words = WithPaths(order, school_.Path(), "nueva", csv);
      const auto dot = order[at].starts_with("N.") ? order[at].substr(1) : std::string();
      words[at] = (order[at].starts_with("--") ? order[at] + "=" : "") + kHostile + dot;
      SCOPED_TRACE(ForShell(words));
      ExpectHarmless(RunCommand("cd " + (folder_ / "") + " && timeout 20 " + QUORVANE_ESCUELA +
                                ForShell(words) + " </dev/null")
                         .text,
                     ForShell(words).find("--csv") != std::string::npos);
    }
}

TEST_F(HostileNamesTest, NoEventOfAScriptDoes) {
  const auto seen = AllScreens(school_.Path());
  EXPECT_THAT(seen, HasSubstr("\\u001b[2J\\nPublicación 9: falsa\\r\\u007f\\u009b\\u202e"));
  ExpectHarmless(seen);
}

TEST_F(HostileNamesTest, NoComplaintRepeatsThemAsTheyWereGiven) {
  const auto word = Quoted(kHostile);
  for (const auto& arguments :
       {"crear " + Quoted("/no/" + kHostile), "comprobar " + word, "bloqueos x --borrar " + word,
        "crear x " + word, word, "generar x --semilla 1 --alumnos=" + word,
        "comprobar --odbc " + Quoted("DSN=" + kHostile), "copiar " + word + " y"})
    ExpectHarmless(Run(QUORVANE_ESCUELA, arguments).text);
  for (const auto& arguments :
       {"--bd " + word, "--bd " + school_.Path() + " " + word, "--usuario " + word,
        Quoted("--" + kHostile), "--odbc " + Quoted("DSN=" + kHostile)})
    ExpectHarmless(Run(QUORVANE_GUION, arguments).text);
  const auto script = folder_ / "guion";
  for (const std::string line : {"sql \"SELECT * FROM \x1B[2J\"", "pulsar \x1B[2J", "\x1B[2J",
                                 "elegir a \"\xE2\x80\xAE\"", "nodo \x1B", "ver \x7F", "\x9B"}) {
    std::ofstream(script) << line << "\n";
    ExpectHarmless(Run(QUORVANE_GUION, "--bd " + school_.Path() + " " + script).text);
  }
}

}  // namespace
}  // namespace quorvane::test

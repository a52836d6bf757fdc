// What a school's names, and those that a user gives, do to a terminal.

#include <fstream>
#include <sstream>
#include <string>

#include "apps/escuela/DemoSchool.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/VisibleText.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/support/AllScreens.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"

namespace quorvane::test {
namespace {

/// Clears the screen, forges a line, and turns what follows round; as the shell and as SQL has it.
const std::string kHostile = "\x1B[2J\nPublicaci\xC3\xB3n 9: falsa\r\x7F\xC2\x9B\xE2\x80\xAE\x9B";
const std::string kHostileSql =
    "CAST(char(27)||'[2J'||char(10)||'Publicación 9: falsa'||char(13,127,155,8238)||x'9b' AS TEXT)";

/// That nothing in it acts on a terminal but the ends of its lines, none of which a name has made.
void ExpectHarmless(const std::string& printed) {
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_EQ(VisibleText(line), line);
    EXPECT_FALSE(line.starts_with("Publicación 9: falsa")) << line;
  }
}

class HostileNamesTest : public testing::Test {
 protected:
  HostileNamesTest() {
    for (const auto& table : SchoolTables())
      for (const auto& column : table.columns)
        if (column.kind == SchemaKind::Text)
          school_.Db().Execute("UPDATE " + table.name + " SET " + column.name + "=" + kHostileSql);
  }
  static Outcome Run(const std::string& program, const std::string& arguments) {
    return RunCommand("timeout 20 " + program + " " + arguments);
  }

  OpenSchool school_{[](Connection& school) { DemoSchool(school).Build(); }};
  TempFolder folder_;
};

TEST_F(HostileNamesTest, NoCommandPrintsThemAsTheyAre) {
  school_.Db().Execute("CREATE TABLE [a\x1B[2J\nPublicaci\xC3\xB3n 9: falsa] (b)");
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

#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/SchoolFile.h"
#include "tests/device/Device.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"

// The disk gets full while grades are saved, at one statement after the other.

namespace quorvane::test {
namespace {

using testing::_;

/// All subjects of a section get a grade; the first user may do so at any time.
const std::string kGrade =
    "nodo 124\\nelegir cboTipoEnsenanza =3\\nelegir cboCursos \"3º ESO\"\\n"
    "elegir cboSecciones \"3º ESO A\"\\nelegir cboEvaluaciones \"2ª Evaluación\"\\n"
    "pulsar cmdNotaManual1(0)\\neditar rtvNotasAlumno 1 1 #2\\n";
const std::string kSave = kGrade + "pulsar cmdAceptar\\npulsar cmdNotaManual1(1)\\n";

class ModuleTest : public testing::Test {
 protected:
  void SetUp() override {
    MakeSchoolFile(sample_, [](Connection& school) { DemoSchool(school).Build(); });
    Opened<sqlite::SqliteConnection> school(sample_, "");
    LockList(school).Remove(1);
  }

  [[nodiscard]] static Outcome Save(const std::string& path) {
    return RunCommand("printf '" + kSave + "' | " QUORVANE_GUION " --usuario 1 --bd " + path);
  }

  /// The rows of what a save writes.
  static std::vector<std::string> Rows(const std::string& path) {
    Opened<sqlite::SqliteConnection> school(path, "");
    std::vector<std::string> rows{school.Execute("PRAGMA integrity_check").Fields(0).Text()};
    for (const std::string table : {"PublicacionPte", "BloqueoPte", "EvaluacionPte"}) {
      auto found = school.Execute("SELECT * FROM " + table + " ORDER BY rowid");
      for (; !found.Eof(); found.MoveNext()) {
        auto row = table;
        for (std::size_t i = 0; i < found.Names().size(); ++i) row += "|" + found.Fields(i).Text();
        rows.push_back(row);
      }
    }
    return rows;
  }

  static std::vector<std::string> Grades(const std::string& path) {
    auto rows = Rows(path);
    std::erase_if(rows, [](const auto& row) { return !row.starts_with("EvaluacionPte"); });
    return rows;
  }

  /// All that a save writes, after the statements that the program printed, but for the last, which
  /// failed.
  [[nodiscard]] std::vector<std::string> Expected(const std::string& printed) const {
    const auto path = folder_ / "esperada.sqlite";
    std::filesystem::copy_file(sample_, path, std::filesystem::copy_options::overwrite_existing);
    std::vector<std::string> statements;
    std::istringstream lines(printed);
    const std::string prefix = "sql centro ";
    for (std::string line; std::getline(lines, line);)
      if (line.starts_with(prefix)) statements.push_back(line.substr(prefix.size()));
    statements.pop_back();
    Opened<sqlite::SqliteConnection> school(path, "");
    for (const auto& statement : statements) school.Execute(statement);
    school.Close();
    return Rows(path);
  }

  TempFolder folder_;
  std::string sample_ = folder_ / "muestra.sqlite";
};

TEST_F(ModuleTest, ADiskThatFillsUpInTheMiddleKeepsWhatWasWrittenAndTheFormsOpenAgain) {
  const auto path = folder_ / "escuela.sqlite";
  int failed = 0;
  int afterFirstGrade = 0;
  // The log beside the school grows by a few pages a statement.
  for (rlim_t bytes = 40'000;; bytes += 12'000) {
    ASSERT_LT(bytes, 4'000'000U) << "the save never fits";
    std::filesystem::copy_file(sample_, path, std::filesystem::copy_options::overwrite_existing);
    Outcome outcome;
    {
      const LongestFile limit(bytes);
      outcome = Save(path);
    }
    if (outcome.status == 0) break;
    ++failed;
    ASSERT_EQ(outcome.status, 1) << bytes << '\n' << outcome.text;
    EXPECT_THAT(outcome.text,
                AllOf(HasSubstr("\nerror -2147467259 "), HasSubstr("queda espacio en")))
        << bytes;
    if (outcome.text.find("sql centro UPDATE EvaluacionPte") != std::string::npos)
      ++afterFirstGrade;
    EXPECT_EQ(Rows(path), Expected(outcome.text)) << bytes;
    EXPECT_THAT(RunCommand(QUORVANE_ESCUELA " bloqueos --borrar 1 " + path),
                FieldsAre(testing::Le(1), _));
    EXPECT_THAT(Save(path), FieldsAre(0, _));
    for (const auto* const ending : {"-wal", "-shm"}) std::filesystem::remove(path + ending);
  }
  EXPECT_GT(failed, 3);
  EXPECT_GT(afterFirstGrade, 1);
}

TEST_F(ModuleTest, AGradeSavedIntoASchoolThatHasGoneIsAnErrorAndSoIsTheNextScreen) {
  const auto printed = folder_ / "salida";
  const auto away = folder_ / "apartada.sqlite";
  const auto before = Grades(sample_);
  const auto waitForGrade =
      "timeout 60 sh -c \"until grep -q '^> editar' " + printed + "; do sleep 0.02; done\"";
  const auto outcome = RunCommand(
      "{ printf '" + kGrade + "'; " + waitForGrade + "; sleep 1.2; mv " + sample_ + " " + away +
      "; printf 'pulsar cmdAceptar\\nnodo 124\\n'; } | " QUORVANE_GUION " --usuario 1 --bd " +
      sample_ + " > " + printed);
  EXPECT_EQ(outcome.status, 1) << outcome.text;
  const auto refusal = "error -2147467259 Se ha perdido el archivo " + sample_ +
                       ": se ha borrado, movido o cambiado de nombre.";
  const auto text = Content(printed);
  const auto saving = text.find("\n> pulsar cmdAceptar\n");
  ASSERT_NE(saving, std::string::npos);
  EXPECT_THAT(text.substr(saving),
              AllOf(HasSubstr("\n" + refusal), HasSubstr("\n> nodo 124\n" + refusal)));
  EXPECT_FALSE(std::filesystem::exists(sample_));
  for (const auto* const ending : {"-wal", "-shm"})
    std::filesystem::rename(sample_ + ending, away + ending);
  EXPECT_EQ(Grades(away), before);
}

}  // namespace
}  // namespace quorvane::test

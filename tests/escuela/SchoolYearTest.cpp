// A year in which everything that the head of studies asks for is used, with every count held
// against plain SQL: in a file, or on the server that the tests run beside.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <set>
#include <thread>

#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/import/SchoolImport.h"
#include "apps/escuela/repair/SchoolRepair.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/state/SchoolState.h"
#include "tests/escuela/AnySchool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

constexpr auto kFirst = 1;
constexpr auto kMaths = 20;  // of 2º ESO A
constexpr auto kMusic = 25;
constexpr auto kSports = 23;

class SchoolYearTest : public testing::Test {
 protected:
  SchoolYearTest() {
    for (const auto* const table :
         {"PublicacionPte", "BloqueoPte", "EvaluacionPte", "EvaluacionActaPte", "AlumnoPte_MatDet",
          "Seccion_AlumnoPte", "Profesor_Pte", "FechaNotas"})
      school_.Sql(std::string("DELETE FROM ") + table);
  }
  ~SchoolYearTest() override {
    history_.Deactivate();
    if (history_.Kept()) school_.Sql("DROP TABLE HistorialNotas");
  }

  /// In September: the students of 3º ESO A that the school lists, with two subjects each.
  int ImportRegister(const std::vector<std::string>& subjects = {"Matemáticas", "Música"}) {
    const auto file = folder_ / "septiembre.csv";
    std::ofstream lines(file);
    lines << "alumno;sección;materia;curso;evaluaciones;profesor\n";
    auto count = 0;
    for (auto rows = school_.Db().Execute("SELECT IDAlumno FROM Alumno WHERE CodSeccion=5 AND "
                                          "(FechaBaja='' OR FechaBaja IS NULL)");
         !rows.Eof(); rows.MoveNext(), ++count)
      for (const auto& subject : subjects)
        lines << rows.Fields(0).Text() << ";3º ESO A;" << subject
              << ";2º ESO A;1ª Evaluación + Final Ordinaria;Ortega Gutiérrez, Marco\n";
    lines.close();
    const auto report = quorvane::ImportRegister(school_.Address(), file, {});
    EXPECT_THAT(report.misfits, IsEmpty());
    EXPECT_EQ(report.subjects, subjects.size() * static_cast<std::size_t>(count));
    return count;
  }

  /// What a user does who has that subject of the section open in the first evaluation.
  static std::string Opening(int subject, const std::string& grade) {
    return "nodo 127\nelegir cboTipoEnsenanza =3\nelegir cboCursos \"3º ESO\"\nelegir cboSecciones "
           "\"3º ESO A\"\nelegir cboEvaluaciones \"1ª Evaluación\"\nelegir cboMateria =" +
           std::to_string(subject) + "\npulsar cmdNotaManual1(0)\neditar rtvNotasAlumno 1 1 \"" +
           grade + "\"\n";
  }

  /// A program of a user's own, that has the subject open until the file `go` is there, and then
  /// saves.
  std::future<Outcome> Grading(int user, int subject, const std::string& grade) {
    const auto number = std::to_string(user);
    const auto opening = folder_ / ("abrir" + number);
    const auto saving = folder_ / "guardar";
    std::ofstream(opening) << Opening(subject, grade);
    std::ofstream(saving) << "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n";
    const auto place = (OnServer() ? "" : "--bd ") + school_.Argument();
    const auto command = "{ cat " + opening + "; while [ ! -e " + (folder_ / "go") +
                         " ]; do sleep 0.02; done; cat " + saving + "; } | " QUORVANE_GUION " " +
                         place + " --usuario " + number + " --perfil 0 --centro 1 --hoy 10/12/2025";
    return std::async(std::launch::async, [command] { return RunCommand(command); });
  }

  /// A user grades one subject of the section in the first evaluation, and leaves by saving unless
  /// he `stays`, as one whose computer goes down.
  ScriptResult Grade(int user, int profile, int subject, const char* grade, bool stays) {
    ScriptOptions options;
    options.usuario = user;
    options.perfil = profile;
    options.hoy = "10/12/2025";
    return RunScript(
        school_.School(),
        Opening(subject, grade) + (stays ? "" : "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n"),
        options);
  }

  AnySchool school_;
  TempFolder folder_;
  GradeHistory history_{school_.Db()};
};

TEST_F(SchoolYearTest, EndsWithEveryCountRight) {
  const auto students = ImportRegister();
  ASSERT_GT(students, 3);
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionPte"), 2 * students);
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionActaPte"), 2 * students);
  history_.Activate();

  const auto director = Grade(1, 0, kMaths, "7", false);
  EXPECT_THAT(director.Of("rechazo"), IsEmpty()) << director.Text();
  Grade(1, 0, kMusic, "6", true);
  const auto late = Grade(2, 0, kMusic, "5", false);
  EXPECT_FALSE(late.Of("rechazo").empty()) << "somebody else holds it:\n" << late.Text();

  StateFilter filter;
  filter.evaluation = kFirst;
  const SchoolState state(school_.Db(), "2025/12/10");
  auto pending = 0;
  auto entered = 0;
  auto locked = 0;
  for (const auto& row : state.Subjects(filter)) {
    pending += row.pending;
    entered += row.entered;
    locked += row.locked;
    EXPECT_EQ(row.locked, row.subject == kMusic ? 1 : 0);
  }
  EXPECT_EQ(pending, 2 * students);
  EXPECT_EQ(entered, school_.Number("SELECT COUNT(*) FROM EvaluacionPte WHERE CodNota>0"));
  EXPECT_EQ(entered, 1);
  EXPECT_EQ(locked, 1);
  ASSERT_EQ(history_.Read({}).size(), 1U);
  EXPECT_THAT(history_.Read({})[0].user, HasSubstr("usuario 1"));

  const auto report = ReportReader(school_.Db(), "IES", "10/12/2025").Section(5);
  EXPECT_EQ(static_cast<int>(report.students.size()), students);
  for (const auto& student : report.students) {
    ASSERT_EQ(student.subjects.size(), 2U);
    EXPECT_EQ(student.subjects[0].teacher, "Ortega Gutiérrez, Marco");
  }

  school_.Sql("DELETE FROM Alumno WHERE IDAlumno=32");
  school_.Sql("INSERT INTO Profesor_Pte SELECT 0, CodMatDet FROM Profesor_Pte");
  RepairOptions options;
  options.backedUp = true;
  options.publicationsToo = true;
  const auto repaired = RepairSchool(school_.Address(), options);
  if (!repaired.copy.empty()) std::filesystem::remove(repaired.copy);
  EXPECT_THAT(SchoolCheck(school_.Db()).Rows(), IsEmpty());
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionPte"), 2 * (students - 1));
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM AlumnoPte_MatDet"), 2 * (students - 1));
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM Profesor_Pte WHERE CodProfesor=2"), 2);

  const auto opened = RunScript(school_.School(),
                                "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso \"3º ESO\"\n"
                                "elegir cboSeccion \"3º ESO A\"\npulsar cmdAceptar\n");
  EXPECT_THAT(opened.Of("muestra"), Contains("frmAlumnoPendiente"));
  EXPECT_THAT(opened.Of("error"), IsEmpty());
}

TEST_F(SchoolYearTest, ThreeUsersAtOnceAllStandInTheHistory) {
  const auto students = ImportRegister({"Matemáticas", "Música", "Educación Física"});
  ASSERT_GT(students, 0);
  history_.Activate();
  std::vector<std::future<Outcome>> users;
  // Also where something throws: those who wait for it would keep the test for ever.
  struct GoAhead {
    std::string file;
    void Tell() const { std::ofstream(file) << "go"; }
    ~GoAhead() { Tell(); }
  } const goAhead{folder_ / "go"};
  const auto open = [this] { return school_.Number("SELECT COUNT(*) FROM PublicacionPte"); };
  // One opens after the other: two that take the highest number at once get the same one, and the
  // second is told so.
  const auto opens = [&](std::future<Outcome> user) {
    users.push_back(std::move(user));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (open() < static_cast<int>(users.size()) && std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(open(), static_cast<int>(users.size())) << "all have a subject open";
  };
  opens(Grading(1, kMaths, "7"));
  opens(Grading(2, kMusic, "6"));
  opens(Grading(3, kSports, "5"));
  goAhead.Tell();
  for (auto& user : users) {
    const auto outcome = user.get();
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_EQ(outcome.text.find("\nrechazo"), std::string::npos) << outcome.text;
  }
  EXPECT_EQ(open(), 0);
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionPte WHERE CodNota>0"), 3);
  std::set<std::string> told;
  for (const auto& change : history_.Read({}))
    told.insert(change.subject + " " + change.after + " " +
                change.user.substr(0, change.user.find(" (")));
  EXPECT_THAT(told,
              ElementsAre("Educación Física (2º ESO A) 5 usuario 3",
                          "Matemáticas (2º ESO A) 7 usuario 1", "Música (2º ESO A) 6 usuario 2"));
}

}  // namespace
}  // namespace quorvane::test

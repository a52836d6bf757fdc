// A year of 3º ESO A in which all that the head of studies asks for is used, by the programs as
// they are called, and every count is held against plain SQL: in a file, or on the server that the
// tests run beside.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>
#include <regex>
#include <thread>

#include "apps/escuela/SchoolAddress.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/ModulesStatements.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class SchoolYearTest : public testing::Test {
 protected:
  static constexpr auto kMaths = 20;  // of 2º ESO A
  static constexpr auto kMusic = 25;
  static constexpr auto kSports = 23;
  static constexpr auto kSubjects = 3;
  static constexpr auto kStudents = 6;  // 29 to 34; the seventh has left
  static constexpr auto kPending = kStudents * kSubjects;
  static constexpr auto kFirst = "1ª Evaluación";
  static constexpr auto kFinal = "Final Ordinaria";
  static constexpr auto kSecondFinal = "Final Extraordinaria";

  SchoolYearTest() {
    school_.Sql(
        "DELETE FROM PublicacionPte; DELETE FROM BloqueoPte; DELETE FROM EvaluacionPte;"
        "DELETE FROM EvaluacionActaPte; DELETE FROM AlumnoPte_MatDet;"
        "DELETE FROM Seccion_AlumnoPte; DELETE FROM Profesor_Pte; DELETE FROM FechaNotas;"
        "INSERT INTO FechaNotas VALUES ('2000/01/01','2099/12/31',5,1);"
        "INSERT INTO FechaNotas VALUES ('2000/01/01','2000/12/31',5,4)");
  }
  ~SchoolYearTest() override { school_.ForgetHistory(); }

  /// The sum of that number over all objects of a JSON text.
  static int Sum(const std::string& json, const std::string& name) {
    auto sum = 0;
    const std::regex each("\"" + name + "\":([0-9]+)");
    for (std::sregex_iterator at(json.begin(), json.end(), each), end; at != end; ++at)
      sum += std::stoi((*at)[1]);
    return sum;
  }

  [[nodiscard]] int Count(const std::string& from) const { return school_.Count(from); }
  [[nodiscard]] std::string Traced() const { return "QUORVANE_TRAZA=" + trace_ + " "; }
  [[nodiscard]] Outcome Tool(const std::string& order, const std::string& rest) const {
    return RunCommand(Traced() + QUORVANE_ESCUELA " " + order + " " + school_.Argument() + " " +
                      rest);
  }
  /// A program of that user's, above roles; its script comes from the command.
  [[nodiscard]] std::string Program(int user, const std::string& day) const {
    return Traced() + QUORVANE_GUION " " + (OnServer() ? "" : "--bd ") + school_.Argument() +
           " --usuario " + std::to_string(user) + " --perfil 0 --centro 1 --hoy " + day;
  }
  [[nodiscard]] std::string Play(int user, const std::string& day,
                                 const std::string& script) const {
    const auto file = folder_ / "guion";
    std::ofstream(file) << script;
    const auto outcome = RunCommand(Program(user, day) + " " + file);
    EXPECT_THAT(outcome,
                FieldsAre(0, AllOf(Not(HasSubstr("\nrechazo")), Not(HasSubstr("\nerror")))));
    return outcome.text;
  }

  /// A subject of the section in an evaluation, opened, with these grades from the first student
  /// on.
  static std::string Open(const std::string& evaluation, int subject,
                          const std::vector<std::string>& grades) {
    auto script =
        "nodo 127\nelegir cboTipoEnsenanza =3\nelegir cboCursos \"3º ESO\"\nelegir cboSecciones "
        "\"3º ESO A\"\nelegir cboEvaluaciones \"" +
        evaluation + "\"\nelegir cboMateria =" + std::to_string(subject) +
        "\npulsar cmdNotaManual1(0)\n";
    const auto* next = "";
    for (const auto& grade : grades) {
      script += next + ("editar rtvNotasAlumno 1 1 \"" + grade + "\"\n");
      next = "pulsar cmdSiguiente\n";
    }
    return script;
  }
  static std::string Save() { return "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n"; }

  /// Has the subject open until the file `go` is there, and then saves.
  std::future<Outcome> Grading(int user, int subject, const std::vector<std::string>& grades) {
    const auto opening = folder_ / ("abrir" + std::to_string(user));
    const auto saving = folder_ / "guardar";
    std::ofstream(opening) << Open(kFirst, subject, grades);
    std::ofstream(saving) << Save();
    const auto command = "{ cat " + opening + "; while [ ! -e " + (folder_ / "go") +
                         " ]; do sleep 0.02; done; cat " + saving + "; } | " +
                         Program(user, "10/12/2025");
    return std::async(std::launch::async, [command] { return RunCommand(command); });
  }

  /// The register comes from a file, and its screen shows what was in it.
  void September() const {
    const auto file = folder_ / "septiembre.csv";
    {
      std::ofstream lines(file);
      lines << "alumno;sección;materia;curso;evaluaciones;profesor\n";
      for (auto student = 29; student < 29 + kStudents; ++student)
        for (const auto* const subject : {"Matemáticas", "Música", "Educación Física"})
          lines << student << ";3º ESO A;" << subject << ";2º ESO A;" << kFirst << " + " << kFinal
                << " + " << kSecondFinal << ";\"Ortega Gutiérrez, Marco\"\n";
    }
    const auto told = Tool("importar", file);
    EXPECT_EQ(told.text,
              "Importadas 18 materias de 6 alumnos; 0 ya estaban; 3 profesores puestos\n");
    EXPECT_EQ(Count("Seccion_AlumnoPte WHERE CodSeccion=5"), kStudents);
    EXPECT_EQ(Count("AlumnoPte_MatDet"), kPending);
    EXPECT_EQ(Count("EvaluacionPte WHERE CodNumEvaluacion=1 AND CodNota=0"), kPending);
    EXPECT_EQ(Count("EvaluacionActaPte WHERE CodNumEvaluacion IN (4,5)"), 2 * kPending);
    EXPECT_EQ(Count("Profesor_Pte WHERE CodProfesor=2"), kSubjects);

    const auto seen = Play(1, "15/09/2025",
                           "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso \"3º ESO\"\n"
                           "elegir cboSeccion \"3º ESO A\"\npulsar cmdAceptar\nver\n"
                           "fila msgAlumnos 1 0\npulsar cmdPropiedades\nver\n");
    for (const auto& surname :
         school_.Rows("SELECT Apellido_1 FROM Alumno WHERE IDAlumno BETWEEN 29 AND 34"))
      EXPECT_THAT(seen, HasSubstr(surname)) << "on the register";
    for (const auto* const subject : {"Matemáticas", "Música", "Educación Física"})
      EXPECT_THAT(seen, HasSubstr(std::string(subject) + " (")) << "of the first student";
  }

  /// Each has a subject open while the others have theirs, and saves two grades.
  void ThreeAtOnce() {
    std::vector<std::future<Outcome>> users;
    // Also where something throws: those who wait for it would keep the test for ever.
    struct GoAhead {
      std::string file;
      void Tell() const { std::ofstream(file) << "go"; }
      ~GoAhead() { Tell(); }
    } const goAhead{folder_ / "go"};
    // One opens after the other: two that take the highest number at once get the same one, and the
    // second is told so.
    const auto opens = [&](std::future<Outcome> user) {
      users.push_back(std::move(user));
      const auto open = static_cast<int>(users.size());
      const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
      while (Count("PublicacionPte") < open && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
      EXPECT_EQ(Count("PublicacionPte"), open) << "all have a subject open";
    };
    opens(Grading(1, kMaths, {"7", "8"}));
    opens(Grading(2, kMusic, {"6", "4"}));
    opens(Grading(3, kSports, {"5", "9"}));
    goAhead.Tell();
    for (auto& user : users) EXPECT_THAT(user.get(), FieldsAre(0, Not(HasSubstr("\nrechazo"))));
    EXPECT_EQ(Count("PublicacionPte"), 0);
    EXPECT_EQ(Count("EvaluacionPte WHERE CodNota>0"), 6);
  }

  /// One more has a subject open whose computer goes down; then the state is looked at.
  void December() const {
    static_cast<void>(Play(2, "12/12/2025", Open(kFirst, kMusic, {"10"})));
    EXPECT_EQ(Count("BloqueoPte"), 1) << "nobody gave it back";
    EXPECT_THAT(Tool("estado", "--evaluacion 1 --detalle").text,
                AllOf(HasSubstr("1ª Evaluación: [###-------] 6 de 18, faltan 12\n"
                                "  3º ESO A: [###-------] 6 de 18, faltan 12; plazo 2000/01/01 a "
                                "2099/12/31, abierto; en uso 1\n"),
                      HasSubstr("    Música (2º ESO A), Ortega Gutiérrez, Marco: [###-------] 2 de "
                                "6, faltan 4; en uso\n")));
    const auto json = Tool("estado", "--evaluacion 1 --json").text;
    EXPECT_EQ(Sum(json, "pendientes"), Count("EvaluacionPte WHERE CodNumEvaluacion=1"));
    EXPECT_EQ(Sum(json, "puestas"), Count("EvaluacionPte WHERE CodNumEvaluacion=1 AND CodNota>0"));
    EXPECT_EQ(Sum(json, "faltan"), Count("EvaluacionPte WHERE CodNumEvaluacion=1 AND CodNota=0"));
    EXPECT_EQ(Occurrences(json, "\"enUso\":true"), Count("BloqueoPte"));
    EXPECT_EQ(Occurrences(json, "\"abierta\":true"), kSubjects);
  }

  /// The final evaluation, and the second for whom the first has failed.
  void June() const {
    static_cast<void>(
        Play(1, "10/06/2026", Open(kFinal, kMaths, {"8", "3", "4", "5", "2", "6"}) + Save()));
    EXPECT_EQ(Count("EvaluacionActaPte WHERE CodNumEvaluacion=4 AND CodNota>0"), kStudents);
    const auto failed = Count(
        "EvaluacionActaPte, Nota WHERE CodNota=IDNota AND Aprobado=0 AND "
        "EvaluacionActaPte.CodNumEvaluacion=4");
    EXPECT_EQ(failed, 3);
    EXPECT_EQ(Sum(Tool("estado", "--evaluacion 5 --json").text, "pendientes"), failed)
        << "who has passed misses nothing";
    static_cast<void>(Play(1, "25/06/2026", Open(kSecondFinal, kMaths, {"5"}) + Save()));
    const auto json = Tool("estado", "--json").text;
    EXPECT_EQ(Sum(json, "pendientes"), 2 * kPending + failed);
    EXPECT_EQ(Sum(json, "puestas"),
              Count("EvaluacionPte WHERE CodNota>0") + Count("EvaluacionActaPte WHERE CodNota>0"));
    EXPECT_EQ(Sum(json, "puestas"), 6 + kStudents + 1);
  }

  void WhoChangedWhat() const {
    const auto all = Tool("historial", "ver --json").text;
    EXPECT_EQ(Occurrences(all, "\"columna\""), Count("HistorialNotas"));
    EXPECT_EQ(Count("HistorialNotas WHERE Columna='CodNota'"), 6 + kStudents + 1);
    for (const auto user : {1, 2, 3}) {
      const auto number = std::to_string(user);
      const auto csv = Tool("historial", "ver --csv --usuario " + number).text;
      EXPECT_EQ(Occurrences(csv, "\n") - 1, Count("HistorialNotas WHERE CodUsuario=" + number));
      EXPECT_GE(Count("HistorialNotas WHERE CodUsuario=" + number), 2);
    }
    EXPECT_EQ(Count("HistorialNotas WHERE CodUsuario IS NULL OR CodUsuario NOT IN (1,2,3)"), 0);
    EXPECT_THAT(Tool("historial", "ver --materia 25 --usuario 2").text, HasSubstr("usuario 2"));
    EXPECT_EQ(Count("HistorialNotas WHERE CodMatDet=25 AND CodUsuario<>2"), 0);
  }

  void Reports() const {
    const auto write = [this](const std::string& rest, const std::string& name) {
      const auto done =
          Tool("informe", "--seccion '3º ESO A' " + rest + " --salida " + (folder_ / name));
      EXPECT_EQ(done.status, 0) << done.text;
      return Content(folder_ / name);
    };
    const auto html = write("--nombre 'IES Ejemplo'", "informe.html");
    for (const auto& name :
         school_.Rows("SELECT Apellido_1 FROM Alumno WHERE IDAlumno BETWEEN 29 AND 34"))
      EXPECT_THAT(html, HasSubstr(name));
    EXPECT_EQ(Occurrences(html, "Ortega Gutiérrez, Marco"), kPending);
    const auto csv = write("", "informe.csv");
    EXPECT_EQ(Occurrences(csv, "\n"), 1 + Count("EvaluacionPte") + Count("EvaluacionActaPte"));
    const auto blank = write("--en-blanco", "hoja.csv");
    EXPECT_EQ(Occurrences(blank, "\n"), 1 + Count("AlumnoPte_MatDet"));
    EXPECT_THAT(write("--en-blanco", "hoja.html"), HasSubstr("Hoja de notas"));
  }

  /// A student's row goes, teachers and the register are doubled, an evaluation is gone, and what
  /// the dead program locked stands without it.
  void Break() const {
    EXPECT_EQ(Tool("comprobar", "").status, 0);
    school_.Sql(
        "DELETE FROM Alumno WHERE IDAlumno=34;"
        "INSERT INTO Profesor_Pte SELECT 0, CodMatDet FROM Profesor_Pte;"
        "INSERT INTO Seccion_AlumnoPte SELECT * FROM Seccion_AlumnoPte WHERE CodAlumno=29;"
        "UPDATE EvaluacionActaPte SET CodNumEvaluacion=77 WHERE CodNumEvaluacion=5 AND CodNota=0 "
        "AND CodAlumnoPte_MatDet=(SELECT MAX(IDAlumnoPte_MatDet) FROM AlumnoPte_MatDet WHERE "
        "CodAlumno=29); DELETE FROM PublicacionPte");
  }

  /// `teachers` is how many rows of theirs there were.
  void Mend(int teachers) const {
    const auto counts = [this] {
      std::vector<int> all;
      for (const std::string table : {"AlumnoPte_MatDet", "Seccion_AlumnoPte", "EvaluacionPte",
                                      "EvaluacionActaPte", "Profesor_Pte", "BloqueoPte"})
        all.push_back(Count(table));
      return all;
    };
    const auto before = counts();
    EXPECT_EQ(Tool("comprobar", "").status, 1);
    const auto copied = std::string(OnServer() ? "--con-copia-hecha" : "");
    EXPECT_EQ(Tool("reparar", copied + " --simular").status, 0);
    EXPECT_EQ(counts(), before);
    const auto done = Tool("reparar", copied);
    EXPECT_EQ(done.status, 0) << done.text;
    std::smatch copy;
    if (std::regex_search(done.text, copy, std::regex("-- Como estaba antes: (.*)")))
      EXPECT_TRUE(std::filesystem::remove(copy[1].str()));
    else
      EXPECT_TRUE(OnServer()) << "a file is copied before";
    const auto clean = Tool("comprobar", "");
    EXPECT_EQ(clean.status, 0) << clean.text;
    const auto left = kPending - kSubjects;
    EXPECT_EQ(counts(), (std::vector{left, kStudents - 1, left, 2 * left - 1, teachers, 0}));
    auto removed = 0;
    for (std::size_t i = 0; i < before.size(); ++i) removed += before[i] - counts()[i];
    EXPECT_EQ(Occurrences(done.text, "INSERT INTO "), removed) << done.text;
    EXPECT_EQ(Count("Profesor_Pte WHERE CodProfesor=2"), kSubjects);
  }

  /// Screens and orders go on with what is left.
  void AfterIt() const {
    EXPECT_THAT(Play(1, "30/06/2026",
                     "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso \"3º ESO\"\n"
                     "elegir cboSeccion \"3º ESO A\"\npulsar cmdAceptar\n"
                     "pulsar cmdCancelar\n" +
                         Open(kFirst, kMusic, {"9"}) + Save()),
                AllOf(HasSubstr("muestra frmAlumnoPendiente\n"),
                      HasSubstr("muestra frmNotaSeccionAlumno\n")));
    const auto json = Tool("estado", "--json").text;
    EXPECT_EQ(Sum(json, "puestas"),
              Count("EvaluacionPte WHERE CodNota>0") + Count("EvaluacionActaPte WHERE CodNota>0"));
    EXPECT_EQ(Occurrences(json, "\"enUso\":true"), 0);
    EXPECT_EQ(Count("BloqueoPte"), 0);
  }

  AnySchool school_;
  TempFolder folder_;
  std::string trace_ = folder_ / "traza";
};

TEST_F(SchoolYearTest, EndsWithEveryCountRight) {
  September();
  EXPECT_EQ(Tool("historial", "activar").status, 0);
  ThreeAtOnce();
  December();
  June();
  WhoChangedWhat();
  Reports();
  const auto teachers = Count("Profesor_Pte");
  Break();
  Mend(teachers);
  AfterIt();
  ExpectOfTheModule(trace_, "centro|borrado|entrada", 600);
}

}  // namespace
}  // namespace quorvane::test

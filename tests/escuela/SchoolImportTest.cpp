// Pending subjects put on the register from a file: on a school in a file, or on the server that
// the tests run beside.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "apps/escuela/import/CsvText.h"
#include "apps/escuela/import/FoldedText.h"
#include "apps/escuela/import/SchoolImport.h"
#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/ModulesStatements.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

const auto* const kHeading = "alumno;sección;materia;curso;evaluaciones;profesor\n";

class SchoolImportTest : public testing::Test {
 protected:
  std::string Written(const std::string& lines) {
    std::ofstream(file_, std::ios::binary) << kHeading << lines;
    return file_;
  }
  ImportReport Import(const std::string& lines, ImportOptions options = {}) {
    return ImportRegister(school_.Address(), Written(lines), options);
  }
  /// The program's, with what follows the school.
  Outcome Importar(const std::string& rest) {
    return Escuela("importar " + school_.Argument() + " " + rest);
  }
  std::vector<std::string> Register() {
    auto rows = school_.Rows("SELECT * FROM AlumnoPte_MatDet");
    for (const std::string table :
         {"EvaluacionPte", "EvaluacionActaPte", "Seccion_AlumnoPte", "Profesor_Pte"})
      for (const auto& row : school_.Rows("SELECT * FROM " + table)) rows.push_back(table + row);
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  int Count(const std::string& table, int pending) {
    return school_.Count(table + " WHERE CodAlumnoPte_MatDet=" + std::to_string(pending));
  }
  int Pending(int student, int subject) {
    const auto rows =
        school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno=" +
                     std::to_string(student) + " AND CodMatDet=" + std::to_string(subject));
    return rows.size() == 1 ? std::stoi(rows[0]) : 0;
  }

  AnySchool school_;
  TempFolder folder_;
  std::string file_ = folder_ / "registro.csv";
};

TEST_F(SchoolImportTest, PutsStudentsSubjectsEvaluationsAndTeachersOnTheRegister) {
  const auto report = Import(
      "32;3º ESO A;Matemáticas;2º ESO B;todas;Ortega Gutiérrez, Marco\n"
      "\"garcía  castro, noa\";3o eso b;musica;2º ESO B;1ª Evaluación + Final Ordinaria;Lucía "
      "Vidal Iglesias\n"
      "29;;Música;2º ESO A;2ª Evaluación;\n");
  EXPECT_THAT(report.misfits, IsEmpty());
  EXPECT_TRUE(report.written);
  EXPECT_EQ(report.subjects, 3U);
  EXPECT_EQ(report.students, 3U);
  EXPECT_EQ(report.teachers, 2U);
  const auto all = Pending(32, 30);
  EXPECT_EQ(Count("EvaluacionPte", all), 4);
  EXPECT_EQ(Count("EvaluacionActaPte", all), 2);
  const auto named = Pending(37, 35);
  EXPECT_THAT(school_.Rows("SELECT CodNumEvaluacion FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=" +
                           std::to_string(named)),
              ElementsAre("1"));
  EXPECT_EQ(Count("EvaluacionActaPte", named), 1);
  EXPECT_EQ(school_.Number("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=30"), 2);
  EXPECT_EQ(school_.Number("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=35"), 4);
  EXPECT_EQ(
      school_.Number("SELECT Orden FROM AlumnoPte_MatDet WHERE CodAlumno=29 AND CodMatDet=25"),
      school_.Count("AlumnoPte_MatDet WHERE CodAlumno=29"));
  EXPECT_EQ(school_.Count("Seccion_AlumnoPte WHERE CodSeccion=6 AND "
                          "CodAlumno=37"),
            1);
}

TEST_F(SchoolImportTest, MayBeEndedBetweenTwoGesturesOfASection) {
  struct Ended {};
  const auto lines =
      Written("32;3º ESO A;Matemáticas;2º ESO B;todas;\n37;3º ESO B;Música;2º ESO B;todas;\n");
  const auto before = Register();
  auto calls = 0;
  const auto end = [&calls](std::size_t done, std::size_t all) {
    EXPECT_LT(done, all / 2) << "of the first section";
    if (++calls == 10) throw Ended();
  };
  EXPECT_THROW(ImportRegister(school_.Address(), lines, {}, end), Ended);
  EXPECT_EQ(calls, 10);
  EXPECT_EQ(Register(), before);
  std::vector<std::size_t> told;
  std::size_t whole = 0;
  const auto note = [&](std::size_t done, std::size_t all) {
    told.push_back(done);
    whole = all;
  };
  EXPECT_TRUE(ImportRegister(school_.Address(), lines, {}, note).written)
      << "nothing of the first is in the way";
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  EXPECT_GT(told.size(), 20U) << "each gesture counts";
  EXPECT_EQ(told.front(), 0U);
  EXPECT_EQ(told.back(), whole);
}

TEST_F(SchoolImportTest, LeavesWhatStandsAsItIs) {
  const auto* const lines =
      "29;3º ESO A;Música;2º ESO A;2ª Evaluación;\n29;3º ESO A;Matemáticas;2º ESO A;todas;\n";
  EXPECT_EQ(Import(lines).standing, 1U);
  const auto before = Register();
  const auto again = Import(lines);
  EXPECT_TRUE(again.written);
  EXPECT_EQ(again.standing, 2U);
  EXPECT_EQ(again.subjects, 0U);
  EXPECT_EQ(Register(), before);
}

TEST_F(SchoolImportTest, TakesAStudentUpWhoseSubjectStandsWithoutHim) {
  school_.Sql("DELETE FROM Seccion_AlumnoPte WHERE CodAlumno=29");
  const auto before = school_.Count("AlumnoPte_MatDet");
  EXPECT_TRUE(Import("29;3º ESO A;Matemáticas;2º ESO A;todas;\n").written);
  EXPECT_EQ(school_.Count("AlumnoPte_MatDet"), before);
  EXPECT_EQ(school_.Count("Seccion_AlumnoPte WHERE CodAlumno=29"), 1);
}

TEST_F(SchoolImportTest, TellsEveryLineThatDoesNotFitAndWritesNothing) {
  school_.Sql(
      "UPDATE Alumno SET Apellido_1='Rubio', Apellido_2='Martín', Nombre='Carmen' WHERE "
      "IDAlumno=34; UPDATE Alumno SET FechaBaja='2024/10/01' WHERE IDAlumno=35");
  const auto before = Register();
  const auto report = Import(
      "32;3º ESO A;Matemáticas;2º ESO B;todas;\n"
      "\"Gómez, Nadie\";3º ESO A;Matemáticas;2º ESO A;todas;\n"
      "32;3º ESO B;Matemáticas;2º ESO A;todas;\n"
      "\"Rubio Martín, Carmen\";3º ESO A;Matemáticas;2º ESO A;todas;\n"
      "31;3º ESO A;Matemáticas;2º ESO;todas;\n"
      "31;3º ESO A;Latín;2º ESO;todas;\n"
      "31;3º ESO A;Música;2º ESO A;4ª;\n"
      "31;3º ESO A;Música;2º ESO A;todas;Nadie Nunca\n"
      "31;3º ESO A;Matemáticas;2º ESO A;todas;Ortega Gutiérrez, Marco\n"
      "31;3º ESO A;Educación Física;4º ESO A;todas;Ortega Gutiérrez, Marco\n"
      "31;3º ESO C;Música;2º ESO A;todas;\n"
      "35;3º ESO A;Música;2º ESO A;todas;\n"
      "31;3º ESO A;Música;2º ESO A;todas;;sobra\n"
      "32;3º ESO A;Matemáticas;2º ESO B;todas;\n"
      ";3º ESO A;Música;2º ESO A;todas;\n");
  EXPECT_THAT(
      report.misfits,
      ElementsAre("Línea 3: no hay ningún alumno «Gómez, Nadie»",
                  "Línea 4: «32» no está en 3º ESO B: Gómez Martín, Enzo (32, 3º ESO A)",
                  "Línea 5: hay 2 posibles, «Rubio Martín, Carmen»: Rubio Martín, Carmen (31, 3º "
                  "ESO A); Rubio Martín, Carmen (34, 3º ESO A)",
                  "Línea 6: hay 2 posibles, «Matemáticas» de 2º ESO: 2º ESO A; 2º ESO B",
                  "Línea 7: no hay ninguna materia «Latín» de 2º ESO",
                  "Línea 8: no hay ninguna evaluación «4ª»",
                  "Línea 9: no hay ningún docente «Nadie Nunca»",
                  "Línea 10: Matemáticas (2º ESO A) ya es de Ortega García, Javier",
                  "Línea 11: el registro de 3º ESO A no pone profesor a las materias de 4º ESO",
                  "Línea 12: no hay ninguna sección «3º ESO C»",
                  "Línea 13: Gómez Cano, Antonio está de baja o no está en la lista de su sección",
                  "Línea 14: tiene 7 columnas y el encabezado 6", "Línea 15: repite la línea 2",
                  "Línea 16: falta el alumno"));
  EXPECT_FALSE(report.written);
  EXPECT_EQ(Register(), before);
}

TEST_F(SchoolImportTest, TellsWhomItPutsOnTheRegisterOfASecondSection) {
  school_.Sql("UPDATE Seccion_AlumnoPte SET CodSeccion=6 WHERE CodAlumno=29");
  const auto* const lines = "29;3º ESO A;Música;2º ESO A;todas;\n";
  EXPECT_THAT(Importar("--simular " + Written(lines)).text,
              HasSubstr("quorvane-escuela: aviso: Línea 2: "));
  const auto report = Import(lines);
  EXPECT_TRUE(report.written);
  EXPECT_THAT(
      report.warnings,
      ElementsAre(HasSubstr(" (3º ESO A) está ya en el registro de 3º ESO B, y queda en los dos")));
  EXPECT_THAT(Import(lines).warnings, IsEmpty()) << "he stands on both";
}

TEST_F(SchoolImportTest, ImportsWhatFitsWhenTold) {
  const auto report =
      Import("9999;3º ESO A;Matemáticas;2º ESO A;todas;\n32;3º ESO A;Matemáticas;2º ESO B;todas;\n",
             {.whatFits = true});
  EXPECT_EQ(report.misfits.size(), 1U);
  EXPECT_TRUE(report.written);
  EXPECT_NE(Pending(32, 30), 0);
}

TEST_F(SchoolImportTest, SimulatesWithoutWriting) {
  const auto before = Register();
  const auto report =
      Import("32;3º ESO A;Matemáticas;2º ESO B;1ª Evaluación;\n", {.simulate = true});
  EXPECT_THAT(report.lines, ElementsAre("Línea 2: Gómez Martín, Enzo (3º ESO A), Matemáticas (2º "
                                        "ESO B): 1ª Evaluación"));
  EXPECT_FALSE(report.written);
  EXPECT_EQ(Register(), before);
}

TEST_F(SchoolImportTest, ARegisterInUseKeepsAllBackUnlessTold) {
  school_.Sql("INSERT INTO BloqueoPte VALUES (0,1,20,1,1)");
  const auto before = Register();
  const auto* const lines =
      "32;3º ESO A;Matemáticas;2º ESO B;todas;\n37;3º ESO B;Música;2º ESO B;todas;\n";
  const auto report = Import(lines);
  EXPECT_THAT(report.misfits, ElementsAre(HasSubstr("El registro de 3º ESO A está en uso")));
  EXPECT_FALSE(report.written);
  EXPECT_EQ(Register(), before);
  EXPECT_TRUE(Import(lines, {.whatFits = true}).written);
  EXPECT_EQ(Pending(32, 30), 0);
  EXPECT_NE(Pending(37, 35), 0);
}

TEST_F(SchoolImportTest, AFailureInTheMiddleLeavesNothing) {
  school_.Sql(OnServer() ? "ALTER TABLE EvaluacionActaPte ADD CONSTRAINT Tope CHECK "
                           "(IDEvaluacionActaPte<73)"
                         : "CREATE TRIGGER Tope BEFORE INSERT ON EvaluacionActaPte WHEN "
                           "NEW.IDEvaluacionActaPte>=73 BEGIN SELECT RAISE(ABORT,'tope'); END");
  const auto before = Register();
  try {
    Import("32;3º ESO A;Matemáticas;2º ESO B;todas;\n37;3º ESO B;Música;2º ESO B;todas;\n");
    ADD_FAILURE() << "it has written";
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.Description(), HasSubstr("tope"));
  }
  EXPECT_EQ(Register(), before);
  if (OnServer()) school_.Sql("ALTER TABLE EvaluacionActaPte DROP CONSTRAINT Tope");
}

TEST_F(SchoolImportTest, GivesTheScreenAndTheHostsComponentsBack) {
  auto& objects = Application::Instance().Objects();
  auto made = 0;
  objects.Register("ZendriaApi.cCentroApi", [&made] {
    ++made;
    return std::unique_ptr<HostObject>();
  });
  Import("32;3º ESO A;Matemáticas;2º ESO B;todas;\n");
  EXPECT_EQ(made, 0);
  static_cast<void>(objects.Create("ZendriaApi.cCentroApi"));
  EXPECT_EQ(made, 1);
  objects.Reset();
  EXPECT_THROW(static_cast<void>(Application::Instance().Screen()), RuntimeError);
}

TEST_F(SchoolImportTest, EveryStatementIsTheModules) {
  const auto trace = folder_ / "traza";
  EXPECT_THAT(
      RunCommand("QUORVANE_TRAZA=" + trace + " " QUORVANE_ESCUELA " importar " +
                 school_.Argument() + " " +
                 Written("32;3º ESO A;Matemáticas;2º ESO B;todas;Ortega Gutiérrez, Marco\n")),
      FieldsAre(0,
                HasSubstr("Importadas 1 materia de 1 alumno; 0 ya estaban; 1 profesor puesto\n")));
  ExpectOfTheModule(trace, "centro", 60);
}

TEST_F(SchoolImportTest, TheProgramEndsByWhatItCouldDo) {
  Written("32;3º ESO B;Matemáticas;2º ESO B;todas;\n");
  EXPECT_EQ(Importar(file_).status, 1);
  EXPECT_EQ(Importar(file_ + " --simular").status, 1);
  EXPECT_EQ(Importar(file_ + " --lo-que-se-pueda").status, 0);
  EXPECT_EQ(Importar("").status, 2);
  EXPECT_EQ(Importar(file_ + " --otra").status, 2);
  EXPECT_THAT(Importar(folder_ / "nada").text, HasSubstr("el fichero no existe"));
  Written("");
  EXPECT_THAT(Importar(file_), FieldsAre(1, HasSubstr("no tiene más que el encabezado")));
  std::ofstream(file_) << "alumno;sección;materia;curso\n";
  EXPECT_EQ(Importar(file_).text, "quorvane-escuela: Línea 1: falta la columna «evaluaciones»\n");
  std::ofstream(file_) << "alumno;sección\n\n3;\"3º\n";
  EXPECT_EQ(Importar(file_).text,
            "quorvane-escuela: Línea 3: falta la comilla que cierra el texto\n");
}

// None of them may be waited for, nor fill the memory.
TEST_F(SchoolImportTest, OnlyAPlainFileIsRead) {
  const auto pipe = folder_ / "tuberia";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const auto link = folder_ / "enlace";
  std::filesystem::create_symlink("/dev/zero", link);
  const auto large = folder_ / "grande";
  std::ofstream(large) << "a\n";
  std::filesystem::resize_file(large, (std::uintmax_t{64} << 20) + 1);
#ifdef __SANITIZE_ADDRESS__
  const std::string limit;  // the sanitizer takes all addresses for itself
#else
  const std::string limit = "ulimit -v 1000000; ";
#endif
  for (const auto& [path, reason] : std::vector<std::pair<std::string, std::string>>{
           {pipe, "no es un fichero corriente"},
           {link, "no es un fichero corriente"},
           {"/dev/zero", "no es un fichero corriente"},
           {"/dev/stdin", "no es un fichero corriente"},
           {"/proc/self/mem", "no se deja leer hasta el final"},
           {"/", "es una carpeta"},
           {large, "ocupa más de 64 MB; ¿es el que quería?"}}) {
    EXPECT_THAT(RunCommand(limit + "echo | timeout 20 " QUORVANE_ESCUELA " importar " +
                           school_.Argument() + " " + path),
                FieldsAre(1, "quorvane-escuela: No se puede leer " + path + ": " + reason + "\n"));
  }
}

/// Each with its line.
std::vector<std::string> Cells(const std::string& text) {
  std::vector<std::string> cells;
  for (const auto& row : ParseCsv(text))
    for (const auto& cell : row.cells) cells.push_back(std::to_string(row.line) + ":" + cell);
  return cells;
}

TEST(CsvTextTest, TakesCommasAndSemicolonsQuotesAndLinesInThem) {
  EXPECT_THAT(Cells("a,b\r\n\r\n \"x, \"\"y\"\"\" , 2 \n"),
              ElementsAre("1:a", "1:b", "3:x, \"y\"", "3:2"));
  EXPECT_THAT(Cells("\"a,b,c\";d\n\"uno\ndos\";3\n4;5"),
              ElementsAre("1:a,b,c", "1:d", "2:uno\ndos", "2:3", "4:4", "4:5"));
}

TEST(CsvTextTest, FindsTheLettersOutByItself) {
  EXPECT_THAT(Cells("\xEF\xBB\xBF"
                    "sección,ñ"),
              ElementsAre("1:sección", "1:ñ"));
  EXPECT_THAT(Cells("secci\xF3n;\x80;N\xFA\xF1"
                    "ez;\xBA"),
              ElementsAre("1:sección", "1:€", "1:Núñez", "1:º"));
}

TEST(FoldedTextTest, AnAccentBehindItsLetterIsTheSame) {
  EXPECT_EQ(FoldedText("Garci\xCC\x81"
                       "a Nu\xCC\x81n\xCC\x83"
                       "ez"),
            FoldedText("García Núñez"));
  EXPECT_EQ(FoldedText("PEN\xCC\x83"
                       "A"),
            FoldedText("Peña"));
  EXPECT_NE(FoldedText("Pena"), FoldedText("Peña"));
}

TEST(CsvTextTest, RefusesWhatIsNoTableOfTexts) {
  EXPECT_THROW(ParseCsv(std::string("a\0b", 3)), RuntimeError);
  std::string many = "a\n";
  for (auto i = 0; i < 100001; ++i) many += "1\n";
  EXPECT_THROW(ParseCsv(many), RuntimeError);
  EXPECT_THROW(ReadCsv("/"), RuntimeError);
}

}  // namespace
}  // namespace quorvane::test

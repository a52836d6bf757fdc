// What families and teachers are given on paper: of a school in a file, or on the server that the
// tests run beside.

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "apps/escuela/report/NewFile.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/report/ReportText.h"
#include "platform/RuntimeError.h"
#include "platform/text/Utf8.h"
#include "platform/text/VisibleText.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class SectionReportTest : public testing::Test {
 protected:
  ReportReader Reader() { return {school_.Db(), "IES «Ejemplo»", "03/03/2025"}; }
  Outcome Informe(const std::string& rest) {
    return Escuela("informe " + school_.Argument() + rest);
  }

  AnySchool school_;
  TempFolder folder_;
};

TEST_F(SectionReportTest, TellsEverySubjectWithTeacherAndGrades) {
  const auto report = Reader().Section(5);
  EXPECT_EQ(static_cast<int>(report.students.size()),
            school_.Number("SELECT COUNT(DISTINCT CodAlumno) FROM AlumnoPte_MatDet INNER JOIN "
                           "Alumno ON IDAlumno=CodAlumno WHERE CodSeccion=5"));
  const auto& student = report.students.front();
  EXPECT_EQ(student.name, "Domínguez Álvarez, Marina");
  ASSERT_FALSE(student.subjects.empty());
  const auto& subject = student.subjects.front();
  EXPECT_EQ(subject.name, "Matemáticas (2º ESO A)");
  EXPECT_EQ(subject.teacher, "Ortega García, Javier");
  ASSERT_TRUE(subject.grades.contains(2));
  EXPECT_EQ(subject.grades.at(2).grade, "8");
  EXPECT_EQ(subject.grades.at(2).procedure, "Sobresaliente");
  ASSERT_EQ(report.evaluations.size(), 5U);
  EXPECT_EQ(report.evaluations.front().name, "1ª Evaluación");
  EXPECT_EQ(report.evaluations.back().name, "Final Extraordinaria");
}

TEST_F(SectionReportTest, NothingOfTheSchoolIsLostOnTheWay) {
  auto subjects = 0;
  auto grades = 0;
  for (const auto& [section, name] : Reader().Sections())
    for (const auto& student : Reader().Section(section).students)
      for (const auto& subject : student.subjects) {
        ++subjects;
        for (const auto& [evaluation, grade] : subject.grades)
          grades += grade.grade.empty() ? 0 : 1;
      }
  EXPECT_EQ(subjects, school_.Count("AlumnoPte_MatDet"));
  EXPECT_EQ(grades, school_.Count("EvaluacionPte WHERE CodNota>0") +
                        school_.Count("EvaluacionActaPte WHERE CodNota>0"));
}

TEST_F(SectionReportTest, OddNamesFortySubjectsAndNoGradesComeOutWhole) {
  const std::string odd = "<b>O''Neill</b> & \"C\"\nÑ";
  school_.Sql("UPDATE Alumno SET Apellido_1='" + odd + "' WHERE IDAlumno=34");
  school_.Sql("DELETE FROM AlumnoPte_MatDet WHERE CodAlumno=34");
  for (auto i = 1; i <= 40; ++i)
    school_.Sql("INSERT INTO AlumnoPte_MatDet VALUES (" + std::to_string(9000 + i) + ",34," +
                std::to_string(i) + "," + std::to_string(i) + ",0)");
  const auto report = Reader().Section(5, 34);
  ASSERT_EQ(report.students.size(), 1U);
  EXPECT_EQ(report.students[0].subjects.size(), 40U);
  const auto html = ReportHtml(report);
  EXPECT_EQ(Occurrences(html, "<tr>"), 41);
  EXPECT_THAT(html, HasSubstr("&lt;b&gt;O'Neill&lt;/b&gt; &amp; &quot;C&quot;\nÑ"));
  const auto csv = ReportCsv(report);
  EXPECT_EQ(Occurrences(csv, "34;\"<b>O'Neill</b> & \"\"C\"\"\nÑ"), 40);
  EXPECT_EQ(Occurrences(csv, "\r\n"), 41);
}

TEST_F(SectionReportTest, AStudentHasAPageOfHisOwn) {
  const auto report = Reader().Section(5);
  const auto html = ReportHtml(report);
  EXPECT_EQ(Occurrences(html, "page-break-before: always"),
            static_cast<int>(report.students.size()) - 1);
  EXPECT_EQ(Occurrences(html, "sin calificar"), static_cast<int>(report.students.size()));
  EXPECT_EQ(Occurrences(html, "IES «Ejemplo»"), static_cast<int>(report.students.size()));
  EXPECT_THAT(html, HasSubstr("3º ESO A. 03/03/2025"));
  for (const std::string tag : {"table", "tr", "td", "th", "thead", "tbody", "h1", "h2", "p"})
    EXPECT_EQ(Occurrences(html, "<" + tag + ">") + Occurrences(html, "<" + tag + " "),
              Occurrences(html, "</" + tag + ">"))
        << tag;
}

TEST_F(SectionReportTest, WhoHasLeftIsInNoneAndAnEmptySectionSaysSo) {
  const auto before = Reader().Section(5).students.size();
  school_.Sql("UPDATE Alumno SET FechaBaja='2025/01/01' WHERE IDAlumno=29");
  EXPECT_EQ(Reader().Section(5).students.size(), before - 1);
  EXPECT_THAT(ReportHtml(Reader().Section(1)), HasSubstr("Ningún alumno tiene"));
}

TEST_F(SectionReportTest, BlankSheetsHoldStudentsByColumnsOfGrades) {
  const auto report = Reader().Subject(20);
  EXPECT_EQ(report.title, "Matemáticas (2º ESO A)");
  EXPECT_EQ(report.students.size(), 2U);
  EXPECT_EQ(Occurrences(BlankSheetHtml(report), "<td>&nbsp;</td>"), 10);
  EXPECT_THAT(BlankSheetCsv(report),
              HasSubstr("\"Domínguez Álvarez, Marina\";Matemáticas (2º ESO A);;;;;\r\n"));
}

TEST_F(SectionReportTest, ASectionTakesAsManyStatementsAsAnother) {
  const auto reader = Reader();
  auto statements = 0;
  school_.Db().Observe([&](const Connection&, const std::string&) { ++statements; });
  EXPECT_EQ(reader.Section(5).title, "3º ESO A");
  school_.Db().Observe({});
  EXPECT_EQ(statements, 4);
}

TEST_F(SectionReportTest, FindsWhatIsAskedForByNumberOrName) {
  EXPECT_EQ(Reader().FindSection("5"), 5);
  EXPECT_EQ(Reader().FindSection("3o eso a"), 5);
  EXPECT_EQ(Reader().FindSubject("matematicas (2º ESO A)"), 20);
  EXPECT_THROW(static_cast<void>(Reader().FindSection("nada")), RuntimeError);
  EXPECT_THROW(static_cast<void>(Reader().Section(99)), RuntimeError);
  EXPECT_THROW(static_cast<void>(Reader().Section(5, 1)), RuntimeError);
  EXPECT_THROW(static_cast<void>(Reader().Subject(9999)), RuntimeError);
}

TEST_F(SectionReportTest, TheProgramWritesNewFilesAloneAndNamesWhatItCouldNot) {
  const auto file = folder_ / "a.html";
  EXPECT_THAT(Informe(" --seccion '3º ESO A' --nombre 'IES Uno' --salida " + file),
              FieldsAre(0, "Escrito " + file + ": 5 alumnos de 3º ESO A\n"));
  EXPECT_THAT(Content(file), HasSubstr("<h1>IES Uno</h1>"));
  EXPECT_EQ(Informe(" --seccion 5 --salida " + file).status, 1);
  EXPECT_EQ(folder_.Files(), 1U);
  const auto all = folder_ / "todas";
  EXPECT_EQ(Informe(" --todas --csv --salida " + all).status, 0);
  std::filesystem::remove(all + "/3º ESO A.csv");
  EXPECT_THAT(Informe(" --todas --csv --salida " + all),
              FieldsAre(1, AllOf(HasSubstr("4º ESO A: No se puede escribir"),
                                 HasSubstr("Escritas 1 de 6 secciones"))));
  for (const std::string wrong :
       {" --salida a.html", " --seccion 5", " --seccion 5 --salida a.pdf",
        " --seccion 5 --todas --salida a", " --alumno 3 --todas --salida a"})
    EXPECT_EQ(Informe(wrong).status, 2) << wrong;
}

TEST(NewFileTest, MakesNamesOfOddTexts) {
  EXPECT_EQ(AsFileName("3º A/B: \"x\""), "3º A-B- -x-");
  EXPECT_EQ(AsFileName(""), "_");
  EXPECT_EQ(AsFileName("..").find('/'), std::string::npos);
  EXPECT_EQ(AsFileName(".."), "_..");
  EXPECT_EQ(AsFileName("-rf"), "_-rf");
  EXPECT_EQ(AsFileName("3º\xff"
                       "A\xed\xa0\x80"),
            "3º-A---")
      << "no UTF-8";
}

// What a terminal does something else with stands in no name, nor what other systems have no name
// with; all other letters do.
TEST(NewFileTest, KeepsInNamesWhatIsPlain) {
  for (char32_t letter = 0; letter < 0x3000; ++letter) {
    const auto text = Utf8Encode(letter);
    const auto name = AsFileName("a" + text + "b");
    const auto odd = VisibleText(text) != text ||
                     (letter < 0x80 && std::string("/\\:*?\"<>|").find(text) != std::string::npos);
    EXPECT_EQ(name, odd ? "a-b" : "a" + text + "b") << "U+" << std::hex << std::uint32_t{letter};
  }
}

TEST(NewFileTest, MakesNamesThatFit) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += "ñ";
  const auto name = AsFileName(text);
  EXPECT_EQ(name.size(), 200U);
  EXPECT_EQ(text.substr(0, 200), name);
  EXPECT_EQ(AsFileName("a" + text).size(), 199U) << "no half letter";
  const TempFolder folder;
  const auto path = folder / (name + "-12345.html");
  WriteNewFile(path, "uno", [] {});
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
  EXPECT_EQ(Content(path), "uno");
  EXPECT_EQ(folder.Files(), 1U);
  EXPECT_THROW(WriteNewFile(path, "dos", [] {}), RuntimeError);
  EXPECT_THROW(
      WriteNewFile(folder / "otro", "dos", [] { throw RuntimeError(ErrorNumber::Overflow); }),
      RuntimeError);
  EXPECT_EQ(folder.Files(), 1U);
}

}  // namespace
}  // namespace quorvane::test

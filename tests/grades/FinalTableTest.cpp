#include <algorithm>
#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>

#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/grades/DirectSession.h"
#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"
#include "tests/grades/OrdinaryStatements.h"

// Where the four final dialogs differ, point by point: what each of them is seen to do.

namespace quorvane::test {
namespace {

using ::testing::ElementsAreArray;

/// One of the four, opened on what it has of student 1 and subject 3111.
struct Dialog {
  std::string open;
  std::string otherKind;  ///< opened on a work placement
  std::string teacher;    ///< opened by a teacher, who doesn't have that subject
  std::string walk;       ///< what goes to student 1 and subject 3111
  std::string combo;
  std::string emptied;  ///< opened on a section that has lost its grades meanwhile
  std::function<std::string(const FinalSchool&)> saveCaption;
};

std::string Emptied(std::string open) {
  return open.insert(open.rfind("pulsar"), "sql \"DELETE FROM EvaluacionActaPte\"\n");
}

/// The caption that a painting of the screen finds while the form saves. `choose` fills what step
/// one chooses more.
template <class PasoUno, class Form>
std::string CaptionOfSave(const FinalSchool& school, const std::function<void(PasoUno&)>& choose) {
  DirectSession session(school, 4);
  auto& stepOne = FormInstance<PasoUno>::Get();
  DirectSession::Choose(stepOne.cboTipoEnsenanza, 3);
  DirectSession::Choose(stepOne.cboCursos, 32);
  DirectSession::Choose(stepOne.cboSecciones, 321);
  DirectSession::Choose(stepOne.cboEvaluaciones, 4);
  choose(stepOne);
  // Held here, as saving drops the form.
  auto form = std::static_pointer_cast<Form>(FormInstance<Form>::Get().shared_from_this());
  form->ShowModal();
  std::string caption;
  session.screen.Painting = [&] {
    if (caption.empty() && form->fraAniCarga.Visible()) caption = form->fraAniCarga.Caption();
  };
  form->cmdAceptar_Click();
  session.screen.Painting = nullptr;
  return caption;
}

const std::array<Dialog, 4>& Dialogs() {
  static const std::array<Dialog, 4> dialogs{
      {{OpenFinal(), OpenFinal(), OpenFinal(), "elegir cboAlumnos =1\n", "cboAlumnos",
        Emptied(OpenFinal()),
        [](const FinalSchool& school) {
          return CaptionOfSave<frmNotaManual1, frmNotaManualFinal>(school, [](auto&) {});
        }},
       {OpenBySubject(4), OpenBySubject(4), OpenBySubject(4), "elegir cboMaterias #1\n",
        "cboMaterias", Emptied(OpenBySubject(4)),
        [](const FinalSchool& school) {
          return CaptionOfSave<frmNotaMateria1, frmNotaMateriaFinal>(school, [](auto&) {});
        }},
       {OpenSectionFinal(), OpenSectionFinal(4, 3116), OpenSectionFinal(4, 3113),
        "elegir cboAlumnos =1\n", "cboAlumnos", Emptied(OpenSectionFinal()),
        [](const FinalSchool& school) {
          return CaptionOfSave<frmNotaSeccionAlumno1, frmNotaSeccionAlumnoFinal>(
              school, [](auto& stepOne) { DirectSession::Choose(stepOne.cboMateria, 3111); });
        }},
       {OpenSectionBySubject(4), OpenSectionBySubject(4), OpenSectionBySubject(4),
        "elegir cboMaterias #0\n", "cboMaterias", Emptied(OpenSectionBySubject(4)),
        [](const FinalSchool& school) {
          return CaptionOfSave<frmNotaSeccionMateria1, frmNotaSeccionMateriaFinal>(
              school, [](auto& stepOne) { DirectSession::Choose(stepOne.cboAlumno, 1); });
        }}}};
  return dialogs;
}

ScriptResult Play(const FinalSchool& school, const std::string& script, const Role& role = kTutor) {
  school.DropPublications();
  return RunScript(school, script, SessionOf(role));
}

/// What stands between the two texts in the last statement that has the first.
std::string Between(const Lines& lines, const std::string& before, const std::string& after) {
  const auto line = std::find_if(lines.rbegin(), lines.rend(), [&](const auto& candidate) {
    return candidate.find(before) != std::string::npos;
  });
  if (line == lines.rend()) return "no";
  const auto from = line->find(before) + before.size();
  return line->substr(from, line->find(after, from) - from);
}

std::string Rows(const Dialog& dialog) {
  const FinalSchool school;
  const auto entries = FormView(Play(school, dialog.open + "ver\n")).Entries(dialog.combo).size();
  std::string shown;
  for (std::size_t i = 0; i < entries; ++i) {
    const auto pick = "elegir " + dialog.combo + " #" + std::to_string(i) + "\nver\n";
    const auto cells = FormView(Play(school, dialog.open + pick)).Cells("rtvNotasAlumno");
    if (i > 0) shown += " / ";
    for (std::size_t row = 1; row < cells.size(); ++row)
      shown += (row > 1 ? " + " : "") + cells[row].substr(0, cells[row].find('|'));
  }
  return shown;
}

std::string Columns(const Dialog& dialog) {
  const FinalSchool school;
  return std::to_string(
      FormView(Play(school, dialog.open + "ver\n")).Widths("rtvNotasAlumno").size());
}

std::string TitleOfFirstColumn(const Dialog& dialog) {
  const FinalSchool school;
  school.Sql("UPDATE TipoMateria SET Nombre='Asignatura' WHERE IDTipoMateria=10");
  const auto heading =
      FormView(Play(school, dialog.open + "ver\n")).Cells("rtvNotasAlumno").front();
  return heading.substr(0, heading.find('|'));
}

std::string ReadsTheCourse(const Dialog& dialog) {
  const FinalSchool school;
  const auto traffic = Traffic(Play(school, dialog.open));
  return std::find(traffic.begin(), traffic.end(), FinalCourse()) == traffic.end() ? "no" : "sí";
}

/// The list of the first cell of student 1 in subject 3111, pending 1, which person 2 taught.
Lines CellOfSubject(const Dialog& dialog) {
  const FinalSchool school;
  return Play(school, dialog.open + dialog.walk + "lista rtvNotasAlumno 1 1\n").Sql();
}

std::string KeyOfSubject(const Dialog& dialog) {
  return Between(CellOfSubject(dialog), " OR CodMateria=", ")");
}

/// What row 0 and column 0 offer behind an edit of the cell in their column.
std::string HeadingsOffer(const Dialog& dialog) {
  const FinalSchool school;
  const auto offered = Play(school, dialog.open + dialog.walk +
                                        "lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 0 1\n"
                                        "lista rtvNotasAlumno 1 0\n")
                           .Of("lista");
  if (offered.size() != 3 || offered.front() == "[]") return "no";
  return offered[1] + offered[2];
}

std::string TeacherOfSubject(const Dialog& dialog) {
  return Between(CellOfSubject(dialog), "CodPersonal=0 OR CodPersonal=", " ");
}

std::string ExceptionalCondition(const Dialog& dialog) {
  return Between(CellOfSubject(dialog), "SELECT IDNota, DescripcionCorta FROM Nota WHERE ",
                 "(CodModelo");
}

/// The load of a work placement, where a pending row had the host's fields.
Lines LoadOfOtherKind(const Dialog& dialog) {
  const FinalSchool school;
  school.Evalua(school.Pendiente(1, 3116, 3), 4);
  school.Sql(
      "ALTER TABLE AlumnoPte_MatDet ADD COLUMN CodMateriaDetalles INTEGER DEFAULT 3113;"
      "ALTER TABLE AlumnoPte_MatDet ADD COLUMN IDAlumno_MateriaDetalles INTEGER DEFAULT 77");
  const auto lines = Traffic(Play(school, dialog.otherKind));
  return {std::find(lines.begin(), lines.end(), KindOf(3116)), lines.end()};
}

std::string TableOfOtherKind(const Dialog& dialog) {
  const auto lines = LoadOfOtherKind(dialog);
  return Between(lines, "SELECT Evaluado, CodNota, CodNotaObservacion FROM ", " WHERE") + ", " +
         Between(lines, "CodNumEvaluacion=4 AND ", "=");
}

/// 3116 is the row's `CodMatDet`, 3113 the host's field.
std::string DetailsOfOtherKind(const Dialog& dialog) {
  return Between({LoadOfOtherKind(dialog).at(1)}, "IDMateriaDetalles=", " ");
}

/// How often the list of the tutor's observation is read.
std::string Observations(const Dialog& dialog) {
  const auto count = [](const Lines& lines) {
    return std::to_string(std::count_if(lines.begin(), lines.end(), [](const auto& line) {
      return line.find("Orden=1 AND Materia=0") != std::string::npos;
    }));
  };
  const FinalSchool school;
  const std::string edit = "lista rtvNotasAlumno 1 1";
  const auto tutor = Play(school, dialog.open + "pulsar cmdSiguiente\n" + edit + "\n");
  const auto teacher = Play(school, dialog.teacher + edit + "\n", kTeacher);
  return "al abrir " + count(tutor.After("pulsar cmdNotaManual1(0)")) + ", al pasar " +
         count(tutor.After("pulsar cmdSiguiente")) + ", al editar " + count(tutor.After(edit)) +
         ", sin tutoría " + count(teacher.After(edit));
}

std::string LoadCaption(const Dialog& dialog) {
  const FinalSchool school;
  return FormView(Play(school, dialog.open + "ver\n")).Text("fraAniCarga");
}

std::string SaveCaption(const Dialog& dialog) {
  const FinalSchool school;
  return dialog.saveCaption(school);
}

std::string NoDataMessage(const Dialog& dialog) {
  const FinalSchool school;
  const auto messages = Play(school, dialog.emptied).Of("mensaje");
  return messages.size() == 1 ? messages.front() : std::to_string(messages.size());
}

std::string Information(const std::string& text) {
  return "informacion \"Zendria Escuela\" \"" + text + "\"";
}

struct Point {
  const char* name;
  std::string (*observe)(const Dialog&);
  /// By student, by subject, section by student, section by subject.
  std::array<std::string, 4> cells;
};

void PrintTo(const Point& point, std::ostream* out) { *out << point.name; }

class FinalTable : public ::testing::TestWithParam<Point> {};

TEST_P(FinalTable, EachDialogDoesWhatItsCellSays) {
  std::array<std::string, 4> seen;
  std::transform(Dialogs().begin(), Dialogs().end(), seen.begin(), GetParam().observe);
  EXPECT_THAT(seen, ElementsAreArray(GetParam().cells));
}

const std::string kOneSubject = "Lengua (1º ESO)";
const std::string kMarta = "2   Díaz Cano, Marta";
const std::string kStudentTitle = "Orden en Sección / Alumno";
const std::string kLoading = "Cargando... Espere por favor";
const std::string kSaving = "Grabando... Espere por favor";

INSTANTIATE_TEST_SUITE_P(
    Points, FinalTable,
    ::testing::Values(
        Point{"RowsOfTheGrid",
              Rows,
              {"Francés (1º ESO) / " + kOneSubject + " + Matemáticas (1º ESO) / " + kOneSubject,
               "1   Abad Rey, Jorge / " + kMarta + " + 3   Ñúñez Sanz, Íñigo / " + kMarta,
               kOneSubject + " / " + kOneSubject, kMarta + " / " + kMarta}},
        Point{"Columns", Columns, {"9", "8", "9", "8"}},
        Point{"TitleOfFirstColumn",
              TitleOfFirstColumn,
              {"Asignatura", kStudentTitle, "Asignatura", kStudentTitle}},
        Point{"ReadsTheCourse", ReadsTheCourse, {"no", "sí", "no", "sí"}},
        Point{"KeyOfSubject", KeyOfSubject, {"1", "3111", "3111", "3111"}},
        Point{"HeadingsOfferNothing", HeadingsOffer, {"[][]", "[][]", "[][]", "[][]"}},
        Point{"TeacherOfSubject", TeacherOfSubject, {"0", "2", "2", "2"}},
        Point{"TableAndKeyOfOtherKinds",
              TableOfOtherKind,
              {"EvaluacionActaPte, CodAlumno_MateriaDetalles",
               "EvaluacionActa, CodAlumno_MateriaDetalles",
               "EvaluacionActaPte, CodAlumnoPte_MatDet", "EvaluacionActaPte, CodAlumnoPte_MatDet"}},
        Point{"DetailsOfOtherKinds", DetailsOfOtherKind, {"3116", "3113", "3116", "3116"}},
        Point{"ExceptionalCondition",
              ExceptionalCondition,
              {"NotaExcepcional=0 AND ", "", "NotaExcepcional=0 AND ", ""}},
        Point{"ObservationFilled",
              Observations,
              {"al abrir 0, al pasar 0, al editar 0, sin tutoría 0",
               "al abrir 0, al pasar 0, al editar 0, sin tutoría 0",
               "al abrir 1, al pasar 1, al editar 0, sin tutoría 0",
               "al abrir 0, al pasar 0, al editar 1, sin tutoría 0"}},
        Point{"LoadCaption", LoadCaption, {"Cargando Datos", kLoading, kLoading, kLoading}},
        Point{"SaveCaption", SaveCaption, {"Guardando Datos", kSaving, kSaving, kSaving}},
        Point{"NoDataMessage",
              NoDataMessage,
              {Information("No se han encontrado alumnos o materias para introducir notas"),
               Information("No existen alumno o materias para poner notas"),
               Information("No existen materias o alumnos para poner notas"),
               Information("No existen alumnos o materias para introducir notas")}}),
    [](const auto& point) { return point.param.name; });

}  // namespace
}  // namespace quorvane::test

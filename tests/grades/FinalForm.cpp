#include "tests/grades/FinalForm.h"

#include "tests/grades/FinalStatements.h"

namespace quorvane::test {
namespace {

constexpr const char* kJorge = "1   Abad Rey, Jorge=3";
constexpr const char* kMarta = "2   Díaz Cano, Marta=1";
const std::vector<int> kWidthsOfSubjects = {2000, 2000, 0, 0, 0, 2000, 0, 0, 0};
const std::vector<int> kWidthsOfStudents = {3000, 2000, 0, 0, 0, 2000, 0, 0};

}  // namespace

const FinalForm kFinalByStudent = {
    {.name = "frmNotaManualFinal",
     .stepOne = "frmNotaManual1",
     .node = 124,
     .stepOneTraffic = StepOne,
     .evaluacion = 4,
     .combo = "cboAlumnos",
     .toLengua = "elegir cboAlumnos =1\n",
     .loading = "Cargando Datos",
     .saving = "Guardando Datos",
     .nothing = "No se han encontrado alumnos o materias para introducir notas",
     .nobodysLoad = [](const Role& role) { return FinalFormLoad(role, 4); },
     .widths = kWidthsOfSubjects},
    {.observacion = "Observación del tutor",
     .walked = {"1   Abad Rey, Jorge=3: 4", "2   Díaz Cano, Marta=1: 1 2",
                "3   Ñúñez Sanz, Íñigo=2: 3"},
     .withoutLengua = {kJorge, kMarta},
     .failed = {"2   Díaz Cano, Marta=1: 2", "3   Ñúñez Sanz, Íñigo=2: 3"},
     .ungraded = {"2   Díaz Cano, Marta=1: 2"},
     .title = "Asignatura",
     .heading = "Materia|Nota||||Observación|Medidas Adoptadas||",
     .headingConcept = "Materia||Nota|||Observación|Medidas Adoptadas||",
     .rowTitle = "Francés (1º ESO)",
     .rowKey = "0|4",
     .offered = "[[\" \",0],[\"3\",103],[\"7\",107]]",
     .subjectKey = "4",
     .lenguaKey = "1",
     .takesTeachers = false}};

const FinalForm kFinalBySubject = {
    {.name = "frmNotaMateriaFinal",
     .stepOne = "frmNotaMateria1",
     .node = 125,
     .stepOneTraffic = StepOneBySubject,
     .evaluacion = 4,
     .combo = "cboMaterias",
     .toLengua = "elegir cboMaterias #1\n",
     .nothing = "No existen alumno o materias para poner notas",
     .nobodysLoad = [](const Role& role) { return FinalFormLoad(role, 4) + Lines{FinalCourse()}; },
     .widths = kWidthsOfStudents},
    {.walked = {"Francés (1º ESO)=1: 3", "Lengua (1º ESO)=2: 1 2", "Matemáticas (1º ESO)=3: 1"},
     .withoutLengua = {"Francés (1º ESO)=1", "Matemáticas (1º ESO)=2"},
     .failed = {"Matemáticas (1º ESO)=1: 1", "Lengua (1º ESO)=2: 2"},
     .ungraded = {"Matemáticas (1º ESO)=1: 1"},
     .rowTitle = "1   Abad Rey, Jorge",
     .rowKey = "3",
     .subjectKey = "3113"}};

const FinalForm kFinalSectionByStudent = {
    {.name = "frmNotaSeccionAlumnoFinal",
     .stepOne = "frmNotaSeccionAlumno1",
     .node = 127,
     .choice = "elegir cboMateria =3111\n",
     .stepOneTraffic = StepOneFinalOfSubject,
     .evaluacion = 4,
     .combo = "cboAlumnos",
     .entries = 2,
     .toLengua = "elegir cboAlumnos =1\n",
     .nothing = "No existen materias o alumnos para poner notas",
     .nobodysLoad = [](const Role& role) { return FinalFormLoad(role, 4); },
     .widths = kWidthsOfSubjects},
    {.observacion = "Observación del tutor",
     .walked = {"2   Díaz Cano, Marta=1: 3111", "3   Ñúñez Sanz, Íñigo=2: 3111"},
     .failed = {"3   Ñúñez Sanz, Íñigo=2: 3111"},
     .title = "Asignatura",
     // The kinds of grade name the columns on the first load alone.
     .heading = "Materia|Nota|Concepto|Procedimiento|Actitud|Observación|Medidas Adoptadas||",
     .headingWalked = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion|Medidas Adoptadas||",
     .headingConcept =
         "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion|Medidas Adoptadas||",
     .rowTitle = "Lengua (1º ESO)",
     .rowKey = "0|3111",
     .offered = "[[\" \",0],[\"5\",105],[\"6\",106],[\"7\",107]]",
     .pending = 1,
     .student = 1,
     .locked = {3111}}};

const FinalForm kFinalSectionBySubject = {
    {.name = "frmNotaSeccionMateriaFinal",
     .stepOne = "frmNotaSeccionMateria1",
     .node = 126,
     .choice = "elegir cboAlumno =1\n",
     .stepOneTraffic = StepOneSectionBySubject,
     .evaluacion = 4,
     .combo = "cboMaterias",
     .entries = 2,
     .toLengua = "elegir cboMaterias #0\n",
     .nothing = "No existen alumnos o materias para introducir notas",
     .nobodysLoad =
         [](const Role& role) { return FinalFormLoadOf(role, 4, 1) + Lines{FinalCourse()}; },
     .widths = kWidthsOfStudents},
    {.walked = {"Lengua (1º ESO)=1: 1", "Matemáticas (1º ESO)=2: 1"},
     .withoutLengua = {"Matemáticas (1º ESO)=1"},
     .failed = {"Matemáticas (1º ESO)=1: 1"},
     .ungraded = {"Matemáticas (1º ESO)=1: 1"},
     .rowTitle = "2   Díaz Cano, Marta",
     .rowKey = "1",
     .pending = 1,
     .otherPending = 2,
     .student = 1,
     .locked = {3111, 3112},
     .lengua = {1}}};

std::vector<FinalForm> FinalForms() {
  return {kFinalByStudent, kFinalBySubject, kFinalSectionByStudent, kFinalSectionBySubject};
}

std::vector<FinalForm> FinalFormsBySubject() { return {kFinalBySubject, kFinalSectionBySubject}; }

Lines FinalForm::Entries() const {
  Lines told;
  for (const auto& line : walked) told.push_back(line.substr(0, line.find(':')));
  return told;
}

std::string FinalForm::Row(const std::string& cells) const {
  return std::string(rowTitle) + "|" + cells + "|" + rowKey;
}

ScriptResult FinalTest::Play(const std::string& gestures, const Role& role, int evaluacion) const {
  return PlayBehind("", gestures, role, evaluacion);
}

ScriptResult FinalTest::PlayBehind(const std::string& before, const std::string& gestures,
                                   const Role& role, int evaluacion) const {
  school_.DropPublications();
  return RunScript(school_, form_.Open(evaluacion, before) + gestures, SessionOf(role));
}

FormView FinalTest::Shown(const std::string& gestures, const Role& role, int evaluacion) const {
  return FormView(Play(gestures + "ver\n", role, evaluacion));
}

Lines FinalTest::Entries(const Role& role, int evaluacion) const {
  return Shown("", role, evaluacion).Entries(form_.combo);
}

Lines FinalTest::Cells(const std::string& gestures) const {
  return Shown(gestures).Cells("rtvNotasAlumno");
}

Lines FinalTest::Walked(int evaluacion) const {
  auto walked = Entries(kTutor, evaluacion);
  std::string gestures;
  for (std::size_t i = 0; i < walked.size(); ++i)
    gestures += std::string("elegir ") + form_.combo + " #" + std::to_string(i) + "\nver\n";
  const auto result = Play(gestures, kTutor, evaluacion);
  for (std::size_t i = 0; i < walked.size(); ++i) {
    const auto cells = FormView(result, walked.size() - 1 - i).Cells("rtvNotasAlumno");
    walked[i] += ":";
    for (std::size_t row = 1; row < cells.size(); ++row)
      walked[i] += " " + cells[row].substr(cells[row].rfind('|') + 1);
  }
  return walked;
}

void FinalTest::Save(const std::string& gestures, int evaluacion) const {
  static_cast<void>(Play(gestures + "pulsar cmdAceptar\n", kTutor, evaluacion));
}

void FinalTest::Set(int pending, const std::string& columns, int evaluacion) const {
  school_.Sql("UPDATE EvaluacionActaPte SET " + columns + " WHERE CodAlumnoPte_MatDet=" +
              std::to_string(pending) + " AND CodNumEvaluacion=" + std::to_string(evaluacion));
}

void FinalTest::GradeFirst(int pending, int nota) const {
  Set(pending, "Evaluado=-1, UltimaEvaluada=-1, CodNota=" + std::to_string(nota));
}

}  // namespace quorvane::test

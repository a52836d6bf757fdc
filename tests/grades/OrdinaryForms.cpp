#include "tests/grades/OrdinaryForms.h"

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {
namespace {

const std::string kStudentsRead = Sql(expected::kStudents, {321});
const std::string kFlags = Sql(expected::kSectionFlags, {321});
const std::string kObservation = Sql(expected::kObservationByGrade, {3});

Lines Marked(const char* mark) { return SaveMarked(kTutor, 1, 2, 107, mark); }

}  // namespace

const OrdinaryForm kByStudent = {{.name = "frmNotaManual",
                                  .stepOne = "frmNotaManual1",
                                  .node = 124,
                                  .stepOneTraffic = StepOne,
                                  .combo = "cboAlumnos",
                                  .toLengua = "elegir cboAlumnos =1\n",
                                  .loading = "Cargando datos",
                                  .saving = "Grabando datos",
                                  .nothing = "No existen alumnos o materias para introducir notas",
                                  .secondMessage = true,
                                  .nobodysLoad = [](const Role& role) { return FormLoad(role, 1); },
                                  .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0}},
                                 {.label = "Alumno:",
                                  .load = {kStudentsRead, kObservation},
                                  .hostAsked = true,
                                  .purge = Purge(2),
                                  .headings = "Materia|Nota||||Observación||",
                                  .row = "Lengua (1º ESO)||||||0|2",
                                  .keyOfSubject = 2,
                                  .saveBehind = SaveByStudent(1, 2, 107, true),
                                  .save = SaveByStudent(1, 2, 107, true),
                                  .keyName = "",
                                  .objectiveSought = expected::kObjectiveKeyAndOrder}};

const OrdinaryForm kBySubject = {
    {.name = "frmNotaMateria",
     .stepOne = "frmNotaMateria1",
     .node = 125,
     .stepOneTraffic = StepOneBySubject,
     .combo = "cboMaterias",
     .toLengua = "elegir cboMaterias \"Lengua (1º ESO)\"\n",
     .loading = "Cargando Datos...",
     .saving = "Grabando Datos...",
     .nothing = "No exiten alumnos o materias para introducir notas",
     .nobodysLoad = [](const Role& role) { return FormLoadBySubject(role, 1, 0); },
     .widths = {3000, 2000, 0, 0, 0, 2000, 0}},
    {.label = "Materias y objetivos:",
     .load = {kStudentsRead, kFlags, kFlags, kFlags, kObservation},
     .purge = First(Purge(2), 2) + Lines{Sql(expected::kPurgeElsewhere, {2})},
     .purgeError = "-2147467259 ",
     .headings = "Orden en Sección / Alumno|Nota||||Observación|",
     .row = "2   Díaz Cano, Marta||||||1",
     .paneOnSelection = false,
     .tutorWidthsKept = false,
     .save = Marked(expected::kMarkBySubject)}};

const OrdinaryForm kSectionByStudent = {
    {.name = "frmNotaSeccionAlumno",
     .stepOne = "frmNotaSeccionAlumno1",
     .node = 127,
     .choice = "elegir cboMateria =3111\n",
     .stepOneTraffic = StepOneSectionByStudent,
     .combo = "cboAlumnos",
     .entries = 2,
     .toLengua = "elegir cboAlumnos =1\n",
     .nothing = "No existen alumnos o materias para introducir sus notas",
     .secondMessage = true,
     .nobodysLoad = [](const Role& role) { return FormLoadSectionByStudent(role, 1); },
     .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0}},
    {.label = "Alumno:",
     .load = {kStudentsRead},
     .rows = " WHERE CodMatDet=3111 AND codNumEvaluacion=1 AND CodAlumno=",
     .purge = Purge(2),
     .otherKind = "",
     .headings = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion||",
     .row = "Lengua (1º ESO)||||||0|3111",
     .index = 0,
     .editOnSelection = true,
     .save = Marked(expected::kMarkBySection),
     .objectives = expected::kNamedObjectives}};

const OrdinaryForm kSectionBySubject = {
    {.name = "frmNotaSeccionMateria",
     .stepOne = "frmNotaSeccionMateria1",
     .node = 126,
     .choice = "elegir cboAlumno =1\n",
     .stepOneTraffic = StepOneSectionBySubject,
     .combo = "cboMaterias",
     .entries = 2,
     .toLengua = "elegir cboMaterias =1\n",
     .nothing = "No existen alumnos o materias para calificar",
     .nobodysLoad = [](const Role& role) { return FormLoadSectionBySubject(role, 1, 1); },
     .widths = {3000, 2000, 0, 0, 0, 2000, 0}},
    {.label = "Materias y objetivos:",
     .load = {Sql(expected::kChosenStudent, {1}), Sql(expected::kKindName, {5, 3})},
     .purgeError = "3265 ",
     .headings = "Orden en Sección / Alumno|Nota||||Observación|",
     .row = "2   Díaz Cano, Marta||||||1",
     .index = 0,
     .editOnSelection = true,
     .headingError = "5 ",
     .save = Marked(expected::kMarkBySection),
     .insertGrades = expected::kInsertPendingGrades}};

std::vector<OrdinaryForm> OrdinaryForms() {
  return {kByStudent, kBySubject, kSectionByStudent, kSectionBySubject};
}

std::vector<OrdinaryForm> FormsThatRespectTheMark() {
  return {kBySubject, kSectionByStudent, kSectionBySubject};
}

FormView FormScripts::Shown(const std::string& gestures, const ScriptOptions& user) const {
  school_.DropPublications();
  return FormView(Play(gestures + "ver\n", user));
}

}  // namespace quorvane::test

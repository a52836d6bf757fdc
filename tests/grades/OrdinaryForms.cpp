#include "tests/grades/OrdinaryForms.h"

#include <algorithm>

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {
namespace {

const std::string kStudentsRead = Sql(expected::kStudents, {321});
const std::string kFlags = Sql(expected::kSectionFlags, {321});
const std::string kObservation = Sql(expected::kObservationByGrade, {3});

Lines Marked(const char* mark) { return SaveMarked(kTutor, 1, 2, 107, mark); }

}  // namespace

const std::string kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";

const OrdinaryForm kByStudent = {.name = "frmNotaManual",
                                 .stepOne = "frmNotaManual1",
                                 .node = 124,
                                 .combo = "cboAlumnos",
                                 .toLengua = "elegir cboAlumnos =1\n",
                                 .label = "Alumno:",
                                 .loading = "Cargando datos",
                                 .saving = "Grabando datos",
                                 .nothing = "No existen alumnos o materias para introducir notas",
                                 .secondMessage = true,
                                 .toStepTwo = StepOne,
                                 .load = {kStudentsRead, kObservation},
                                 .hostAsked = true,
                                 .purge = Purge(2),
                                 .headings = "Materia|Nota||||Observación||",
                                 .row = "Lengua (1º ESO)||||||0|2",
                                 .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0},
                                 .keyOfSubject = 2,
                                 .saveBehind = SaveByStudent(1, 2, 107, true),
                                 .save = SaveByStudent(1, 2, 107, true),
                                 .keyName = "",
                                 .objectiveSought = expected::kObjectiveKeyAndOrder};

const OrdinaryForm kBySubject = {
    .name = "frmNotaMateria",
    .stepOne = "frmNotaMateria1",
    .node = 125,
    .combo = "cboMaterias",
    .toLengua = "elegir cboMaterias \"Lengua (1º ESO)\"\n",
    .label = "Materias y objetivos:",
    .loading = "Cargando Datos...",
    .saving = "Grabando Datos...",
    .nothing = "No exiten alumnos o materias para introducir notas",
    .toStepTwo = StepOneBySubject,
    .load = {kStudentsRead, kFlags, kFlags, kFlags, kObservation},
    .purge = First(Purge(2), 2) + Lines{Sql(expected::kPurgeElsewhere, {2})},
    .purgeError = "-2147467259 ",
    .headings = "Orden en Sección / Alumno|Nota||||Observación|",
    .row = "2   Díaz Cano, Marta||||||1",
    .widths = {3000, 2000, 0, 0, 0, 2000, 0},
    .paneOnSelection = false,
    .tutorWidthsKept = false,
    .save = Marked(expected::kMarkBySubject)};

const OrdinaryForm kSectionByStudent = {
    .name = "frmNotaSeccionAlumno",
    .stepOne = "frmNotaSeccionAlumno1",
    .node = 127,
    .ownChoice = "elegir cboMateria =3111\n",
    .combo = "cboAlumnos",
    .toLengua = "elegir cboAlumnos =1\n",
    .index = 0,
    .entries = 2,
    .label = "Alumno:",
    .nothing = "No existen alumnos o materias para introducir sus notas",
    .secondMessage = true,
    .toStepTwo = StepOneSectionByStudent,
    .load = {kStudentsRead},
    .rows = " WHERE CodMatDet=3111 AND codNumEvaluacion=1 AND CodAlumno=",
    .purge = Purge(2),
    .otherKind = "",
    .headings = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion||",
    .row = "Lengua (1º ESO)||||||0|3111",
    .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0},
    .editOnSelection = true,
    .save = Marked(expected::kMarkBySection),
    .objectives = expected::kNamedObjectives};

const OrdinaryForm kSectionBySubject = {
    .name = "frmNotaSeccionMateria",
    .stepOne = "frmNotaSeccionMateria1",
    .node = 126,
    .ownChoice = "elegir cboAlumno =1\n",
    .combo = "cboMaterias",
    .toLengua = "elegir cboMaterias =1\n",
    .index = 0,
    .entries = 2,
    .label = "Materias y objetivos:",
    .nothing = "No existen alumnos o materias para calificar",
    .toStepTwo = StepOneSectionBySubject,
    .load = {Sql(expected::kChosenStudent, {1}), Sql(expected::kKindName, {5, 3})},
    .purgeError = "3265 ",
    .headings = "Orden en Sección / Alumno|Nota||||Observación|",
    .row = "2   Díaz Cano, Marta||||||1",
    .widths = {3000, 2000, 0, 0, 0, 2000, 0},
    .editOnSelection = true,
    .headingError = "5 ",
    .save = Marked(expected::kMarkBySection),
    .insertGrades = expected::kInsertPendingGrades};

std::string OrdinaryForm::Open(int evaluacion, const std::string& before) const {
  return "nodo " + std::to_string(node) +
         "\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
         std::to_string(evaluacion) + "\n" + ownChoice + before + "pulsar cmdNotaManual1(0)\n";
}

std::string OrdinaryForm::NothingToGrade() const {
  return "informacion \"Zendria Escuela\" \"" + std::string(nothing) + "\"";
}

void PrintTo(const OrdinaryForm& form, std::ostream* out) { *out << form.name; }

std::vector<OrdinaryForm> OrdinaryForms() {
  return {kByStudent, kBySubject, kSectionByStudent, kSectionBySubject};
}

std::vector<OrdinaryForm> FormsThatRespectTheMark() {
  return {kBySubject, kSectionByStudent, kSectionBySubject};
}

const OrdinaryForm& OrdinaryFormNamed(const std::string& name) {
  for (const auto* form : {&kByStudent, &kBySubject, &kSectionByStudent})
    if (name == form->name) return *form;
  return kSectionBySubject;
}

FormView FormScripts::Shown(const std::string& gestures, const ScriptOptions& user) const {
  school_.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
  return FormView(Play(gestures + "ver\n", user));
}

}  // namespace quorvane::test

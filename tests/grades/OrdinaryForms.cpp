#include "tests/grades/OrdinaryForms.h"

#include <algorithm>

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {
namespace {

const std::string kStudents = Sql(expected::kStudents, {321});
const std::string kFlags = Sql(expected::kSectionFlags, {321});
const std::string kObservation = Sql(expected::kObservationByGrade, {3});

const Lines kMarkedBySubject = SaveMarked(kTutor, 1, 2, 107, expected::kMarkBySubject);
const Lines kMarkedBySection = SaveMarked(kTutor, 1, 2, 107, expected::kMarkBySection);

}  // namespace

const std::string kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";

const OrdinaryForm kByStudent = {.name = "frmNotaManual",
                                 .stepOne = "frmNotaManual1",
                                 .node = 124,
                                 .ownChoice = "",
                                 .combo = "cboAlumnos",
                                 .toLengua = "elegir cboAlumnos =1\n",
                                 .index = 1,
                                 .entries = 3,
                                 .label = "Alumno:",
                                 .loading = "Cargando datos",
                                 .saving = "Grabando datos",
                                 .nothing = "No existen alumnos o materias para introducir notas",
                                 .secondMessage = true,
                                 .toStepTwo = StepOne,
                                 .load = {kStudents, kObservation},
                                 .rows = " WHERE codNumEvaluacion=1 AND CodAlumno=",
                                 .hostAsked = true,
                                 .purge = Purge(2),
                                 .purgeError = "",
                                 .otherKind = "3265 ",
                                 .headings = "Materia|Nota||||Observación||",
                                 .row = "Lengua (1º ESO)||||||0|2",
                                 .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0},
                                 .keyOfSubject = 2,
                                 .editOnSelection = false,
                                 .paneOnSelection = true,
                                 .tutorWidthsKept = true,
                                 .headingError = "",
                                 .saveBehind = SaveByStudent(1, 2, 107, true),
                                 .save = SaveByStudent(1, 2, 107, true),
                                 .objectives = expected::kObjectives,
                                 .keyName = "",
                                 .objectiveSought = expected::kObjectiveKeyAndOrder,
                                 .insertGrades = expected::kInsertGrades};

const OrdinaryForm kBySubject = {
    .name = "frmNotaMateria",
    .stepOne = "frmNotaMateria1",
    .node = 125,
    .ownChoice = "",
    .combo = "cboMaterias",
    .toLengua = "elegir cboMaterias \"Lengua (1º ESO)\"\n",
    .index = 1,
    .entries = 3,
    .label = "Materias y objetivos:",
    .loading = "Cargando Datos...",
    .saving = "Grabando Datos...",
    .nothing = "No exiten alumnos o materias para introducir notas",
    .secondMessage = false,
    .toStepTwo = StepOneBySubject,
    .load = {kStudents, kFlags, kFlags, kFlags, kObservation},
    .rows = " WHERE codNumEvaluacion=1 AND CodAlumno=",
    .hostAsked = false,
    .purge = First(Purge(2), 2) + Lines{Sql(expected::kPurgeElsewhere, {2})},
    .purgeError = "-2147467259 ",
    .otherKind = "3265 ",
    .headings = "Orden en Sección / Alumno|Nota||||Observación|",
    .row = "2   Díaz Cano, Marta||||||1",
    .widths = {3000, 2000, 0, 0, 0, 2000, 0},
    .keyOfSubject = 3111,
    .editOnSelection = false,
    .paneOnSelection = false,
    .tutorWidthsKept = false,
    .headingError = "",
    .saveBehind = SaveBehindTheMark(kTutor, 1, 2, 107),
    .save = kMarkedBySubject,
    .objectives = expected::kObjectives,
    .keyName = " AS IDMax",
    .objectiveSought = expected::kObjectiveOrder,
    .insertGrades = expected::kInsertGrades};

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
    .loading = "Cargando... Espere por favor",
    .saving = "Grabando... Espere por favor",
    .nothing = "No existen alumnos o materias para introducir sus notas",
    .secondMessage = true,
    .toStepTwo = StepOneSectionByStudent,
    .load = {kStudents},
    .rows = " WHERE CodMatDet=3111 AND codNumEvaluacion=1 AND CodAlumno=",
    .hostAsked = false,
    .purge = Purge(2),
    .purgeError = "",
    .otherKind = "",
    .headings = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion||",
    .row = "Lengua (1º ESO)||||||0|3111",
    .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0},
    .keyOfSubject = 3111,
    .editOnSelection = true,
    .paneOnSelection = true,
    .tutorWidthsKept = true,
    .headingError = "",
    .saveBehind = SaveBehindTheMark(kTutor, 1, 2, 107),
    .save = kMarkedBySection,
    .objectives = expected::kNamedObjectives,
    .keyName = " AS IDMax",
    .objectiveSought = expected::kObjectiveOrder,
    .insertGrades = expected::kInsertGrades};

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
    .loading = "Cargando... Espere por favor",
    .saving = "Grabando... Espere por favor",
    .nothing = "No existen alumnos o materias para calificar",
    .secondMessage = false,
    .toStepTwo = StepOneSectionBySubject,
    .load = {Sql(expected::kChosenStudent, {1}), Sql(expected::kKindName, {5, 3})},
    .rows = " WHERE codNumEvaluacion=1 AND CodAlumno=",
    .hostAsked = false,
    .purge = {},
    .purgeError = "3265 ",
    .otherKind = "3265 ",
    .headings = "Orden en Sección / Alumno|Nota||||Observación|",
    .row = "2   Díaz Cano, Marta||||||1",
    .widths = {3000, 2000, 0, 0, 0, 2000, 0},
    .keyOfSubject = 3111,
    .editOnSelection = true,
    .paneOnSelection = true,
    .tutorWidthsKept = true,
    .headingError = "5 ",
    .saveBehind = SaveBehindTheMark(kTutor, 1, 2, 107),
    .save = kMarkedBySection,
    .objectives = expected::kObjectives,
    .keyName = " AS IDMax",
    .objectiveSought = expected::kObjectiveOrder,
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

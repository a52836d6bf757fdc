#include "tests/grades/OrdinaryForms.h"

#include <memory>

#include "grades/student/frmNotaManual.h"
#include "selection/frmNotaManual1.h"
#include "tests/grades/OrdinaryDirect.h"
#include "tests/grades/OrdinaryStatements.h"

namespace quorvane::test {
namespace {

/// What the forms say while they load and while they save.
template <class FormPasoUno, class FormPasoDos>
std::pair<std::string, std::string> CaptionsAtWork() {
  const GradeSchool school;
  DirectSession session(school);
  ChosenStepOne<FormPasoUno>();
  const auto form =
      std::static_pointer_cast<FormPasoDos>(FormInstance<FormPasoDos>::Get().shared_from_this());
  std::pair<std::string, std::string> captions;
  auto* caption = &captions.first;
  session.screen.Painting = [&] {
    if (form->aniCarga.Playing()) *caption = form->fraAniCarga.Caption();
  };
  form->ShowModal();
  caption = &captions.second;
  form->cmdAceptar_Click();
  return captions;
}

/// What the routine without a caller runs that adds an objective to the next evaluation, from the
/// question for the objective on.
template <class FormPasoUno, class FormPasoDos>
Lines Adding() {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, CodPersonal, "
      "CodPersonalAsociado, CodTipoMateria) VALUES (3214,4,321,0,0,10);"
      "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3214,3211,1,6,-1,0)");
  DirectSession session(school);
  ChosenStepOne<FormPasoUno>();
  static_cast<void>(session.Statements());
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t objective = 4;
  static_cast<void>(DirectSession::ErrorOf([&] {
    FormInstance<FormPasoDos>::Get().AnadirMateriaEvaluacionesPosteriores(student, subject,
                                                                          objective);
  }));
  const auto statements = session.Statements();
  return {statements.end() - 5, statements.end()};
}

/// The one that reads the objectives of a subject: its first statement.
template <class FormPasoUno, class FormPasoDos>
std::string Objectives() {
  const GradeSchool school;
  DirectSession session(school);
  ChosenStepOne<FormPasoUno>();
  static_cast<void>(session.Statements());
  FormInstance<FormPasoDos>::Get().CargarObjetivos(1, 1);
  return session.Statements().at(0);
}

const std::string kStudents =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM "
    "Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion=321 ORDER "
    "BY OrdenSeccion";
const std::string kChosenStudent =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM "
    "Alumno WHERE IDAlumno=1";
const std::string kFlags = "SELECT Seguimiento, AcumularObjetivos FROM Seccion WHERE IDSeccion=321";
const std::string kKindOfGrade =
    "SELECT TipoNota.Nombre FROM TipoNota INNER JOIN TipoMateria ON "
    "TipoNota.CodTipoMateria=TipoMateria.IDTipoMateria WHERE "
    "TipoMateria.CodEspecificarTipoMateria=5 AND TipoMateria.CodSistemaCalificacion IN (SELECT "
    "IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza=3)";
const std::string kKindOfSubject =
    "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=5 AND CodSistemaCalificacion "
    "IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza=3)";

const std::string kDeleteGrades = "DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2";
const std::string kDeleteFinal = "DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet=2";
const std::string kDeleteRow = "DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=2";
const std::string kDeleteElsewhere =
    "DELETE FROM AlumnoPte_MateriaDetalles WHERE IDAlumnoPte_MatDet=2";

const std::string kGrades =
    "CodNota=107,CodNotaActitud=0, CodNotaObservacion=0,CodNotaConcepto=0,CodNotaProcedimiento=0 "
    "WHERE CodNumEvaluacion=1 AND CodAlumnoPte_MatDet = 2";
const std::string kPasses = "SELECT Aprobado FROM Nota WHERE IDNota=107";
const std::string kLater =
    "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE UltimaEvaluada=-1 AND CodNumEvaluacion > 1 "
    "AND CodAlumnoPte_MatDet = 2";
const std::string kEvaluated = "UPDATE EvaluacionPte SET Evaluado=-1," + kGrades;
const std::string kMark =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion=1 AND CodAlumnoPte_MatDet";
const std::string kUnmark =
    "UPDATE EvaluacionPte SET UltimaEvaluada=0 WHERE CodNumEvaluacion<>1 AND CodAlumnoPte_MatDet "
    "= 2";
const std::vector<std::string> kSaveByStudent = {
    kPasses, "UPDATE EvaluacionPte SET UltimaEvaluada=-1 ,Evaluado=-1," + kGrades,
    "UPDATE EvaluacionPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion<>1 AND CodAlumnoPte_MatDet "
    "= 2"};
const std::vector<std::string> kSaveBehind = {kPasses, kEvaluated, kLater};

const std::string kObjectiveNames =
    "IDAlumno_MateriaDetalles, CodMateriaDetalles, CodMateriaDetallesAsociada, Orden";

}  // namespace

const std::vector<OrdinaryForm>& OrdinaryFormsTable() {
  static const std::vector<OrdinaryForm> forms = {
      {.name = "frmNotaManual",
       .open = Open(),
       .toLengua = "elegir cboAlumnos =1\n",
       .label = "Alumno:",
       .loading = "Cargando datos",
       .saving = "Grabando datos",
       .nothing = "No existen alumnos o materias para introducir notas",
       .secondMessage = true,
       .captionsAtWork = CaptionsAtWork<frmNotaManual1, frmNotaManual>,
       .load = {kStudents, kKindOfGrade},
       .rows = " WHERE codNumEvaluacion=1 AND CodAlumno=",
       .hostAsked = true,
       .purge = {kDeleteGrades, kDeleteFinal, kDeleteRow},
       .purgeError = "",
       .otherKind = "3265 ",
       .headings = "Materia|Nota||||Observación||",
       .row = "Lengua (1º ESO)||||||0|2",
       .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0},
       .keyOfSubject = 2,
       .editOnSelection = false,
       .paneOnSelection = true,
       .headingError = "",
       .saveBehind = kSaveByStudent,
       .save = kSaveByStudent,
       .objectiveColumns = "*",
       .objectives = Objectives<frmNotaManual1, frmNotaManual>,
       .keyName = "",
       .objectiveSought = "IDAlumno_MateriaDetalles, Orden",
       .gradesTable = "Evaluacion ",
       .adding = Adding<frmNotaManual1, frmNotaManual>},
      {.name = "frmNotaMateria",
       .open = OpenBySubject(),
       .toLengua = "elegir cboMaterias =2\n",
       .label = "Materias y objetivos:",
       .loading = "Cargando Datos...",
       .saving = "Grabando Datos...",
       .nothing = "No exiten alumnos o materias para introducir notas",
       .secondMessage = false,
       .captionsAtWork = CaptionsAtWork<frmNotaMateria1, frmNotaMateria>,
       .load = {kStudents, kFlags, kFlags, kFlags, kKindOfGrade},
       .rows = " WHERE codNumEvaluacion=1 AND CodAlumno=",
       .hostAsked = false,
       .purge = {kDeleteGrades, kDeleteFinal, kDeleteElsewhere},
       .purgeError = "-2147467259 ",
       .otherKind = "3265 ",
       .headings = "Orden en Sección / Alumno|Nota||||Observación|",
       .row = "2   Díaz Cano, Marta||||||1",
       .widths = {3000, 2000, 0, 0, 0, 2000, 0},
       .keyOfSubject = 3111,
       .editOnSelection = false,
       .paneOnSelection = false,
       .headingError = "",
       .saveBehind = kSaveBehind,
       .save = {kPasses, kEvaluated, kLater, kMark + "= 2", kUnmark},
       .objectiveColumns = "*",
       .objectives = Objectives<frmNotaMateria1, frmNotaMateria>,
       .keyName = " AS IDMax",
       .objectiveSought = "Orden",
       .gradesTable = "Evaluacion ",
       .adding = Adding<frmNotaMateria1, frmNotaMateria>},
      {.name = "frmNotaSeccionAlumno",
       .open = OpenSectionByStudent(),
       .toLengua = "elegir cboAlumnos =1\n",
       .label = "Alumno:",
       .loading = "Cargando... Espere por favor",
       .saving = "Grabando... Espere por favor",
       .nothing = "No existen alumnos o materias para introducir sus notas",
       .secondMessage = true,
       .captionsAtWork = CaptionsAtWork<frmNotaSeccionAlumno1, frmNotaSeccionAlumno>,
       .load = {kStudents},
       .rows = " WHERE CodMatDet=3111 AND codNumEvaluacion=1 AND CodAlumno=",
       .hostAsked = false,
       .purge = {kDeleteGrades, kDeleteFinal, kDeleteRow},
       .purgeError = "",
       .otherKind = "",
       .headings = "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion||",
       .row = "Lengua (1º ESO)||||||0|3111",
       .widths = {2000, 2000, 0, 0, 0, 2000, 0, 0},
       .keyOfSubject = 3111,
       .editOnSelection = true,
       .paneOnSelection = true,
       .headingError = "",
       .saveBehind = kSaveBehind,
       .save = {kPasses, kEvaluated, kLater, kMark + " =2", kUnmark},
       .objectiveColumns = kObjectiveNames,
       .objectives = Objectives<frmNotaSeccionAlumno1, frmNotaSeccionAlumno>,
       .keyName = " AS IDMax",
       .objectiveSought = "Orden",
       .gradesTable = "Evaluacion ",
       .adding = Adding<frmNotaSeccionAlumno1, frmNotaSeccionAlumno>},
      {.name = "frmNotaSeccionMateria",
       .open = OpenSectionBySubject(),
       .toLengua = "elegir cboMaterias =1\n",
       .label = "Materias y objetivos:",
       .loading = "Cargando... Espere por favor",
       .saving = "Grabando... Espere por favor",
       .nothing = "No existen alumnos o materias para calificar",
       .secondMessage = false,
       .captionsAtWork = CaptionsAtWork<frmNotaSeccionMateria1, frmNotaSeccionMateria>,
       .load = {kChosenStudent, kKindOfSubject},
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
       .headingError = "5 ",
       .saveBehind = kSaveBehind,
       .save = {kPasses, kEvaluated, kLater, kMark + " =2", kUnmark},
       .objectiveColumns = "*",
       .objectives = Objectives<frmNotaSeccionMateria1, frmNotaSeccionMateria>,
       .keyName = " AS IDMax",
       .objectiveSought = "Orden",
       .gradesTable = "EvaluacionPte  ",
       .adding = Adding<frmNotaSeccionMateria1, frmNotaSeccionMateria>}};
  return forms;
}

}  // namespace quorvane::test

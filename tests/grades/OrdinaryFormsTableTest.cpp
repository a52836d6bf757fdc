#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <utility>

#include "grades/student/frmNotaManual.h"
#include "selection/frmNotaManual1.h"
#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryDirect.h"
#include "tests/grades/OrdinaryStatements.h"

// The four ordinary forms side by side: where each differs from the others. All of them show and
// save subject 3111 of student 1, pending row 2, to the tutor of the section.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kTutorAsked =
    "SELECT IDPersonal FROM Personal WHERE CodUsuario=2 AND IDPersonal IN (SELECT CodTutor FROM "
    "Seccion WHERE IDSeccion=321)";

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

struct Form {
  const char* name;
  std::string open;      ///< to the first subject or student
  std::string toLengua;  ///< the gestures that show the row
  // Texts.
  const char* label;
  const char* loading;
  const char* saving;
  const char* nothing;
  bool secondMessage;  ///< after the refusal of an own publication
  std::pair<std::string, std::string> (*captionsAtWork)();
  // Statements of the load.
  std::vector<std::string> load;   ///< of `Form_Load`, behind the question for the tutor
  const char* rows;                ///< of a student's subjects, the beginning of its condition
  bool hostAsked;                  ///< whether grades are active
  std::vector<std::string> purge;  ///< of pending row 2 when its subject is gone
  const char* purgeError;
  const char* otherKind;  ///< the error of a subject of kind 4
  // The grid.
  const char* headings;  ///< from the second time on
  const char* row;
  std::vector<int> widths;
  int keyOfSubject;      ///< under which a student holds the subject, `IDMatDetalle`
  bool editOnSelection;  ///< showing another entry begins an edit
  bool paneOnSelection;  ///< and fills the pane of the tutor
  // Saving of a passing grade while a later evaluation holds the mark, and while none does.
  std::vector<std::string> saveBehind;
  std::vector<std::string> save;
  // Routines without a caller.
  std::string objectiveColumns;
  std::string (*objectives)();
  const char* keyName;          ///< of a new row's key
  const char* objectiveSought;  ///< the columns
  const char* gradesTable;      ///< of the last insert, with its blanks
  Lines (*adding)();
};

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

const std::vector<Form>& Forms() {
  static const std::vector<Form> forms = {
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

void PrintTo(const Form& form, std::ostream* out) { *out << form.name; }

class OrdinaryForms : public ::testing::TestWithParam<Form> {
 protected:
  [[nodiscard]] ScriptResult Run(const std::string& gestures) const {
    return RunScript(school_, GetParam().open + gestures, Tutor());
  }

  /// With another user's statement between the choice of step one and step two.
  [[nodiscard]] ScriptResult RunAfter(const std::string& statement,
                                      const std::string& gestures = "") const {
    auto script = GetParam().open;
    script.insert(script.rfind("pulsar"), "sql \"" + statement + "\"\n");
    return RunScript(school_, script + gestures, Tutor());
  }

  [[nodiscard]] std::vector<std::string> SavesSevenInRow() const {
    std::vector<std::string> mine;
    const auto result =
        Run(GetParam().toLengua + "editar rtvNotasAlumno 1 1 =107\npulsar cmdAceptar\n");
    const std::string prefix = "sql centro ";
    for (const auto& line : result.After("pulsar cmdAceptar")) {
      if (!line.starts_with(prefix)) continue;
      const auto text = line.substr(prefix.size());
      if (text == kPasses || text.ends_with("MatDet = 2") || text.ends_with("MatDet= 2") ||
          text.ends_with("MatDet =2"))
        mine.push_back(text);
    }
    return mine;
  }

  GradeSchool school_;
};

TEST_P(OrdinaryForms, Captions) {
  const FormView view(Run("ver\n"));
  EXPECT_EQ(view.Form(), GetParam().name);
  EXPECT_EQ(view.Text("lblNotaManual(0)"), GetParam().label);
  EXPECT_EQ(GetParam().captionsAtWork(),
            (std::pair<std::string, std::string>(GetParam().loading, GetParam().saving)));
}

TEST_P(OrdinaryForms, Messages) {
  const auto nothing =
      "informacion \"Zendria Escuela\" \"" + std::string(GetParam().nothing) + "\"";
  EXPECT_THAT(RunAfter("DELETE FROM EvaluacionPte").Of("mensaje"), ElementsAre(nothing));
  school_.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,1)");
  school_.Evalua(2, 1);
  const auto messages = Run("").Of("mensaje");
  ASSERT_EQ(messages.size(), GetParam().secondMessage ? 2U : 1U);
  EXPECT_THAT(messages.front(), HasSubstr("se están introduciendo notas"));
  if (GetParam().secondMessage) {
    EXPECT_EQ(messages.back(), nothing);
  }
}

TEST_P(OrdinaryForms, StatementsOfTheLoad) {
  const auto result = Run("");
  const auto statements = result.Sql();
  // Step one of a section asks for the tutor too.
  const auto tutor = std::find(statements.rbegin(), statements.rend(), kTutorAsked).base();
  const auto size = static_cast<std::ptrdiff_t>(GetParam().load.size());
  ASSERT_GT(statements.end() - tutor, size);
  EXPECT_THAT(std::vector<std::string>(tutor, tutor + size), ElementsAreArray(GetParam().load));
  EXPECT_THAT(*(tutor + size), StartsWith("SELECT AlumnoPte_MatDet.* FROM"));
  EXPECT_THAT(*(tutor + size), HasSubstr(GetParam().rows));
  EXPECT_EQ(std::count(result.lines.begin(), result.lines.end(),
                       "host ZendriaApi.cCentroApi.notasactivas"),
            GetParam().hostAsked ? 1 : 0);
}

TEST_P(OrdinaryForms, PurgeOfASubjectThatIsGone) {
  const auto result = RunAfter("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  std::vector<std::string> purge;
  for (const auto& statement : result.Sql())
    if (statement.starts_with("DELETE") && statement.ends_with("MatDet=2"))
      purge.push_back(statement);
  EXPECT_EQ(purge, GetParam().purge);
  if (*GetParam().purgeError == '\0') {
    EXPECT_THAT(result.Of("error"), IsEmpty());
  } else {
    EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(GetParam().purgeError)));
  }
}

TEST_P(OrdinaryForms, SubjectOfAnotherKind) {
  const auto result = RunAfter(
      "UPDATE MateriaDetalles SET CodTipoMateria=40 WHERE IDMateriaDetalles=3111", "ver\n");
  if (*GetParam().otherKind == '\0') {
    EXPECT_EQ(FormView(result).Form(), GetParam().name) << result.Text();
  } else {
    EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(GetParam().otherKind)));
  }
}

TEST_P(OrdinaryForms, Grid) {
  // Shown twice: the headings of later times differ from the first in one of the forms.
  const FormView view(Run(GetParam().toLengua + GetParam().toLengua + "ver\n"));
  EXPECT_EQ(view.Cells("rtvNotasAlumno").at(0), GetParam().headings);
  EXPECT_EQ(view.Cells("rtvNotasAlumno").at(1), GetParam().row);
  EXPECT_EQ(view.Widths("rtvNotasAlumno"), GetParam().widths);
}

// It shows in the list of a cell, which offers grades of that subject alone.
TEST_P(OrdinaryForms, KeyOfASubject) {
  const auto result = Run(GetParam().toLengua + "lista rtvNotasAlumno 1 1\n");
  EXPECT_THAT(Traffic(result), Contains(CellList(kTutor, 1, GetParam().keyOfSubject, 2, 1)));
}

TEST_P(OrdinaryForms, SelectionOfAnEntry) {
  const auto result =
      Run(GetParam().toLengua + "lista rtvNotasAlumno 1 1\n# again\n" + GetParam().toLengua);
  auto gesture = GetParam().toLengua;
  gesture.pop_back();
  const auto traffic = Traffic(result.After(gesture));
  const auto list = CellList(kTutor, 1, GetParam().keyOfSubject, 2, 1);
  EXPECT_EQ(std::count(traffic.begin(), traffic.end(), list), GetParam().editOnSelection ? 1 : 0);
  EXPECT_EQ(std::count(traffic.begin(), traffic.end(), TutorPane(kTutor, 1).front()),
            GetParam().paneOnSelection ? 1 : 0);
}

TEST_P(OrdinaryForms, StatementsOfSaving) {
  EXPECT_EQ(SavesSevenInRow(), GetParam().save);
  school_.Sql(
      "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=2");
  EXPECT_EQ(SavesSevenInRow(), GetParam().saveBehind);
}

TEST_P(OrdinaryForms, RoutinesWithoutACaller) {
  const auto& form = GetParam();
  EXPECT_THAT(form.objectives(),
              StartsWith(Sql("SELECT " + form.objectiveColumns + " FROM Alumno_MateriaDetalles")));
  const auto adding = form.adding();
  const std::string key = form.keyName;
  EXPECT_THAT(
      adding,
      ElementsAre(
          Sql("SELECT " + std::string(form.objectiveSought) +
              " FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion=2 AND "
              "CodMateriaDetalles=3214"),
          Sql("SELECT MAX(IDAlumno_MateriaDetalles)" + key + " FROM [Alumno_MateriaDetalles]"),
          Sql("INSERT INTO Alumno_MateriaDetalles VALUES (52,1,3214,3211,2,6,-1,0)"),
          Sql("SELECT MAX(IDEvaluacion)" + key + " FROM [Evaluacion]"),
          Sql("INSERT INTO " + std::string(form.gradesTable) +
              "VALUES (1,52,2,0,0,0,0,0,0,0,0,0,0,0,0,0)")));
}

INSTANTIATE_TEST_SUITE_P(Four, OrdinaryForms, ::testing::ValuesIn(Forms()),
                         [](const auto& form) { return std::string(form.param.name); });

// No two of them may be made alike: the messages tell all four apart, and so does what they load.
TEST(OrdinaryFormsTable, NoTwoFormsAreAlike) {
  std::set<std::string> messages;
  std::set<std::vector<std::string>> loads;
  std::set<std::string> rows;
  for (const auto& form : Forms()) {
    messages.insert(form.nothing);
    loads.insert(form.load);
    rows.insert(std::string(form.row) + form.headings);
  }
  EXPECT_EQ(messages.size(), 4U);
  EXPECT_EQ(loads.size(), 4U);
  EXPECT_EQ(rows.size(), 3U) << "by subject the grid is the same";
}

}  // namespace
}  // namespace quorvane::test

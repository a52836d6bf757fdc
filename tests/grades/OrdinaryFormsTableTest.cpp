#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <utility>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryForms.h"
#include "tests/grades/OrdinaryStatements.h"

// The four ordinary forms side by side: where each differs from the others.

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

class OrdinaryForms : public ::testing::TestWithParam<OrdinaryForm> {
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
      if (text.starts_with("SELECT Aprobado") || text.ends_with("MatDet = 2") ||
          text.ends_with("MatDet= 2") || text.ends_with("MatDet =2"))
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

// What the cell edited before offered is no offer of this one.
TEST_P(OrdinaryForms, CellsWithoutAListOfferNothing) {
  const auto result = Run(GetParam().toLengua +
                          "lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 1 0\n"
                          "lista rtvNotasAlumno 0 1\neditar rtvNotasAlumno 0 1 =107\n");
  const auto offered = result.Of("lista");
  ASSERT_GE(offered.size(), 2U);
  EXPECT_THAT(offered[0], HasSubstr("107"));
  EXPECT_EQ(offered[1], "[]");
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("editar rtvNotasAlumno 0 1")));
  if (*GetParam().headingError == '\0') {
    ASSERT_EQ(offered.size(), 3U);
    EXPECT_EQ(offered[2], "[]");
  } else {
    EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(GetParam().headingError)));
  }
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

INSTANTIATE_TEST_SUITE_P(Four, OrdinaryForms, ::testing::ValuesIn(OrdinaryFormsTable()),
                         [](const auto& form) { return std::string(form.param.name); });

// No two of them may be made alike: the messages tell all four apart, and so does what they load.
TEST(OrdinaryFormsTable, NoTwoFormsAreAlike) {
  std::set<std::string> messages;
  std::set<std::vector<std::string>> loads;
  std::set<std::string> rows;
  for (const auto& form : OrdinaryFormsTable()) {
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

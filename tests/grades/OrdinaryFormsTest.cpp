#include <algorithm>
#include <set>

#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"
#include "tests/support/ServerSchools.h"

// What the four ordinary forms show, offer, refuse and save, side by side: where each differs from
// the others.

namespace quorvane::test {
namespace {

class OrdinaryFormsTest : public EachFormTest {
 protected:
  /// The statements that save a passing grade in pending row 2.
  [[nodiscard]] Lines SavesSevenInRow() const {
    Lines mine;
    const auto result =
        Play(form_.toLengua + "editar rtvNotasAlumno 1 1 =107\npulsar cmdAceptar\n");
    for (const auto& line : Statements(result.After("pulsar cmdAceptar")))
      if (line.starts_with("sql centro SELECT Aprobado") || line.ends_with("MatDet = 2") ||
          line.ends_with("MatDet= 2") || line.ends_with("MatDet =2"))
        mine.push_back(line);
    return mine;
  }
};

INSTANTIATE_TEST_SUITE_P(Four, OrdinaryFormsTest, ::testing::ValuesIn(OrdinaryForms()),
                         kNameOfForm);

TEST_P(OrdinaryFormsTest, DialogHasItsCaptionsAndMeasures) {
  const auto view = Shown();
  EXPECT_EQ(view.Text("lblNotaManual(0)"), form_.label);
  EXPECT_EQ(view.Text("lblNotaManual(1)"), "Observación del tutor");
  EXPECT_EQ(view.Text("lblNotaManual(2)"), "Ausencias:");
  EXPECT_EQ(view.Text("lblNotaManual(3)"), "Retrasos:");
  EXPECT_EQ(view.Text("cmdAnterior"), "<");
  EXPECT_EQ(view.Text("cmdSiguiente"), ">");
  EXPECT_EQ(view.Text("fraNotaTutor(0)"), "Notas y Observaciones del Alumno:");
  EXPECT_THAT(view.Tabs("tabNotaManual"), ElementsAre("Notas"));
  EXPECT_TRUE(view.Enabled("tabNotaManual") && view.Visible("tabNotaManual"));
  EXPECT_FALSE(view.Visible("fraNotaManual(1)"));
  EXPECT_EQ(view.Width(), 9300) << "back at its measures after the busy sign";
  EXPECT_EQ(view.Height(), 6465);
}

TEST_P(OrdinaryFormsTest, HostIsAskedWhetherGradesAreActiveWhereItForbidsSaving) {
  const auto result =
      RunScript(school_, "notasactivas 1\n" + form_.Open() + "ver\npulsar cmdAceptar\n", Tutor());
  const auto asked = result.Of("host");
  EXPECT_EQ(std::count(asked.begin(), asked.end(), "ZendriaApi.cCentroApi.notasactivas"),
            form_.hostAsked ? 1 : 0);
  EXPECT_EQ(FormView(result).Enabled("cmdAceptar"), !form_.hostAsked);
  EXPECT_TRUE(FormView(result).Enabled("cmdCancelar"));
  EXPECT_THAT(result.Of("rechazo"), SizeIs(form_.hostAsked ? 1 : 0));
}

TEST_P(OrdinaryFormsTest, EverythingLockedBySomebodyElseIsNothingToGrade) {
  const auto result = PlayAfter(
      "INSERT INTO BloqueoPte VALUES (2,1,3111,3,9), (2,1,3112,3,9), (2,1,3113,3,9)", "ver\n");
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  EXPECT_THAT(result.Of("pitido"), SizeIs(1));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("INSERT INTO"))));
  EXPECT_EQ(FormView(result).Form(), form_.stepOne);
  EXPECT_THAT(school_.Rows("SELECT CodMatDet FROM BloqueoPte"),
              ElementsAre("3111", "3112", "3113"));
}

TEST_P(OrdinaryFormsTest, StatementsOfTheLoad) {
  const auto statements = Statements(Play().lines);
  // Step one of a section asks for the tutor too.
  const auto asked = Sql(expected::kTutor, {2, 321});
  const auto tutor = std::find(statements.rbegin(), statements.rend(), asked).base();
  const auto size = static_cast<std::ptrdiff_t>(form_.load.size());
  ASSERT_GT(statements.end() - tutor, size);
  EXPECT_THAT(Lines(tutor, tutor + size), ElementsAreArray(form_.load));
  EXPECT_THAT(*(tutor + size), StartsWith("sql centro SELECT AlumnoPte_MatDet.* FROM"));
  EXPECT_THAT(*(tutor + size), HasSubstr(form_.rows));
}

TEST_P(OrdinaryFormsTest, PurgeOfASubjectThatIsGone) {
  school_.Sql("INSERT INTO EvaluacionActaPte VALUES (1,2,4,0,0,0,0,0)");
  const auto before = school_.Modulo();
  const auto result = PlayAfter("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  Lines purge;
  for (const auto& line : Statements(result.lines))
    if (line.starts_with("sql centro DELETE") && line.ends_with("MatDet=2")) purge.push_back(line);
  EXPECT_EQ(purge, form_.purge);
  EXPECT_EQ(school_.Rows("SELECT * FROM EvaluacionActaPte").empty(), !purge.empty());
  EXPECT_EQ(school_.Rows("SELECT * FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2").empty(),
            !purge.empty());
  const std::string error = form_.purgeError;
  if (error.empty()) {
    EXPECT_THAT(result.Of("error"), IsEmpty());
    EXPECT_THAT(school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
                ElementsAre("1", "4", "5"));
    return;
  }
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(error)));
  if (!purge.empty()) {
    EXPECT_THAT(result.Of("error"),
                ElementsAre(HasSubstr(OnServer() ? "alumnopte_materiadetalles"
                                                 : "AlumnoPte_MateriaDetalles")));
  }
  EXPECT_EQ(Statements(result.lines).back(),
            purge.empty() ? Sql(expected::kKindOfSubject, {3111}) : purge.back());
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM AlumnoPte_MatDet"), ElementsAre("5"));
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
  if (purge.empty()) {
    EXPECT_EQ(school_.Modulo(), before);
  }
}

TEST_P(OrdinaryFormsTest, SubjectOfAnotherKind) {
  const auto result = PlayAfter(
      "UPDATE MateriaDetalles SET CodTipoMateria=40 WHERE IDMateriaDetalles=3111", "ver\n");
  if (*form_.otherKind == '\0') {
    EXPECT_EQ(FormView(result).Form(), form_.name) << result.Text();
    return;
  }
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(form_.otherKind)));
  EXPECT_EQ(Statements(result.After("pulsar cmdNotaManual1(0)")).back(),
            Sql(expected::kKindOfSubject, {3111}));
  EXPECT_THAT(school_.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST_P(OrdinaryFormsTest, Grid) {
  // Shown twice: the headings of later times differ from the first in one of the forms.
  const auto view = Shown(form_.toLengua + form_.toLengua);
  EXPECT_EQ(view.Cells("rtvNotasAlumno").at(0), form_.headings);
  EXPECT_EQ(view.Cells("rtvNotasAlumno").at(1), form_.row);
  EXPECT_EQ(view.Widths("rtvNotasAlumno"), form_.widths);
  EXPECT_EQ(view.FixedRows("rtvNotasAlumno"), 1);
}

TEST_P(OrdinaryFormsTest, StoredGradesAreShownAndEditsStayWhileTheEntriesChange) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=105, CodNotaConcepto=101, CodNotaProcedimiento=102, CodNotaActitud=103, "
      "CodNotaObservacion=202 WHERE CodAlumnoPte_MatDet=2");
  const auto result =
      Play(form_.toLengua +
           "ver\neditar rtvNotasAlumno 1 1 \"7\"\neditar rtvNotasAlumno 1 5 \"Trabaja\"\n"
           "pulsar cmdAnterior\npulsar cmdSiguiente\n" +
           form_.toLengua + "ver\n");
  EXPECT_THAT(Traffic(result), Contains(Sql(expected::kPasses, {105})));
  const auto row = [this](const std::string& grades) {
    std::string cells = form_.row;
    return cells.replace(cells.find("||||||"), 6, grades);
  };
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").at(1), row("|5|1|2|3|Mejora|"));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").at(1), row("|7|1|2|3|Trabaja|"));
}

TEST_P(OrdinaryFormsTest, BlankEntryAndNoEntryTakeTheGradeAway) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107, CodNotaObservacion=201");
  EXPECT_EQ(Shown(form_.toLengua +
                  "editar rtvNotasAlumno 1 1 #0\n"
                  "editar rtvNotasAlumno 1 5 nada\n"
                  "pulsar cmdAnterior\npulsar cmdSiguiente\n" +
                  form_.toLengua)
                .Cells("rtvNotasAlumno")
                .at(1),
            form_.row);
}

// What the cell edited before offered is no offer of this one.
TEST_P(OrdinaryFormsTest, CellsWithoutAListOfferNothing) {
  const auto result = Play(form_.toLengua +
                           "lista rtvNotasAlumno 1 1\nlista rtvNotasAlumno 1 0\n"
                           "lista rtvNotasAlumno 0 1\neditar rtvNotasAlumno 0 1 =107\n");
  const auto offered = result.Of("lista");
  ASSERT_GE(offered.size(), 2U);
  EXPECT_THAT(offered[0], HasSubstr("107"));
  EXPECT_EQ(offered[1], "[]");
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("editar rtvNotasAlumno 0 1")));
  if (*form_.headingError == '\0') {
    ASSERT_EQ(offered.size(), 3U);
    EXPECT_EQ(offered[2], "[]");
  } else {
    EXPECT_THAT(result.Of("error"), ElementsAre(StartsWith(form_.headingError)));
  }
}

// It is the subject as it is taught, but by student the pending row: such grades and those of its
// teachers are offered, those of others not.
TEST_P(OrdinaryFormsTest, KeyOfASubjectShowsInTheListOfACell) {
  school_.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>104;"
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111;"
      "UPDATE Nota SET CodMateria=4 WHERE IDNota=100;"
      "UPDATE Nota SET CodPersonal=2 WHERE IDNota=101;"
      "UPDATE Nota SET CodPersonal=3 WHERE IDNota=102;"
      "UPDATE Nota SET CodPersonal=1 WHERE IDNota=104;"
      "UPDATE Nota SET CodMateria=" +
      std::to_string(form_.keyOfSubject) + " WHERE IDNota=103");
  const auto result = Play(form_.toLengua + "lista rtvNotasAlumno 1 1\n");
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"1\",101],[\"2\",102],[\"3\",103]]"));
  EXPECT_THAT(
      Traffic(result),
      Contains(Sql(expected::kCellList, {321, 32, 1, form_.keyOfSubject, 2, 3, 1, -1, 0, -1, 3})));
}

TEST_P(OrdinaryFormsTest, SelectionOfAnEntry) {
  const auto& toLengua = form_.toLengua;
  const auto result = Play(toLengua + "lista rtvNotasAlumno 1 1\n# again\n" + toLengua);
  const auto traffic = Traffic(result.After(toLengua.substr(0, toLengua.size() - 1)));
  const auto list = CellList(kTutor, 1, form_.keyOfSubject, 2, 1);
  EXPECT_EQ(std::count(traffic.begin(), traffic.end(), list), form_.editOnSelection ? 1 : 0);
  EXPECT_EQ(std::count(traffic.begin(), traffic.end(), TutorPane(kTutor, 1).front()),
            form_.paneOnSelection ? 1 : 0);
}

TEST_P(OrdinaryFormsTest, CancelWritesNothingAsksNothingAndGoesBackToItsStepOne) {
  const auto before = school_.Modulo();
  const auto result =
      Play("editar rtvNotasAlumno 1 1 =107\npulsar cmdCancelar\nver\npulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_EQ(school_.Modulo(), before);
  EXPECT_EQ(FormView(result).Form(), form_.stepOne);
  EXPECT_EQ(FormView(result).Index("cboEvaluaciones"), 0);
  EXPECT_THAT(result.Of("vuelve"), ElementsAre(std::to_string(form_.node)));
}

TEST_P(OrdinaryFormsTest, SavingStoresTheGradesAndGoesBackToItsStepOne) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=5");
  const auto result = Play(form_.toLengua +
                           "editar rtvNotasAlumno 1 1 \"7\"\n"
                           "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                           "pulsar cmdAceptar\nver\n"
                           "pulsar cmdNotaManual1(1)\n");
  const FormView stepOne(result);
  EXPECT_EQ(stepOne.Form(), form_.stepOne);
  EXPECT_EQ(stepOne.Index("cboEvaluaciones"), 0);
  EXPECT_TRUE(stepOne.Enabled("cmdNotaManual1(0)"));
  EXPECT_THAT(result.Of("vuelve"), ElementsAre(std::to_string(form_.node)));
  EXPECT_THAT(result.Of("descarga"), ElementsAre(form_.name, form_.stepOne));
  EXPECT_EQ(school_.Stored(2, 1), "107|0|0|0|202|-1|-1");
  EXPECT_EQ(school_.Stored(1, 1), "0|0|0|0|0|0|0");
  EXPECT_EQ(school_.Stored(5, 1), "107|0|0|0|0|0|0") << "of a student who isn't loaded";
}

TEST_P(OrdinaryFormsTest, StatementsOfSaving) {
  EXPECT_EQ(SavesSevenInRow(), form_.save);
  school_.Sql(
      "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=2");
  EXPECT_EQ(SavesSevenInRow(), form_.saveBehind);
}

// The lowest number that anybody of the staff can have; who is the tutor elsewhere teaches here.
TEST_P(OrdinaryFormsTest, TeacherWhoIsTheFirstOfTheStaffGradesWhatHeTeaches) {
  school_.Sql("UPDATE Seccion SET CodTutor=0");
  school_.Profesor(1, 3111);
  const auto view = Shown(form_.toLengua);
  ASSERT_EQ(view.Form(), form_.name);
  EXPECT_EQ(view.Cells("rtvNotasAlumno").at(1), form_.row);
}

// No two of them may be made alike: the messages tell all four apart, and so does what they load.
TEST(OrdinaryFormsTableTest, NoTwoFormsAreAlike) {
  std::set<std::string> messages;
  std::set<Lines> loads;
  std::set<std::string> rows;
  for (const auto& form : OrdinaryForms()) {
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

#include "tests/grades/OrdinaryDirect.h"
#include "tests/support/Matchers.h"

// The ordinary forms where no gesture reaches: their objects, grids, pane and busy sign.

namespace quorvane::test {
namespace {

template <class Direct>
class OrdinaryDirectTest : public Direct {};
TYPED_TEST_SUITE(OrdinaryDirectTest, AllFour, NameOfDirect);

TYPED_TEST(OrdinaryDirectTest, LoadedSubjectHasItsFieldsAndIsSavedByItsRow) {
  this->school_.Sql(
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111");
  this->Opened();
  const auto& subject = this->Lengua();
  EXPECT_EQ(subject.IDMatDetalle, this->Known().keyOfSubject);
  EXPECT_EQ(subject.CodAlumno_MateriaDetalles, 2);
  EXPECT_EQ(subject.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(subject.IDMateria, 1);
  EXPECT_EQ(subject.IDseccion, 311);
  EXPECT_EQ(subject.IDProfesor, 2);
  EXPECT_EQ(subject.IDProfesorAsociado, 3);
  EXPECT_EQ(subject.Estado, 0);
  EXPECT_FALSE(subject.Fct || subject.MateriaExterna || subject.Recuperacion || subject.Evaluado);
}

TYPED_TEST(OrdinaryDirectTest, EachColumnWritesItsOwnField) {
  auto& form = this->OpenedAtLengua();
  for (int column = 1; column <= 5; ++column) {
    form.rtvNotasAlumno.ColWidth(column, 1000);
    form.GuardarAnchosAlumno(true);
    form.rtvNotasAlumno.BeginEdit(1, column);
    form.rtvNotasAlumno.ListaLimpiar(column);
    form.rtvNotasAlumno.ListaAnadir(column, "x", 10 + column);
    form.rtvNotasAlumno.EndEdit(0);
  }
  const auto& subject = this->Lengua();
  EXPECT_EQ(subject.Nota, 11);
  EXPECT_EQ(subject.Concepto, 12);
  EXPECT_EQ(subject.Procedimiento, 13);
  EXPECT_EQ(subject.Actitud, 14);
  EXPECT_EQ(subject.Observacion, 15);
}

TYPED_TEST(OrdinaryDirectTest, SubjectOfAnotherKindGetsNoList) {
  auto& form = this->OpenedAtLengua();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  auto& subject = this->Lengua();
  subject.Fct = true;
  subject.Nota = 107;
  static_cast<void>(this->session_.Statements());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(
      this->session_.Statements(),
      ElementsAreArray(this->Known().WalksSubjects() ? TutorPane(kUnrestricted, 1) : Lines{}));
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(this->ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 107);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_EQ(subject.Nota, 0) << "an entry of none writes zero";
}

/// What the edit of the first cell sends out, and what then selecting the second entry.
std::pair<Lines, Lines> EditAndSelection(const OrdinaryForm& form) {
  const auto list = [](int codMateria, int teacher) {
    return Lines{CellList(kUnrestricted, 1, codMateria, teacher, 1)};
  };
  const auto pane = TutorPane(kUnrestricted, 1);
  switch (form.node) {
    case 124:
      return {list(4, 0), Grids(kUnrestricted, 1, false, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0})};
    case 125:
      return {pane + list(3113, 0), SubjectGrid(kUnrestricted, false, {{1}, {2}})};
    case 126:
      return {pane + list(3111, 2),
              SubjectGrid(kUnrestricted, false, {{1}}) + pane + list(3112, 0)};
    default:
      return {list(3111, 2), Grids(kUnrestricted, 1, false, {0, 0, 0, 0, 0}) + list(3111, 2)};
  }
}

TYPED_TEST(OrdinaryDirectTest, SelectingAnEntryBeginsAnEditAtMostOnce) {
  auto& form = this->Opened();
  const auto [edit, selection] = EditAndSelection(this->Known());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(this->session_.Statements(), ElementsAreArray(edit));
  this->Combo().ListIndex(1);
  EXPECT_THAT(this->session_.Statements(), ElementsAreArray(selection));
  this->Combo().ListIndex(-1);
  this->Combo().Click();
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
}

TYPED_TEST(OrdinaryDirectTest, MembersThatAStudentDoesNotHaveAreAnError) {
  auto& form = this->OpenedAtLengua();
  form.rtvNotasAlumno.BeginEdit(1, 1);  // fills the pane where nothing has yet
  for (const int entry : {0, 1})
    EXPECT_EQ(this->ErrorOf([&] { form.cboObservacion.ListIndex(entry); }), 438) << entry;
  EXPECT_EQ(this->ErrorOf([&form] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(this->ErrorOf([&form] { form.txtAusencias.TypeKey("3"); }), 438);
  EXPECT_EQ(this->ErrorOf([&form] { form.txtRetrasos.Text("2"); }), 438);
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  for (const int column : {1, 2}) {
    form.rtvNotasTutor.BeginEdit(1, column);
    EXPECT_EQ(this->ErrorOf([&form] { form.rtvNotasTutor.EndEdit(0); }), 438) << column;
  }
}

TYPED_TEST(OrdinaryDirectTest, TheListOfTheTutorsCellIsMadeAnewByEachEdit) {
  auto& form = this->OpenedAtLengua();
  form.rtvNotasAlumno.BeginEdit(1, 1);  // fills the pane where nothing has yet
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  form.rtvNotasTutor.BeginEdit(1, 1);
  const auto once = form.rtvNotasTutor.Lista(1).size();
  EXPECT_GE(once, 1U);
  form.rtvNotasTutor_InicioEdicion();
  EXPECT_EQ(form.rtvNotasTutor.Lista(1).size(), once);
}

TYPED_TEST(OrdinaryDirectTest, WithStudentsButWithoutAnythingToWalkItSaysSoAndCloses) {
  this->school_.Sql("DELETE FROM EvaluacionPte");
  auto& form = this->Form();
  const auto held = form.shared_from_this();
  this->Shown();
  EXPECT_THAT(this->session_.screen.messages, ElementsAre(HasSubstr(this->Known().nothing)));
  EXPECT_FALSE(form.Loaded());
}

TYPED_TEST(OrdinaryDirectTest, DraggedColumnOfTheGradesSpringsBack) {
  auto& form = this->Opened();
  form.rtvNotasAlumno.DragColumn(1, 100);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
}

// They are measured while a form loads: not where the pane isn't filled until an edit. The end of
// an edit saves them, on the heading row too.
TYPED_TEST(OrdinaryDirectTest, WidthsOfTheTutorsGridAreKeptByAnEditWhereTheyWereMeasured) {
  auto& form = this->OpenedAtLengua();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasTutor.ColWidth(2, 3456);
  form.rtvNotasTutor_FinEdicion();
  form.rtvNotasTutor.DragColumn(2, 100);
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(2), this->Known().tutorWidthsKept ? 3456 : 100);
}

// Step one hands a recovery on in one of the flows alone; the branches stand in all.
TYPED_TEST(OrdinaryDirectTest, RecoveryShowsNoGradesHidesBothFramesAndSavesNothing) {
  this->school_.Sql("UPDATE EvaluacionPte SET CodNota=107");
  this->PasoUno().blnRecuperar = true;
  auto& form = this->OpenedAtLengua();
  std::string row;
  for (int column = 0; column < form.rtvNotasAlumno.Cols(); ++column)
    row += (column > 0 ? "|" : "") + form.rtvNotasAlumno.TextMatrix(1, column);
  EXPECT_EQ(row, this->Known().row);
  EXPECT_FALSE(form.fraObservacion[0].Shown() || form.fraAusencia[0].Shown());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_EQ(this->ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 438);
  static_cast<void>(this->session_.Statements());
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  EXPECT_THAT(this->session_.Statements(), ElementsAreArray(LeaveUnheard(kUnrestricted, 1)));
}

TYPED_TEST(OrdinaryDirectTest, WhileItIsShrunkAResizeHasNoEffect) {
  auto& form = this->Form();
  const auto held = form.shared_from_this();
  std::vector<std::int32_t> heights;
  this->session_.screen.Painting = [&] {
    if (!form.aniCarga.Playing()) return;
    EXPECT_TRUE(form.carga.blnOcultando);
    form.ResizeByUser(3000, 1000);
    heights.push_back(form.Height());
  };
  this->Shown();
  EXPECT_THAT(heights, AllOf(Not(IsEmpty()), Each(1000)));
  EXPECT_FALSE(form.carga.blnOcultando);
  EXPECT_GT(form.Height(), 1000) << "it has its own measures back";
}

TYPED_TEST(OrdinaryDirectTest, InARecoveryTheTutorsFramesKeepThemselvesHiddenInTheFullForm) {
  this->PasoUno().blnRecuperar = true;
  const auto& form = this->Opened();
  EXPECT_FALSE(form.fraObservacion[0].Visible());
  EXPECT_FALSE(form.fraAusencia[0].Visible());
  EXPECT_FALSE(form.fraNotaManual[1].Visible());
  EXPECT_TRUE(form.fraNotaTutor[0].Visible());
}

TYPED_TEST(OrdinaryDirectTest, BusySignShowsWhileItLoadsAndSavesAndTheFormTakesNoGesture) {
  auto& form = this->Form();
  const auto held = form.shared_from_this();
  const auto& known = this->Known();
  std::string caption;
  bool enabled = true;
  this->session_.screen.Painting = [&] {
    if (!form.aniCarga.Playing() || !caption.empty()) return;
    caption = form.fraAniCarga.Caption();
    enabled = form.Enabled();
  };
  this->Opened();
  EXPECT_EQ(caption, known.loading);
  EXPECT_TRUE(form.Enabled());
  caption.clear();
  form.cmdAceptar_Click();
  EXPECT_EQ(caption, known.saving);
  EXPECT_FALSE(enabled);
  EXPECT_FALSE(FormInstance<std::remove_reference_t<decltype(form)>>::Exists());
}

TYPED_TEST(OrdinaryDirectTest, OpensWithTheNormalPointerAndItsMeasures) {
  auto& form = this->Opened();
  EXPECT_EQ(this->session_.screen.MousePointer(), Pointer::Default);
  EXPECT_TRUE(form.Enabled());
  EXPECT_FALSE(form.blnCargando);
  form.ResizeByUser(100, 100);
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
}

/// Where the rows of the grid are subjects.
template <class Direct>
class StudentWalkTest : public Direct {};
TYPED_TEST_SUITE(StudentWalkTest, WalkStudents, NameOfDirect);

TYPED_TEST(StudentWalkTest, RowOfAnObjectiveIsAnErrorAndARowWithoutItsSubjectToo) {
  auto& form = this->Opened();
  const auto edit = [&form] { form.rtvNotasAlumno.BeginEdit(1, 1); };
  form.rtvNotasAlumno.TextMatrix(1, 6, form.rtvNotasAlumno.TextMatrix(1, 7));
  EXPECT_EQ(this->ErrorOf(edit), 438);
  form.rtvNotasAlumno.TextMatrix(1, 6, "0");
  form.rtvNotasAlumno.TextMatrix(1, 7, "12345");
  EXPECT_EQ(this->ErrorOf(edit), 5);
}

/// Where they are students.
template <class Direct>
class SubjectWalkTest : public Direct {};
TYPED_TEST_SUITE(SubjectWalkTest, WalkSubjects, NameOfDirect);

TYPED_TEST(SubjectWalkTest, HeightsOfTheTutorsGridHaveAnEntryForEachRow) {
  auto& form = this->Opened();
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.DragRow();
  ASSERT_EQ(form.intAltosTutor.size(), 2U);
  form.intAltosTutor[1] = 77;
  form.rtvNotasTutor.AddItem("");
  form.blnCargando = true;
  form.rtvNotasTutor.DragRow();
  EXPECT_THAT(form.intAltosTutor, ElementsAre(0, 77)) << "not while it loads";
  form.blnCargando = false;
  form.rtvNotasTutor.DragRow();
  EXPECT_THAT(form.intAltosTutor, ElementsAre(0, 77, 0));
}

TYPED_TEST(SubjectWalkTest, ObjectiveIsAMemberThatAStudentDoesNotHave) {
  auto& form = this->Opened();
  form.aryMaterias[0].CodAsociada = 1;
  EXPECT_EQ(this->ErrorOf([&form] { form.rtvNotasAlumno.BeginEdit(1, 1); }), 438);
  EXPECT_EQ(this->ErrorOf([&form] { form.cboMaterias_Click(); }), 438);
}

// The student is that of the grid's row, so a row of nobody is the collection's error.
TYPED_TEST(SubjectWalkTest, RowOfAStudentWhoIsNotThereIsAnError) {
  auto& form = this->OpenedAtLengua();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.TextMatrix(1, 6, "");
  EXPECT_EQ(this->ErrorOf([&form] { form.txtAusencias_Change(); }), 5);
  EXPECT_EQ(this->ErrorOf([&form] { form.txtRetrasos_Change(); }), 5);
  EXPECT_EQ(this->ErrorOf([&form] { form.cboObservacion_Click(); }), 0) << "nothing selected";
  form.rtvNotasAlumno.TextMatrix(1, 6, "77");
  EXPECT_EQ(this->ErrorOf([&form] { form.rtvNotasAlumno.BeginEdit(1, 1); }), 5);
}

template <class Direct>
class OrdinarySubjectsTest : public Direct {};
TYPED_TEST_SUITE(OrdinarySubjectsTest, WalkSubjects, NameOfDirect);

TYPED_TEST(OrdinarySubjectsTest, APlaceThatDoesNotFitItsFieldStopsTheLoadBeforeTheGrades) {
  this->school_.Sql("UPDATE AlumnoPte_MatDet SET Orden=256");
  EXPECT_EQ(this->ErrorOf([this] { this->Shown(); }), 6);
  for (const auto& line : this->session_.Statements())
    EXPECT_THAT(line, Not(HasSubstr("FROM EvaluacionPte WHERE"))) << line;
}

}  // namespace
}  // namespace quorvane::test

#include "tests/grades/GradeDirect.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// The ordinary forms where no gesture reaches: their objects, grids, pane and busy sign.

namespace quorvane::test {
namespace {

using WalkStudents = ::testing::Types<NotaManualDirect, NotaSeccionAlumnoDirect>;
using WalkSubjects = ::testing::Types<NotaMateriaDirect, NotaSeccionMateriaDirect>;
using AllFour = ::testing::Types<NotaManualDirect, NotaMateriaDirect, NotaSeccionAlumnoDirect,
                                 NotaSeccionMateriaDirect>;

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
  this->session_.Forget();
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
      return {list(4, 0), Grids(kUnrestricted, 1, false, 2)};
    case 125:
      return {pane + list(3113, 0), SubjectGrid(kUnrestricted, false, {1, 2})};
    case 126:
      return {pane + list(3111, 2), SubjectGrid(kUnrestricted, false, {1}) + pane + list(3112, 0)};
    default:
      return {list(3111, 2), Grids(kUnrestricted, 1, false, 1) + list(3111, 2)};
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
  this->session_.Forget();
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  EXPECT_THAT(this->session_.Statements(), ElementsAreArray(Statements(Leave(kUnrestricted, 1))));
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

TYPED_TEST(SubjectWalkTest, APlaceThatDoesNotFitItsFieldStopsTheLoadBeforeTheGrades) {
  this->school_.Sql("UPDATE AlumnoPte_MatDet SET Orden=256");
  EXPECT_EQ(this->ErrorOf([this] { this->Shown(); }), 6);
  for (const auto& line : this->session_.Statements())
    EXPECT_THAT(line, Not(HasSubstr("FROM EvaluacionPte WHERE"))) << line;
}

// The routines without a caller, on objectives in the host's grade book: subject 1 "Lengua" and its
// objective 4 "Lectura" as taught in section 321.

constexpr const char* kLectura =
    "INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, CodPersonal, "
    "CodPersonalAsociado, CodTipoMateria) VALUES (3214,4,321,0,0,10);"
    "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3214,3211,1,6,-1,0)";

template <class Direct>
class OrdinaryPropagationTest : public Direct {
 protected:
  void Add() { this->Form().AnadirMateriaEvaluacionesPosteriores(student_, subject_, objective_); }
  void Remove() {
    this->Form().QuitarMateriaEvaluacionesPosteriores(student_, subject_, objective_);
  }
  /// Whether the form takes the grades for those of pending subjects, whose table hasn't the
  /// columns: adding and removing end in the engine's error there.
  bool Stumbles() const {
    return std::string(this->Known().insertGrades) == expected::kInsertPendingGrades;
  }
  static constexpr std::int32_t kFailed = -2147467259;

  std::int32_t student_ = 1;
  std::int32_t subject_ = 1;
  std::int32_t objective_ = 4;
};
TYPED_TEST_SUITE(OrdinaryPropagationTest, AllFour, NameOfDirect);

const Lines kDetails = {Sql(expected::kDetailOfSubject, {1, 321}),
                        Sql(expected::kDetailOfSubject, {4, 321})};

TYPED_TEST(OrdinaryPropagationTest, ObjectivesAreReadOnceForEachThatRepeatsAndNothingIsKept) {
  this->school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3114,3111,1,1,-1,0), "
      "(52,1,3114,3111,1,2,-1,0), (53,1,3113,3111,1,3,-1,0), (54,1,3114,0,1,4,-1,0), "
      "(55,2,3114,3111,1,1,-1,0)");
  for (const bool recovery : {false, true}) {
    this->PasoUno().blnRecuperar = recovery;
    this->Form().CargarObjetivos(1, 1);
    const auto* const grades = recovery ? expected::kObjectiveRecovery : expected::kObjectiveGrades;
    Lines asked = {Sql(this->Known().objectives, {1, 1, 1})};
    // By section and subject their grades aren't asked for.
    if (!this->Stumbles()) asked = asked + Lines{Sql(grades, {1, 51}), Sql(grades, {1, 53})};
    EXPECT_THAT(this->session_.Statements(), ElementsAreArray(asked));
  }
}

TYPED_TEST(OrdinaryPropagationTest, ObjectiveIsAddedToTheNextEvaluationAlone) {
  this->school_.Sql(kLectura);
  EXPECT_EQ(this->ErrorOf([this] { this->Add(); }), this->Stumbles() ? this->kFailed : 0);
  const auto& form = this->Known();
  EXPECT_THAT(
      this->session_.Statements(),
      ElementsAreArray(
          Lines{Sql(expected::kLaterToAdd, {1, 321}), Sql(expected::kStudentInEvaluation, {1, 2}),
                Sql(expected::kLastInEvaluation, {form.keyName}),
                Sql(expected::kInsertInEvaluation, {1, 1, 2})} +
          kDetails +
          Lines{Sql(expected::kObjectiveOrder, {1, 1, 3214}),
                Sql(form.objectiveSought, {1, 2, 3214}),
                Sql(expected::kLastObjective, {form.keyName}),
                Sql(expected::kInsertObjective, {52, 1, 3214, 3211, 2, 6}),
                Sql(expected::kLastGrades, {form.keyName}), Sql(form.insertGrades, {1, 52, 2})}));
  EXPECT_THAT(this->session_.screen.messages, IsEmpty());
  EXPECT_THAT(this->school_.Rows("SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles"),
              ElementsAre("51", "52"));
  EXPECT_THAT(this->school_.Rows("SELECT IDEvaluacion, CodAlumno_MateriaDetalles FROM Evaluacion"),
              ElementsAreArray(this->Stumbles() ? Lines{} : Lines{"1|52"}));
}

TYPED_TEST(OrdinaryPropagationTest, StudentAndObjectiveThatAreThereAreNotInsertedAgain) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,1,2,0,0,0,0,0,0);"
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0)");
  this->Add();
  EXPECT_THAT(this->session_.Statements(), SizeIs(6)) << "nothing but the questions";
}

TYPED_TEST(OrdinaryPropagationTest, KeysOfFilledTablesAreOneMore) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,2,2,0,0,0,0,0,0);"
      "INSERT INTO Evaluacion VALUES (30,1,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  static_cast<void>(this->ErrorOf([this] { this->Add(); }));
  EXPECT_THAT(this->school_.Rows("SELECT MAX(IDAlumno_NumEvaluacion) FROM Alumno_NumEvaluacion"),
              ElementsAre("10"));
  EXPECT_THAT(this->session_.Statements(), Contains(Sql(this->Known().insertGrades, {31, 52, 2})));
}

TYPED_TEST(OrdinaryPropagationTest, WithoutALaterEvaluationNothingHappens) {
  this->school_.Sql(kLectura);
  this->school_.Sql("DELETE FROM Seccion_NumEvaluacion WHERE CodNumEvaluacion<>1");
  this->Add();
  this->Remove();
  EXPECT_THAT(this->session_.Statements(), ElementsAre(Sql(expected::kLaterToAdd, {1, 321}),
                                                       Sql(expected::kLaterToRemove, {1, 321})));
}

TYPED_TEST(OrdinaryPropagationTest, RowThatHasToBeThereIsNotTested) {
  this->school_.Sql(kLectura);
  this->objective_ = 999;
  EXPECT_EQ(this->ErrorOf([this] { this->Add(); }), 3021);
  EXPECT_EQ(this->ErrorOf([this] { this->Remove(); }), 3021);
  EXPECT_THAT(this->school_.Rows("SELECT COUNT(*) FROM Alumno_NumEvaluacion"), ElementsAre("1"))
      << "what was written stays";
}

TYPED_TEST(OrdinaryPropagationTest, FailedInsertGoesUpAsItsErrorAndShowsNoMessage) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "CREATE TRIGGER lleno BEFORE INSERT ON Evaluacion BEGIN SELECT RAISE(FAIL, 'lleno'); END");
  EXPECT_EQ(this->ErrorOf([this] { this->Add(); }), this->kFailed);
  EXPECT_THAT(this->session_.screen.messages, IsEmpty());
}

TYPED_TEST(OrdinaryPropagationTest, ObjectiveIsRemovedFromAllLaterEvaluations) {
  this->school_.Sql(kLectura);
  this->school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0), "
      "(61,1,3214,3211,3,6,-1,0), (62,2,3214,3211,2,6,-1,0);"
      "INSERT INTO Evaluacion VALUES (1,60,2,0,0,0,0,0,0,0,0,0,0,0,0,0), "
      "(2,61,3,0,0,0,0,0,0,0,0,0,0,0,0,0), (3,62,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  EXPECT_EQ(this->ErrorOf([this] { this->Remove(); }), this->Stumbles() ? this->kFailed : 0);
  const auto key = [](int evaluation) {
    return kDetails + Lines{Sql(expected::kObjectiveKey, {1, evaluation, 3211, 3214})};
  };
  const Lines asked = Lines{Sql(expected::kLaterToRemove, {1, 321})} + key(2);
  const std::string remaining = "SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles";
  if (this->Stumbles()) {
    EXPECT_THAT(this->session_.Statements(),
                ElementsAreArray(asked + Lines{Sql(expected::kDeletePendingGrades, {60, 2})}));
    EXPECT_THAT(this->school_.Rows(remaining), ElementsAre("51", "60", "61", "62"));
    return;
  }
  const auto deletes = [](int id, int evaluation) {
    return Lines{Sql(expected::kDeleteObjectiveGrades, {id, evaluation}),
                 Sql(expected::kDeleteObjective, {1, evaluation, 3211, 3214})};
  };
  // The reserved evaluation is the last; the student isn't in it.
  EXPECT_THAT(this->session_.Statements(),
              ElementsAreArray(asked + deletes(60, 2) + key(3) + deletes(61, 3) + key(11)));
  EXPECT_THAT(this->school_.Rows(remaining), ElementsAre("51", "62"));
  EXPECT_THAT(this->school_.Rows("SELECT IDEvaluacion FROM Evaluacion"), ElementsAre("3"));
}

TYPED_TEST(OrdinaryPropagationTest, WithoutAnObjectiveNothingIsRemoved) {
  this->objective_ = 0;
  this->Remove();
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

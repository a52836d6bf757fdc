#include "frame/cConfiguracion.h"
#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "tests/grades/GradeDirect.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// What each ordinary form has of its own where no gesture reaches, entry by student first.

namespace quorvane::test {
namespace {

// Objects and grid where no gesture reaches: other kinds, objectives, the recovery, limits.

using NotaManualDirectTest = NotaManualDirect;

// What a failure leaves tells how the grids stand while they are built: still, out of sight, wide.
TEST_F(NotaManualDirectTest, GridsAreBuiltOutOfSight) {
  auto& form = Opened();
  school_.Sql("UPDATE TipoMateria SET CodSistemaCalificacion=9 WHERE IDTipoMateria=10");
  EXPECT_EQ(ErrorOf([&form] { form.cmdSiguiente_Click(); }), 3021);
  EXPECT_FALSE(form.blnEdicionActiva);
  for (const auto* grid : {&form.rtvNotasAlumno, &form.rtvNotasTutor}) {
    EXPECT_FALSE(grid->Redraw()) << grid->Name();
    EXPECT_FALSE(grid->Visible()) << grid->Name();
    EXPECT_EQ(grid->Width(), 17620) << grid->Name();
  }
}

TEST_F(NotaManualDirectTest, GridOfTheTutorIsBuiltWhenThatOfTheGradesShows) {
  auto& form = Opened();
  const auto width = form.rtvNotasAlumno.Width();
  school_.Sql("UPDATE TipoNota SET Orden=4 WHERE IDTipoNota=41");
  EXPECT_EQ(ErrorOf([&form] { form.cmdSiguiente_Click(); }), 381);
  EXPECT_FALSE(form.blnEdicionActiva);
  EXPECT_TRUE(form.rtvNotasAlumno.Visible());
  EXPECT_EQ(form.rtvNotasAlumno.Width(), width);
  EXPECT_FALSE(form.rtvNotasAlumno.Redraw());
  EXPECT_FALSE(form.rtvNotasTutor.Redraw());
  EXPECT_FALSE(form.rtvNotasTutor.Visible());
  EXPECT_EQ(form.rtvNotasTutor.Width(), 17620);
  // Mended, the next student has both again, at the one width.
  school_.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=41");
  form.rtvNotasAlumno.Width(5000);
  form.cmdSiguiente_Click();
  for (const auto* grid : {&form.rtvNotasAlumno, &form.rtvNotasTutor}) {
    EXPECT_TRUE(grid->Redraw() && grid->Visible()) << grid->Name();
    EXPECT_EQ(grid->Width(), 5000) << grid->Name();
  }
  EXPECT_TRUE(form.blnEdicionActiva);
}

TEST_F(NotaManualDirectTest, EventsDoNothingWhileTheGridIsBuilt) {
  auto& form = Opened();
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualDirectTest, HeadingColumnOfWidthZeroAndColumnsOfNoGradeTakeNoValue) {
  auto& form = Opened();
  auto& grid = form.rtvNotasAlumno;
  // A kind of grade beyond the fifth can leave the column of the parents in sight.
  grid.ColWidth(6, 2000);
  ASSERT_EQ(grid.ColWidth(2), 0);
  for (const auto& [row, column] : {std::pair{0, 1}, {1, 0}, {1, 2}, {1, 6}}) {
    grid.BeginEdit(row, column);
    EXPECT_TRUE(grid.Lista(column).empty()) << column;
    grid.ListaAnadir(column, "x", 107);
    grid.EndEdit(0);
  }
  EXPECT_THAT(session_.Statements(), IsEmpty());
  const auto& subject = *form.colAlumnos["3"]->colMateria["4"];
  for (const auto grade : {subject.Nota, subject.Concepto, subject.Procedimiento, subject.Actitud,
                           subject.Observacion})
    EXPECT_EQ(grade, 0);
}

TEST_F(NotaManualDirectTest, StudentWithoutSubjectsShowsTheHeadingAndFixedRowsStay) {
  auto& form = Opened();
  form.colAlumnos["1"]->colMateria.Clear();
  for (const int fixed : {1, 0}) {
    form.rtvNotasAlumno.FixedRows(fixed);
    form.cmdSiguiente_Click();
    EXPECT_EQ(form.rtvNotasAlumno.Rows(), 1);
    EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 0), "Materia");
    EXPECT_EQ(form.rtvNotasAlumno.FixedRows(), fixed);
    form.cmdAnterior_Click();
    EXPECT_EQ(form.rtvNotasAlumno.FixedRows(), 1);
  }
}

TEST_F(NotaManualDirectTest, ArrowKeysAreTakenAndOthersPass) {
  auto& form = Opened();
  EXPECT_EQ(form.KeyDown(40), 0);
  EXPECT_EQ(form.cboAlumnos.ListIndex(), 1);
  EXPECT_EQ(form.KeyDown(38), 0);
  EXPECT_EQ(form.KeyDown(38), 0) << "at the end of the list too";
  for (const int other : {9, 13, 27, 37, 39}) EXPECT_EQ(form.KeyDown(other), other);
  EXPECT_EQ(form.cboAlumnos.ListIndex(), 0);
}

TEST_F(NotaManualDirectTest, WidthBeyondSixteenBitsEndsTheCopyQuietly) {
  auto& form = Opened();
  form.rtvNotasAlumno.ColWidth(1, 40000);
  form.rtvNotasAlumno.ColWidth(5, 3000);
  form.GuardarAnchosAlumno(false);
  form.RestaurarAnchosAlumno();
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(5), 2000) << "not reached any more";
}

TEST_F(NotaManualDirectTest, SectionBeyondSixteenBitsOfTheHostIsAnOverflow) {
  auto& form = Opened();
  PasoUno().cboSecciones.AddItem("lejana", 40000);
  PasoUno().cboSecciones.ListIndex(1);
  EXPECT_EQ(ErrorOf([&form] { form.Unload(); }), 6);
}

// How the form stands where something has stopped it, and what it leaves behind.

using NotaManualStateTest = NotaManualDirect;

std::vector<const Control*> Gestures(const frmNotaManual& form) {
  return {&form.cboAlumnos,    &form.cmdAceptar,  &form.cmdCancelar,
          &form.tabNotaManual, &form.cmdAnterior, &form.cmdSiguiente};
}

TEST_F(NotaManualStateTest, LoadThatFailsLeavesTheFormBusy) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=999");
  EXPECT_EQ(ErrorOf([this] { Shown(); }), 3021);
  const auto& form = Form();
  EXPECT_TRUE(form.blnCargando);
  EXPECT_FALSE(form.Enabled());
  for (const auto* control : Gestures(form)) EXPECT_FALSE(control->Enabled()) << control->Name();
  EXPECT_TRUE(form.aniCarga.Playing() && form.fraAniCarga.Visible());
  EXPECT_EQ(form.Height(), 1790);
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Hourglass);
}

TEST_F(NotaManualStateTest, PublicationThatFailsFindsTheLoadDone) {
  school_.Sql(
      "CREATE TRIGGER lleno BEFORE INSERT ON PublicacionPte BEGIN SELECT RAISE(FAIL, 'lleno'); "
      "END");
  PasoUno().blnRecuperar = true;
  EXPECT_EQ(ErrorOf([this] { Shown(); }), -2147467259);
  const auto& form = Form();
  EXPECT_EQ(form.publicacion.IDPublicacion, 0);
  EXPECT_TRUE(form.Enabled());
  for (const auto* control : Gestures(form)) EXPECT_TRUE(control->Enabled()) << control->Name();
  EXPECT_FALSE(form.fraObservacion[0].Visible() || form.fraAusencia[0].Visible());
  EXPECT_TRUE(form.aniCarga.Playing());
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Arrow);
  EXPECT_THAT(session_.screen.messages, IsEmpty());
}

TEST_F(NotaManualStateTest, RefusedFormKnowsWhyAndIsNotSetUp) {
  cConfiguracion::Instancia().RutaIcono = "zendria.ico";
  school_.Sql(PublicationOf(1, 1));
  auto& form = Form();
  const auto held = form.shared_from_this();
  Shown();
  EXPECT_TRUE(form.blnConPublicacion);
  EXPECT_EQ(form.Icon(), "");
  EXPECT_EQ(session_.screen.beeps, 2);
}

TEST_F(NotaManualStateTest, LeavingForgetsTheStudentsAndEndsTheEditing) {
  auto& form = Opened();
  const auto held = form.shared_from_this();
  EXPECT_TRUE(form.blnEdicionActiva);
  form.cmdCancelar_Click();
  EXPECT_EQ(form.colAlumnos.Count(), 0U);
  EXPECT_FALSE(form.blnEdicionActiva);
  EXPECT_FALSE(FormInstance<frmNotaManual>::Exists());
}

TEST_F(NotaManualStateTest, WidthsOfTheTutorsGridComeBackAtAnEditAndWithTheNextStudent) {
  auto& form = Opened();
  form.rtvNotasTutor.ColWidth(2, 3456);
  form.GuardarAnchosTutor(false);
  form.rtvNotasTutor.ColWidth(2, 100);
  form.rtvNotasTutor.BeginEdit(0, 1);
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(2), 3456);
  form.cmdSiguiente_Click();
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(2), 3456);
}

TEST_F(NotaManualStateTest, WithoutKindsOfTheTutorTheWidthOfTheFirstColumnIsKept) {
  school_.Sql("DELETE FROM TipoNota WHERE Abreviatura=0");
  auto& form = Opened();
  form.rtvNotasTutor.DragColumn(0, 100);
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(0), 2000);
}

TEST_F(NotaManualStateTest, ObservationThatIsGoneGoesWithTheNextStudent) {
  auto& form = Opened();
  ASSERT_EQ(form.cboObservacion.ListCount(), 2);
  school_.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  form.cmdSiguiente_Click();
  EXPECT_EQ(form.cboObservacion.ListCount(), 0);
  EXPECT_FALSE(form.fraObservacion[0].Visible());
}

// The dialog itself: measures, busy sign, tab, and the pane of the tutor that has none.

using NotaManualPaneTest = NotaManualDirect;

std::vector<std::int32_t> Placed(const Control& control) {
  return {control.Left(), control.Top(), control.Width(), control.Height()};
}

TEST_F(NotaManualPaneTest, IsDrawnBeforeItLoads) {
  const auto& form = Form();
  EXPECT_EQ(form.fraAniCarga.Caption(), "Procesando... Espere por favor");
  EXPECT_EQ(form.lblNotaManual[1].Caption(), "Observación:");
  EXPECT_EQ(form.rtvNotasAlumno.Cols(), 8);
  EXPECT_EQ(form.rtvNotasTutor.Cols(), 4);
  for (const auto* grid : {&form.rtvNotasAlumno, &form.rtvNotasTutor}) EXPECT_EQ(grid->Rows(), 2);
  for (int column = 0; column < 8; ++column)
    EXPECT_EQ(form.rtvNotasAlumno.EditsThroughList(column), column >= 1 && column <= 5);
  for (int column = 0; column < 4; ++column)
    EXPECT_EQ(form.rtvNotasTutor.EditsThroughList(column), column == 1 || column == 2);
}

TEST_F(NotaManualPaneTest, BearsTheSessionsIconAndNotTheCaptionOfStepOne) {
  Form().mstrCaption = "ESO 2º ESO A";
  cConfiguracion::Instancia().RutaIcono = "C:\\zendria\\zendria.ico";
  EXPECT_EQ(Opened().Icon(), "C:\\zendria\\zendria.ico");
  EXPECT_EQ(Form().Caption(), "Introducción de notas. Paso 2 de 2");
}

// Until the first student is shown the grids have the headings that they are set up with.
TEST_F(NotaManualPaneTest, GridsBeforeTheFirstStudent) {
  auto& form = Form();
  form.ConfigurarRejillas();
  EXPECT_THAT(Columns(form.rtvNotasAlumno),
              ElementsAre("2000 Materia", "1000 Nota", "2000 Concepto", "2000 Procedimiento",
                          "2000 Actitud", "2000 Observacion"));
  EXPECT_THAT(Columns(form.rtvNotasTutor),
              ElementsAre("2000 Valores/Actitudes", "1000 Nota", "2000 Actitud"));
  EXPECT_EQ(form.rtvNotasAlumno.Rows(), 1);
  EXPECT_EQ(form.rtvNotasTutor.Rows(), 1);
}

/// What the form does with the screen, in order: pointers, beeps, messages.
class NotedScreen : public SilentScreen {
 public:
  std::vector<std::string> told;

  void MousePointer(Pointer pointer) override {
    told.push_back("pointer " + std::to_string(static_cast<int>(pointer)));
  }
  void Beep() override { told.emplace_back("beep"); }
  void Message(MessageIcon /*icon*/, const std::string& /*title*/,
               const std::string& text) override {
    told.push_back(text);
  }
};

TEST_F(NotaManualPaneTest, PointerWhileItOpens) {
  NotedScreen screen;
  Application::Instance().UseScreen(&screen);
  Shown();
  EXPECT_THAT(screen.told, ElementsAre("pointer 11", "pointer 11", "pointer 1", "pointer 0"));
}

TEST_F(NotaManualPaneTest, PointerAndBeepWhereNobodyRemains) {
  school_.Sql("DELETE FROM EvaluacionPte");
  NotedScreen screen;
  Application::Instance().UseScreen(&screen);
  const auto held = Form().shared_from_this();
  Shown();
  EXPECT_THAT(screen.told, ElementsAre("pointer 11", "pointer 11", "pointer 1", "beep",
                                       "No existen alumnos o materias para introducir notas"));
  EXPECT_TRUE(static_cast<frmNotaManual&>(*held).aniCarga.Playing()) << "until the form goes";
}

TEST_F(NotaManualPaneTest, ResizeMovesTheBottomAndTheRightEdge) {
  auto& form = Opened();
  form.ResizeByUser(12000, 9000);
  // Inside: 11880 by 8595.
  EXPECT_THAT(Placed(form.cmdCancelar),
              ElementsAre(11880 - 1215 - 240, 8595 - 375 - 180, 1215, 375));
  EXPECT_THAT(Placed(form.cmdAceptar), ElementsAre(10425 - 1215 - 135, 8040, 1215, 375));
  EXPECT_THAT(Placed(form.tabNotaManual),
              ElementsAre(240, 720, 11880 - 240 - 240, 8040 - 720 - 240));
  for (const auto& pane : form.fraNotaManual)
    EXPECT_THAT(Placed(pane), ElementsAre(420, 1110, 11400 - 360, 7080 - 460));
  EXPECT_THAT(Placed(form.fraNota[0]), ElementsAre(180, 270, 11040 - 360, 6620 - 540));
  EXPECT_THAT(Placed(form.rtvNotasAlumno), ElementsAre(180, 360, 10680 - 360, 6080 - 540));
  EXPECT_THAT(Placed(form.fraNotaTutor[0]), ElementsAre(180, 270, 10680, 6080));
  EXPECT_EQ(form.fraObservacion[0].Top(), 6080 - 1070);
  EXPECT_THAT(Placed(form.fraAusencia[0]), ElementsAre(10680 - 2700 - 200, 5010, 2700, 930));
  EXPECT_THAT(Placed(form.rtvNotasTutor), ElementsAre(180, 300, 10680 - 360, 6080 - 1070 - 360));
}

TEST_F(NotaManualPaneTest, FormMadeTooSmallReturnsToItsLeastMeasures) {
  auto& form = Opened();
  form.ResizeByUser(100, 100);
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
  EXPECT_THAT(Placed(form.cmdCancelar), ElementsAre(7725, 5505, 1215, 375));
  form.ResizeByUser(9299, 6464);
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
}

TEST_F(NotaManualPaneTest, MeasureThatAControlRefusesIsAnError) {
  auto& form = Opened();
  form.tabNotaManual.Top(6000);
  EXPECT_EQ(ErrorOf([&form] { form.ResizeByUser(9400, 6465); }), 380);
}

TEST_F(NotaManualPaneTest, WhileItLoadsOnlyTheBusySignShowsAndResizingHasNoEffect) {
  std::vector<std::string> shown;
  std::vector<std::int32_t> measures;
  int paints = 0;
  session_.screen.Painting = [&] {
    auto& form = Form();
    if (!form.aniCarga.Playing() || ++paints > 1) return;
    for (const auto* control : form.Controls())
      if (control->Shown()) shown.push_back(control->Name());
    measures = {form.Left(), form.Top(), form.Width(), form.Height()};
    EXPECT_EQ(form.aniCarga.File(), "C:\\zendria\\avis\\filecopy.avi");
    EXPECT_EQ(session_.screen.MousePointer(), Pointer::Hourglass);
  };
  auto& form = Shown();
  EXPECT_THAT(shown, ElementsAre("fraAniCarga", "aniCarga"));
  // The frame is 4320 by 1140 at 120, 120; the screen 20000 by 12000.
  EXPECT_THAT(measures, ElementsAre((20000 - 4780) / 2, (12000 - 1790) / 2, 4780, 1790));
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_FALSE(form.aniCarga.Playing());
}

TEST_F(NotaManualPaneTest, MeasuresAndPlaceComeBackAfterTheBusySign) {
  auto& form = Opened();
  form.ResizeByUser(12000, 9000);
  form.Left(500);
  form.Top(300);
  form.MostrarCarga(false);
  EXPECT_EQ(form.Height(), 1790) << "the shrunk form isn't set back to its least measures";
  for (const auto* control : form.Controls()) EXPECT_FALSE(control->Visible()) << control->Name();
  form.MostrarCarga(true);
  EXPECT_THAT((std::vector<std::int32_t>{form.Left(), form.Top(), form.Width(), form.Height()}),
              ElementsAre(500, 300, 12000, 9000));
  EXPECT_TRUE(form.rtvNotasAlumno.Shown());
  EXPECT_FALSE(form.rtvNotasTutor.Shown()) << "on the pane without a tab";
  EXPECT_EQ(form.tabNotaManual.Height(), 8040 - 720 - 240) << "the panes follow";
}

TEST_F(NotaManualPaneTest, PressingTheOnlyTabShowsTheGrades) {
  auto& form = Opened();
  form.fraNotaManual[0].Visible(false);
  form.tabNotaManual.SelectedTab(1);
  EXPECT_TRUE(form.fraNotaManual[0].Visible());
  EXPECT_FALSE(form.fraNotaManual[1].Visible());
  EXPECT_LT(form.tabNotaManual.Layer(), form.fraNotaManual[0].Layer());
}

TEST_F(NotaManualPaneTest, CountersTakeDigitsAndTheBackspaceAlone) {
  auto& form = Opened();
  for (auto* box : {&form.txtAusencias, &form.txtRetrasos}) {
    int key = 'x';
    box->KeyPress(key);
    EXPECT_EQ(key, 0);
    for (const int good : {int{'0'}, int{'9'}, 8}) {
      key = good;
      box->KeyPress(key);
      EXPECT_EQ(key, good);
    }
  }
  EXPECT_EQ(session_.screen.beeps, 2);
}

TEST_F(NotaManualPaneTest, CellOfTheTutorsGridIsFilledWithTheGradesOfValues) {
  auto& form = Opened();
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  form.rtvNotasTutor.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Sql(expected::kTutorCellList, {321, 32, 1, 77, 1, 3})));
  ASSERT_EQ(form.rtvNotasTutor.Lista(1).size(), 2U);
  EXPECT_EQ(form.rtvNotasTutor.Lista(1)[0].text, " ");
  EXPECT_EQ(form.rtvNotasTutor.Lista(1)[1].data, 301);
}

TEST_F(NotaManualPaneTest, HeadingFirstAndLastColumnOfTheTutorsGridOfferNothing) {
  auto& form = Opened();
  form.rtvNotasTutor.AddItem("");
  for (const auto& [row, column] : {std::pair{0, 1}, std::pair{1, 0}, std::pair{1, 3}})
    form.rtvNotasTutor.BeginEdit(row, column);
  form.blnEdicionActiva = false;
  form.rtvNotasTutor.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

// When the host's component is made, what it is asked, and what happens without it.

/// A host that lets nobody save.
class StrictCentro : public CentroApi {
 public:
  bool notasactivas(Connection& /*conexion*/, const std::string& /*texto*/,
                    std::int16_t /*idUsuario*/, std::int32_t& /*idPersonal*/,
                    std::int16_t& /*idSeccion*/, std::int16_t& /*idEvaluacion*/) override {
    return true;
  }
};

class NotaManualHostTest : public NotaManualDirect {
 protected:
  void TearDown() override { Application::Instance().Objects().Reset(); }

  static void Register(const ObjectFactory::Maker& maker) {
    Application::Instance().Objects().Register(CentroApi::kProgId, maker);
  }
  static void HaveNone() {
    Register(
        []() -> std::unique_ptr<HostObject> { throw RuntimeError(ErrorNumber::CantCreateObject); });
  }
};

TEST_F(NotaManualHostTest, IsMadeBeforeThePublicationBeforeTheQuestionAndOnLeaving) {
  std::vector<Lines> before;
  Register([&] {
    before.push_back(session_.Statements());
    return std::make_unique<CentroApi>();
  });
  auto& form = Shown();
  auto written = Locks(kUnrestricted, 1, {3113, 3111, 3112});
  written.resize(written.size() - 2);  // without the question
  ASSERT_EQ(before.size(), 2U);
  EXPECT_EQ(before[0].back(), Sql(expected::kKindOfTutorKind, {41}));
  EXPECT_THAT(before[1], ElementsAreArray(written));
  EXPECT_THAT(session_.Statements(), ElementsAre(Sql(expected::kStaff, {1})));
  const auto held = form.shared_from_this();
  form.Unload();
  ASSERT_EQ(before.size(), 3U);
  EXPECT_THAT(before[2], IsEmpty());
}

TEST_F(NotaManualHostTest, ThatHasNoComponentGetsNoPublication) {
  HaveNone();
  EXPECT_EQ(ErrorOf([this] { Shown(); }), 429);
  EXPECT_EQ(school_.Held(), "0|0");
}

TEST_F(NotaManualHostTest, ThatHasNoComponentGetsNoObjectiveInLaterEvaluations) {
  HaveNone();
  std::int32_t student = 1;
  std::int32_t subject = 1;
  std::int32_t objective = 4;
  auto& form = Form();
  EXPECT_EQ(
      ErrorOf([&] { form.AnadirMateriaEvaluacionesPosteriores(student, subject, objective); }),
      429);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualHostTest, ThatForbidsSavingLeavesItsSignOnTheForm) {
  EXPECT_EQ(Opened().strNotasActivas, "");
  Form().Unload();
  Register([] { return std::make_unique<StrictCentro>(); });
  const auto& form = Opened();
  EXPECT_EQ(form.strNotasActivas, "B");
  EXPECT_FALSE(form.cmdAceptar.Enabled());
  EXPECT_TRUE(form.cmdCancelar.Enabled());
}

// Entry by subject: objects, grids and pane where no gesture reaches.

using NotaMateriaDirectTest = NotaMateriaDirect;

TEST_F(NotaMateriaDirectTest, SubjectsBehindTheComboAndTheSectionsFlags) {
  school_.Sql(
      "UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1 WHERE IDSeccion=321;"
      "UPDATE AlumnoPte_MatDet SET Orden=7 WHERE IDAlumnoPte_MatDet=3");
  auto& form = Opened();
  ASSERT_EQ(form.aryMaterias.size(), 3U);
  const auto& lengua = form.aryMaterias[1];
  EXPECT_EQ(lengua.CodAsociada, 0);
  EXPECT_EQ(lengua.IDMatDet, 3111);
  EXPECT_EQ(lengua.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(lengua.Orden, 1) << "that of the student who brings the subject first";
  EXPECT_EQ(form.aryMaterias[2].Orden, 2);
  EXPECT_TRUE(form.blnSeguimiento && form.blnAcumularObjetivos);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3113,3111,3112");
}

TEST_F(NotaMateriaDirectTest, WithoutStudentsTheSectionIsNotAskedAndItsFlagsStayFalse) {
  school_.Sql(
      "UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1; UPDATE Alumno SET Anticipado=-1");
  auto& form = Form();
  form.Form_Load();
  EXPECT_FALSE(form.blnSeguimiento || form.blnAcumularObjetivos);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(FormLoadBySubject(kUnrestricted, 1, 0)));
}

TEST_F(NotaMateriaDirectTest, SubjectOfAnotherKindGetsNoListBelowAnotherStudents) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  auto& subject = *form.colAlumnos["2"]->colMateria["3111"];
  subject.Fct = true;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  form.rtvNotasAlumno.BeginEdit(2, 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaMateriaDirectTest, EditWritesToTheStudentOfTheRowAlone) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  form.rtvNotasAlumno.BeginEdit(2, 1);
  form.rtvNotasAlumno.EndEdit(8);
  EXPECT_EQ(form.colAlumnos["2"]->colMateria["3111"]->Nota, 106);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3111"]->Nota, 0);
}

TEST_F(NotaMateriaDirectTest, ObjectivesWouldStandIndentedUnderTheirSubject) {
  auto& form = Opened();
  form.aryMaterias = {{0, 3113, "Francés", 1}, {9, 3111, "Lectura", 2}, {0, 3111, "Lengua", 1}};
  form.cboMaterias.Clear();
  form.CargarComboMaterias();
  ASSERT_EQ(form.cboMaterias.ListCount(), 3);
  EXPECT_EQ(form.cboMaterias.List(1), "Lengua");
  EXPECT_EQ(form.cboMaterias.List(2), "     Lectura");
  EXPECT_EQ(form.cboMaterias.ItemData(2), 3) << "a running number, no longer the array's";
}

TEST_F(NotaMateriaDirectTest, TutorsPaneIsFilledBeforeEveryGuard) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(0, 0);
  EXPECT_THAT(session_.Statements(), ElementsAreArray(TutorPane(kUnrestricted, 1)));
  EXPECT_TRUE(form.blnEdicionActiva);
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.blnEdicionActiva = true;
  form.blnTutor = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), ElementsAre(CellList(kUnrestricted, 1, 3113, 0, 1)));
}

// The two ordinary forms of a section: objects, grids and pane where no gesture reaches.

using NotaSeccionAlumnoDirectTest = NotaSeccionAlumnoDirect;
using NotaSeccionMateriaDirectTest = NotaSeccionMateriaDirect;

TEST_F(NotaSeccionAlumnoDirectTest, OnlyTheStudentsOfTheSubjectAreLoaded) {
  const auto& form = Opened();
  EXPECT_EQ(form.colAlumnos["2"]->colMateria["3111"]->CodAlumno_MateriaDetalles, 3);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3111");
  EXPECT_FALSE(form.colAlumnos.Contains("3"));
}

TEST_F(NotaSeccionAlumnoDirectTest, SubjectOfAnotherKindIsLoaded) {
  school_.Evalua(school_.Pendiente(1, 3116, 3), 1, 401);
  DirectSession::Choose(PasoUno().cboMateria, 3116);
  const auto& subject = *Opened().colAlumnos["1"]->colMateria["3116"];
  EXPECT_TRUE(subject.Fct);
  EXPECT_FALSE(subject.Recuperacion || subject.Evaluado);
  EXPECT_EQ(subject.Nota, 0);
  EXPECT_EQ(subject.Nombre, "Taller (1º ESO)");
}

TEST_F(NotaSeccionAlumnoDirectTest, FirstColumnsAreNotHeadedBeforeAStudentIsShown) {
  auto& form = Form();
  form.Form_Load();
  EXPECT_EQ(form.rtvNotasAlumno.Cols(), 6);
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 0), "");
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 1), "Nota");
  EXPECT_EQ(form.rtvNotasTutor.Cols(), 3);
  EXPECT_EQ(form.rtvNotasTutor.TextMatrix(0, 0), "");
  EXPECT_EQ(form.rtvNotasTutor.TextMatrix(0, 1), "Nota");
}

TEST_F(NotaSeccionMateriaDirectTest, SubjectsBehindTheComboAndTheSectionsFlagsThatNobodyReads) {
  school_.Sql("UPDATE Seccion SET Seguimiento=-1, AcumularObjetivos=-1 WHERE IDSeccion=321");
  const auto& form = Opened();
  ASSERT_EQ(form.aryMaterias.size(), 2U);
  EXPECT_EQ(form.aryMaterias[0].IDMatDet, 3111);
  EXPECT_EQ(form.aryMaterias[1].IDMatDet, 3112);
  EXPECT_EQ(form.aryMaterias[1].Orden, 2);
  EXPECT_FALSE(form.blnSeguimiento || form.blnAcumularObjetivos);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3112"]->CodAlumno_MateriaDetalles, 1);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3111,3112");
}

TEST_F(NotaSeccionMateriaDirectTest, StudentWhoIsGoneLeavesNothingToGrade) {
  school_.Sql("DELETE FROM Alumno WHERE IDAlumno=1");
  const auto held = Form().shared_from_this();
  Form().ShowModal();
  EXPECT_THAT(session_.screen.messages,
              ElementsAre(HasSubstr("No existen alumnos o materias para calificar")));
}

TEST_F(NotaSeccionMateriaDirectTest, PaneOfTheTutorLooksItsStudentUpByTheRow) {
  auto& form = Opened();
  EXPECT_EQ(form.cboObservacion.ListIndex(), -1) << "he has no observation to select";
  form.rtvNotasAlumno.TextMatrix(1, 6, "77");
  EXPECT_EQ(ErrorOf([&form] { form.CargarNotasTutor(); }), 5);
}

TEST_F(NotaSeccionMateriaDirectTest, EndOfAnEditWantsASelectedSubject) {
  auto& form = Opened();
  auto& subject = *form.colAlumnos["1"]->colMateria["3111"];
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.cboMaterias.ListIndex(-1);
  form.rtvNotasAlumno.EndEdit(1);
  EXPECT_EQ(subject.Nota, 0);
  form.cboMaterias.ListIndex(0);
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.EndEdit(1);
  EXPECT_EQ(subject.Nota, 100);
}

}  // namespace
}  // namespace quorvane::test

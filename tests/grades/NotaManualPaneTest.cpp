#include "frame/cConfiguracion.h"
#include "platform/host/Application.h"
#include "tests/grades/GradeDirect.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// The dialog itself: measures, busy sign, tab, and the pane of the tutor that has none.

namespace quorvane::test {
namespace {

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

}  // namespace
}  // namespace quorvane::test

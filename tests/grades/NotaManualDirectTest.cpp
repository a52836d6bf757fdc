#include "frame/cConfiguracion.h"
#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "tests/grades/GradeDirect.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// What the entry by student has where no gesture reaches: objects, grid, what a failure leaves, the
// host's component.

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

}  // namespace
}  // namespace quorvane::test

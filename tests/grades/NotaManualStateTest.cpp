#include "frame/cConfiguracion.h"
#include "tests/grades/GradeDirect.h"
#include "tests/support/Matchers.h"

// How the form stands where something has stopped it, and what it leaves behind.

namespace quorvane::test {
namespace {

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

}  // namespace
}  // namespace quorvane::test

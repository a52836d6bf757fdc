#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/StepOne.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

class DialogTest : public EachDialogTest {};

INSTANTIATE_TEST_SUITE_P(StepOne, DialogTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(DialogTest, BearsItsTitleAndCaptions) {
  const FormView view(Play("ver"));
  EXPECT_EQ(view.Title(), "Introducción de Notas. Paso 1 de 2");
  EXPECT_EQ(view.Text("lblNotamanual1(0)"), "(*) Tipo de enseñanza:");
  EXPECT_EQ(view.Text("lblNotamanual1(1)"), "(*) Curso:");
  EXPECT_EQ(view.Text("lblNotamanual1(2)"), "(*) Sección:");
  EXPECT_EQ(view.Text("lblNotamanual1(3)"), "(*) Evaluación:");
  EXPECT_EQ(view.Text("chkMostrar"), "Mostrar todo el ancho de las notas");
  EXPECT_EQ(view.Text("chkRecuperacion"), "Recuperación");
  EXPECT_EQ(view.Text("chkTodosProm"), "Promocionar a todos");
  EXPECT_EQ(view.Text("cmdNotaManual1(0)"), "Siguiente >");
  EXPECT_EQ(view.Text("cmdNotaManual1(1)"), "Salir");
  EXPECT_FALSE(view.Visible("chkRecuperacion"));
  EXPECT_FALSE(view.Visible("chkTodosProm"));
}

TEST_P(DialogTest, NothingButAFullSelectionGoesOn) {
  const FormView view(Play("ver"));
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
  const auto chosen = PlayIn(1, "ver");
  EXPECT_TRUE(FormView(chosen).Enabled("cmdNotaManual1(0)")) << chosen.Text();
}

// Choosing a type empties the selection of the course alone: with another evaluation the button is
// free again, without a course.
TEST_P(DialogTest, AListWithoutSelectionIsRefusedWithABeep) {
  auto again =
      "elegir cboTipoEnsenanza =3\nelegir cboEvaluaciones =1\n" +
      (dialog_.BySection() ? std::string("elegir ") + dialog_.choice + " " + dialog_.entry + "\n"
                           : std::string());
  const auto result = PlayIn(1, again + kNext + "\nver");
  EXPECT_THAT(result.After(kNext),
              ElementsAre("pitido",
                          R"(mensaje informacion "Zendria Escuela" "Intruduzca todos los datos")"))
      << result.Text();
  EXPECT_TRUE(FormView(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(DialogTest, SalirUnloadsItAndEndsTheNode) {
  const auto result = Play(kLeave);
  EXPECT_THAT(result.After(kLeave), ElementsAre("descarga " + Name(), "oculta " + Name(),
                                                "vuelve " + std::to_string(dialog_.node)));
  EXPECT_EQ(result.status, 0);
}

TEST_P(DialogTest, TheCrossOfTheWindowPressesSalir) {
  const auto result = Play("marcar chkMostrar 1\ncerrar");
  EXPECT_THAT(result.After("cerrar"), ElementsAre("descarga " + Name(), "oculta " + Name(),
                                                  "vuelve " + std::to_string(dialog_.node)));
  EXPECT_TRUE(gblnMostrarAnchoNotas);
}

TEST_P(DialogTest, SalirTooReadsWhetherTheWholeWidthIsShown) {
  Play("marcar chkMostrar 1\n" + kLeave);
  EXPECT_TRUE(gblnMostrarAnchoNotas);
  // One session follows another: what the box says last holds.
  const auto again = std::to_string(dialog_.node) + "\n" + kLeave;
  Play("marcar chkMostrar 1\n" + kLeave + "\nnodo " + again);
  EXPECT_FALSE(gblnMostrarAnchoNotas);
}

TEST_P(DialogTest, ALaterOpeningStartsFromAFreshDialog) {
  const auto result = PlayIn(1, kLeave + "\nnodo " + std::to_string(dialog_.node) + "\nver");
  const FormView view(result);
  EXPECT_EQ(view.Index("cboCursos"), -1);
  EXPECT_THAT(view.Entries("cboSecciones"), IsEmpty());
}

/// A handler that runs without an entry selected empties the list below, and reads nothing.
template <class F>
class WithoutSelectionTest : public ::testing::Test {};
using Forms = ::testing::Types<frmNotaManual1, frmNotaMateria1, frmNotaSeccionAlumno1,
                               frmNotaSeccionMateria1>;
TYPED_TEST_SUITE(WithoutSelectionTest, Forms);

TYPED_TEST(WithoutSelectionTest, EmptiesAndDisablesTheListBelow) {
  TypeParam form;
  form.cboCursos.AddItem("1º ESO", 31);
  form.cboTipoEnsenanza_Click();
  EXPECT_EQ(form.cboCursos.ListCount(), 0);
  EXPECT_FALSE(form.cboCursos.Enabled());
  form.cboSecciones.AddItem("A", 311);
  form.cboCursos_Click();
  EXPECT_EQ(form.cboSecciones.ListCount(), 0);
  EXPECT_FALSE(form.cboSecciones.Enabled());
}

TYPED_TEST(WithoutSelectionTest, LeavesSectionAndEvaluationAlone) {
  TypeParam form;
  form.blnEntrar = true;
  form.cmdNotaManual1[0].Enabled(true);
  form.cboEvaluaciones.AddItem("1ª Evaluación", 1);
  form.cboSecciones_Click();
  form.cboEvaluaciones_Click();
  EXPECT_EQ(form.cboEvaluaciones.ListCount(), 1);
  EXPECT_TRUE(form.cmdNotaManual1[0].Enabled());
  EXPECT_TRUE(form.blnEntrar);
}

TYPED_TEST(WithoutSelectionTest, TheGuardKeepsTheCodesOwnClicksOut) {
  TypeParam form;
  form.blnEntrar = false;
  form.cmdNotaManual1[0].Enabled(true);
  form.cboSecciones.AddItem("A", 311);
  form.cboEvaluaciones.AddItem("1ª Evaluación", 1);
  // Past the guard both would read the database, and there is none here.
  form.cboSecciones.ListIndex(0);
  form.cboEvaluaciones.ListIndex(0);
  EXPECT_TRUE(form.cmdNotaManual1[0].Enabled());
  EXPECT_FALSE(form.blnEntrar);
}

TYPED_TEST(WithoutSelectionTest, EnterGoesOnAndEscapeLeaves) {
  const TypeParam form;
  EXPECT_TRUE(form.cmdNotaManual1[0].Default);
  EXPECT_FALSE(form.cmdNotaManual1[0].Cancel);
  EXPECT_TRUE(form.cmdNotaManual1[1].Cancel);
  EXPECT_FALSE(form.cmdNotaManual1[1].Default);
}

TYPED_TEST(WithoutSelectionTest, EveryControlLiesInsideWhatHoldsIt) {
  const TypeParam form;
  for (const auto* control : form.Controls()) {
    const auto* frame = control->Container();
    const auto width = frame == nullptr ? form.ScaleWidth() : frame->Width();
    const auto height = frame == nullptr ? form.ScaleHeight() : frame->Height();
    EXPECT_GT(control->Width(), 0) << control->Name();
    EXPECT_GT(control->Height(), 0) << control->Name();
    EXPECT_LE(control->Left() + control->Width(), width) << control->Name();
    EXPECT_LE(control->Top() + control->Height(), height) << control->Name();
    for (const auto* other : form.Controls()) {
      if (other == control || other->Container() != frame) continue;
      EXPECT_TRUE(control->Left() + control->Width() <= other->Left() ||
                  other->Left() + other->Width() <= control->Left() ||
                  control->Top() + control->Height() <= other->Top() ||
                  other->Top() + other->Height() <= control->Top())
          << control->Name() << " over " << other->Name();
    }
  }
}

}  // namespace
}  // namespace quorvane::test

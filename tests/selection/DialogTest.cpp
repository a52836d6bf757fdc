#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/Sentences.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StepOneDialog : public ::testing::TestWithParam<Dialog> {
 protected:
  [[nodiscard]] std::string Name() const { return GetParam().form; }
  PendingSchool school;
};

INSTANTIATE_TEST_SUITE_P(StepOne, StepOneDialog, ::testing::ValuesIn(kDialogs),
                         [](const auto& dialog) { return std::string(dialog.param.form); });

TEST_P(StepOneDialog, BearsItsTitleAndCaptions) {
  const View view(Play(school, GetParam(), "ver"));
  EXPECT_EQ(view.Title(), "Introducción de Notas. Paso 1 de 2");
  EXPECT_EQ(view.Caption("lblNotamanual1(0)"), "(*) Tipo de enseñanza:");
  EXPECT_EQ(view.Caption("lblNotamanual1(1)"), "(*) Curso:");
  EXPECT_EQ(view.Caption("lblNotamanual1(2)"), "(*) Sección:");
  EXPECT_EQ(view.Caption("lblNotamanual1(3)"), "(*) Evaluación:");
  EXPECT_EQ(view.Caption("chkMostrar"), "Mostrar todo el ancho de las notas");
  EXPECT_EQ(view.Caption("chkRecuperacion"), "Recuperación");
  EXPECT_EQ(view.Caption("chkTodosProm"), "Promocionar a todos");
  EXPECT_EQ(view.Caption("cmdNotaManual1(0)"), "Siguiente >");
  EXPECT_EQ(view.Caption("cmdNotaManual1(1)"), "Salir");
  EXPECT_FALSE(view.Visible("chkRecuperacion"));
  EXPECT_FALSE(view.Visible("chkTodosProm"));
}

TEST_P(StepOneDialog, NothingButAFullSelectionGoesOn) {
  const View view(Play(school, GetParam(), "ver"));
  EXPECT_FALSE(view.Enabled("cmdNotaManual1(0)"));
  const auto chosen = Play(school, GetParam(), Choose(GetParam(), 1) + "ver");
  EXPECT_TRUE(View(chosen).Enabled("cmdNotaManual1(0)")) << chosen.Text();
}

// Choosing a type empties the selection of the course alone: with another evaluation the button is
// free again, without a course.
TEST_P(StepOneDialog, AListWithoutSelectionIsRefusedWithABeep) {
  auto again = "elegir cboTipoEnsenanza =3\nelegir cboEvaluaciones =1\n" +
               (GetParam().BySection()
                    ? std::string("elegir ") + GetParam().choice + " " + GetParam().entry + "\n"
                    : std::string());
  const auto result = Play(school, GetParam(), Choose(GetParam(), 1) + again + kNext + "\nver");
  EXPECT_THAT(result.After(kNext),
              ElementsAre("pitido",
                          R"(mensaje informacion "Zendria Escuela" "Intruduzca todos los datos")"))
      << result.Text();
  EXPECT_TRUE(View(result).Enabled("cmdNotaManual1(0)"));
}

TEST_P(StepOneDialog, SalirUnloadsItAndEndsTheNode) {
  const auto result = Play(school, GetParam(), kLeave);
  EXPECT_THAT(result.After(kLeave), ElementsAre("descarga " + Name(), "oculta " + Name(),
                                                "vuelve " + std::to_string(GetParam().node)));
  EXPECT_EQ(result.status, 0);
}

TEST_P(StepOneDialog, TheCrossOfTheWindowDoesTheSameAndReadsNothing) {
  const auto result = Play(school, GetParam(), "marcar chkMostrar 1\ncerrar");
  EXPECT_THAT(result.After("cerrar"), ElementsAre("descarga " + Name(), "oculta " + Name(),
                                                  "vuelve " + std::to_string(GetParam().node)));
  EXPECT_FALSE(gblnMostrarAnchoNotas);
}

TEST_P(StepOneDialog, SalirTooReadsWhetherTheWholeWidthIsShown) {
  Play(school, GetParam(), "marcar chkMostrar 1\n" + kLeave);
  EXPECT_TRUE(gblnMostrarAnchoNotas);
  // One session follows another: what the box says last holds.
  const auto again = std::to_string(GetParam().node) + "\n" + kLeave;
  Play(school, GetParam(), "marcar chkMostrar 1\n" + kLeave + "\nnodo " + again);
  EXPECT_FALSE(gblnMostrarAnchoNotas);
}

TEST_P(StepOneDialog, ALaterOpeningStartsFromAFreshDialog) {
  const auto result =
      Play(school, GetParam(),
           Choose(GetParam(), 1) + kLeave + "\nnodo " + std::to_string(GetParam().node) + "\nver");
  const View view(result);
  EXPECT_EQ(view.Index("cboCursos"), -1);
  EXPECT_THAT(view.Entries("cboSecciones"), IsEmpty());
}

/// A handler that runs without an entry selected empties the list below, and reads nothing.
template <class F>
class WithoutSelection : public ::testing::Test {};
using Forms = ::testing::Types<frmNotaManual1, frmNotaMateria1, frmNotaSeccionAlumno1,
                               frmNotaSeccionMateria1>;
TYPED_TEST_SUITE(WithoutSelection, Forms);

TYPED_TEST(WithoutSelection, EmptiesAndDisablesTheListBelow) {
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

TYPED_TEST(WithoutSelection, LeavesSectionAndEvaluationAlone) {
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

TYPED_TEST(WithoutSelection, TheGuardKeepsTheCodesOwnClicksOut) {
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

TYPED_TEST(WithoutSelection, EnterGoesOnAndEscapeLeaves) {
  const TypeParam form;
  EXPECT_TRUE(form.cmdNotaManual1[0].Default);
  EXPECT_FALSE(form.cmdNotaManual1[0].Cancel);
  EXPECT_TRUE(form.cmdNotaManual1[1].Cancel);
  EXPECT_FALSE(form.cmdNotaManual1[1].Default);
}

TYPED_TEST(WithoutSelection, EveryControlLiesInsideWhatHoldsIt) {
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

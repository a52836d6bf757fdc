#include "frame/modGeneral.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

class DialogTest : public EachDialogTest {
 protected:
  [[nodiscard]] Lines Goes() const {
    return {"descarga " + Name(), "oculta " + Name(), "vuelve " + std::to_string(dialog_.node)};
  }
};

INSTANTIATE_TEST_SUITE_P(StepOne, DialogTest, ::testing::ValuesIn(kDialogs), kNameOfDialog);

TEST_P(DialogTest, BearsItsTitleAndCaptions) {
  const FormView view(Play("ver"));
  EXPECT_EQ(view.Title(), "Introducción de Notas. Paso 1 de 2");
  for (const auto& [control, text] : {std::pair("lblNotamanual1(0)", "(*) Tipo de enseñanza:"),
                                      {"lblNotamanual1(1)", "(*) Curso:"},
                                      {"lblNotamanual1(2)", "(*) Sección:"},
                                      {"lblNotamanual1(3)", "(*) Evaluación:"},
                                      {"chkMostrar", "Mostrar todo el ancho de las notas"},
                                      {"chkRecuperacion", "Recuperación"},
                                      {"chkTodosProm", "Promocionar a todos"},
                                      {"cmdNotaManual1(0)", "Siguiente >"},
                                      {"cmdNotaManual1(1)", "Salir"}})
    EXPECT_EQ(view.Text(control), text);
  EXPECT_FALSE(view.Visible("chkRecuperacion"));
  EXPECT_FALSE(view.Visible("chkTodosProm"));
}

TEST_P(DialogTest, NothingButAFullSelectionGoesOn) {
  ExpectBarred(Play("ver"));
  ExpectFree(PlayIn(1, "ver"));
}

// Choosing a type empties the selection of the course alone: with another evaluation the button is
// free again, without a course.
TEST_P(DialogTest, AListWithoutSelectionIsRefusedWithABeep) {
  auto again = "elegir cboTipoEnsenanza =3\n" + Evaluation(1) + "\n";
  if (dialog_.BySection())
    again += std::string("elegir ") + dialog_.choice + " " + dialog_.entry + "\n";
  const auto result = PlayIn(1, again + kNext + "\nver");
  EXPECT_THAT(result.After(kNext),
              ElementsAre("pitido",
                          R"(mensaje informacion "Zendria Escuela" "Intruduzca todos los datos")"))
      << result.Text();
  ExpectFree(result);
}

// Both read whether the whole width is shown, too.
TEST_P(DialogTest, SalirAndTheCrossOfTheWindowUnloadItAndEndTheNode) {
  for (const auto& leave : {kLeave, std::string("cerrar")}) {
    SCOPED_TRACE(leave);
    const auto result = Play("marcar chkMostrar 1\n" + leave);
    EXPECT_EQ(result.After(leave), Goes());
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(gblnMostrarAnchoNotas);
  }
  // One session follows another: what the box says last holds.
  Play("marcar chkMostrar 1\n" + kLeave + "\n" + Node() + "\n" + kLeave);
  EXPECT_FALSE(gblnMostrarAnchoNotas);
}

TEST_P(DialogTest, ALaterOpeningStartsFromAFreshDialog) {
  const FormView view(PlayIn(1, kLeave + "\n" + Node() + "\nver"));
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

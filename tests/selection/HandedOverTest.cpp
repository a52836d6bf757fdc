#include "frame/PrimeraPantalla.h"
#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/student/frmNotaManual.h"
#include "grades/subject/frmNotaMateria.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/HandedOver.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using HandedOverTest = HandedOver;

TEST_F(HandedOverTest, ByStudent) {
  hands.acts = {[this] {
                  auto& form = FormInstance<frmNotaManual1>::Get();
                  SelectSection(form, 1);
                  hands.pointers.clear();
                  form.cmdNotaManual1[0].Press();
                },
                [this] {
                  EXPECT_EQ(FormInstance<frmNotaManual>::Get().mstrCaption, "ESO 2º ESO A");
                  const auto& stepOne = FormInstance<frmNotaManual1>::Get();
                  EXPECT_TRUE(stepOne.Loaded());
                  EXPECT_FALSE(stepOne.Visible());
                  EXPECT_EQ(stepOne.cboSecciones.SelectedData(), 321);
                  EXPECT_TRUE(stepOne.blnPosibleRecuperacion);
                  EXPECT_FALSE(stepOne.blnRecuperar);
                  EXPECT_FALSE(stepOne.gblnTPromocion);
                  EXPECT_EQ(stepOne.gIDPersonal, 0);
                  EXPECT_FALSE(entrada.IsOpen());
                }};
  MostrarFrmNotaManual1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaManual1", "frmNotaManual"));
  EXPECT_THAT(std::vector(hands.pointers.begin(), hands.pointers.begin() + 2),
              ElementsAre(Pointer::Hourglass, Pointer::Default));
  EXPECT_FALSE(FormInstance<frmNotaManual1>::Exists()) << "the first show drops it";
}

TEST_F(HandedOverTest, ThePointerRestsBeforeTheUsersAreClosed) {
  std::vector<bool> open;
  hands.acts = {[this, &open] {
    auto& form = FormInstance<frmNotaManual1>::Get();
    SelectSection(form, 1);
    hands.Pointing = [this, &open] {
      if (hands.pointers.back() == Pointer::Default) open.push_back(entrada.IsOpen());
    };
    form.cmdNotaManual1[0].Press();
  }};
  MostrarFrmNotaManual1();
  hands.Pointing = nullptr;
  EXPECT_THAT(open, ElementsAre(true));
  EXPECT_FALSE(entrada.IsOpen());
}

/// What the form of step two knows of a final evaluation; `firstFinal` is 0 where that is the
/// first.
template <class StepTwo>
void ExpectFinal(int firstFinal) {
  const auto& stepTwo = FormInstance<StepTwo>::Get();
  EXPECT_EQ(stepTwo.mstrCaption, "ESO 2º ESO A");
  EXPECT_EQ(stepTwo.elegida.mblnFinalSeptiembre, firstFinal != 0);
  EXPECT_EQ(stepTwo.elegida.mlngIdEvaluacionJunio, firstFinal);
}

TEST_F(HandedOverTest, ByStudentInTheSecondFinal) {
  hands.acts = {GoesOn<frmNotaManual1>(5), [] { ExpectFinal<frmNotaManualFinal>(4); }};
  MostrarFrmNotaManual1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaManual1", "frmNotaManualFinal"));
}

TEST_F(HandedOverTest, ByStudentInTheFirstFinal) {
  hands.acts = {GoesOn<frmNotaManual1>(4), [] { ExpectFinal<frmNotaManualFinal>(0); }};
  MostrarFrmNotaManual1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaManual1", "frmNotaManualFinal"));
}

TEST_F(HandedOverTest, BySubjectOfATutor) {
  User(2, 3);
  hands.acts = {GoesOn<frmNotaMateria1>(1), [] {
                  EXPECT_EQ(FormInstance<frmNotaMateria>::Get().mstrCaption, "ESO 2º ESO A");
                  const auto& stepOne = FormInstance<frmNotaMateria1>::Get();
                  EXPECT_FALSE(stepOne.blnPosibleRecuperacion) << "never read here";
                  EXPECT_FALSE(stepOne.blnRecuperar);
                  EXPECT_EQ(stepOne.gIDPersonal, 1);
                }};
  MostrarFrmNotaMateria1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaMateria1", "frmNotaMateria"));
}

// A member of staff with profile 0 is nobody in particular.
TEST_F(HandedOverTest, ProfileZeroHasNoStaffKey) {
  User(2, 0);
  hands.acts = {[] { EXPECT_EQ(FormInstance<frmNotaManual1>::Get().gIDPersonal, 0); }};
  MostrarFrmNotaManual1();
}

// The one way in which the grades of a recovery are entered.
TEST_F(HandedOverTest, BySectionAndStudentWithTheRecovery) {
  hands.acts = {[] {
                  auto& form = FormInstance<frmNotaSeccionAlumno1>::Get();
                  SelectSection(form, 1);
                  EXPECT_TRUE(form.blnTutor);
                  Select(form.cboSecciones, 321);
                  Select(form.cboEvaluaciones, 1);
                  ASSERT_TRUE(form.chkRecuperacion.Usable());
                  form.chkRecuperacion.Value(1);
                  Select(form.cboMateria, 3111);
                  form.cmdNotaManual1[0].Press();
                },
                [] {
                  EXPECT_EQ(FormInstance<frmNotaSeccionAlumno>::Get().mstrCaption, "ESO 2º ESO A");
                  const auto& stepOne = FormInstance<frmNotaSeccionAlumno1>::Get();
                  EXPECT_TRUE(stepOne.blnRecuperar);
                  EXPECT_FALSE(stepOne.gblnTPromocion);
                  EXPECT_EQ(stepOne.cboMateria.SelectedData(), 3111);
                }};
  MostrarFrmNotaSeccionAlumno1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaSeccionAlumno1", "frmNotaSeccionAlumno"));
}

TEST_F(HandedOverTest, BySectionAndStudentInTheSecondFinal) {
  hands.acts = {GoesOn<frmNotaSeccionAlumno1>(5), [] {
                  ExpectFinal<frmNotaSeccionAlumnoFinal>(4);
                  EXPECT_FALSE(FormInstance<frmNotaSeccionAlumno1>::Get().blnRecuperar);
                }};
  MostrarFrmNotaSeccionAlumno1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaSeccionAlumno1", "frmNotaSeccionAlumnoFinal"));
}

TEST_F(HandedOverTest, BySectionAndSubjectOfATeacher) {
  User(3, 3);
  hands.acts = {GoesOn<frmNotaSeccionMateria1>(1), [] {
                  EXPECT_EQ(FormInstance<frmNotaSeccionMateria>::Get().mstrCaption, "ESO 2º ESO A");
                  const auto& stepOne = FormInstance<frmNotaSeccionMateria1>::Get();
                  EXPECT_FALSE(stepOne.blnTutor);
                  EXPECT_EQ(stepOne.gIDPersonal, 2);
                  EXPECT_EQ(stepOne.cboAlumno.SelectedData(), 1);
                  EXPECT_FALSE(stepOne.blnRecuperar);
                }};
  MostrarFrmNotaSeccionMateria1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaSeccionMateria1", "frmNotaSeccionMateria"));
}

}  // namespace
}  // namespace quorvane::test

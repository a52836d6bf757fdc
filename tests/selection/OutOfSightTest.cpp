// What a script doesn't show of step one: connection, pointer, boxes out of sight, a title that is
// never seen.

#include <gmock/gmock.h>
#include <optional>

#include "frame/PrimeraPantalla.h"
#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/HandedOver.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using OutOfSightTest = HandedOver;

// After the message of the date the connection stays open.
TEST_F(OutOfSightTest, TheConnectionClosesOnlyOnTheWayToStepTwo) {
  school.Sql(
      "UPDATE Usuario SET CodPadre=0, AdminSistema=0; INSERT INTO FechaNotas (FechaInicio, "
      "FechaFin, CodSeccion, CodNumEvaluacion) VALUES ('1990/01/01','1990/01/02',321,1)");
  hands.acts = {[this] {
    auto& form = FormInstance<frmNotaManual1>::Get();
    SelectSection(form, 1);
    EXPECT_FALSE(entrada.IsOpen());
    form.cmdNotaManual1[0].Press();
    EXPECT_TRUE(entrada.IsOpen());
    EXPECT_TRUE(form.Visible());
    form.cmdNotaManual1[1].Press();
    EXPECT_TRUE(entrada.IsOpen());
    EXPECT_FALSE(FormInstance<frmNotaManual1>::Exists());
  }};
  MostrarFrmNotaManual1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaManual1"));
}

// The form for finals gets its title before the first final is looked for and again after that;
// in entry by subject only after it.
TEST_F(OutOfSightTest, TheTitleWhereTheFirstFinalHasGone) {
  const auto fails = [this](auto& form) {
    SelectSection(form, 5);
    school.Sql("UPDATE NumEvaluacion SET Orden=8 WHERE IDNumEvaluacion=4");
    hands.pointers.clear();
    EXPECT_THROW(form.cmdNotaManual1[0].Press(), RuntimeError);
    school.Sql("UPDATE NumEvaluacion SET Orden=1 WHERE IDNumEvaluacion=4");
    EXPECT_THAT(hands.pointers, ElementsAre(Pointer::Hourglass, Pointer::Default));
    EXPECT_TRUE(entrada.IsOpen());
    EXPECT_FALSE(form.Visible());
  };
  hands.acts = {[&fails] { fails(FormInstance<frmNotaManual1>::Get()); },
                [&fails] { fails(FormInstance<frmNotaMateria1>::Get()); }};
  MostrarFrmNotaManual1();
  MostrarFrmNotaMateria1();
  EXPECT_EQ(FormInstance<frmNotaManualFinal>::Get().mstrCaption, "ESO 2º ESO A");
  EXPECT_EQ(FormInstance<frmNotaMateriaFinal>::Get().mstrCaption, "");
}

TEST_F(OutOfSightTest, TheOpeningPlacesTheHiddenBoxesAndTheIcon) {
  cConfiguracion::Instancia().RutaIcono = "zendria.ico";
  const auto opened = [](const auto& form) {
    EXPECT_EQ(form.Icon(), "zendria.ico");
    EXPECT_EQ(form.chkTodosProm.Left(), form.chkRecuperacion.Left());
    EXPECT_EQ(form.chkTodosProm.Top(), form.chkRecuperacion.Top());
    EXPECT_EQ(form.chkRecuperacion.Value(), 0);
    EXPECT_FALSE(form.chkRecuperacion.Visible());
    EXPECT_TRUE(form.blnEntrar);
  };
  FormInstance<frmNotaManual1>::Get().chkRecuperacion.Value(1);
  hands.acts = {[&opened] { opened(FormInstance<frmNotaManual1>::Get()); },
                [&opened] { opened(FormInstance<frmNotaMateria1>::Get()); },
                [&opened] { opened(FormInstance<frmNotaSeccionAlumno1>::Get()); },
                [&opened] { opened(FormInstance<frmNotaSeccionMateria1>::Get()); }};
  MostrarFrmNotaManual1();
  MostrarFrmNotaMateria1();
  MostrarFrmNotaSeccionAlumno1();
  MostrarFrmNotaSeccionMateria1();
  EXPECT_TRUE(hands.acts.empty());
  cConfiguracion::Instancia().RutaIcono.clear();
}

// The tutor of one section is nobody in another.
TEST_F(OutOfSightTest, BeingTheTutorGoesWithTheSection) {
  User(2, 3);
  const auto another = [](auto& form) {
    SelectSection(form, 1);
    EXPECT_TRUE(form.blnTutor);
    form.cboSecciones.AddItem("A", 331);
    Select(form.cboSecciones, 331);
    EXPECT_FALSE(form.blnTutor);
  };
  hands.acts = {[&another] { another(FormInstance<frmNotaSeccionAlumno1>::Get()); },
                [&another] { another(FormInstance<frmNotaSeccionMateria1>::Get()); }};
  MostrarFrmNotaSeccionAlumno1();
  MostrarFrmNotaSeccionMateria1();
  EXPECT_TRUE(hands.acts.empty());
}

TEST_F(OutOfSightTest, ThePointerIsBackAfterTheOpening) {
  hands.acts = {
      [this] { EXPECT_THAT(hands.pointers, ElementsAre(Pointer::Hourglass, Pointer::Default)); }};
  MostrarFrmNotaManual1();
}

// The user can't bring the boxes into sight here; the rules that the two dialogs have for them are
// their own all the same.
TEST_F(OutOfSightTest, TheBoxesOfTheDialogsWithoutSection) {
  const auto boxes = [](auto& form) {
    form.blnPosibleRecuperacion = true;
    form.chkRecuperacion.Visible(true);
    form.chkRecuperacion.Value(1);
    form.chkTodosProm.Visible(true);
  };
  hands.acts = {[&boxes] {
                  auto& form = FormInstance<frmNotaManual1>::Get();
                  SelectSection(form, 1);
                  boxes(form);
                  Select(form.cboSecciones, 321);
                  EXPECT_TRUE(form.chkRecuperacion.Visible());
                  EXPECT_EQ(form.chkRecuperacion.Value(), 1) << "left alone";
                  Select(form.cboEvaluaciones, 1);
                  EXPECT_FALSE(form.chkRecuperacion.Visible());
                  EXPECT_FALSE(form.chkTodosProm.Visible());
                },
                [&boxes] {
                  auto& form = FormInstance<frmNotaMateria1>::Get();
                  SelectSection(form, 1);
                  boxes(form);
                  Select(form.cboSecciones, 321);
                  EXPECT_TRUE(form.chkRecuperacion.Visible());
                  EXPECT_EQ(form.chkRecuperacion.Value(), 0) << "follow-up clears it";
                  Select(form.cboEvaluaciones, 1);
                  EXPECT_TRUE(form.chkRecuperacion.Visible());
                  EXPECT_TRUE(form.chkTodosProm.Visible());
                  Select(form.cboEvaluaciones, 4);
                  EXPECT_FALSE(form.chkRecuperacion.Visible());
                  EXPECT_TRUE(form.chkTodosProm.Visible());
                }};
  MostrarFrmNotaManual1();
  MostrarFrmNotaMateria1();
  EXPECT_TRUE(hands.acts.empty());
}

// What the screen shows while a statement runs, which may take long on a school's network.

class WhileReadingTest : public HandedOver {
 protected:
  /// The pointer while the evaluations are read, as the form loads; none when they aren't.
  template <class F>
  std::optional<Pointer> PointerOverEvaluations() {
    std::optional<Pointer> pointer;
    centro.Observe([&](const Connection&, const std::string& statement) {
      if (statement.find("FROM NumEvaluacion WHERE Final=0") != std::string::npos)
        pointer = hands.pointers.back();
    });
    FormInstance<F>::Get().ShowModal();
    centro.Observe({});
    return pointer;
  }
};

TEST_F(WhileReadingTest, AnHourglassStandsUntilTheLastListIsFull) {
  EXPECT_EQ(PointerOverEvaluations<frmNotaManual1>(), Pointer::Hourglass);
  EXPECT_EQ(PointerOverEvaluations<frmNotaMateria1>(), Pointer::Hourglass);
  EXPECT_EQ(PointerOverEvaluations<frmNotaSeccionAlumno1>(), Pointer::Hourglass);
  EXPECT_EQ(PointerOverEvaluations<frmNotaSeccionMateria1>(), Pointer::Hourglass);
  EXPECT_EQ(hands.pointers.back(), Pointer::Default);
}

TEST_F(WhileReadingTest, BySubjectTheButtonIsClosedBehindTheEvaluationsOfANewSection) {
  auto& form = FormInstance<frmNotaMateria1>::Get();
  form.ShowModal();
  SelectSection(form, 1);
  ASSERT_TRUE(form.cmdNotaManual1[0].Enabled());
  std::vector<bool> enabled;
  centro.Observe([&](const Connection&, const std::string& statement) {
    if (statement.find(" UNION ") != std::string::npos)
      enabled.push_back(form.cmdNotaManual1[0].Enabled());
  });
  form.cboSecciones_Click();
  centro.Observe({});
  EXPECT_EQ(enabled, std::vector<bool>{true});
  EXPECT_FALSE(form.cmdNotaManual1[0].Enabled());
}

}  // namespace
}  // namespace quorvane::test

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"
#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/student/frmNotaManual.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/Application.h"
#include "platform/FormInstance.h"
#include "platform/FrontEnd.h"
#include "platform/RuntimeError.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/StepOne.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;

/// A user who does one thing on each form that is shown, in order.
class Hands : public FrontEnd {
 public:
  std::vector<std::function<void()>> acts;
  std::vector<Pointer> pointers;
  std::vector<std::string> shown;

  void RunModal(Form& form) override {
    shown.push_back(form.Name());
    if (acts.empty()) return;
    const auto act = std::move(acts.front());
    acts.erase(acts.begin());
    act();
  }
  void Message(MessageIcon /*icon*/, const std::string& /*title*/,
               const std::string& /*text*/) override {}
  void Beep() override {}
  void MousePointer(Pointer pointer) override { pointers.push_back(pointer); }
  std::int32_t TextWidth(const Form& /*form*/, const std::string& text) override {
    return static_cast<std::int32_t>(text.size()) * 120;
  }
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 19200; }
  std::int32_t ScreenHeight() override { return 12000; }
};

/// What step one hands over to step two: its fields, the title, the closed connection.
class HandedOver : public ::testing::Test {
 public:
  HandedOver() : centro(school.Path(), "centro"), entrada(school.Path(), "entrada") {
    school.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321;"
        "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4");
    centro.Open();
    auto& session = cConfiguracion::Instancia();
    session.conLocalCentro = &centro;
    session.conLocalBorradoCentro = &centro;
    session.conLocalAppEntrada = &entrada;
    session.SQLServer = false;
    session.Activa = true;
    User(1, 0);
    Application::Instance().UseScreen(&hands);
  }
  ~HandedOver() override {
    FormInstances::DropAll();
    Application::Instance().UseScreen(nullptr);
    auto& session = cConfiguracion::Instancia();
    session.conLocalCentro = session.conLocalBorradoCentro = session.conLocalAppEntrada = nullptr;
  }
  HandedOver(const HandedOver&) = delete;
  HandedOver& operator=(const HandedOver&) = delete;
  HandedOver(HandedOver&&) = delete;
  HandedOver& operator=(HandedOver&&) = delete;

 protected:
  static void User(int user, int profile) {
    cConfiguracion::Instancia().intIDUsuario = static_cast<std::int16_t>(user);
    cConfiguracion::Instancia().intIDPerfil = static_cast<std::int16_t>(profile);
  }

  static void Select(ComboBox& list, std::int32_t data) {
    for (int i = 0; i < list.ListCount(); ++i)
      if (list.ItemData(i) == data) return list.ListIndex(i);
    ADD_FAILURE() << list.Name() << " has no entry " << data;
  }

  template <class F>
  static void SelectSection(F& form, int evaluation) {
    Select(form.cboCursos, 32);
    Select(form.cboSecciones, 321);
    Select(form.cboEvaluaciones, evaluation);
  }

  PendingSchool school;
  sqlite::SqliteConnection centro;
  sqlite::SqliteConnection entrada;
  Hands hands;
};

TEST_F(HandedOver, ByStudent) {
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

TEST_F(HandedOver, ByStudentInTheSecondFinal) {
  hands.acts = {[] {
                  auto& form = FormInstance<frmNotaManual1>::Get();
                  SelectSection(form, 5);
                  form.cmdNotaManual1[0].Press();
                },
                [] {
                  const auto& stepTwo = FormInstance<frmNotaManualFinal>::Get();
                  EXPECT_EQ(stepTwo.mstrCaption, "ESO 2º ESO A");
                  EXPECT_TRUE(stepTwo.elegida.mblnFinalSeptiembre);
                  EXPECT_EQ(stepTwo.elegida.mlngIdEvaluacionJunio, 4);
                }};
  MostrarFrmNotaManual1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaManual1", "frmNotaManualFinal"));
}

TEST_F(HandedOver, ByStudentInTheFirstFinal) {
  hands.acts = {[] {
                  auto& form = FormInstance<frmNotaManual1>::Get();
                  SelectSection(form, 4);
                  form.cmdNotaManual1[0].Press();
                },
                [] {
                  const auto& stepTwo = FormInstance<frmNotaManualFinal>::Get();
                  EXPECT_EQ(stepTwo.mstrCaption, "ESO 2º ESO A");
                  EXPECT_FALSE(stepTwo.elegida.mblnFinalSeptiembre);
                  EXPECT_EQ(stepTwo.elegida.mlngIdEvaluacionJunio, 0);
                }};
  MostrarFrmNotaManual1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaManual1", "frmNotaManualFinal"));
}

TEST_F(HandedOver, BySubjectOfATutor) {
  User(2, 3);
  hands.acts = {[] {
                  auto& form = FormInstance<frmNotaMateria1>::Get();
                  SelectSection(form, 1);
                  form.cmdNotaManual1[0].Press();
                },
                [] {
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
TEST_F(HandedOver, ProfileZeroHasNoStaffKey) {
  User(2, 0);
  hands.acts = {[] { EXPECT_EQ(FormInstance<frmNotaManual1>::Get().gIDPersonal, 0); }};
  MostrarFrmNotaManual1();
}

// The one way in which the grades of a recovery are entered.
TEST_F(HandedOver, BySectionAndStudentWithTheRecovery) {
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

TEST_F(HandedOver, BySectionAndStudentInTheSecondFinal) {
  hands.acts = {[] {
                  auto& form = FormInstance<frmNotaSeccionAlumno1>::Get();
                  SelectSection(form, 5);
                  Select(form.cboMateria, 3111);
                  form.cmdNotaManual1[0].Press();
                },
                [] {
                  const auto& stepTwo = FormInstance<frmNotaSeccionAlumnoFinal>::Get();
                  EXPECT_EQ(stepTwo.mstrCaption, "ESO 2º ESO A");
                  EXPECT_TRUE(stepTwo.elegida.mblnFinalSeptiembre);
                  EXPECT_EQ(stepTwo.elegida.mlngIdEvaluacionJunio, 4);
                  EXPECT_FALSE(FormInstance<frmNotaSeccionAlumno1>::Get().blnRecuperar);
                }};
  MostrarFrmNotaSeccionAlumno1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaSeccionAlumno1", "frmNotaSeccionAlumnoFinal"));
}

TEST_F(HandedOver, BySectionAndSubjectOfATeacher) {
  User(3, 3);
  hands.acts = {[] {
                  auto& form = FormInstance<frmNotaSeccionMateria1>::Get();
                  SelectSection(form, 1);
                  EXPECT_FALSE(form.blnTutor);
                  Select(form.cboAlumno, 1);
                  form.cmdNotaManual1[0].Press();
                },
                [] {
                  EXPECT_EQ(FormInstance<frmNotaSeccionMateria>::Get().mstrCaption, "ESO 2º ESO A");
                  const auto& stepOne = FormInstance<frmNotaSeccionMateria1>::Get();
                  EXPECT_EQ(stepOne.gIDPersonal, 2);
                  EXPECT_EQ(stepOne.cboAlumno.SelectedData(), 1);
                  EXPECT_FALSE(stepOne.blnRecuperar);
                }};
  MostrarFrmNotaSeccionMateria1();
  EXPECT_THAT(hands.shown, ElementsAre("frmNotaSeccionMateria1", "frmNotaSeccionMateria"));
}

// After the message of the date the connection stays open.
TEST_F(HandedOver, TheConnectionClosesOnlyOnTheWayToStepTwo) {
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
TEST_F(HandedOver, TheTitleWhereTheFirstFinalHasGone) {
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

TEST_F(HandedOver, TheOpeningPlacesTheHiddenBoxesAndTheIcon) {
  cConfiguracion::Instancia().RutaIcono = "zendria.ico";
  const auto opened = [](const auto& form) {
    EXPECT_EQ(form.Icon(), "zendria.ico");
    EXPECT_EQ(form.chkTodosProm.Left(), form.chkRecuperacion.Left());
    EXPECT_EQ(form.chkTodosProm.Top(), form.chkRecuperacion.Top());
    EXPECT_TRUE(form.blnEntrar);
  };
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

TEST_F(HandedOver, ThePointerIsBackAfterTheOpening) {
  hands.acts = {
      [this] { EXPECT_THAT(hands.pointers, ElementsAre(Pointer::Hourglass, Pointer::Default)); }};
  MostrarFrmNotaManual1();
}

// The user can't bring the boxes into sight here; the rules that the two dialogs have for them are
// their own all the same.
TEST_F(HandedOver, TheBoxesOfTheDialogsWithoutSection) {
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

}  // namespace
}  // namespace quorvane::test

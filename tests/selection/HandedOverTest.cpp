// What a script doesn't show of step one: what it hands over to step two, connection, pointer,
// boxes out of sight, a title that is never seen.

#include <functional>
#include <optional>

#include "frame/PrimeraPantalla.h"
#include "frame/cConfiguracion.h"
#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/student/frmNotaManual.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/RuntimeError.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/platform/ScriptedFrontEnd.h"
#include "tests/selection/StepOne.h"
#include "tests/support/Opened.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

using Act = std::function<void()>;

/// A user who does one thing on each form that is shown, in order.
class Hands : public ScriptedFrontEnd {
 public:
  std::vector<Act> acts;
  std::vector<Pointer> pointers;
  Lines shown;
  Act Pointing;  ///< whenever the pointer changes

  void RunModal(Form& form) override {
    shown.push_back(form.Name());
    if (acts.empty()) return;
    const auto act = std::move(acts.front());
    acts.erase(acts.begin());
    act();
  }
  void MousePointer(Pointer pointer) override {
    pointers.push_back(pointer);
    if (Pointing) Pointing();
  }
};

/// The one instance of a form.
template <class F>
F& The() {
  return FormInstance<F>::Get();
}

/// What the user does on that form.
template <class F>
Act On(const auto& action) {
  return [&action] { action(The<F>()); };
}

/// What step one hands over to step two: its fields, the title, the closed connection.
class HandedOverTest : public ::testing::Test {
 protected:
  HandedOverTest() {
    school.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321;"
        "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4");
    auto& session = cConfiguracion::Instancia();
    session = cConfiguracion();
    session.conLocalCentro = session.conLocalBorradoCentro = &centro;
    session.conLocalAppEntrada = &entrada;
    session.Activa = true;
    User(1, 0);
  }
  void TearDown() override {
    FormInstances::DropAll();
    cConfiguracion::Instancia() = cConfiguracion();
  }

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

  /// A user who chooses section 321, that evaluation and an entry of the dialog's own list, if it
  /// has one, and goes on.
  template <class F>
  static Act GoesOn(int evaluation) {
    return [evaluation] {
      auto& form = The<F>();
      SelectSection(form, evaluation);
      if constexpr (requires { form.cboMateria; }) Select(form.cboMateria, 3111);
      if constexpr (requires { form.cboAlumno; }) Select(form.cboAlumno, 1);
      form.cmdNotaManual1[0].Press();
    };
  }

  /// Shows a dialog to a user who does those things, on these forms.
  void Show(void (*dialog)(), std::vector<Act> acts, const Lines& forms) {
    hands.shown.clear();
    hands.acts = std::move(acts);
    dialog();
    EXPECT_EQ(hands.shown, forms);
    EXPECT_TRUE(hands.acts.empty());
  }

  PendingSchool school;
  Opened<TestConnection> centro{school.Path(), "centro"};
  TestConnection entrada{school.Path(), "entrada"};
  Hands hands;
};

TEST_F(HandedOverTest, ByStudent) {
  Show(MostrarFrmNotaManual1,
       {[this] {
          auto& form = The<frmNotaManual1>();
          SelectSection(form, 1);
          hands.pointers.clear();
          form.cmdNotaManual1[0].Press();
        },
        [this] {
          EXPECT_EQ(The<frmNotaManual>().mstrCaption, "ESO 2º ESO A");
          const auto& stepOne = The<frmNotaManual1>();
          EXPECT_TRUE(stepOne.Loaded());
          EXPECT_FALSE(stepOne.Visible());
          EXPECT_EQ(stepOne.cboSecciones.SelectedData(), 321);
          EXPECT_TRUE(stepOne.blnPosibleRecuperacion);
          EXPECT_FALSE(stepOne.blnRecuperar);
          EXPECT_FALSE(stepOne.gblnTPromocion);
          EXPECT_EQ(stepOne.gIDPersonal, 0);
          EXPECT_FALSE(entrada.IsOpen());
        }},
       {"frmNotaManual1", "frmNotaManual"});
  EXPECT_THAT(std::vector(hands.pointers.begin(), hands.pointers.begin() + 2),
              ElementsAre(Pointer::Hourglass, Pointer::Default));
  EXPECT_FALSE(FormInstance<frmNotaManual1>::Exists()) << "the first show drops it";
}

TEST_F(HandedOverTest, ThePointerRestsBeforeTheUsersAreClosed) {
  std::vector<bool> open;
  Show(MostrarFrmNotaManual1,
       {[this, &open] {
          auto& form = The<frmNotaManual1>();
          SelectSection(form, 1);
          hands.Pointing = [this, &open] {
            if (hands.pointers.back() == Pointer::Default) open.push_back(entrada.IsOpen());
          };
          form.cmdNotaManual1[0].Press();
        },
        [] {}},
       {"frmNotaManual1", "frmNotaManual"});
  hands.Pointing = nullptr;
  EXPECT_THAT(open, ElementsAre(true));
  EXPECT_FALSE(entrada.IsOpen());
}

/// What the form of step two knows of a final evaluation; `firstFinal` is 0 where that is the
/// first.
template <class StepTwo>
void ExpectFinal(int firstFinal) {
  const auto& stepTwo = The<StepTwo>();
  EXPECT_EQ(stepTwo.mstrCaption, "ESO 2º ESO A");
  EXPECT_EQ(stepTwo.elegida.mblnFinalSeptiembre, firstFinal != 0);
  EXPECT_EQ(stepTwo.elegida.mlngIdEvaluacionJunio, firstFinal);
}

TEST_F(HandedOverTest, ByStudentInTheFinals) {
  for (const auto& withFirst : {std::pair(5, 4), {4, 0}}) {
    SCOPED_TRACE(withFirst.first);
    Show(MostrarFrmNotaManual1,
         {GoesOn<frmNotaManual1>(withFirst.first),
          [&withFirst] { ExpectFinal<frmNotaManualFinal>(withFirst.second); }},
         {"frmNotaManual1", "frmNotaManualFinal"});
    FormInstances::DropAll();
  }
}

TEST_F(HandedOverTest, BySubjectOfATutor) {
  User(2, 3);
  Show(MostrarFrmNotaMateria1,
       {GoesOn<frmNotaMateria1>(1),
        [] {
          EXPECT_EQ(The<frmNotaMateria>().mstrCaption, "ESO 2º ESO A");
          const auto& stepOne = The<frmNotaMateria1>();
          EXPECT_FALSE(stepOne.blnPosibleRecuperacion) << "never read here";
          EXPECT_FALSE(stepOne.blnRecuperar);
          EXPECT_EQ(stepOne.gIDPersonal, 1);
        }},
       {"frmNotaMateria1", "frmNotaMateria"});
}

// A member of staff with profile 0 is nobody in particular.
TEST_F(HandedOverTest, ProfileZeroHasNoStaffKey) {
  User(2, 0);
  Show(MostrarFrmNotaManual1, {[] { EXPECT_EQ(The<frmNotaManual1>().gIDPersonal, 0); }},
       {"frmNotaManual1"});
}

// The one way in which the grades of a recovery are entered.
TEST_F(HandedOverTest, BySectionAndStudentWithTheRecovery) {
  Show(MostrarFrmNotaSeccionAlumno1,
       {[] {
          auto& form = The<frmNotaSeccionAlumno1>();
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
          EXPECT_EQ(The<frmNotaSeccionAlumno>().mstrCaption, "ESO 2º ESO A");
          const auto& stepOne = The<frmNotaSeccionAlumno1>();
          EXPECT_TRUE(stepOne.blnRecuperar);
          EXPECT_FALSE(stepOne.gblnTPromocion);
          EXPECT_EQ(stepOne.cboMateria.SelectedData(), 3111);
        }},
       {"frmNotaSeccionAlumno1", "frmNotaSeccionAlumno"});
}

TEST_F(HandedOverTest, BySectionAndStudentInTheSecondFinal) {
  Show(MostrarFrmNotaSeccionAlumno1,
       {GoesOn<frmNotaSeccionAlumno1>(5),
        [] {
          ExpectFinal<frmNotaSeccionAlumnoFinal>(4);
          EXPECT_FALSE(The<frmNotaSeccionAlumno1>().blnRecuperar);
        }},
       {"frmNotaSeccionAlumno1", "frmNotaSeccionAlumnoFinal"});
}

TEST_F(HandedOverTest, BySectionAndSubjectOfATeacher) {
  User(3, 3);
  Show(MostrarFrmNotaSeccionMateria1,
       {GoesOn<frmNotaSeccionMateria1>(1),
        [] {
          EXPECT_EQ(The<frmNotaSeccionMateria>().mstrCaption, "ESO 2º ESO A");
          const auto& stepOne = The<frmNotaSeccionMateria1>();
          EXPECT_FALSE(stepOne.blnTutor);
          EXPECT_EQ(stepOne.gIDPersonal, 2);
          EXPECT_EQ(stepOne.cboAlumno.SelectedData(), 1);
          EXPECT_FALSE(stepOne.blnRecuperar);
        }},
       {"frmNotaSeccionMateria1", "frmNotaSeccionMateria"});
}

using OutOfSightTest = HandedOverTest;

// After the message of the date the connection stays open.
TEST_F(OutOfSightTest, TheConnectionClosesOnlyOnTheWayToStepTwo) {
  school.Sql(
      "UPDATE Usuario SET CodPadre=0, AdminSistema=0; INSERT INTO FechaNotas (FechaInicio, "
      "FechaFin, CodSeccion, CodNumEvaluacion) VALUES ('1990/01/01','1990/01/02',321,1)");
  Show(MostrarFrmNotaManual1, {[this] {
         auto& form = The<frmNotaManual1>();
         SelectSection(form, 1);
         EXPECT_FALSE(entrada.IsOpen());
         form.cmdNotaManual1[0].Press();
         EXPECT_TRUE(entrada.IsOpen());
         EXPECT_TRUE(form.Visible());
         form.cmdNotaManual1[1].Press();
         EXPECT_TRUE(entrada.IsOpen());
         EXPECT_FALSE(FormInstance<frmNotaManual1>::Exists());
       }},
       {"frmNotaManual1"});
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
  Show(MostrarFrmNotaManual1, {On<frmNotaManual1>(fails)}, {"frmNotaManual1"});
  Show(MostrarFrmNotaMateria1, {On<frmNotaMateria1>(fails)}, {"frmNotaMateria1"});
  EXPECT_EQ(The<frmNotaManualFinal>().mstrCaption, "ESO 2º ESO A");
  EXPECT_EQ(The<frmNotaMateriaFinal>().mstrCaption, "");
}

TEST_F(OutOfSightTest, TheOpeningPlacesTheHiddenBoxesAndTheIconAndPutsThePointerBack) {
  cConfiguracion::Instancia().RutaIcono = "zendria.ico";
  const auto opened = [this](const auto& form) {
    EXPECT_EQ(form.Icon(), "zendria.ico");
    EXPECT_EQ(form.chkTodosProm.Left(), form.chkRecuperacion.Left());
    EXPECT_EQ(form.chkTodosProm.Top(), form.chkRecuperacion.Top());
    EXPECT_EQ(form.chkRecuperacion.Value(), 0);
    EXPECT_FALSE(form.chkRecuperacion.Visible());
    EXPECT_TRUE(form.blnEntrar);
    EXPECT_THAT(hands.pointers, ElementsAre(Pointer::Hourglass, Pointer::Default));
    hands.pointers.clear();
  };
  The<frmNotaManual1>().chkRecuperacion.Value(1);
  Show(MostrarFrmNotaManual1, {On<frmNotaManual1>(opened)}, {"frmNotaManual1"});
  Show(MostrarFrmNotaMateria1, {On<frmNotaMateria1>(opened)}, {"frmNotaMateria1"});
  Show(MostrarFrmNotaSeccionAlumno1, {On<frmNotaSeccionAlumno1>(opened)},
       {"frmNotaSeccionAlumno1"});
  Show(MostrarFrmNotaSeccionMateria1, {On<frmNotaSeccionMateria1>(opened)},
       {"frmNotaSeccionMateria1"});
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
  Show(MostrarFrmNotaSeccionAlumno1, {On<frmNotaSeccionAlumno1>(another)},
       {"frmNotaSeccionAlumno1"});
  Show(MostrarFrmNotaSeccionMateria1, {On<frmNotaSeccionMateria1>(another)},
       {"frmNotaSeccionMateria1"});
}

// The user can't bring the boxes into sight here; the rules that the two dialogs have for them are
// their own all the same.
TEST_F(OutOfSightTest, TheBoxesOfTheDialogsWithoutSection) {
  const auto choosesAgain = [](auto& form) {
    SelectSection(form, 1);
    form.blnPosibleRecuperacion = true;
    form.chkRecuperacion.Visible(true);
    form.chkRecuperacion.Value(1);
    form.chkTodosProm.Visible(true);
    Select(form.cboSecciones, 321);
    EXPECT_TRUE(form.chkRecuperacion.Visible());
  };
  Show(MostrarFrmNotaManual1, {[&choosesAgain] {
         auto& form = The<frmNotaManual1>();
         choosesAgain(form);
         EXPECT_EQ(form.chkRecuperacion.Value(), 1) << "left alone";
         Select(form.cboEvaluaciones, 1);
         EXPECT_FALSE(form.chkRecuperacion.Visible());
         EXPECT_FALSE(form.chkTodosProm.Visible());
       }},
       {"frmNotaManual1"});
  Show(MostrarFrmNotaMateria1, {[&choosesAgain] {
         auto& form = The<frmNotaMateria1>();
         choosesAgain(form);
         EXPECT_EQ(form.chkRecuperacion.Value(), 0) << "follow-up clears it";
         for (const auto evaluation : {1, 4}) {
           Select(form.cboEvaluaciones, evaluation);
           EXPECT_EQ(form.chkRecuperacion.Visible(), evaluation == 1);
           EXPECT_TRUE(form.chkTodosProm.Visible()) << evaluation;
         }
       }},
       {"frmNotaMateria1"});
}

// What the screen shows while a statement runs, which may take long on a school's network.

class WhileReadingTest : public HandedOverTest {
 protected:
  /// The pointer while the evaluations are read, as the form loads; none when they aren't.
  template <class F>
  std::optional<Pointer> PointerOverEvaluations() {
    std::optional<Pointer> pointer;
    centro.Observe([&](const Connection&, const std::string& statement) {
      if (statement.find("FROM NumEvaluacion WHERE Final=0") != std::string::npos)
        pointer = hands.pointers.back();
    });
    The<F>().ShowModal();
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
  auto& form = The<frmNotaMateria1>();
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

#include <span>

#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/controls/Frame.h"
#include "platform/host/MessageBox.h"
#include "tests/platform/FailsWith.h"
#include "tests/platform/ScriptedFrontEnd.h"

namespace quorvane::test {
namespace {

std::vector<std::string>* events = nullptr;

/// Notes its events, and drops its instance when it is unloaded.
class frmVida : public Form {
 public:
  frmVida() : Form("frmVida") { Width(1000); }
  ~frmVida() override { events->emplace_back("fin"); }
  frmVida(frmVida&&) = delete;

  static inline std::function<void()> alCargar;
  static inline std::function<void()> alActivar;
  static inline std::function<void()> alDescargar;

  CommandButton cmdUno{*this, "cmdUno"};
  Frame fraUno{*this, "fraUno(0)"};
  CommandButton cmdDos{*this, "cmdDos", &fraUno};

  void Form_Load() override {
    events->emplace_back("Load");
    if (alCargar) alCargar();
  }
  void Form_Activate() override {
    events->emplace_back("Activate");
    if (alActivar) alActivar();
  }
  void Form_Resize() override { events->push_back("Resize " + std::to_string(Width())); }
  void Form_KeyDown(int& keyCode) override {
    if (keyCode == 40) keyCode = 0;
  }
  void Form_Unload() override {
    events->emplace_back("Unload");
    if (alDescargar) alDescargar();
    FormInstance<frmVida>::Drop();
    events->emplace_back("tras soltar");
  }
};

class FormTest : public testing::Test {
 protected:
  FormTest() {
    events = &screen.told;
    frmVida::alCargar = frmVida::alActivar = frmVida::alDescargar = nullptr;
  }
  void TearDown() override { FormInstances::DropAll(); }
  static frmVida& Get() { return FormInstance<frmVida>::Get(); }

  ScriptedFrontEnd screen;
};

TEST_F(FormTest, LivesFromLoadToUnload) {
  Get().ShowModal();
  EXPECT_THAT(screen.told,
              ElementsAre("carga frmVida", "Load", "muestra frmVida", "Resize 1000", "Activate",
                          "descarga frmVida", "Unload", "tras soltar", "acaba frmVida", "fin"));
  EXPECT_FALSE(FormInstance<frmVida>::Exists());
}

TEST_F(FormTest, CanBeDroppedFromInsideOneOfItsHandlers) {
  Get().cmdUno.Click = [] {
    Get().Unload();
    EXPECT_FALSE(FormInstance<frmVida>::Exists());
    events->emplace_back("tras el botón");
  };
  screen.user = [](Form& form) { dynamic_cast<frmVida&>(form).cmdUno.Press(); };
  Get().ShowModal();
  EXPECT_THAT(std::span(screen.told).last(3), ElementsAre("tras el botón", "acaba frmVida", "fin"));
}

TEST_F(FormTest, HiddenItStaysLoadedAndShowsAgainWithoutLoad) {
  screen.user = [](Form& form) { form.Hide(); };
  Get().ShowModal();
  EXPECT_TRUE(Get().Loaded());
  EXPECT_FALSE(Get().Visible());
  screen.told.clear();
  Get().ShowModal();
  EXPECT_THAT(screen.told, ElementsAre("muestra frmVida", "Resize 1000", "Activate",
                                       "oculta frmVida", "acaba frmVida"));
}

TEST_F(FormTest, MayGoWhileItIsActivated) {
  frmVida::alActivar = [] { Get().Unload(); };
  screen.user = [](Form&) { FAIL() << "there is no form to act on"; };
  Get().ShowModal();
  EXPECT_EQ(screen.told.back(), "fin");
}

TEST_F(FormTest, ShowsNestAlsoOfOneForm) {
  int depth = 0;
  screen.user = [&depth](Form& form) {
    if (++depth < 3) {
      form.Hide();
      Get().ShowModal();
    } else {
      form.CloseByUser();
    }
    EXPECT_FALSE(form.Visible());
  };
  Get().ShowModal();
  EXPECT_EQ(depth, 3);
  EXPECT_EQ(std::count(screen.told.begin(), screen.told.end(), "Load"), 1);
  EXPECT_EQ(std::count(screen.told.begin(), screen.told.end(), "fin"), 1);
}

TEST_F(FormTest, IsNotShownInTurnAfterAnUnloadThatFails) {
  auto shows = 0;
  frmVida::alDescargar = [] { throw RuntimeError(ErrorNumber::Overflow); };
  screen.user = [&shows](Form& form) {
    form.Hide();
    if (++shows > 1) return;
    form.ShowInTurn();
    // As a front end does that takes all forms away.
    EXPECT_EQ(ErrorOf([&form] { form.Unload(); }), 6);
  };
  Get().ShowModal();
  EXPECT_EQ(shows, 1);
}

TEST_F(FormTest, AFailureInLoadComesOutOfTheShow) {
  frmVida::alCargar = [] { throw RuntimeError(ErrorNumber::NoCurrentRecord); };
  EXPECT_EQ(ErrorOf([] { Get().ShowModal(); }), 3021);
  EXPECT_THAT(screen.told, ElementsAre("carga frmVida", "Load"));
}

TEST_F(FormTest, AFailureInAHandlerComesOutOfAllShows) {
  Get().cmdUno.Click = [] { throw RuntimeError(ErrorNumber::Overflow); };
  int depth = 0;
  screen.user = [&depth](Form& form) {
    if (++depth < 3) Get().ShowModal();
    dynamic_cast<frmVida&>(form).cmdUno.Press();
  };
  EXPECT_EQ(ErrorOf([] { Get().ShowModal(); }), 6);
  EXPECT_EQ(depth, 3);
}

TEST_F(FormTest, DroppingAllRunsNoUnload) {
  screen.user = [](Form& form) { form.Hide(); };
  Get().ShowModal();
  screen.told.clear();
  FormInstances::DropAll();
  EXPECT_THAT(screen.told, ElementsAre("fin"));
  EXPECT_FALSE(FormInstance<frmVida>::Exists());
  FormInstances::DropAll();
  EXPECT_FALSE(Get().Loaded()) << "a fresh one";
}

TEST_F(FormTest, UnloadingAFormThatIsntLoadedDoesNothing) {
  Get().Unload();
  EXPECT_TRUE(screen.told.empty());
  EXPECT_TRUE(FormInstance<frmVida>::Exists());
  Get().Hide();
  EXPECT_TRUE(screen.told.empty());
}

TEST_F(FormTest, IsResizedByCodeAndUserOnlyWhileVisible) {
  Get().Width(2000);
  EXPECT_TRUE(screen.told.empty());
  screen.user = [](Form& form) {
    events->clear();
    form.Height(500);
    form.Height(500);
    form.ResizeByUser(3000, 600);
    form.ResizeByUser(3000, 600);
    EXPECT_EQ(ErrorOf([&form] { form.Width(-1); }), 380);
    form.Hide();
  };
  Get().ShowModal();
  EXPECT_THAT(screen.told,
              ElementsAre("Resize 2000", "Resize 3000", "oculta frmVida", "acaba frmVida"));
}

TEST_F(FormTest, HasRoomInsideItsBorders) {
  const auto roomOf = [](int size) {
    Get().Width(size);
    Get().Height(size);
    return std::pair(Get().ScaleWidth(), Get().ScaleHeight());
  };
  EXPECT_EQ(roomOf(1000), std::pair(1000 - Form::kBorderWidth, 1000 - Form::kBorderHeight));
  EXPECT_EQ(roomOf(0), std::pair(0, 0));
}

TEST_F(FormTest, MayTakeAKey) {
  EXPECT_EQ(Get().KeyDown(40), 0);
  EXPECT_EQ(Get().KeyDown(13), 13);
}

TEST_F(FormTest, FindsItsControlsWithoutRegardToCase) {
  EXPECT_EQ(Get().Find("CMDUNO"), &Get().cmdUno);
  EXPECT_EQ(Get().Find("fraUno(0)"), &Get().fraUno);
  EXPECT_EQ(Get().Find("fraUno"), nullptr);
  EXPECT_EQ(Get().Controls(), (std::vector<Control*>{&Get().cmdUno, &Get().fraUno, &Get().cmdDos}));
}

TEST_F(FormTest, SpeaksToTheScreen) {
  BeepAndMessage("No", MessageIcon::Exclamation);
  MessageBox("Sí", MessageIcon::Information);
  Get().Refresh();
  EXPECT_THAT(screen.told, ElementsAre("pitido", "mensaje 0 Zendria Escuela: No",
                                       "mensaje 1 Zendria Escuela: Sí", "pinta"));
  EXPECT_EQ(Get().TextWidth("abc"), 3);
}

TEST(ApplicationTest, WithoutAScreenIsAnObjectNotSet) {
  EXPECT_EQ(ErrorOf([] { static_cast<void>(Application::Instance().Screen()); }), 91);
  EXPECT_EQ(ErrorOf([] { MessageBox("x", MessageIcon::Critical); }), 91);
}

TEST(ApplicationTest, HasTheVersionThatWasBuilt) {
  const auto version = Application::BuiltVersion();
  EXPECT_THAT(version, testing::FieldsAre(6, 0, 9));
  EXPECT_EQ(Application::Instance().Version().revision, 9);
  Application::Instance().Version({6, 0, 3});
  EXPECT_EQ(Application::Instance().Version().revision, 3);
  Application::Instance().Version(version);
}

}  // namespace
}  // namespace quorvane::test

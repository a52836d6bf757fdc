#include <QScreen>

#include "adapters/qt/views/Units.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/qt/frmPrueba.h"

namespace quorvane::test {
namespace {

/// What a host keeps of the sizes of forms, and when it was asked.
class WindowSizesTest : public SchoolScreenTest {
 protected:
  WindowSizesTest() {
    screen.RecallSize = [this](const qt::FormWindow& window) {
      asked.push_back(window.Model().Name());
      return recalled;
    };
    screen.KeepSize = [this](const qt::FormWindow& window, QSize size) {
      kept.push_back(window.Model().Name() + " " + Text(size));
    };
    form->OnActivate = [this] { form->Log("activa"); };
    form->OnResize = [this] { form->Log("medidas " + Text({form->Width(), form->Height()})); };
  }

  template <class... Gestures>
  void Run(Gestures... gestures) {
    Then(gestures..., "cmdCancelar");
    Show(*form);
  }
  static Gesture Resize(int width, int height) {
    return [=](auto& window) { window.resize(width, height); };
  }
  /// The form's own measures in a window of those, in pixels.
  static QSize Outer(int width, int height) {
    return {qt::Twips(width) + Form::kBorderWidth, qt::Twips(height) + Form::kBorderHeight};
  }
  static std::string Text(QSize size) {
    return std::to_string(size.width()) + "x" + std::to_string(size.height());
  }

  std::shared_ptr<frmPrueba> form = std::make_shared<frmPrueba>();
  std::optional<QSize> recalled;
  std::vector<std::string> asked;
  std::vector<std::string> kept;
};

TEST_F(WindowSizesTest, ARecalledSizeReachesTheFormAsAUsersWouldOnceItHasBeenShown) {
  recalled = Outer(500, 490);
  Run([](qt::FormWindow& window) { EXPECT_EQ(window.size(), QSize(500, 490)); });
  EXPECT_THAT(form->log, ElementsAre("medidas 9840x6120", "activa", "medidas " + Text(*recalled),
                                     "cancelar", "descarga"));
  EXPECT_THAT(asked, ElementsAre("frmPrueba"));
  EXPECT_THAT(kept, IsEmpty()) << "the user hasn't chosen it now";
}

TEST_F(WindowSizesTest, WithNothingRecalledTheFormKeepsItsSize) {
  Run();
  EXPECT_THAT(form->log, ElementsAre("medidas 9840x6120", "activa", "cancelar", "descarga"));
  EXPECT_THAT(kept, IsEmpty());
}

TEST_F(WindowSizesTest, TheUsersLastSizeIsKeptWhenTheShowEnds) {
  Run(Resize(600, 500), Resize(720, 530), [this](auto&) { EXPECT_THAT(kept, IsEmpty()); });
  EXPECT_THAT(kept, ElementsAre("frmPrueba " + Text(Outer(720, 530))));
}

TEST_F(WindowSizesTest, WhatTheFormMakesOfASizeIsWhatIsKept) {
  form->OnResize = [this] {
    if (form->Width() < 9300) form->Width(9300);
    if (form->Height() < 6465) form->Height(6465);
  };
  recalled = QSize(3000, 2000);
  const auto isAsSmallAsMayBe = [](auto& window) {
    EXPECT_EQ(window.width(), qt::Pixels(9300 - Form::kBorderWidth));
  };
  Run(isAsSmallAsMayBe, Resize(200, 200));
  EXPECT_THAT(kept, ElementsAre("frmPrueba 9300x6465"));
}

TEST_F(WindowSizesTest, ASizeBeyondTheScreenIsCutToIt) {
  recalled = QSize(150'000, 150'000);
  Run([](qt::FormWindow& window) {
    const auto whole = window.screen()->availableGeometry();
    EXPECT_TRUE(whole.contains(window.geometry()));
    EXPECT_GT(window.width(), whole.width() * 9 / 10);
  });
}

TEST_F(WindowSizesTest, AWindowStandsOnTheScreenWhereverTheOneBeforeItStands) {
  QWidget host;
  host.show();
  screen.HostWindow(&host);
  const auto whole = host.screen()->availableGeometry();
  for (const auto corner : {whole.topLeft(), whole.bottomRight(), QPoint(-3000, -3000)}) {
    host.setGeometry(QRect(corner, QSize(80, 60)));
    form = std::make_shared<frmPrueba>();
    recalled = QSize(9000, 6000);
    Run([&whole](qt::FormWindow& window) { EXPECT_TRUE(whole.contains(window.geometry())); });
  }
  screen.HostWindow(nullptr);
}

TEST_F(WindowSizesTest, OnlyFormsThatTheUserMayResizeAreAskedFor) {
  InRegister("cmdCancelar");
  EXPECT_THAT(asked, ElementsAre("frmAlumnoPendiente"));
}

TEST_F(WindowSizesTest, WhatALayoutMakesOfAFixedSizeIsNotTheUsers) {
  const auto enlarge = [](auto& window) {
    const auto width = window.Model().Width();
    window.setFixedSize(window.size() + QSize(20, 20));
    EXPECT_NE(window.Model().Width(), width) << "the form knows of it";
  };
  Then(enlarge, "cmdNotaManual1(1)");
  OpenNode(kByStudent);
  EXPECT_THAT(kept, IsEmpty());
}

// The form shrinks to its busy box before it goes; that is no size of the user's.
TEST_F(WindowSizesTest, TheBusyBoxIsNoSizeToKeep) {
  InStepTwo(kByStudent, kSecond, Resize(840, 560), "cmdAceptar");
  EXPECT_THAT(asked, ElementsAre("frmNotaManual"));
  EXPECT_THAT(kept, ElementsAre("frmNotaManual " + Text(Outer(840, 560))));
}

}  // namespace
}  // namespace quorvane::test

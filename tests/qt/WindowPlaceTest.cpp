#include <QPushButton>
#include <QScreen>
#include <QWindow>

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/WindowPlace.h"
#include "apps/escuela/Prng.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

constexpr int kTimes = 200;
constexpr int kRest = 350;  // milliseconds, after which no answer is expected

class WindowPlaceTest : public PruebaTest {
 protected:
  int Draw(int from, int to) {
    return from + static_cast<int>(random.Below(static_cast<std::size_t>(to - from + 1)));
  }

  /// The window system tells the window that it stands there, after that many milliseconds. When
  /// the window has asked for something new since `asked`, that comes true in the end, else what
  /// it had asked for.
  static void Tell(qt::FormWindow& window, const QRect& late, int delay) {
    auto* const handle = window.windowHandle();
    const auto asked = handle->geometry();
    QTest::qWait(delay);
    handle->setGeometry(late);
    const auto told = handle->geometry();
    QCoreApplication::processEvents();
    const auto truth = handle->geometry() == told ? asked : handle->geometry();
    QTest::qWait(delay);
    handle->setGeometry(truth);
    QCoreApplication::processEvents();
  }

  Gesture PutToWork() {
    return [this](auto& window) {
      form->cmdPagina.Click = [this] { Work([this](auto& shrunk) { box = shrunk.geometry(); }); };
      Of<QPushButton>(window, "cmdPagina")->click();
    };
  }

  /// A form for which there is room on every screen.
  void MakeSmall() {
    form->Width(6000);
    form->Height(4500);
  }

  static void ExpectWhole(const qt::FormWindow& window) {
    const auto room = window.screen()->availableGeometry();
    const auto frame = window.frameGeometry();
    EXPECT_GE(frame.left(), room.left());
    EXPECT_GE(frame.top(), room.top());
    EXPECT_TRUE(frame.width() > room.width() || frame.right() <= room.right());
    EXPECT_TRUE(frame.height() > room.height() || frame.bottom() <= room.bottom());
  }

  Prng random{20'261'122};
  QRect box;  ///< of the window at work
};

TEST_F(WindowPlaceTest, AFrameIsWholeOnTheScreenWhereThereIsRoom) {
  for (int i = 0; i < kTimes; ++i) {
    const QRect room(Draw(-2000, 2000), Draw(-2000, 2000), Draw(640, 3840), Draw(480, 2160));
    const QRect frame(Draw(-6000, 6000), Draw(-6000, 6000), Draw(100, 4000), Draw(50, 2400));
    const auto placed = qt::WholeOn(frame, room);
    EXPECT_EQ(placed.size(), frame.size());
    EXPECT_EQ(room.contains(placed),
              frame.width() <= room.width() && frame.height() <= room.height());
    EXPECT_GE(placed.left(), room.left());
    EXPECT_GE(placed.top(), room.top());
    EXPECT_TRUE(frame.width() <= room.width() || placed.left() == room.left());
    EXPECT_TRUE(frame.height() <= room.height() || placed.top() == room.top());
    EXPECT_TRUE(!room.contains(frame) || placed == frame) << "moved without need";
  }
}

// However late the window system tells of the busy box, and wherever the window stood before it.
TEST_F(WindowPlaceTest, AFormThatGrowsBackLiesWholeOnItsScreen) {
  for (int i = 0; i < kTimes && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    form = std::make_shared<frmPrueba>();
    const auto room = QGuiApplication::primaryScreen()->availableSize();
    form->Width(qt::Twips(Draw(280, room.width() + 100)));
    form->Height(qt::Twips(Draw(200, room.height() + 100)));
    const auto width = form->Width();
    const auto height = form->Height();
    Run([this, width, height, room](qt::FormWindow& window) {
      const auto whole = window.size();
      window.move(Draw(-whole.width() / 2, room.width()), Draw(-20, room.height()));
      const auto before = window.geometry();
      PutToWork()(window);
      ExpectWhole(window);
      const auto delay = Draw(0, 8);
      if (Draw(0, 1) == 1) Tell(window, before, delay);
      Tell(window, box, delay);
      ExpectWhole(window);
      EXPECT_EQ(window.size(), whole);
      EXPECT_EQ(form->Width(), width);
      EXPECT_EQ(form->Height(), height);
    });
  }
}

TEST_F(WindowPlaceTest, ALateAnswerIsNoSizeOfTheUsers) {
  auto resized = 0;
  std::vector<QSize> kept;
  screen.KeepSize = [&kept](const qt::FormWindow& /*window*/, QSize size) { kept.push_back(size); };
  Run(PutToWork(), [this, &resized](auto& window) {
    form->OnResize = [&resized] { ++resized; };
    Tell(window, box, 0);
  });
  EXPECT_EQ(resized, 0);
  EXPECT_TRUE(kept.empty());
}

TEST_F(WindowPlaceTest, WhatTheWindowSystemLeavesUndoneIsAskedForAgain) {
  MakeSmall();
  Run([this](qt::FormWindow& window) {
    const auto whole = window.size();
    PutToWork()(window);
    window.windowHandle()->setGeometry(box);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), box.size());
    EXPECT_TRUE(QTest::qWaitFor([&window, whole] { return window.size() == whole; }));
    ExpectWhole(window);
  });
}

// The frame is there only after the window, and reaches beyond the edge.
TEST_F(WindowPlaceTest, AWindowThatIsFoundBeyondTheEdgeOnceItHasGrownIsPutBack) {
  MakeSmall();
  Run(PutToWork(), [this](auto& window) {
    const auto room = window.screen()->availableGeometry();
    window.windowHandle()->setGeometry(QRect(room.bottomRight() - QPoint(60, 60), window.size()));
    QCoreApplication::processEvents();
    ASSERT_FALSE(room.contains(window.frameGeometry()));
    EXPECT_TRUE(
        QTest::qWaitFor([&window, &room] { return room.contains(window.frameGeometry()); }));
  });
}

TEST_F(WindowPlaceTest, WhereTheUserMovesItLaterTheWindowStays) {
  MakeSmall();
  Run(PutToWork(), [this](auto& window) {
    QTest::qWait(kRest);
    const auto room = window.screen()->availableGeometry();
    for (const auto corner :
         {room.bottomRight() - QPoint(40, 40), room.topRight() - QPoint(90, 0)}) {
      window.move(corner);
      QTest::qWait(kRest);
      EXPECT_EQ(window.pos(), corner);
      EXPECT_EQ(form->Left(), qt::Twips(corner.x()));
      EXPECT_EQ(form->Top(), qt::Twips(corner.y()));
    }
    // Another control's work moves nothing either.
    Of<QPushButton>(window, "cmdAceptar")->setFocus();
    EXPECT_FALSE(room.contains(window.frameGeometry()));
  });
}

TEST_F(WindowPlaceTest, TheUserMayGoBackToASizeThatTheWindowHadBefore) {
  Run(PutToWork(), [this](auto& window) {
    const auto whole = window.size();
    const auto width = form->Width();
    window.resize(whole - QSize(70, 0));
    EXPECT_EQ(form->Width(), qt::Twips(whole.width() - 70) + Form::kBorderWidth);
    for (const auto size : {box.size(), whole}) {
      window.resize(size);
      EXPECT_EQ(form->Width(), qt::Twips(size.width()) + Form::kBorderWidth);
    }
    QTest::qWait(kRest);
    EXPECT_EQ(window.size(), whole);
    EXPECT_NEAR(form->Width(), width, 15);
  });
}

}  // namespace
}  // namespace quorvane::test

#pragma once

#include <QEvent>
#include <QObject>
#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "tests/qt/Hands.h"
#include "tests/qt/ScreenTest.h"
#include "tests/qt/frmPrueba.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {

/// What the user does in the form, and what that has heard and he has been told by then.
struct Play {
  const char* name;
  Gesture gestures;
  std::vector<std::string> heard;
  std::vector<std::string> told = {};
  friend void PrintTo(const Play& play, std::ostream* out) { *out << play.name; }
};

inline std::string NameOfPlay(const ::testing::TestParamInfo<Play>& play) {
  return play.param.name;
}

/// One show of the form with all kinds of control, ended by its button that cancels.
class PruebaTest : public ScreenTest {
 protected:
  template <class... Gestures>
  void Run(Gestures... gestures) {
    Then([this](auto&) { form->log.clear(); }, gestures..., [this](auto&) { seen = form->log; },
         "cmdCancelar");
    Show(*form);
  }

  /// The form at work: shrunk to its busy box for a while, and then with its measures again.
  template <class Meanwhile>
  void Work(const Meanwhile& meanwhile) {
    const std::array kept{form->Height(), form->Width(), form->Top(), form->Left()};
    form->Height(2500);
    form->Width(4000);
    form->Left((screen.ScreenWidth() - form->Width()) / 2);
    form->Top((screen.ScreenHeight() - form->Height()) / 2);
    screen.DoEvents();
    meanwhile(*screen.ActiveWindow());
    form->Height(kept[0]);
    form->Width(kept[1]);
    form->Top(kept[2]);
    form->Left(kept[3]);
  }
  void Run(const Play& play) {
    Run(play.gestures);
    EXPECT_EQ(seen, play.heard);
    EXPECT_EQ(messages, play.told);
  }

  std::shared_ptr<frmPrueba> form = std::make_shared<frmPrueba>();
  std::vector<std::string> seen;  ///< the events, but for the last button's
};

inline frmPrueba& FormOf(const qt::FormWindow& window) {
  return dynamic_cast<frmPrueba&>(window.Model());
}

class PlayTest : public PruebaTest, public ::testing::WithParamInterface<Play> {};

/// The keyboard is on that cell of the grades.
inline Gesture StandsAt(int row, int col) {
  return [=](auto& window) {
    const auto& grid = FormOf(window).rtvNotas;
    EXPECT_EQ(std::pair(grid.Row() - 1, grid.Col()), std::pair(row, col));
  };
}

/// Counts the events of that kind that come by, and keeps them where it `takes` them.
class EventCounter : public QObject {
 public:
  explicit EventCounter(QEvent::Type type, bool takes = false) : type_(type), takes_(takes) {}
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == type_) ++count;
    return takes_ && event->type() == type_;
  }
  int count = 0;

 private:
  QEvent::Type type_;
  bool takes_;
};

/// Two forms, one opened from the other.
class TwoFormsTest : public ScreenTest {
 protected:
  /// The outer form hides while the inner one is shown, and is shown anew from inside that.
  void HideOuterBehindInner() {
    outer->cmdPagina.Click = [this] {
      outer->Hide();
      inner->ShowModal();
    };
    inner->cmdAceptar.Click = [this] {
      inner->Unload();
      outer->ShowModal();
    };
  }

  /// As step two of the module is: it goes before it has the outer form come back.
  void TakeTurns() {
    HideOuterBehindInner();
    inner->cmdAceptar.Click = [this] {
      inner->Unload();
      outer->ShowInTurn();
    };
  }

  std::shared_ptr<frmPrueba> outer = std::make_shared<frmPrueba>("frmFuera");
  std::shared_ptr<frmPrueba> inner = std::make_shared<frmPrueba>("frmDentro");
};

}  // namespace quorvane::test

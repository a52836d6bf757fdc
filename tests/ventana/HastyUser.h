#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QString>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "apps/escuela/Prng.h"
#include "tests/ventana/HastyHands.h"
#include "tests/ventana/InputQueue.h"
#include "tests/ventana/OpenList.h"
#include "tests/ventana/ScreenWatch.h"
#include "tests/ventana/ShownGrades.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/History.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// Somebody at the keyboard and the mouse, at any speed: one gesture and a look at what it did, or
/// many at once, also while a form loads or saves. He acts as long as a form is shown.
class HastyUser {
 public:
  HastyUser(Prng& random, WatchedScreen& screen, History& history)
      : random_(random), screen_(screen), history_(history) {
    QObject::connect(&turn_, &QTimer::timeout, [this] { Tick(); });
    turn_.start(0);
  }

  /// Who looks on from now on; outlives its use here.
  void UseWatch(ScreenWatch& watch) noexcept { watch_ = &watch; }
  /// So many gestures more; then he closes all that is open.
  void PlayFor(std::uint64_t gestures) {
    until_ = gestures_ + gestures;
    leaving_ = 0;
    sinceLook_ = 0;
  }

  /// The module executes a statement: he doesn't wait for its end.
  void Interrupt() {
    auto* window = screen_.ActiveWindow();
    if (window == nullptr || gestures_ >= until_) return;
    if (random_.Chance(3)) {
      const auto count = 1 + random_.Below(3);
      for (std::size_t i = 0; i < count; ++i)
        Note(*window, hands_.Type(*window, *window), "  mientras tanto, ");
    }
    // As the host does at statements that take long.
    if (random_.Chance(5)) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }

  [[nodiscard]] std::uint64_t Gestures() const noexcept { return gestures_; }
  /// How often a text that is no grade has held him back.
  [[nodiscard]] std::uint64_t Refusals() const noexcept { return refusals_; }
  /// How many of them on each form.
  [[nodiscard]] const std::map<std::string, std::uint64_t>& GesturesByForm() const noexcept {
    return byForm_;
  }

 private:
  /// Turns of the event loop after which what was put off to later has run as well.
  static constexpr int kSettled = 2;
  /// Dialogs that open dialogs nest.
  static constexpr std::size_t kDeepest = 25;
  static constexpr int kPatience = 1000;

  static QWidget& Front(qt::FormWindow& window) {
    if (auto* popup = QApplication::activePopupWidget()) return *popup;
    if (auto* modal = QApplication::activeModalWidget()) return *modal;
    return window;
  }

  /// A message, or a menu of one of its parts, as a scroll bar has.
  static bool IsMessage(const QWidget& front) {
    for (const auto* part = &front; part != nullptr; part = part->parentWidget())
      if (dynamic_cast<const QMessageBox*>(part) != nullptr) return true;
    return false;
  }

  void Tick() {
    auto* window = screen_.ActiveWindow();
    if (window == nullptr || !InputQueue::Empty()) {
      quiet_ = 0;
      return;
    }
    auto& front = Front(*window);
    // A handler of the form lets the screen be painted.
    if (screen_.Busy() && !IsMessage(front)) return;
    if (++quiet_ < kSettled) return;
    quiet_ = 0;
    // A window manager gives the keyboard back to the window before which a list has closed.
    auto* keyboard = QApplication::activePopupWidget() == nullptr ? front.windowHandle() : nullptr;
    if (keyboard != nullptr && QGuiApplication::focusWindow() != keyboard) {
      keyboard->requestActivate();
      if (QGuiApplication::focusWindow() != keyboard && !InputQueue::Empty()) return;
    }
    if (!screen_.Busy()) Look();
    if (gestures_ >= until_ || screen_.Shown().Depth() > kDeepest)
      Leave(front, *window);
    else
      Act(front, *window);
  }

  void Look() {
    const auto open = FindOpenList(*screen_.ActiveWindow());
    // A list that is still open holds what was typed.
    if (open) watch_->Grades().ExpectNothing();
    const auto refused = std::exchange(refused_, {});
    try {
      if (!refused.isEmpty()) {
        if (!open || open->typed != refused)
          throw Violation("Se ha perdido lo escrito que no es ninguna nota: " +
                          refused.toStdString());
        ++refusals_;
      }
      watch_->Look(sinceLook_ <= 1);
    } catch (...) {
      // Out of here it would cross the event loop: the form's show takes it on.
      screen_.Gesture(*screen_.ActiveWindow(),
                      [failure = std::current_exception()] { std::rethrow_exception(failure); });
    }
    sinceLook_ = 0;
  }
  void ActOnce(QWidget& front, const qt::FormWindow& window) {
    const auto deed = hands_.Act(front, window);
    Note(window, deed, "");
    ExpectTyped(window, deed);
  }

  void Act(QWidget& front, const qt::FormWindow& window) {
    constexpr std::size_t kFew = 3;
    constexpr std::size_t kMany = 15;
    constexpr std::size_t kLongest = 15;  // milliseconds
    const auto pace = random_.Below(100);
    if (pace < 5) QThread::msleep(1 + static_cast<unsigned long>(random_.Below(kLongest)));
    const auto open = FindOpenList(window);
    if (pace < 40 || (open && !open->typed.isEmpty())) {
      ActOnce(front, window);
      return;
    }
    // Grades are what is typed in a hurry.
    const auto many = pace >= 80 && EntersGrades(window.Model());
    const auto count = 2 + random_.Below(many ? kMany : kFew);
    for (std::size_t i = 0; i < count; ++i)
      Note(window, hands_.Act(front, window), i == 0 ? "" : "  + ");
  }

  void Leave(QWidget& front, const qt::FormWindow& window) {
    if (++leaving_ == kPatience)
      screen_.Gesture(window,
                      [&window] { throw Violation(window.Model().Name() + " no se deja cerrar"); });
    sinceLook_ = kPatience;
    if (&front == &window && !FindOpenList(window)) {
      history_.Add(window.Model().Name() + ": cierra");
      InputQueue::Close(window.windowHandle());
    } else {
      history_.Add(window.Model().Name() + ": tecla Esc");
      queue_.Key(front.windowHandle(), Qt::Key_Escape);
    }
  }
  void Note(const qt::FormWindow& window, const HastyHands::Deed& deed, const char* how) {
    const auto gestures = static_cast<std::uint64_t>(deed.gestures);
    gestures_ += gestures;
    sinceLook_ += gestures;
    byForm_[window.Model().Name()] += gestures;
    history_.Add(how + window.Model().Name() + ": " + deed.text);
  }

  /// What was typed into a list and then left by that click is taken, or holds the user back.
  void ExpectTyped(const qt::FormWindow& window, const HastyHands::Deed& deed) {
    const auto open = FindOpenList(window);
    if (!open || open->typed.trimmed().isEmpty() || !deed.clicked) return;
    const auto* editor = open->entries->parentWidget();
    if (editor->rect().contains(editor->mapFromGlobal(*deed.clicked))) return;
    if (!open->marked) {
      refused_ = open->typed;
      return;
    }
    watch_->Grades().Expect(open->row, open->column, open->marked->toStdString());
  }

  Prng& random_;
  WatchedScreen& screen_;
  History& history_;
  InputQueue queue_;
  HastyHands hands_{random_, queue_};
  ScreenWatch* watch_ = nullptr;
  QTimer turn_;
  int quiet_ = 0;  ///< turns since nothing waits any more
  std::uint64_t sinceLook_ = 0;
  std::uint64_t gestures_ = 0;
  std::map<std::string, std::uint64_t> byForm_;
  std::uint64_t until_ = 0;
  QString refused_;  ///< typed, fits no grade, and left by the last click
  std::uint64_t refusals_ = 0;
  int leaving_ = 0;  ///< tries to close what is open
};

}  // namespace quorvane::test

#include "tests/ventana/HastyUser.h"

#include <QApplication>
#include <QMessageBox>
#include <QThread>
#include <QWindow>
#include <utility>

#include "tests/ventana/OpenList.h"
#include "tests/ventana/ShownGrades.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

/// Turns of the event loop after which what was put off to later has run as well.
constexpr int kSettled = 2;
/// Step two opens step one again, so shows nest.
constexpr std::size_t kDeepest = 25;
constexpr int kPatience = 1000;

QWidget& Front(qt::FormWindow& window) {
  if (auto* popup = QApplication::activePopupWidget()) return *popup;
  if (auto* modal = QApplication::activeModalWidget()) return *modal;
  return window;
}

bool IsMessage(const QWidget& front) { return dynamic_cast<const QMessageBox*>(&front) != nullptr; }

}  // namespace

HastyUser::HastyUser(Prng& random, WatchedScreen& screen, History& history)
    : random_(random), screen_(screen), history_(history) {
  QObject::connect(&turn_, &QTimer::timeout, [this] { Tick(); });
  turn_.start(0);
}

void HastyUser::PlayFor(std::uint64_t gestures) {
  until_ = gestures_ + gestures;
  leaving_ = 0;
  sinceLook_ = 0;
}

void HastyUser::Tick() {
  auto* window = screen_.ActiveWindow();
  if (window == nullptr || !InputQueue::Empty()) {
    quiet_ = 0;
    return;
  }
  auto& front = Front(*window);
  // A handler of the form lets the screen be painted.
  if (screen_.Busy() && !IsMessage(*front.window())) return;
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

void HastyUser::Look() {
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

void HastyUser::Note(const qt::FormWindow& window, const HastyHands::Deed& deed, const char* how) {
  const auto gestures = static_cast<std::uint64_t>(deed.gestures);
  gestures_ += gestures;
  sinceLook_ += gestures;
  byForm_[window.Model().Name()] += gestures;
  history_.Add(how + window.Model().Name() + ": " + deed.text);
}

void HastyUser::ExpectTyped(const qt::FormWindow& window, const HastyHands::Deed& deed) {
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

void HastyUser::ActOnce(QWidget& front, const qt::FormWindow& window) {
  const auto deed = hands_.Act(front, window);
  Note(window, deed, "");
  ExpectTyped(window, deed);
}

void HastyUser::Act(QWidget& front, const qt::FormWindow& window) {
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

void HastyUser::Interrupt() {
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

void HastyUser::Leave(QWidget& front, const qt::FormWindow& window) {
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

}  // namespace quorvane::test

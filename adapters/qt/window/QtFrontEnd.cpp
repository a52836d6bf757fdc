#include "adapters/qt/window/QtFrontEnd.h"

#include <QApplication>
#include <QEventLoop>
#include <QEventLoopLocker>
#include <QFontMetrics>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <exception>
#include <utility>

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/CurrentRows.h"

namespace quorvane::qt {

/// One modal show that runs.
struct Show {
  explicit Show(FormWindow& shown) : window(shown) {}

  FormWindow& window;
  QEventLoop loop;
  std::exception_ptr failure;
  bool busy = false;  // one of its handlers is running
};

namespace {

constexpr qint64 kPaintEvery = 40;  // milliseconds, as the next
constexpr qint64 kLongWork = 300;

/// Stands on the list for as long as it lives.
class Standing {
 public:
  Standing(std::vector<Show*>& shows, Show& show) : shows_(shows) { shows_.push_back(&show); }
  ~Standing() { shows_.pop_back(); }
  Standing(const Standing&) = delete;
  Standing& operator=(const Standing&) = delete;
  Standing(Standing&&) = delete;
  Standing& operator=(Standing&&) = delete;

 private:
  std::vector<Show*>& shows_;
};

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::Exclamation:
      break;
  }
  return QMessageBox::Warning;
}

}  // namespace

QtFrontEnd::QtFrontEnd() {
  sincePaint_.start();
  sinceUser_.start();
}

QtFrontEnd::~QtFrontEnd() {
  UsersTurn();
  if (hourglass_) QApplication::restoreOverrideCursor();
}

FormWindow* QtFrontEnd::ActiveWindow() const noexcept {
  return shows_.empty() ? nullptr : &shows_.back()->window;
}

QWidget* QtFrontEnd::TopWindow() const {
  for (auto show = shows_.rbegin(); show != shows_.rend(); ++show)
    if ((*show)->window.isVisible()) return &(*show)->window;
  return host_;
}

bool QtFrontEnd::Busy() const noexcept { return !shows_.empty() && shows_.back()->busy; }

void QtFrontEnd::RunModal(Form& form) {
  if (leaving_) return TakeAway(form);
  ShowChanges();
  FormWindow window(*this, form, TopWindow());
  Show show(window);
  {
    const Standing standing(shows_, show);
    ++showsBegun_;
    try {
      Begin(show);
    } catch (...) {
      if (!leaving_) throw;
      show.failure = std::current_exception();
    }
    while (form.Visible() && show.failure == nullptr && !leaving_) {
      // Told to end, the program must still unwind through the handlers that wait here.
      if (show.loop.exec() < 0) show.loop.processEvents(QEventLoop::WaitForMoreEvents);
    }
    UsersTurn();
    if (leaving_) {
      if (show.failure != nullptr) KeepFailure(std::exchange(show.failure, nullptr));
      show.busy = true;
      TakeAway(form);
    }
    window.hide();
    if (const auto size = window.SizeOfUser(); size && KeepSize) KeepSize(window, *size);
  }
  if (window.Accepted() && !shows_.empty()) shows_.back()->window.MarkChanged();
  if (show.failure != nullptr) std::rethrow_exception(show.failure);
  if (leaving_) return;
  if (auto* below = TopWindow()) below->activateWindow();
}

// Windows that come and go inside a show, and between two of one form, are no reason to end it.
std::shared_ptr<void> QtFrontEnd::HoldProgram() { return std::make_shared<QEventLoopLocker>(); }

void QtFrontEnd::Begin(Show& show) {
  auto& form = show.window.Model();
  show.window.Appear();
  PaintOnly();
  if (leaving_) return;
  show.busy = true;
  form.Shown();
  ShowChanges();
  show.busy = false;
  if (form.Visible()) RecallSizeOf(show.window);
  UsersTurn();
  RunHooks(show.window);
}

void QtFrontEnd::Leave() {
  if (std::exchange(leaving_, true)) return;
  if (message_ != nullptr) message_->accept();
  for (auto* show : shows_) show->loop.quit();
}

void QtFrontEnd::KeepFailure(const std::exception_ptr& failure) {
  leavingFailures_.push_back(failure);
  if (FailedWhileLeaving) FailedWhileLeaving(failure);
}

void QtFrontEnd::TakeAway(Form& form) {
  try {
    form.Unload();
  } catch (...) {
    leavingFailures_.push_back(std::current_exception());
  }
}

void QtFrontEnd::RecallSizeOf(FormWindow& window) {
  if (!RecallSize || !window.Resizable()) return;
  if (const auto size = RecallSize(window)) window.TakeSize(*size);
}

void QtFrontEnd::RunHooks(FormWindow& window) {
  // The hooks act as the user, so the window must listen to them.
  const auto run = [this, &window](const std::function<void(FormWindow&)>& hook) {
    Gesture(window, [this, &window, &hook] {
      shows_.back()->busy = false;
      hook(window);
    });
  };
  // At once: what was typed while the form loaded waits in the event loop.
  if (FormReady) run(FormReady);
  if (!WindowShown) return;
  QTimer::singleShot(0, &window, [this, run] {
    if (WindowShown) run(WindowShown);
  });
}

void QtFrontEnd::Gesture(const FormWindow& window, const std::function<void()>& handler) noexcept {
  if (shows_.empty()) return;
  auto& show = *shows_.back();
  if (&show.window != &window || show.busy || show.failure != nullptr || leaving_) return;
  if (!window.Model().Visible()) return;
  show.busy = true;
  UsersTurn();
  try {
    const CurrentRows rows(window.Model());
    const auto shows = showsBegun_;
    handler();
    if (showsBegun_ != shows) rows.ChooseAgain();
    ShowChanges();
  } catch (...) {
    show.failure = std::current_exception();
  }
  show.busy = false;
  UsersTurn();
  if (show.failure != nullptr || !window.Model().Visible()) show.loop.quit();
}

void QtFrontEnd::ShowChanges() {
  for (std::size_t i = 0; i < shows_.size(); ++i) {
    auto& window = shows_[i]->window;
    auto again = false;  // the same form is shown anew further in
    for (auto inner = i + 1; inner < shows_.size(); ++inner)
      again = again || &shows_[inner]->window.Model() == &window.Model();
    if (again || !window.Model().Visible())
      window.hide();
    else
      window.Sync();
  }
}

void QtFrontEnd::Hidden(Form& form) {
  for (auto* show : shows_)
    if (&show->window.Model() == &form) show->window.hide();
}

void QtFrontEnd::Unloading(Form& form) {
  if (FormUnloading) FormUnloading(form);
}

void QtFrontEnd::PaintOnly() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  sincePaint_.restart();
}

void QtFrontEnd::DoEvents() {
  ShowChanges();
  PaintOnly();
}

void QtFrontEnd::Pulse() {
  if (shows_.empty()) return;
  if (!waiting_ && Busy() && sinceUser_.elapsed() >= kLongWork) {
    waiting_ = true;
    QApplication::setOverrideCursor(Qt::WaitCursor);
  }
  if (sincePaint_.elapsed() >= kPaintEvery) PaintOnly();
}

bool QtFrontEnd::Await() {
  const QScopedValueRollback awaiting(awaiting_, true);
  if (shows_.empty())
    PaintOnly();
  else
    Pulse();
  return leaving_ || givingUp_;
}

void QtFrontEnd::UsersTurn() {
  givingUp_ = false;
  if (waiting_) QApplication::restoreOverrideCursor();
  waiting_ = false;
  sinceUser_.restart();
}

void QtFrontEnd::Message(MessageIcon icon, const std::string& title, const std::string& text) {
  Message(icon, Text(title), Text(text).replace('\r', '\n'), {});
}

void QtFrontEnd::Message(MessageIcon icon, const QString& title, const QString& text,
                         const QString& details) {
  if (leaving_) return;
  ShowChanges();
  QMessageBox box(IconOf(icon), title, text, QMessageBox::Ok, TopWindow());
  box.setTextFormat(Qt::PlainText);
  if (!details.isEmpty()) box.setDetailedText(details);
  box.button(QMessageBox::Ok)->setText("Aceptar");
  std::exception_ptr failure;
  if (MessageShown) {
    QTimer::singleShot(0, &box, [this, &box, &failure] {
      try {
        MessageShown(box);
      } catch (...) {
        failure = std::current_exception();
        box.reject();
      }
    });
  }
  // The user is to read and answer: no time for the hourglass.
  if (hourglass_) QApplication::restoreOverrideCursor();
  UsersTurn();
  const QScopedValueRollback waiting(message_, &box);
  box.exec();
  UsersTurn();
  if (hourglass_) QApplication::setOverrideCursor(Qt::WaitCursor);
  if (failure != nullptr) std::rethrow_exception(failure);
}

void QtFrontEnd::Beep() { QApplication::beep(); }

void QtFrontEnd::MousePointer(Pointer pointer) {
  const auto hourglass = pointer == Pointer::Hourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

std::int32_t QtFrontEnd::TextWidth(const Form& /*form*/, const std::string& text) {
  // All forms have the application's font. Nobody sees the end of a text of that length, and the
  // toolkit's own measures overflow on a much longer one.
  constexpr qsizetype kMostLetters = 20'000;
  return Twips(QFontMetrics(QApplication::font()).horizontalAdvance(Text(text).left(kMostLetters)));
}

std::int32_t QtFrontEnd::ScreenWidth() {
  return Twips(QGuiApplication::primaryScreen()->geometry().width());
}

std::int32_t QtFrontEnd::ScreenHeight() {
  return Twips(QGuiApplication::primaryScreen()->geometry().height());
}

}  // namespace quorvane::qt

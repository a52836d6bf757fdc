#pragma once

#include <QCursor>
#include <QElapsedTimer>
#include <QSize>
#include <QString>
#include <cstdint>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "adapters/qt/window/LateKeys.h"
#include "platform/host/FrontEnd.h"

class QMenu;
class QMessageBox;
class QWidget;

namespace quorvane {
class Control;
class Retivo;
}  // namespace quorvane

namespace quorvane::qt {

class FormWindow;
struct Show;

/// What a host tells over a form, in plain text; nothing of either is no line.
struct FormHeading {
  QString place;   ///< what the user is at
  QString remark;  ///< what he should know of it
};

/// The dialogs on a screen, with Qt Widgets. Made after the `QApplication` and before the first
/// form; the host owns it, hands it to `Application::UseScreen`, and takes it back before it goes.
///
/// No exception crosses Qt's event loop: what a handler throws is kept in the show that runs, ends
/// it, and comes out of its `RunModal`. After such a failure the host asks for
/// `MousePointer(Pointer::Default)`, since the module leaves the pointer as it was.
class QtFrontEnd : public FrontEnd {
 public:
  QtFrontEnd();
  ~QtFrontEnd() override;
  QtFrontEnd(const QtFrontEnd&) = delete;
  QtFrontEnd& operator=(const QtFrontEnd&) = delete;
  QtFrontEnd(QtFrontEnd&&) = delete;
  QtFrontEnd& operator=(QtFrontEnd&&) = delete;

  /// The window that the first dialog stands before, and that waits for it; not owned. The host's
  /// other windows stay usable, unless it is null: all of them wait then.
  void HostWindow(QWidget* window) noexcept { host_ = window; }

  /// The program is to end: unloads the open forms from the innermost out, each once the handler
  /// that runs in it has returned, and asks nobody. From now on a form that is shown is unloaded at
  /// once without a window, a message counts as read, and what the user does goes nowhere. A
  /// failure keeps no other form from being unloaded and comes out of no show; see
  /// `LeavingFailures`.
  ///
  /// Returns before the forms have gone: the outermost `RunModal` returns when they have. A dialog
  /// of the host's own that stands before a form is the host's to close. No effect when called
  /// again.
  void Leave();
  [[nodiscard]] bool Leaving() const noexcept { return leaving_; }
  /// What handlers and `Form_Unload` have thrown while leaving, in its order.
  [[nodiscard]] const std::vector<std::exception_ptr>& LeavingFailures() const noexcept {
    return leavingFailures_;
  }

  void RunModal(Form& form) override;
  std::shared_ptr<void> HoldProgram() override;
  void Hidden(Form& form) override;
  void Unloading(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
  /// The same, with what is too long for it: out of sight until the user asks for it.
  void Message(MessageIcon icon, const QString& title, const QString& text, const QString& details);
  void Beep() override;
  void MousePointer(Pointer pointer) override;
  std::int32_t TextWidth(const Form& form, const std::string& text) override;
  void DoEvents() override;
  std::int32_t ScreenWidth() override;
  std::int32_t ScreenHeight() override;

  /// Keeps the busy sign moving during long work, for a host to call at each statement
  /// (`Connection::Observe`). It paints every 40 ms at most and never lets the user act. Work that
  /// takes longer than a moment gets the hourglass, asked for or not.
  void Pulse();

  /// For a host to call over and over while it waits for one statement: as `Pulse`, and paints the
  /// host's own windows too where no form stands. Who asks to close a window meanwhile is heard by
  /// the host, which must not go then (`Awaiting`) but leave; who asks to close a form's window
  /// asks for the end of the wait alone, which is told: whether anybody wants it.
  bool Await();
  [[nodiscard]] bool Awaiting() const noexcept { return awaiting_; }

  /// The user doesn't want to wait any longer.
  void GiveUpWaiting() noexcept { givingUp_ = true; }

  /// The window that the user acts on; null when no form is shown. It lives as long as its show.
  [[nodiscard]] FormWindow* ActiveWindow() const noexcept;

  /// Called each time a form's window stands on the screen and its `Shown` has run, from the event
  /// loop: the place for a program that acts in the user's stead. What it throws comes out of the
  /// form's show.
  std::function<void(FormWindow&)> WindowShown;
  /// The same for a message box; it stays until it is answered, as by `box.accept()`.
  std::function<void(QMessageBox&)> MessageShown;

  /// Called when a form's window stands and its `Shown` has run, before the user's first key or
  /// click reaches it, those that he made while it loaded too: for what a host has to ask or to do
  /// before he acts on the form, itself by gestures (`Gesture`). The form may have gone behind it.
  /// What it throws comes out of the form's show.
  std::function<void(FormWindow&)> FormReady;

  /// Asked for the lines over a form whenever its window shows what has changed. Set before the
  /// first form; throws nothing.
  std::function<FormHeading(const Form&)> Heading;

  /// The measures in twips, borders included, that the user gave formerly to a form whose window he
  /// may resize; none when he gave it none. Asked when the form's `Shown` has run; what is recalled
  /// reaches the form as if the user resized it then, and never makes it greater than the screen.
  std::function<std::optional<QSize>(const FormWindow&)> RecallSize;
  /// Told the measures that the form has after the user has resized it, when its show ends.
  std::function<void(const FormWindow&, QSize)> KeepSize;

  /// Told of an edit that the user ends in a cell, before the form is: the cell is the grid's
  /// current one and still shows its former text. `entry` is the one chosen in its list, -1 for
  /// none. What it throws ends the show, as a handler's failure does.
  std::function<void(const Form& form, const Retivo& grid, int entry)> EditEnding;
  /// Asked for the item data that the form has stored for a cell of that grid, its row counted as
  /// the grid does: 0 for nothing, none where the host can't tell. Throws nothing.
  std::function<std::optional<std::int32_t>(const Form& form, const Retivo& grid, int row,
                                            int column)>
      StoredData;
  /// Told that the menu of a grid or list opens: the place for entries of the host's own, which are
  /// run from the event loop while the window stands.
  std::function<void(QMenu& menu, FormWindow& window, const Control& grid)> GridMenuOpening;
  /// Told of a form that is about to unload itself: it goes in order, not by a failure.
  std::function<void(const Form& form)> FormUnloading;
  /// Told of a handler's failure while leaving, before its form is unloaded. Throws nothing.
  std::function<void(const std::exception_ptr& failure)> FailedWhileLeaving;

  /// For the windows: runs what the user's gesture asks for, then shows what it changed. When a
  /// dialog has stood meanwhile, the rows chosen before are chosen again (`CurrentRows`). Nothing
  /// happens while another handler of that window runs, or when it isn't the active one. Keeps
  /// what is thrown.
  void Gesture(const FormWindow& window, const std::function<void()>& handler) noexcept;
  /// A handler of the active window is running.
  [[nodiscard]] bool Busy() const noexcept;

 private:
  void Begin(Show& show);
  /// A handler has failed while leaving.
  void KeepFailure(const std::exception_ptr& failure);
  /// The end of a form while leaving, shown or not.
  void TakeAway(Form& form);
  void RecallSizeOf(FormWindow& window);
  void RunHooks(FormWindow& window);
  void ShowChanges();
  void PaintOnly();
  /// The user acts or is to act: what follows is counted from now on.
  void UsersTurn();
  [[nodiscard]] QWidget* TopWindow() const;

  std::vector<Show*> shows_;  // the innermost last; each stands in its RunModal
  LateKeys lateKeys_{[this] { return TopWindow(); }};
  unsigned showsBegun_ = 0;
  QWidget* host_ = nullptr;
  QMessageBox* message_ = nullptr;  // the one that waits to be read
  bool leaving_ = false;
  std::vector<std::exception_ptr> leavingFailures_;
  bool hourglass_ = false;
  bool awaiting_ = false;  // what runs in the event loop is run by `Await`
  bool givingUp_ = false;  // nobody wants what `Await` waits for
  bool waiting_ = false;   // the hourglass that nobody asked for stands
  QElapsedTimer sincePaint_;
  QElapsedTimer sinceUser_;
};

}  // namespace quorvane::qt

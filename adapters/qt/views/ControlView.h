#pragma once

#include <QRect>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/controls/Control.h"

class QKeyEvent;

namespace quorvane::qt {

class FormWindow;

/// A control on the screen: a widget that shows the model and turns the user's gestures into its
/// events. Owned by its window; the widget belongs to the widget that it stands on.
class ControlView {
 public:
  ControlView(FormWindow& window, Control& control);
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  ControlView(ControlView&&) = delete;
  ControlView& operator=(ControlView&&) = delete;

  [[nodiscard]] Control& Model() const noexcept { return control_; }
  [[nodiscard]] QWidget* Widget() const noexcept { return widget_; }

  /// Lines the widget up with the model, if that has changed. Raises no event.
  void Sync();
  /// Puts the widget there, with what belongs to it.
  virtual void Place(const QRect& room);
  /// The widget's own key while it has the keyboard: the form isn't asked first.
  [[nodiscard]] virtual bool KeepsKey(const QKeyEvent& /*key*/) const { return false; }

 protected:
  /// To be called by the constructor of each kind, once.
  void Use(QWidget* widget);
  /// What the control stands on.
  [[nodiscard]] QWidget* Surface() const;
  [[nodiscard]] FormWindow& Window() const noexcept { return window_; }

  /// Shows what is the kind's own.
  virtual void Show() = 0;
  /// The model asks to be left as it stands on the screen.
  [[nodiscard]] virtual bool Frozen() const { return false; }

  /// Signals that the widget gives while the model is being shown are no gestures.
  [[nodiscard]] bool Showing() const noexcept { return showing_; }
  /// What the user does, unless he can't act on the control; the window shows what follows.
  void Gesture(const std::function<void()>& handler);

 private:
  FormWindow& window_;
  Control& control_;
  QWidget* widget_ = nullptr;
  bool showing_ = false;
  bool shown_ = false;
  unsigned flags_ = 0;
  unsigned revision_ = 0;
};

/// The view for that kind of control, standing where its container stands.
std::unique_ptr<ControlView> MakeView(FormWindow& window, Control& control);

}  // namespace quorvane::qt

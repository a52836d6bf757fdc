#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvane {

class Form;

/// The icon of a message box.
enum class MessageIcon { Exclamation, Information, Critical };

/// The shapes of the mouse pointer that the module asks for.
enum class Pointer { Default = 0, Arrow = 1, Hourglass = 11 };

/// The world of the dialogs: a screen with a user, or what stands for one. It shows the models,
/// turns the user's gestures into their events and decides nothing. It belongs to the host and
/// outlives all forms. It is called on one thread only.
class FrontEnd {
 public:
  FrontEnd() = default;
  virtual ~FrontEnd() = default;
  FrontEnd(const FrontEnd&) = delete;
  FrontEnd& operator=(const FrontEnd&) = delete;
  FrontEnd(FrontEnd&&) = delete;
  FrontEnd& operator=(FrontEnd&&) = delete;

  /// Shows the form, calls its `Shown`, and lets the user act on it until it is no longer
  /// `Visible`. The caller holds the form. A failure in one of its handlers ends the show and
  /// comes out of this call. Called again, also for the same form, from inside handlers.
  virtual void RunModal(Form& form) = 0;

  /// What the front end needs to keep for as long as a form has turns, while it isn't on the screen
  /// too: a program that ends with its last window must not end between two of them.
  virtual std::shared_ptr<void> HoldProgram() { return nullptr; }

  virtual void Loading(Form& /*form*/) {}    ///< `Form_Load` is about to run
  virtual void Hidden(Form& /*form*/) {}     ///< the form has hidden itself
  virtual void Unloading(Form& /*form*/) {}  ///< `Form_Unload` is about to run

  /// Shows a message and returns when the user has read it.
  virtual void Message(MessageIcon icon, const std::string& title, const std::string& text) = 0;
  virtual void Beep() = 0;
  virtual void MousePointer(Pointer pointer) = 0;
  /// The width of a text in the font of the form, in twips.
  virtual std::int32_t TextWidth(const Form& form, const std::string& text) = 0;
  /// Paints what has changed. The user can't act on a form whose handler is running.
  virtual void DoEvents() = 0;
  /// The measures of the screen, in twips.
  virtual std::int32_t ScreenWidth() = 0;
  virtual std::int32_t ScreenHeight() = 0;
};

}  // namespace quorvane

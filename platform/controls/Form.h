#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

class CommandButton;
class Control;

/// A dialog, as its code sees it: its controls and measures, and the events that the user raises.
/// All measures are in twips.
///
/// A form is shared: its global instance owns it, and each show that runs holds it too, so that
/// dropping the instance from inside one of its own handlers is safe.
class Form : public std::enable_shared_from_this<Form> {
 public:
  explicit Form(std::string name);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  Form(Form&&) = delete;
  Form& operator=(Form&&) = delete;

  [[nodiscard]] const std::string& Name() const noexcept { return name_; }
  [[nodiscard]] const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  [[nodiscard]] const std::string& Icon() const noexcept { return icon_; }
  void Icon(std::string file);
  [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
  void Enabled(bool enabled);

  [[nodiscard]] std::int32_t Left() const noexcept { return left_; }
  [[nodiscard]] std::int32_t Top() const noexcept { return top_; }
  [[nodiscard]] std::int32_t Width() const noexcept { return width_; }
  [[nodiscard]] std::int32_t Height() const noexcept { return height_; }
  void Left(std::int32_t left);
  void Top(std::int32_t top);
  /// On a visible form another width or height raises `Form_Resize`. Error 380 below 0.
  void Width(std::int32_t width);
  void Height(std::int32_t height);
  /// The room inside the borders and below the title; never below 0.
  [[nodiscard]] std::int32_t ScaleWidth() const noexcept;
  [[nodiscard]] std::int32_t ScaleHeight() const noexcept;

  /// What the title and the borders add to the inner measures.
  static constexpr std::int32_t kBorderWidth = 120;
  static constexpr std::int32_t kBorderHeight = 405;

  /// The width of a text in the form's font.
  [[nodiscard]] std::int32_t TextWidth(const std::string& text) const;

  /// The controls, in the order in which the form declares them.
  [[nodiscard]] const std::vector<Control*>& Controls() const noexcept { return controls_; }
  /// The control of that name, matched without regard to case; null when there is none.
  [[nodiscard]] Control* Find(std::string_view name) const;
  /// Taken back by the front end when it has given the control the keyboard.
  [[nodiscard]] Control* WantsFocus() const noexcept { return focus_; }
  void Focus(Control* control);

  [[nodiscard]] bool Loaded() const noexcept { return loaded_; }
  [[nodiscard]] bool Visible() const noexcept { return visible_; }
  [[nodiscard]] unsigned Revision() const noexcept { return revision_; }

  /// Loads the form, if it isn't, shows it, and returns when it has been hidden or unloaded.
  /// Shows nest, also of one form. A failure inside an event handler comes out here.
  void ShowModal();
  /// For the last act of a handler: the same, but a form that is shown further out, and hidden, is
  /// shown again there, once the handlers that run have returned to that show. So two forms that
  /// take turns need no more room for a thousand turns than for one.
  void ShowInTurn();
  void Hide();
  /// `Form_Unload`, after which the form is gone from the screen. No effect on one not loaded.
  void Unload();
  /// Lets the screen be painted.
  void Refresh();

  /// For the front end: the form stands on the screen for the first time in this show.
  void Shown();
  /// For the front end: the user has given the window other measures.
  void ResizeByUser(std::int32_t width, std::int32_t height);
  /// For the front end: a key, by its code, before the control that has the keyboard gets it.
  /// Gives back the code, 0 when the form has taken the key.
  int KeyDown(int keyCode);
  /// For the front end: the user closes the window with its X. Where the form leaves by a button,
  /// that is pressed, if he could press it; else the form unloads. Ending the program is not the X.
  void CloseByUser();
  /// The form, which owns the button, leaves by it.
  void LeaveBy(CommandButton& button) { exit_ = &button; }

  // For the controls.
  void Register(Control& control) { controls_.push_back(&control); }
  [[nodiscard]] int FrontLayer() const;
  [[nodiscard]] int BackLayer() const;

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Resize() {}
  virtual void Form_KeyDown(int& /*keyCode*/) {}
  virtual void Form_Unload() {}

 private:
  void Load();
  template <class T>
  bool Assign(T& field, T value);
  void ChangeSize(std::int32_t width, std::int32_t height);

  std::string name_;
  std::string caption_;
  std::string icon_;
  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
  CommandButton* exit_ = nullptr;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  bool enabled_ = true;
  bool loaded_ = false;
  bool visible_ = false;
  bool again_ = false;  ///< to be shown once more by the show that runs
  int shows_ = 0;       ///< that run
  unsigned revision_ = 0;
};

}  // namespace quorvane

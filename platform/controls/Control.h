#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

class Form;
class Frame;

/// What all controls of a form have. A control is a member of its form, lives as long as it, and
/// is known to it by the name that the form's code uses, with the index for an element of a
/// control array: "cmdAceptar", "fraTab(0)". All measures are in twips.
///
/// Setters change the model only; a front end sees by `Revision` that there is something to show.
class Control {
 public:
  /// `container` is the frame that the control stands on; null for the form itself.
  Control(Form& form, std::string name, const Frame* container = nullptr);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  Control(Control&&) = delete;
  Control& operator=(Control&&) = delete;

  [[nodiscard]] const std::string& Name() const noexcept { return name_; }
  [[nodiscard]] virtual std::string_view Kind() const noexcept = 0;  ///< as "ComboBox"
  [[nodiscard]] Form& Owner() const noexcept { return form_; }
  [[nodiscard]] const Frame* Container() const noexcept { return container_; }

  [[nodiscard]] bool Visible() const noexcept { return visible_; }
  void Visible(bool visible);
  [[nodiscard]] bool Enabled() const noexcept { return enabled_; }
  void Enabled(bool enabled);

  [[nodiscard]] std::int32_t Left() const noexcept { return left_; }
  void Left(std::int32_t left);
  [[nodiscard]] std::int32_t Top() const noexcept { return top_; }
  void Top(std::int32_t top);
  [[nodiscard]] std::int32_t Width() const noexcept { return width_; }
  void Width(std::int32_t width);  ///< error 380 below 0
  [[nodiscard]] std::int32_t Height() const noexcept { return height_; }
  void Height(std::int32_t height);  ///< error 380 below 0
  /// The four at once, as the form is drawn.
  void Place(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);

  /// The host's mark of a field that the user has to fill in, and of its label. The module never
  /// reads it; a front end with a screen shows it.
  [[nodiscard]] bool Mandatory() const noexcept { return mandatory_; }
  void Mandatory(bool mandatory);

  /// Asks for the keyboard; the front end gives it when it shows the model next.
  void SetFocus();
  /// Puts the control before (behind) its siblings.
  void ToFront();
  void ToBack();
  [[nodiscard]] int Layer() const noexcept { return layer_; }

  /// The user can see it: it and all the frames that it stands on are visible.
  [[nodiscard]] bool Shown() const noexcept;
  /// The user can act on it: shown and enabled, with its frames and its form.
  [[nodiscard]] bool Usable() const noexcept;

  /// Grows with each change of what is shown.
  [[nodiscard]] unsigned Revision() const noexcept { return revision_; }

 protected:
  void Touch() noexcept { ++revision_; }
  template <class T>
  void Assign(T& field, T value) {
    if (field == value) return;
    field = std::move(value);
    Touch();
  }

 private:
  Form& form_;
  std::string name_;
  const Frame* container_;
  bool visible_ = true;
  bool enabled_ = true;
  bool mandatory_ = false;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  int layer_ = 0;
  unsigned revision_ = 0;
};

}  // namespace quorvane

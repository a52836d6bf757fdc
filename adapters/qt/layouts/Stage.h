#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;
class QWidget;

namespace quorvane::qt {

class FormWindow;

/// The window that a layout arranges, from the top down, and the pieces that dialogs are made of.
/// A name that the form doesn't have is error 5.
class Stage {
 public:
  explicit Stage(FormWindow& window);

  [[nodiscard]] FormWindow& Window() const noexcept { return window_; }
  [[nodiscard]] QWidget* operator[](std::string_view control) const;
  [[nodiscard]] QPushButton* Button(std::string_view control) const;
  [[nodiscard]] QBoxLayout& Page() const noexcept { return page_; }

  /// A line with a label, what it names, and what belongs to that, on the surface that this stands
  /// on. The labels of all lines are as wide as the widest.
  void Field(std::string_view label, std::string_view field,
             std::initializer_list<std::string_view> beside = {});
  /// A field that holds a text of the form's own.
  void ReadOnly(std::string_view label, std::string_view text,
                std::initializer_list<std::string_view> beside = {});
  /// Puts a frame that holds fields below what stands.
  void Frame(std::string_view frame);
  /// The closing line: the buttons on the right, alike in width.
  void Buttons(std::initializer_list<std::string_view> buttons);
  /// A square button with nothing but a picture, and what it is for.
  void Pictured(std::string_view button, const char* purpose);
  /// The dialog holds nothing that could use more room.
  void Fixed();

 private:
  void AlignLabels();

  FormWindow& window_;
  QBoxLayout& page_;
  std::vector<QLabel*> labels_;
};

/// Buttons one below the other, from the top, alike in width.
QBoxLayout* Column(const Stage& stage, std::initializer_list<std::string_view> buttons);

}  // namespace quorvane::qt

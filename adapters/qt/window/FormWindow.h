#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "adapters/qt/window/WindowPlace.h"
#include "platform/controls/Form.h"

namespace quorvane {
class CommandButton;
class Frame;
}  // namespace quorvane

namespace quorvane::qt {

class ControlView;
class HeadingStrip;
class QtFrontEnd;
class RetivoEditor;
class ScrolledPage;

/// The window of one show of a form. It lives as long as that show, and so on the stack of
/// `QtFrontEnd::RunModal`; the form and the front end outlive it.
///
/// Each control's widget carries the control's name as its object name. Where the screen is smaller
/// than a form that places its controls itself, the window is as large as the screen allows and
/// scrolls; the form keeps its measures. What the host tells over a form (`QtFrontEnd::Heading`)
/// stands above it in a room of its own, by which the window is higher than the form.
class FormWindow : public QDialog {
 public:
  FormWindow(QtFrontEnd& frontEnd, Form& form, QWidget* parent);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;
  FormWindow(FormWindow&&) = delete;
  FormWindow& operator=(FormWindow&&) = delete;

  [[nodiscard]] Form& Model() const noexcept { return form_; }
  [[nodiscard]] QtFrontEnd& FrontEnd() const noexcept { return frontEnd_; }
  [[nodiscard]] const std::vector<std::unique_ptr<ControlView>>& Views() const noexcept {
    return views_;
  }

  /// The widget of the control of that name; null when the form has none.
  [[nodiscard]] QWidget* Widget(std::string_view control) const;
  /// What the controls of a frame stand on, or those of the form itself.
  [[nodiscard]] QWidget* Surface(const Frame* container) const;

  /// Puts the window on the screen, in the middle of its parent or of the screen.
  void Appear();
  /// The user may give the window another size.
  [[nodiscard]] bool Resizable() const;
  /// Resizes the window on the screen as the user does, to these twips with the borders, and puts
  /// it back in the middle. Not beyond the screen.
  void TakeSize(QSize twips);
  /// What the form measured after the user's last resizing in this show; none without one.
  [[nodiscard]] std::optional<QSize> SizeOfUser() const noexcept { return sizeOfUser_; }
  /// Lines the window up with the model. Raises no event.
  void Sync();

  /// That list lies over the controls: until it has closed the keys are its own, and a click
  /// elsewhere has to wait for it.
  void OpenList(RetivoEditor* list) noexcept { list_ = list; }
  [[nodiscard]] bool ListIsOpen() const;
  /// The user may act on that control of the form now: the window is the one that he works in, and
  /// nothing else of it has him wait.
  [[nodiscard]] bool UserMayAct(const Control& control) const;

  /// Something has been changed that the form hasn't saved: the title tells it, and so does the
  /// button that saves. No effect on a form that holds no work.
  void MarkChanged();
  /// A button has been pressed, and what it does is done.
  void TakePress(const CommandButton& button);
  /// The show has ended by "Aceptar": what stands behind it may have been changed.
  [[nodiscard]] bool Accepted() const;

  /// Esc: the button that cancels, or the X where the form has none.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] ControlView* View(const Control& control) const;
  void ConnectLabels();
  void OrderTabs();
  void Centre();
  [[nodiscard]] QSize MostSize() const;
  /// The greatest window for a form of that size inside.
  [[nodiscard]] QSize MostFor(QSize inner) const;
  /// What the host's lines take of the window's height.
  [[nodiscard]] int HeadingHeight(int width) const;
  void ShowHeading();
  /// Where heading and page stand.
  void PlacePage();
  /// The window's size for a form of that size inside.
  [[nodiscard]] QSize WindowFor(QSize inner) const;
  void ShowPlace();
  void ShowFocus();
  void ShowTitle();
  /// What has the keyboard keeps that key from the form.
  [[nodiscard]] bool KeptFromForm(const QWidget& first, const QKeyEvent& key) const;
  /// The form stands where its window does.
  void TakePosition();
  /// The window system tells of a size.
  void TakeSizeTold();
  void TakeSizeOfUser();
  void CloseByUser();
  bool FormTakes(int qtKey);
  /// What the user does beside the open list reaches the list alone.
  bool ListTakes(const QWidget& widget, const QEvent& event);

  QtFrontEnd& frontEnd_;
  Form& form_;
  std::vector<std::unique_ptr<ControlView>> views_;  // in the form's order
  RetivoEditor* list_ = nullptr;                     // Qt's; the one opened last
  bool changed_ = false;
  bool accepted_ = false;
  bool asked_ = false;               // a button has been pressed that doesn't end it
  bool swallowed_ = false;           // the press of a button whose release follows
  HeadingStrip* heading_ = nullptr;  // Qt's; null without a host that tells any
  ScrolledPage* page_ = nullptr;     // Qt's; null for a form that has a layout
  WindowPlace place_;
  bool open_ = false;
  bool moving_ = false;  // to where the form wants to stand
  QSize knownSize_;      // in twips, the last that form and window agree on
  QPoint knownPosition_;
  std::optional<QSize> sizeOfUser_;
};

}  // namespace quorvane::qt

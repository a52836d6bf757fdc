#include "adapters/qt/window/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/qt/layouts/Layouts.h"
#include "adapters/qt/views/ButtonView.h"
#include "adapters/qt/views/ControlView.h"
#include "adapters/qt/views/IconStore.h"
#include "adapters/qt/views/KeyCodes.h"
#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/AccessibleNames.h"
#include "adapters/qt/window/HeadingStrip.h"
#include "adapters/qt/window/HeldWork.h"
#include "adapters/qt/window/ModelPlacement.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "adapters/qt/window/ScrolledPage.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Frame.h"

namespace quorvane::qt {
namespace {

constexpr double kMostOfTheScreen = 0.95;
constexpr auto kAccept = "cmdAceptar";

bool IsPress(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
}

bool IsUserInput(QEvent::Type type) {
  return type == QEvent::KeyPress || type == QEvent::MouseButtonPress ||
         type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick ||
         type == QEvent::Wheel;
}

/// The label stands on the control's left, in its line.
bool IsNamedBy(const Control& control, const Control& label) {
  const auto kind = control.Kind();
  if (kind != "ComboBox" && kind != "TextBox") return false;
  const auto middle = label.Top() + label.Height() / 2;
  return control.Container() == label.Container() && control.Left() > label.Left() &&
         middle >= control.Top() && middle <= control.Top() + control.Height();
}

}  // namespace

FormWindow::FormWindow(QtFrontEnd& frontEnd, Form& form, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      frontEnd_(frontEnd),
      form_(form),
      place_(*this),
      knownSize_(form.Width(), form.Height()) {
  setObjectName(Text(form.Name()));
  // What the form stands before waits for it, not all that its host has open.
  setWindowModality(parent == nullptr ? Qt::ApplicationModal : Qt::WindowModal);
  if (!HasLayout(form_)) page_ = new ScrolledPage(this);
  for (auto* control : form.Controls()) views_.push_back(MakeView(*this, *control));
  ConnectLabels();
  OrderTabs();
  // A layout measures the texts.
  for (const auto& view : views_) view->Sync();
  if (page_ == nullptr) LayOut(*this);
  if (frontEnd_.Heading) heading_ = new HeadingStrip(*this);
  // Above all else, and out of the way while it is empty.
  if (heading_ != nullptr && layout() != nullptr) layout()->setMenuBar(heading_);
  Sync();
  NameForReaders(*this);
}

FormWindow::~FormWindow() {
  // Out of sight while the views that its widgets call are still there.
  hide();
}

ControlView* FormWindow::View(const Control& control) const {
  const auto found = std::find_if(views_.begin(), views_.end(), [&control](const auto& view) {
    return &view->Model() == &control;
  });
  return found == views_.end() ? nullptr : found->get();
}

QWidget* FormWindow::Widget(std::string_view control) const {
  const auto* model = form_.Find(control);
  const auto* view = model == nullptr ? nullptr : View(*model);
  return view == nullptr ? nullptr : view->Widget();
}

QWidget* FormWindow::Surface(const Frame* container) const {
  const auto* view = container == nullptr ? nullptr : View(*container);
  if (view != nullptr) return view->Widget();
  return page_ == nullptr ? const_cast<FormWindow*>(this) : &page_->Page();
}

void FormWindow::ConnectLabels() {
  // A label's mnemonic leads to what stands on its right, which a screen reader calls by it.
  for (const auto& view : views_) {
    auto* label = qobject_cast<QLabel*>(view->Widget());
    if (label == nullptr) continue;
    const Control* nearest = nullptr;
    for (const auto& other : views_)
      if (IsNamedBy(other->Model(), view->Model()) &&
          (nearest == nullptr || other->Model().Left() < nearest->Left()))
        nearest = &other->Model();
    if (nearest != nullptr) label->setBuddy(View(*nearest)->Widget());
  }
}

void FormWindow::OrderTabs() {
  QWidget* last = nullptr;
  for (const auto& view : views_) {
    if (view->Widget()->focusPolicy() == Qt::NoFocus) continue;
    if (last != nullptr) setTabOrder(last, view->Widget());
    last = view->Widget();
  }
}

QSize FormWindow::MostSize() const { return screen()->availableSize() * kMostOfTheScreen; }

QSize FormWindow::MostFor(QSize inner) const {
  auto most = MostSize();
  const auto whole = screen()->availableSize().width();
  // The frame is thin on the sides; above, the title needs its room.
  if (inner.width() <= whole) most.setWidth(whole);
  // A user who made the window greater than that doesn't lose it.
  return most.expandedTo(size());
}

QSize FormWindow::WindowFor(QSize inner) const {
  if (page_ == nullptr) return inner;
  const QSize above(0, HeadingHeight(inner.width()));
  return page_->WindowFor(inner, MostFor(inner + above) - above) + above;
}

int FormWindow::HeadingHeight(int width) const {
  return heading_ == nullptr ? 0 : heading_->HeightFor(width);
}

void FormWindow::ShowHeading() {
  // The host may have to ask somebody for them, for which the window has to stand.
  if (heading_ == nullptr || !open_) return;
  const auto lines = frontEnd_.Heading(form_);
  if (!heading_->Tell(lines.place, lines.remark)) return;
  if (layout() != nullptr) layout()->invalidate();
  if (page_ != nullptr) PlacePage();
}

void FormWindow::PlacePage() {
  const auto above = HeadingHeight(width());
  if (heading_ != nullptr) heading_->setGeometry(0, 0, width(), above);
  page_->setGeometry(rect().adjusted(0, above, 0, 0));
}

void FormWindow::Centre() {
  const auto* before = parentWidget();
  const auto whole = screen()->availableGeometry();
  const auto room = before != nullptr && before->isVisible() ? before->frameGeometry() : whole;
  auto frame = frameGeometry();
  frame.moveCenter(room.center());
  // In sight whatever the window before it covers.
  place_.Ask(size(), WholeOn(frame, whole).topLeft());
}

void FormWindow::Appear() {
  if (page_ == nullptr)
    place_.Ask(sizeHint()
                   .expandedTo({Pixels(form_.ScaleWidth()), Pixels(form_.ScaleHeight())})
                   .boundedTo(MostSize()));
  Centre();
  show();
  TakePosition();
  open_ = true;
  qApp->installEventFilter(this);
}

void FormWindow::TakePosition() {
  knownPosition_ = {Twips(pos().x()), Twips(pos().y())};
  form_.Left(knownPosition_.x());
  form_.Top(knownPosition_.y());
}

bool FormWindow::Resizable() const {
  return layout() == nullptr || layout()->sizeConstraint() != QLayout::SetFixedSize;
}

void FormWindow::TakeSize(QSize twips) {
  const QSize inner(Pixels(twips.width() - Form::kBorderWidth),
                    Pixels(twips.height() - Form::kBorderHeight));
  place_.Ask(WindowFor(inner).boundedTo(MostSize()));
  Centre();
  // Recalled, not chosen now.
  sizeOfUser_.reset();
}

void FormWindow::Sync() {
  ShowTitle();
  if (windowIcon().isNull()) setWindowIcon(IconStore::Load(form_.Icon()));
  for (const auto& view : views_) view->Sync();
  if (page_ != nullptr) PlaceByModel(*this);
  ShowHeading();
  ShowPlace();
  if (open_) ShowFocus();
}

void FormWindow::ShowTitle() {
  setWindowTitle(Text(form_.Caption()) + (changed_ ? "[*]" : ""));
  setWindowModified(changed_);
}

void FormWindow::MarkChanged() {
  if (changed_ || !HoldsWork(form_)) return;
  changed_ = true;
  ShowTitle();
  for (const auto& view : views_)
    if (auto* button = dynamic_cast<ButtonView*>(view.get());
        button != nullptr && button->Model().Name() == kAccept)
      button->Mark();
}

void FormWindow::TakePress(const CommandButton& button) {
  const auto accepts = button.Name() == kAccept;
  // One that found something wrong has left the form standing.
  accepted_ = accepts && !form_.Visible();
  asked_ = asked_ || !accepts;
}

bool FormWindow::Accepted() const { return accepted_ && (asked_ || !IsIdleUnlessAsked(form_)); }

bool FormWindow::ListIsOpen() const { return list_ != nullptr && list_->IsOpen(); }

bool FormWindow::UserMayAct(const Control& control) const {
  return control.Usable() && frontEnd_.ActiveWindow() == this && !frontEnd_.Busy() &&
         !frontEnd_.Leaving() && !ListIsOpen();
}

void FormWindow::ShowPlace() {
  const QSize wanted(form_.Width(), form_.Height());
  const QSize inner(Pixels(form_.ScaleWidth()), Pixels(form_.ScaleHeight()));
  if (page_ != nullptr) {
    const QSize above(0, HeadingHeight(inner.width()));
    page_->Take(inner, MostFor(inner + above) - above);
  }
  // A form with a layout has the size that this gives it, until the form sets another.
  const auto resized = page_ == nullptr ? knownSize_ != wanted : place_.Asked() != WindowFor(inner);
  knownSize_ = wanted;
  const QPoint corner(form_.Left(), form_.Top());
  const auto moved = open_ && corner != knownPosition_;
  if (!resized && !moved) return;
  moving_ = true;
  const auto size = resized ? WindowFor(inner) : place_.Asked();
  if (moved) {
    knownPosition_ = corner;
    place_.Ask(size, QPoint(Pixels(corner.x()), Pixels(corner.y())));
  } else {
    place_.Ask(size);
  }
  moving_ = false;
}

void FormWindow::ShowFocus() {
  const auto* wanted = form_.WantsFocus();
  if (wanted == nullptr) {
    // A form that hid its controls for a while has taken the keyboard from all of them.
    if (focusWidget() == nullptr) focusNextChild();
    return;
  }
  if (auto* view = View(*wanted)) view->Widget()->setFocus();
  form_.Focus(nullptr);
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (page_ != nullptr) PlacePage();
  if (open_) TakeSizeTold();
  if (list_ != nullptr) list_->Follow();
}

void FormWindow::TakeSizeTold() {
  if (!Resizable()) place_.TakeSize();
  // Told late, or while the form is at work: it is to be as it was asked for in the end.
  if (size() != place_.Asked()) place_.Watch();
  const QSize wanted(Pixels(form_.ScaleWidth()), Pixels(form_.ScaleHeight()));
  if (!place_.Late() && size() != WindowFor(wanted)) TakeSizeOfUser();
}

void FormWindow::TakeSizeOfUser() {
  frontEnd_.Gesture(*this, [this] {
    if (size() != place_.Asked()) place_.TakeSize();
    const QSize below(width(), height() - HeadingHeight(width()));
    const auto inner = page_ == nullptr ? below : page_->InSight(below);
    knownSize_ = {Twips(inner.width()) + Form::kBorderWidth,
                  Twips(inner.height()) + Form::kBorderHeight};
    form_.ResizeByUser(knownSize_.width(), knownSize_.height());
    // A layout that fixes the size changes it as well.
    if (Resizable()) sizeOfUser_ = {form_.Width(), form_.Height()};
  });
}

void FormWindow::moveEvent(QMoveEvent* event) {
  QDialog::moveEvent(event);
  if (!open_ || moving_ || place_.Late()) return;
  place_.TakeCorner();
  TakePosition();
}

void FormWindow::CloseByUser() {
  frontEnd_.Gesture(*this, [this] {
    if (form_.Enabled()) form_.CloseByUser();
  });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  // The form decides; its show takes the window away.
  event->ignore();
  if (frontEnd_.Awaiting()) return frontEnd_.GiveUpWaiting();
  if (list_ == nullptr || list_->Leave()) CloseByUser();
}

void FormWindow::reject() {
  for (const auto& view : views_) {
    auto* button = dynamic_cast<ButtonView*>(view.get());
    if (button == nullptr || !button->Cancels()) continue;
    button->Press();
    return;
  }
  CloseByUser();
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  // Wherever the keyboard is by then, an open list is what Esc gives up.
  if (event->key() == Qt::Key_Escape && ListIsOpen()) return list_->GiveUp();
  if (!HoldsWork(form_)) return QDialog::keyPressEvent(event);
  // Enter on a button is meant for it; elsewhere it was meant for a cell or a field.
  auto* const button = qobject_cast<QPushButton*>(focusWidget());
  const auto enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && button != nullptr) return button->click();
  // Not the dialog's own, which would press one or drop the form.
  event->ignore();
}

bool FormWindow::KeptFromForm(const QWidget& first, const QKeyEvent& key) const {
  return std::any_of(views_.begin(), views_.end(), [&](const auto& view) {
    return view->Widget() == &first && view->KeepsKey(key);
  });
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr || widget->window() != this) return false;
  if (event->type() == QEvent::FocusIn && page_ != nullptr)
    page_->Follow(*widget, *static_cast<QFocusEvent*>(event));
  if (!IsUserInput(event->type())) return false;
  if (!form_.Enabled() || frontEnd_.Busy()) return true;
  if (ListTakes(*widget, *event)) return true;
  if (event->type() != QEvent::KeyPress) return false;
  // A key that the focused control leaves climbs to what that stands on: ask the form once.
  const auto* first = focusWidget() == nullptr ? this : focusWidget();
  if (ListIsOpen() && list_->isAncestorOf(first)) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  return widget == first && !KeptFromForm(*first, key) && FormTakes(key.key());
}

bool FormWindow::ListTakes(const QWidget& widget, const QEvent& event) {
  const auto type = event.type();
  if (type == QEvent::MouseButtonRelease) return std::exchange(swallowed_, false);
  if (IsPress(type)) swallowed_ = false;
  if (!ListIsOpen() || &widget == list_ || list_->isAncestorOf(&widget)) return false;
  // Nothing moves under an open list.
  if (type == QEvent::Wheel) return true;
  if (!IsPress(type)) return false;
  const auto where = static_cast<const QMouseEvent&>(event).globalPosition().toPoint();
  const auto again = list_->Cell().contains(mapFromGlobal(where));
  swallowed_ = again || !list_->Leave();
  // A press moves the keyboard before anybody can hold it back.
  if (swallowed_) list_->setFocus();
  return swallowed_;
}

bool FormWindow::FormTakes(int qtKey) {
  const auto code = KeyCode(qtKey);
  if (code == 0) return false;
  auto left = code;
  frontEnd_.Gesture(*this, [this, code, &left] { left = form_.KeyDown(code); });
  return left == 0 || !form_.Visible();
}

}  // namespace quorvane::qt

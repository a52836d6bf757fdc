#include "adapters/qt/layouts/Stage.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt/window/FormWindow.h"
#include "platform/RuntimeError.h"

namespace quorvane::qt {
namespace {

constexpr int kMargin = 12;
constexpr int kButtonWidth = 96;
constexpr int kFieldCharacters = 38;

QGridLayout* FieldsOn(QWidget* surface, QBoxLayout& page, const FormWindow& window) {
  constexpr auto kName = "campos";
  if (auto* fields = surface->findChild<QGridLayout*>(kName, Qt::FindDirectChildrenOnly))
    return fields;
  QGridLayout* fields = nullptr;
  if (surface == &window) {
    // Found again among the page's own layouts.
    for (int i = 0; i < page.count(); ++i)
      if (auto* layout = page.itemAt(i)->layout();
          layout != nullptr && layout->objectName() == kName)
        return static_cast<QGridLayout*>(layout);
    fields = new QGridLayout;
    page.addLayout(fields);
  } else {
    fields = new QGridLayout(surface);
    fields->setContentsMargins(0, 0, 0, 0);
  }
  fields->setObjectName(kName);
  fields->setVerticalSpacing(8);
  fields->setHorizontalSpacing(10);
  fields->setColumnStretch(1, 1);
  return fields;
}

}  // namespace

Stage::Stage(FormWindow& window) : window_(window), page_(*new QVBoxLayout(&window)) {
  page_.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page_.setSpacing(10);
}

QWidget* Stage::operator[](std::string_view control) const {
  auto* widget = window_.Widget(control);
  if (widget == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  return widget;
}

QPushButton* Stage::Button(std::string_view control) const {
  auto* button = qobject_cast<QPushButton*>((*this)[control]);
  if (button == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  return button;
}

void Stage::Field(std::string_view label, std::string_view field,
                  std::initializer_list<std::string_view> beside) {
  auto* widget = (*this)[field];
  auto* fields = FieldsOn(widget->parentWidget(), page_, window_);
  const auto row = fields->rowCount();
  fields->addWidget((*this)[label], row, 0);
  fields->addWidget(widget, row, 1);
  widget->setMinimumWidth(std::max(widget->minimumWidth(),
                                   kFieldCharacters * widget->fontMetrics().averageCharWidth()));
  int column = 2;
  for (const auto name : beside) fields->addWidget((*this)[name], row, column++);
  if (auto* caption = qobject_cast<QLabel*>((*this)[label])) labels_.push_back(caption);
  AlignLabels();
}

void Stage::AlignLabels() {
  int widest = 0;
  for (auto* label : labels_) {
    label->ensurePolished();
    widest = std::max(widest, label->sizeHint().width());
  }
  for (auto* label : labels_) label->setMinimumWidth(widest);
}

void Stage::ReadOnly(std::string_view label, std::string_view text,
                     std::initializer_list<std::string_view> beside) {
  auto* field = qobject_cast<QLabel*>((*this)[text]);
  if (field == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  auto font = field->font();
  font.setBold(true);
  field->setFont(font);
  Field(label, text, beside);
}

void Stage::Frame(std::string_view frame) { page_.addWidget((*this)[frame]); }

void Stage::Buttons(std::initializer_list<std::string_view> buttons) {
  auto* line = new QHBoxLayout;
  line->addStretch(1);
  for (const auto name : buttons) {
    auto* button = Button(name);
    button->setMinimumWidth(kButtonWidth);
    line->addWidget(button);
  }
  page_.addSpacing(4);
  page_.addLayout(line);
}

void Stage::Pictured(std::string_view button, const char* purpose) {
  auto* push = Button(button);
  const auto side = push->fontMetrics().height() + 14;
  push->setFixedSize(side, side);
  push->setToolTip(QString::fromUtf8(purpose));
  push->setAccessibleName(QString::fromUtf8(purpose));
}

void Stage::Fixed() { page_.setSizeConstraint(QLayout::SetFixedSize); }

QBoxLayout* Column(const Stage& stage, std::initializer_list<std::string_view> buttons) {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  for (const auto name : buttons) {
    auto* button = stage.Button(name);
    button->setMinimumWidth(kButtonWidth);
    column->addWidget(button);
  }
  column->addStretch(1);
  return column;
}

}  // namespace quorvane::qt

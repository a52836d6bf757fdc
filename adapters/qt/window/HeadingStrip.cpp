#include "adapters/qt/window/HeadingStrip.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::qt {
namespace {

constexpr int kBeside = 9;
constexpr int kAbove = 5;
constexpr int kBetween = 2;

QLabel* Line(const char* name) {
  auto* const label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->hide();
  return label;
}

bool Say(QLabel& label, const QString& text) {
  if (label.text() == text) return false;
  label.setText(text);
  label.setVisible(!text.isEmpty());
  return true;
}

}  // namespace

HeadingStrip::HeadingStrip(QWidget& window)
    : QFrame(&window), place_(Line("dondeEstoy")), remark_(Line("porQue")) {
  setObjectName("cabecera");
  auto font = place_->font();
  font.setBold(true);
  place_->setFont(font);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kBeside, kAbove, kBeside, kAbove);
  column->setSpacing(kBetween);
  column->addWidget(place_);
  column->addWidget(remark_);
  hide();
}

bool HeadingStrip::Tell(const QString& place, const QString& remark) {
  const auto placeChanged = Say(*place_, place);
  if (!Say(*remark_, remark) && !placeChanged) return false;
  setVisible(!place.isEmpty() || !remark.isEmpty());
  return true;
}

int HeadingStrip::HeightFor(int width) const {
  return isHidden() ? 0 : layout()->totalHeightForWidth(width);
}

}  // namespace quorvane::qt

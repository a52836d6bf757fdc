#include "adapters/qt/views/TextView.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "adapters/qt/views/Units.h"

namespace quorvane::qt {

TextView::TextView(FormWindow& window, TextBox& box)
    : ControlView(window, box), box_(box), line_(new QLineEdit(Surface())) {
  Use(line_);
  line_->installEventFilter(this);
  connect(line_, &QLineEdit::textChanged, this, [this](const QString& text) {
    Gesture([this, &text] { box_.Text(text.toStdString()); });
  });
}

void TextView::Show() {
  const auto text = Text(box_.Text());
  if (line_->text() != text) line_->setText(text);
}

bool TextView::Dropped(const QKeyEvent& key) {
  const auto typed = key.key() == Qt::Key_Backspace ? QString("\b") : key.text();
  if (!box_.KeyPress || typed.isEmpty()) return false;
  const auto code = static_cast<int>(typed.toUcs4().front());
  const auto isText = code >= 32 && code != 127;
  if (!isText && code != 8) return false;
  auto left = code;
  Gesture([this, &left] { box_.KeyPress(left); });
  if (left == code) return false;
  if (left != 0) line_->insert(QString::fromUcs4(std::u32string(1, char32_t(left)).c_str(), 1));
  return true;
}

bool TextView::eventFilter(QObject* /*watched*/, QEvent* event) {
  return event->type() == QEvent::KeyPress && Dropped(*static_cast<QKeyEvent*>(event));
}

}  // namespace quorvane::qt

#include "adapters/qt/RetivoEditor.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace quorvane::qt {
namespace {

constexpr int kRowsInSight = 10;
constexpr int kPage = kRowsInSight - 1;

/// Without case and accents.
QString Folded(const QString& text) {
  QString plain;
  for (const auto letter : text.normalized(QString::NormalizationForm_D))
    if (letter.category() != QChar::Mark_NonSpacing) plain += letter.toCaseFolded();
  return plain.trimmed();
}

}  // namespace

RetivoEditor::RetivoEditor(QWidget* table)
    : QFrame(table, Qt::Popup), filter_(new QLineEdit(this)), list_(new QListWidget(this)) {
  setFrameStyle(QFrame::Box | QFrame::Plain);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->setSpacing(0);
  layout->addWidget(filter_);
  layout->addWidget(list_, 1);
  filter_->setPlaceholderText("Buscar...");
  filter_->installEventFilter(this);
  list_->setFocusPolicy(Qt::NoFocus);
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusProxy(filter_);
  connect(filter_, &QLineEdit::textEdited, this, [this](const QString& typed) { Narrow(typed); });
  connect(list_, &QListWidget::itemClicked, this, [this] { Choose(Then::Stay); });
}

void RetivoEditor::Open(const QRect& cell, const std::vector<QString>& entries,
                        const QString& shown, const QString& typed) {
  list_->clear();
  shown_ = -1;
  for (const auto& entry : entries) {
    if (shown_ < 0 && entry.trimmed() == shown.trimmed()) shown_ = list_->count();
    list_->addItem(entry);
  }
  filter_->setText(typed);
  Narrow(typed);
  Place(cell);
  show();
  filter_->setFocus(Qt::PopupFocusReason);
  filter_->end(false);
}

void RetivoEditor::Narrow(const QString& typed) {
  const auto wanted = Folded(typed);
  const auto count = list_->count();
  const auto hide = [this, count, &wanted](auto&& fits) {
    auto any = false;
    for (int i = 0; i < count; ++i) {
      const auto match = fits(Folded(list_->item(i)->text()), wanted);
      list_->item(i)->setHidden(!match);
      any = any || match;
    }
    return any;
  };
  // Those that begin so; when none does, those that have it anywhere.
  if (!hide([](const QString& entry, const QString& text) { return entry.startsWith(text); }))
    hide([](const QString& entry, const QString& text) { return entry.contains(text); });
  auto best = wanted.isEmpty() ? shown_ : -1;
  for (int i = 0; i < count && best < 0 && !wanted.isEmpty(); ++i)
    if (Folded(list_->item(i)->text()) == wanted) best = i;
  for (int i = 0; i < count && best < 0 && !wanted.isEmpty(); ++i)
    if (!list_->item(i)->isHidden()) best = i;
  list_->setCurrentRow(best);
}

void RetivoEditor::Place(const QRect& cell) {
  const auto row = std::max(list_->sizeHintForRow(0), fontMetrics().height());
  const auto rows = std::clamp(list_->count(), 1, kRowsInSight);
  const auto height =
      filter_->sizeHint().height() + rows * row + 2 * list_->frameWidth() + 2 * frameWidth() + 2;
  const auto text = list_->sizeHintForColumn(0) + list_->verticalScrollBar()->sizeHint().width();
  QRect room(cell.left(), cell.bottom() + 1, std::max(cell.width(), text + 16), height);
  const auto screen = parentWidget()->screen()->availableGeometry();
  if (room.bottom() > screen.bottom()) room.moveBottom(cell.top() - 1);
  if (room.right() > screen.right()) room.moveRight(screen.right());
  setGeometry(room);
}

void RetivoEditor::Choose(Then then) {
  const auto row = list_->currentRow();
  const auto chosen = row >= 0 && !list_->item(row)->isHidden();
  if (!chosen && then == Then::Stay) return;
  close();
  if (chosen)
    Chosen(row, then);
  else
    LeftAlone(then);
}

void RetivoEditor::MoveBy(int rows) {
  const auto step = rows < 0 ? -1 : 1;
  auto row = list_->currentRow();
  auto left = std::abs(rows);
  for (int next = row + step; left > 0 && next >= 0 && next < list_->count(); next += step) {
    if (list_->item(next)->isHidden()) continue;
    row = next;
    --left;
  }
  list_->setCurrentRow(row);
}

bool RetivoEditor::TakesKey(int key) {
  switch (key) {
    case Qt::Key_Up:
      MoveBy(-1);
      return true;
    case Qt::Key_Down:
      MoveBy(1);
      return true;
    case Qt::Key_PageUp:
      MoveBy(-kPage);
      return true;
    case Qt::Key_PageDown:
      MoveBy(kPage);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Choose(Then::Stay);
      return true;
    case Qt::Key_Tab:
      Choose(Then::Next);
      return true;
    case Qt::Key_Backtab:
      Choose(Then::Previous);
      return true;
    case Qt::Key_Escape:
      close();
      return true;
    default:
      return false;
  }
}

bool RetivoEditor::eventFilter(QObject* /*watched*/, QEvent* event) {
  return event->type() == QEvent::KeyPress && TakesKey(static_cast<QKeyEvent*>(event)->key());
}

}  // namespace quorvane::qt

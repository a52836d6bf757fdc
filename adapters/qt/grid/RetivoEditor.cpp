#include "adapters/qt/grid/RetivoEditor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "adapters/qt/grid/GridCommand.h"

namespace quorvane::qt {
namespace {

constexpr int kRowsInSight = 10;
constexpr int kPage = kRowsInSight - 1;
constexpr int kTextMargin = 16;  // pixels, as the next
constexpr int kRefusalWidth = 220;

/// Without case and accents.
QString Folded(const QString& text) {
  QString plain;
  for (const auto letter : text.normalized(QString::NormalizationForm_D))
    if (letter.category() != QChar::Mark_NonSpacing) plain += letter.toCaseFolded();
  return plain.trimmed();
}

constexpr int kPlace = Qt::UserRole;  // of an entry in what was handed over

/// As they come, but for the numbers, which stand by value where numbers stand.
std::vector<RetivoEditor::Entry> InOrder(const std::vector<QString>& texts) {
  struct Number {
    double value;
    RetivoEditor::Entry entry;
  };
  std::vector<RetivoEditor::Entry> entries;
  std::vector<Number> numbers;
  std::vector<std::size_t> places;
  for (const auto& text : texts) {
    bool isNumber = false;
    const auto value = text.trimmed().replace(',', '.').toDouble(&isNumber);
    entries.push_back({text, static_cast<int>(entries.size())});
    if (!isNumber) continue;
    places.push_back(entries.size() - 1);
    numbers.push_back({value, entries.back()});
  }
  std::stable_sort(numbers.begin(), numbers.end(),
                   [](const Number& one, const Number& other) { return one.value < other.value; });
  for (std::size_t i = 0; i < places.size(); ++i) entries[places[i]] = numbers[i].entry;
  return entries;
}

}  // namespace

RetivoEditor::RetivoEditor(QWidget& window, QWidget& table)
    : QFrame(&window),
      table_(table),
      filter_(new QLineEdit(this)),
      list_(new QListWidget(this)),
      refusal_(new QLabel(this)) {
  hide();
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setAutoFillBackground(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(1, 1, 1, 1);
  layout->setSpacing(0);
  layout->addWidget(filter_);
  layout->addWidget(refusal_);
  layout->addWidget(list_, 1);
  filter_->setPlaceholderText("Buscar...");
  filter_->setAccessibleName("Nota");
  filter_->setContextMenuPolicy(Qt::NoContextMenu);
  filter_->installEventFilter(this);
  refusal_->setObjectName("rechazo");
  refusal_->setTextFormat(Qt::PlainText);
  refusal_->setWordWrap(true);
  refusal_->setMargin(3);
  list_->setFocusPolicy(Qt::NoFocus);
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusProxy(filter_);
  connect(filter_, &QLineEdit::textEdited, this, [this](const QString& typed) { Narrow(typed); });
  connect(list_, &QListWidget::itemClicked, this, [this] { Choose(Then::Stay); });
}

void RetivoEditor::Open(const std::vector<QString>& entries, int stands, const QString& typed) {
  entries_ = InOrder(entries);
  stands_ = stands;
  Narrow({});
  entrySize_ = {list_->sizeHintForColumn(0), list_->sizeHintForRow(0)};
  filter_->setText(typed);
  Narrow(typed);
  open_ = true;
  Follow();
  show();
  raise();
  filter_->setFocus(Qt::PopupFocusReason);
  filter_->end(false);
}

void RetivoEditor::Narrow(const QString& typed) {
  const auto wanted = Folded(typed);
  const auto fill = [this, &wanted](auto&& fits) {
    list_->clear();
    int exact = 0;
    for (const auto& entry : entries_) {
      const auto text = Folded(entry.text);
      if (!fits(text)) continue;
      auto* const row = new QListWidgetItem(entry.text);
      row->setData(kPlace, entry.place);
      if (entry.text.trimmed().isEmpty()) row->setData(Qt::AccessibleTextRole, "en blanco");
      // What is the very thing that was typed comes first, and of several the first.
      list_->insertItem(!wanted.isEmpty() && text == wanted ? exact++ : list_->count(), row);
    }
    return list_->count() > 0;
  };
  // Those that begin so; when none does, those that have it anywhere.
  if (!fill([&wanted](const QString& text) { return text.startsWith(wanted); }))
    fill([&wanted](const QString& text) { return text.contains(wanted); });
  list_->setCurrentRow(wanted.isEmpty() ? RowOf(stands_) : 0);
  ShowRefusal(false);
}

int RetivoEditor::RowOf(int place) const {
  for (int row = 0; row < list_->count(); ++row)
    if (list_->item(row)->data(kPlace).toInt() == place) return row;
  return -1;
}

void RetivoEditor::Follow() {
  if (!open_) return;
  const auto cell = Cell();
  const auto whole = parentWidget()->rect();
  const auto line = std::max(entrySize_.height(), fontMetrics().height());
  const auto rest = filter_->sizeHint().height() + 2 * list_->frameWidth() + 2 * frameWidth() + 2 +
                    (refusal_->isHidden() ? 0 : refusal_->sizeHint().height());
  const auto text = entrySize_.width() + list_->verticalScrollBar()->sizeHint().width();
  auto width = std::max({cell.width(), text + kTextMargin, filter_->minimumSizeHint().width()});
  if (!refusal_->isHidden()) width = std::max(width, kRefusalWidth);
  auto height = rest + std::clamp(static_cast<int>(entries_.size()), 1, kRowsInSight) * line;
  const auto below = whole.bottom() - cell.bottom();
  const auto above = cell.top() - whole.top();
  const auto fitsBelow = height <= below || below >= above;
  height = std::min(height, std::max(fitsBelow ? below : above, rest + line));
  width = std::min(width, whole.width());
  QRect room(cell.left(), fitsBelow ? cell.bottom() + 1 : cell.top() - height, width, height);
  if (room.right() > whole.right()) room.moveRight(whole.right());
  if (room.left() < whole.left()) room.moveLeft(whole.left());
  if (room.bottom() > whole.bottom()) room.moveBottom(whole.bottom());
  setGeometry(room);
  if (list_->currentRow() >= 0) list_->scrollToItem(list_->currentItem());
}

int RetivoEditor::Marked() const {
  const auto* const row = list_->currentItem();
  return row == nullptr ? -1 : row->data(kPlace).toInt();
}

bool RetivoEditor::FitsNothing() const {
  return Marked() < 0 && !filter_->text().trimmed().isEmpty();
}

void RetivoEditor::Refuse() {
  refusal_->setText(QStringLiteral("No hay ninguna nota «%1»").arg(filter_->text().trimmed()));
  ShowRefusal(true);
  QApplication::beep();
}

void RetivoEditor::ShowRefusal(bool refused) {
  if (refused == !refusal_->isHidden()) return;
  refusal_->setVisible(refused);
  filter_->setAccessibleDescription(refused ? refusal_->text() : QString());
  // In the colours of what is marked, so that it is seen under any palette.
  refusal_->setAutoFillBackground(true);
  refusal_->setBackgroundRole(QPalette::Highlight);
  refusal_->setForegroundRole(QPalette::HighlightedText);
  Follow();
}

void RetivoEditor::Close(Qt::FocusReason reason) {
  // Shut first: the keyboard's leaving is then no going elsewhere.
  open_ = false;
  if (filter_->hasFocus() || window()->focusWidget() == filter_) table_.setFocus(reason);
  hide();
  ShowRefusal(false);
}

void RetivoEditor::Choose(Then then) {
  if (!open_) return;
  if (FitsNothing()) return Refuse();
  const auto entry = Marked();
  if (entry < 0 && then == Then::Stay) return;
  Close(Qt::PopupFocusReason);
  if (entry >= 0)
    Chosen(entry, then);
  else
    LeftAlone(then);
}

bool RetivoEditor::Leave() {
  if (!open_) return true;
  if (FitsNothing()) {
    Refuse();
    return false;
  }
  const auto typed = !filter_->text().trimmed().isEmpty();
  const auto entry = Marked();
  Close(Qt::MouseFocusReason);
  if (typed) Chosen(entry, Then::Stay);
  return true;
}

void RetivoEditor::GiveUp() {
  if (open_) Close(Qt::PopupFocusReason);
}

void RetivoEditor::MoveBy(int rows) {
  if (rows > 0 || list_->currentRow() >= 0)
    list_->setCurrentRow(
        std::clamp(list_->currentRow() + rows, 0, std::max(0, list_->count() - 1)));
}

bool RetivoEditor::HandsOn(const QKeyEvent& key) {
  if (!filter_->text().isEmpty() || CommandOf(key) == GridCommand::None) return false;
  Close(Qt::PopupFocusReason);
  QKeyEvent again(key.type(), key.key(), key.modifiers(), key.text());
  QCoreApplication::sendEvent(&table_, &again);
  return true;
}

bool RetivoEditor::TakesKey(const QKeyEvent& key) {
  const auto back = (key.modifiers() & Qt::ShiftModifier) != 0;
  switch (key.key()) {
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
      Choose(back ? Then::Up : Then::Down);
      return true;
    case Qt::Key_Tab:
      Choose(Then::Next);
      return true;
    case Qt::Key_Backtab:
      Choose(Then::Previous);
      return true;
    case Qt::Key_Escape:
      GiveUp();
      return true;
    default:
      return HandsOn(key);
  }
}

void RetivoEditor::LeaveByFocus(Qt::FocusReason reason) {
  // Where the mouse goes is judged by the window, which knows what is under it.
  if (!open_ || reason == Qt::MouseFocusReason || Leave()) return;
  // Another window may have the keyboard; in this one the list has it.
  if (reason != Qt::ActiveWindowFocusReason)
    QTimer::singleShot(0, this, [this] {
      if (open_) filter_->setFocus(Qt::OtherFocusReason);
    });
}

bool RetivoEditor::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::FocusOut) LeaveByFocus(static_cast<QFocusEvent*>(event)->reason());
  return event->type() == QEvent::KeyPress && TakesKey(*static_cast<QKeyEvent*>(event));
}

}  // namespace quorvane::qt

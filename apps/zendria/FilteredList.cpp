#include "apps/zendria/FilteredList.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/TextFolding.h"

namespace quorvane::zendria {
namespace {

constexpr int kIdRole = Qt::UserRole;

bool MovesThroughLists(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
         key == Qt::Key_PageDown;
}

}  // namespace

FilteredList::FilteredList(std::vector<Entry> entries, const QString& hint, QWidget* parent)
    : QWidget(parent), entries_(std::move(entries)) {
  folded_.reserve(entries_.size());
  for (const auto& entry : entries_) folded_.push_back(Folded(entry.text + u' ' + entry.detail));

  field_.setObjectName("filtro");
  field_.setPlaceholderText(hint);
  field_.setAccessibleName(hint);
  field_.setClearButtonEnabled(true);
  field_.installEventFilter(this);
  list_.setObjectName("lista");
  qt::ShowFocusOnBorder(list_);
  list_.setAccessibleName("Resultados");
  list_.setUniformItemSizes(true);
  list_.setAlternatingRowColors(true);
  list_.setStyleSheet("QListWidget::item { padding: 3px; }");
  count_.setObjectName("cuenta");
  count_.setAlignment(Qt::AlignRight);
  count_.setForegroundRole(QPalette::PlaceholderText);

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(&field_);
  column->addWidget(&list_, 1);
  column->addWidget(&count_);
  setFocusProxy(&field_);

  connect(&field_, &QLineEdit::textChanged, this, [this] { Fill(); });
  connect(&list_, &QListWidget::currentRowChanged, this, [this] {
    if (Changed) Changed();
  });
  connect(&list_, &QListWidget::itemDoubleClicked, this, [this] {
    if (Accepted) Accepted();
  });
  Fill();
}

std::optional<std::int32_t> FilteredList::Chosen() const {
  const auto* const item = list_.currentItem();
  if (item == nullptr) return std::nullopt;
  return item->data(kIdRole).toInt();
}

void FilteredList::Choose(std::int32_t id) {
  for (int row = 0; row < list_.count(); ++row)
    if (list_.item(row)->data(kIdRole).toInt() == id) list_.setCurrentRow(row);
}

bool FilteredList::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &field_ && event->type() == QEvent::KeyPress &&
      MovesThroughLists(static_cast<QKeyEvent*>(event)->key())) {
    QCoreApplication::sendEvent(&list_, event);
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void FilteredList::Fill() {
  const auto before = Chosen();
  const auto wanted = Folded(field_.text());
  {
    const QSignalBlocker quiet(list_);
    list_.clear();
    for (std::size_t at = 0; at < entries_.size(); ++at) {
      if (!HoldsWords(folded_[at], wanted)) continue;
      const auto& entry = entries_[at];
      const auto text =
          entry.detail.isEmpty() ? entry.text : entry.text + QStringLiteral("  ·  ") + entry.detail;
      auto* const item = new QListWidgetItem(text, &list_);
      item->setData(kIdRole, entry.id);
    }
    if (list_.count() > 0) list_.setCurrentRow(0);
    if (before) Choose(*before);
  }
  count_.setText(QStringLiteral("%1 de %2").arg(list_.count()).arg(entries_.size()));
  if (Changed) Changed();
}

}  // namespace quorvane::zendria

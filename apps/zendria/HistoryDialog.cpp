#include "apps/zendria/HistoryDialog.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "adapters/qt/views/ClosedListWheel.h"
#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/BlankCells.h"
#include "apps/zendria/ColumnsInSight.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/OneLine.h"
#include "apps/zendria/TextFolding.h"

namespace quorvane::zendria {
namespace {

// The columns that yield where there isn't room for all.
constexpr int kStudent = 1;
constexpr int kSubject = 2;
constexpr int kWho = 7;

constexpr auto kDaysShown = 30;
constexpr auto kMostChangesShown = 2000;
constexpr auto kFirstYear = 2000;

/// The moment by this computer's clock; invalid where the text tells none.
QDateTime Moment(const std::string& utc) {
  auto moment = QDateTime::fromString(OneLine(utc), "yyyy-MM-dd HH:mm:ss.zzz");
  moment.setTimeSpec(Qt::UTC);
  return moment.toLocalTime();
}

/// A change as the list shows it, with its moment by this computer's clock.
QStringList CellsOf(const GradeChange& change, const QDateTime& moment) {
  return {moment.isValid() ? moment.toString("dd/MM/yyyy HH:mm:ss") : OneLine(change.moment),
          OneLine(change.student),
          OneLine(change.subject),
          OneLine(change.evaluation),
          OneLine(change.column),
          OneLine(change.before),
          OneLine(change.after),
          change.user.empty() ? QString("—") : OneLine(change.user)};
}

/// The days in UTC that those of this computer's clock reach into: a filter has whole days alone.
std::string FirstDay(const QDate& date) {
  return date.startOfDay().toUTC().date().toString("yyyy-MM-dd").toStdString();
}
std::string LastDay(const QDate& date) {
  return date.endOfDay().toUTC().date().toString("yyyy-MM-dd").toStdString();
}

}  // namespace

HistoryDialog::HistoryDialog(Connection& school, const HistoryFilter& of, const QString& title,
                             QWidget* parent)
    : QDialog(parent), school_(school), of_(of) {
  setObjectName("historial");
  setWindowTitle("Historial de notas");
  qt::LeaveWheelOf(evaluation_);
  Build();
  if (!title.isEmpty()) {
    setWindowTitle(windowTitle() + ": " + title);
    from_.setDate(QDate(kFirstYear, 1, 1));
    evaluation_.setEnabled(false);
  }
  Attempt(this, [this] {
    for (auto rows = school_.Execute("SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion ORDER "
                                     "BY Final DESC, Orden");
         !rows.Eof(); rows.MoveNext())
      evaluation_.addItem(OneLine(rows.Fields(1).Text()), rows.Fields(0).Long());
  });
  evaluation_.setCurrentIndex(evaluation_.findData(of_.evaluation));
  Read();
  for (auto* const field : {&from_, &to_})
    connect(field, &QDateEdit::dateChanged, this, [this] { Read(); });
  connect(&evaluation_, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  connect(&words_, &QLineEdit::textChanged, this, [this] { Show(); });
}

HistoryFilter HistoryDialog::MayGradeFilter(std::int32_t staff) {
  HistoryFilter filter;
  filter.either = staff;
  return filter;
}

void HistoryDialog::Build() {
  from_.setObjectName("desde");
  to_.setObjectName("hasta");
  for (auto* const field : {&from_, &to_}) {
    field->setCalendarPopup(true);
    field->setDisplayFormat("dd/MM/yyyy");
  }
  to_.setDate(QDate::currentDate().addDays(1));
  from_.setDate(QDate::currentDate().addDays(-kDaysShown));
  evaluation_.addItem("Todas las evaluaciones", 0);
  words_.setObjectName("palabras");
  words_.setPlaceholderText("Alumno, materia o usuario");
  words_.setAccessibleName(words_.placeholderText());
  words_.setClearButtonEnabled(true);
  list_.setObjectName("cambios");
  list_.setAccessibleName("Cambios de notas");
  list_.setHeaderLabels(
      {"Cuándo", "Alumno", "Materia", "Evaluación", "Columna", "Antes", "Después", "Quién"});
  list_.setRootIsDecorated(false);
  list_.setUniformRowHeights(true);
  list_.setAlternatingRowColors(true);
  list_.setStyleSheet("QTreeWidget::item { padding: 3px 6px 3px 2px; }");
  qt::ShowFocusOnBorder(list_);
  columns_ = new ColumnsInSight(list_, {kStudent, kSubject, kWho});
  notice_.setWordWrap(true);
  auto* const refresh = new QPushButton("&Actualizar");
  refresh->setAutoDefault(false);
  auto* const close = new QPushButton("&Cerrar");
  close->setAutoDefault(false);

  auto* const filters = new QHBoxLayout;
  for (auto* const field : {&from_, &to_}) {
    auto* const label = new QLabel(field == &from_ ? "&Desde" : "&Hasta");
    label->setBuddy(field);
    filters->addWidget(label);
    filters->addWidget(field);
  }
  filters->addWidget(&evaluation_);
  filters->addWidget(&words_, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(refresh);
  buttons->addWidget(&notice_, 1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(filters);
  column->addWidget(&list_, 1);
  column->addLayout(buttons);
  TakeFirstSize(*this, {1160, 520});
  connect(refresh, &QPushButton::clicked, this, [this] { Read(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, this,
          [this] { Read(); });
}

void HistoryDialog::Read() {
  auto kept = false;
  auto active = false;
  std::vector<GradeChange> changes;
  if (!Attempt(this, [&] {
        const GradeHistory history(school_);
        kept = history.Kept();
        active = history.Active();
        auto filter = of_;
        filter.from = FirstDay(from_.date());
        filter.to = LastDay(to_.date());
        if (filter.evaluation == 0) filter.evaluation = evaluation_.currentData().toInt();
        changes = history.Read(filter);
      }))
    return;
  rows_.clear();
  for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
    const auto moment = Moment(change->moment);
    if (moment.isValid() && (moment.date() < from_.date() || moment.date() > to_.date())) continue;
    auto cells = CellsOf(*change, moment);
    auto folded = Folded(cells.join(' '));
    rows_.push_back({std::move(cells), std::move(folded)});
  }
  off_ = active ? QString()
         : kept ? QString("El historial está desactivado: no se guarda ningún cambio.")
                : QString(
                      "El historial no está activado. Lo activa quien mantiene la escuela, con "
                      "«quorvane-escuela historial … activar».");
  Show();
}

void HistoryDialog::Show() {
  const auto words = Folded(words_.text());
  list_.clear();
  QList<QTreeWidgetItem*> items;
  auto passing = 0;
  for (const auto& row : rows_)
    if (HoldsWords(row.folded, words) && ++passing <= kMostChangesShown)
      items.append(new QTreeWidgetItem(row.cells));
  list_.addTopLevelItems(items);
  NameBlankCells(list_);
  columns_->Fit();
  notice_.setText(
      !off_.isEmpty() ? off_
      : passing > kMostChangesShown
          ? QStringLiteral("Los últimos %1 de %2 cambios").arg(kMostChangesShown).arg(passing)
          : QStringLiteral("%1 cambios").arg(passing));
}

}  // namespace quorvane::zendria

#include "apps/zendria/StateDialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTime>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <map>

#include "adapters/qt/views/ClosedListWheel.h"
#include "adapters/qt/views/FocusBorder.h"
#include "apps/escuela/Today.h"
#include "apps/escuela/state/MayGrade.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/BarDelegate.h"
#include "apps/zendria/BlankCells.h"
#include "apps/zendria/ColumnsInSight.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/OneLine.h"
#include "apps/zendria/StrayMarks.h"

namespace quorvane::zendria {
namespace {

constexpr auto kMinute = 60 * 1000;

enum Column { kName, kTeacher, kPending, kEntered, kMissing, kBar, kWindow, kInUse, kColumns };
enum Role { kKey = Qt::UserRole, kEvaluation, kSection, kSubject, kLoaded };

QString WindowText(const StateWindow& window) {
  if (window.from.empty() && window.to.empty()) return "Sin plazo";
  return OneLine(window.from) + " a " + OneLine(window.to) +
         (window.open ? ", abierto" : ", cerrado");
}

void ShowCounts(QTreeWidgetItem& item, const StateRow& row) {
  item.setText(kPending, QString::number(row.pending));
  item.setText(kEntered, QString::number(row.entered));
  item.setText(kMissing, QString::number(row.Missing()));
  const auto percent =
      row.pending == 0 ? BarDelegate::kWhole : row.entered * BarDelegate::kWhole / row.pending;
  item.setText(kBar, QStringLiteral("%1 %").arg(percent));
  item.setData(kBar, BarDelegate::kPercentRole, percent);
  for (const auto column : {kPending, kEntered, kMissing})
    item.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
  item.setTextAlignment(kBar, Qt::AlignCenter);
  if (row.locked > 0)
    item.setText(kInUse, row.subject != 0 ? QString("Sí") : QString::number(row.locked));
}

void Note(QTreeWidgetItem& item, const StateRow& row, const QString& key) {
  item.setData(kName, kKey, key);
  item.setData(kName, kEvaluation, row.evaluation);
  item.setData(kName, kSection, row.section);
  item.setData(kName, kSubject, row.subject);
  // A subject has nothing below it: the key that opens all opens it, too.
  if (row.subject != 0) item.setData(kName, kLoaded, true);
}

QString KeyOf(const QTreeWidgetItem& item) { return item.data(kName, kKey).toString(); }

void AddTo(StateRow& sum, const StateRow& row) {
  sum.evaluation = row.evaluation;
  sum.pending += row.pending;
  sum.entered += row.entered;
  sum.locked += row.locked;
}

}  // namespace

StateDialog::StateDialog(Connection& school, Viewer viewer, QWidget* parent)
    : QDialog(parent),
      school_(school),
      viewer_(viewer),
      missing_("Solo lo que &falta"),
      mySections_("Mis se&cciones"),
      mySubjects_("Mis &materias") {
  setObjectName("estado");
  setWindowTitle("Estado de la evaluación");
  qt::LeaveWheelOf(grouping_);
  Build();
  Refresh();
  if (tree_.topLevelItemCount() > 0) tree_.setCurrentItem(tree_.topLevelItem(0));
}

void StateDialog::Build() {
  missing_.setObjectName("soloFalta");
  mySections_.setObjectName("misSecciones");
  mySubjects_.setObjectName("misMaterias");
  for (auto* const mine : {&mySections_, &mySubjects_}) mine->setVisible(viewer_.staff != 0);
  grouping_.setObjectName("agrupar");
  grouping_.addItems({"Por secciones", "Por profesores"});
  tree_.setObjectName("arbol");
  tree_.setAccessibleName("Estado de la evaluación");
  tree_.setHeaderLabels({"Evaluación, sección y materia", "Profesor", "Pendientes", "Puestas",
                         "Faltan", "Avance", "Plazo", "En uso"});
  tree_.setAlternatingRowColors(true);
  tree_.setUniformRowHeights(true);
  tree_.setExpandsOnDoubleClick(false);
  tree_.setItemDelegateForColumn(kBar, new BarDelegate(&tree_));
  tree_.setStyleSheet("QTreeWidget::item { padding: 3px 6px 3px 2px; }");
  qt::ShowFocusOnBorder(tree_);
  columns_ = new ColumnsInSight(tree_, {kName, kTeacher, kWindow});
  auto* const refresh = new QPushButton("&Actualizar");
  refresh->setAutoDefault(false);
  refresh->setToolTip("F5");
  auto* const close = new QPushButton("&Cerrar");
  close->setAutoDefault(false);

  auto* const filters = new QHBoxLayout;
  filters->addWidget(&grouping_);
  for (auto* const box : {&missing_, &mySections_, &mySubjects_}) filters->addWidget(box);
  filters->addStretch(1);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(refresh);
  buttons->addWidget(&read_, 1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(filters);
  column->addWidget(&tree_, 1);
  column->addLayout(buttons);
  TakeFirstSize(*this, {1080, 600});

  for (auto* const box : {&missing_, &mySections_, &mySubjects_})
    connect(box, &QCheckBox::toggled, this, [this] { Refresh(); });
  connect(&grouping_, &QComboBox::currentIndexChanged, this, [this] { Refresh(); });
  connect(refresh, &QPushButton::clicked, this, [this] { Refresh(); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  connect(&minute_, &QTimer::timeout, this, [this] { Refresh(); });
  connect(new QShortcut(QKeySequence::Refresh, this), &QShortcut::activated, this,
          [this] { Refresh(); });
  connect(&tree_, &QTreeWidget::itemExpanded, this,
          [this](QTreeWidgetItem* item) { LoadSubjects(*item); });
  connect(&tree_, &QTreeWidget::itemActivated, this,
          [this](QTreeWidgetItem* item) { Choose(*item); });
}

std::int32_t StateDialog::Me() const { return viewer_.staff == 0 ? kNobody : viewer_.staff; }

StateFilter StateDialog::Filter() const {
  StateFilter filter;
  const auto me = Me();
  filter.centre = viewer_.centre;
  filter.missingOnly = missing_.isChecked();
  if (!viewer_.seesAll) filter.either = me;
  if (mySections_.isChecked()) filter.tutor = me;
  if (mySubjects_.isChecked()) filter.teacher = me;
  return filter;
}

void StateDialog::Refresh() {
  // What is told of a failure must not be told once more while it is being read.
  minute_.stop();
  Keep();
  if (!Attempt(this, [this] {
        auto state = std::make_unique<SchoolState>(school_, Today(school_));
        // All of it before anything is cleared: a reading that fails leaves what stands.
        if (BySections()) {
          const auto rows = state->Sections(Filter());
          tree_.clear();
          FillSections(*state, rows);
        } else {
          const auto rows = state->Subjects(Filter());
          if (!rows.empty()) static_cast<void>(state->SubjectName(0));
          const StrayMarks strays(school_, *state, 0, 0);
          tree_.clear();
          FillTeachers(*state, strays, rows);
        }
        state_ = std::move(state);
      }))
    return;
  const auto restored = Restore();
  NameBlankCells(tree_);
  columns_->Fit();
  read_.setText(QStringLiteral("%1  Leído a las %2")
                    .arg(tree_.topLevelItemCount() == 0 ? "No hay ninguna nota pendiente." : "",
                         QTime::currentTime().toString("HH:mm:ss"))
                    .trimmed());
  if (restored) minute_.start(kMinute);
}

bool StateDialog::BySections() const { return grouping_.currentIndex() == 0; }

QTreeWidgetItem* StateDialog::MakeEvaluation(const SchoolState& state, std::int32_t evaluation) {
  auto* const item = new QTreeWidgetItem({OneLine(state.EvaluationName(evaluation))});
  StateRow row;
  row.evaluation = evaluation;
  Note(*item, row, QString::number(evaluation));
  item->setData(kName, kLoaded, true);
  return item;
}

void StateDialog::FillSections(const SchoolState& state, const std::vector<StateRow>& rows) {
  QTreeWidgetItem* evaluation = nullptr;
  StateRow sum;
  for (const auto& row : rows) {
    if (evaluation == nullptr || sum.evaluation != row.evaluation) {
      evaluation = MakeEvaluation(state, row.evaluation);
      tree_.addTopLevelItem(evaluation);
      sum = {};
    }
    AddTo(sum, row);
    ShowCounts(*evaluation, sum);
    auto* const item = new QTreeWidgetItem(evaluation, {OneLine(state.SectionName(row.section))});
    Note(*item, row, QStringLiteral("%1/%2").arg(row.evaluation).arg(row.section));
    ShowCounts(*item, row);
    item->setText(kWindow, WindowText(state.Window(row.section, row.evaluation)));
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  }
}

void StateDialog::FillTeachers(const SchoolState& state, const StrayMarks& strays,
                               const std::vector<StateRow>& all) {
  std::map<std::int32_t, std::map<std::int32_t, std::vector<StateRow>>> byTeacher;
  for (const auto& row : all) byTeacher[row.evaluation][row.teacher].push_back(row);
  for (const auto& evaluation : state.Evaluations()) {
    const auto found = byTeacher.find(evaluation.id);
    if (found == byTeacher.end()) continue;
    // Put into the tree when it is whole, or the view would be told of each of its cells.
    auto* const top = MakeEvaluation(state, evaluation.id);
    StateRow sum;
    for (const auto& [teacher, rows] : found->second) {
      const auto name = OneLine(state.TeacherName(teacher));
      auto* const item = new QTreeWidgetItem(top, {name.isEmpty() ? "Sin profesor" : name});
      StateRow his;
      for (const auto& row : rows) {
        AddTo(his, row);
        auto* const subject = new QTreeWidgetItem(item, {OneLine(state.SubjectName(row.subject)),
                                                         OneLine(state.SectionName(row.section))});
        strays.Mark(*subject, row);
        Note(*subject, row,
             QStringLiteral("%1/%2/%3").arg(row.evaluation).arg(row.section).arg(row.subject));
        ShowCounts(*subject, row);
        subject->setText(kWindow, WindowText(state.Window(row.section, row.evaluation)));
      }
      AddTo(sum, his);
      ShowCounts(*item, his);
      item->setData(kName, kKey, QStringLiteral("%1:%2").arg(evaluation.id).arg(teacher));
      item->setData(kName, kLoaded, true);
    }
    ShowCounts(*top, sum);
    tree_.addTopLevelItem(top);
    top->sortChildren(kName, Qt::AscendingOrder);
  }
}

bool StateDialog::LoadSubjects(QTreeWidgetItem& section) {
  if (section.data(kName, kLoaded).toBool() || state_ == nullptr) return true;
  // Nothing may clear the tree while a failure is being read.
  const auto ticked = minute_.isActive();
  minute_.stop();
  auto filter = Filter();
  filter.evaluation = section.data(kName, kEvaluation).toInt();
  const auto read = Attempt(this, [&] {
    const auto number = section.data(kName, kSection).toInt();
    const StrayMarks strays(school_, *state_, filter.evaluation, number);
    for (const auto& row : state_->Subjects(filter, number)) {
      auto* const item = new QTreeWidgetItem(&section, {OneLine(state_->SubjectName(row.subject)),
                                                        OneLine(state_->TeacherName(row.teacher))});
      strays.Mark(*item, row);
      Note(*item, row, KeyOf(section) + QStringLiteral("/%1").arg(row.subject));
      ShowCounts(*item, row);
    }
  });
  if (!read) return false;
  section.setData(kName, kLoaded, true);
  if (ticked) minute_.start(kMinute);
  NameBlankCells(section);
  columns_->Fit();
  if (section.childCount() == 0)
    section.setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
  return true;
}

void StateDialog::Keep() {
  open_.clear();
  for (QTreeWidgetItemIterator at(&tree_); *at != nullptr; ++at)
    if ((*at)->isExpanded()) open_.append(KeyOf(**at));
  current_ = tree_.currentItem() == nullptr ? QString() : KeyOf(*tree_.currentItem());
  scrolled_ = tree_.verticalScrollBar()->value();
}

bool StateDialog::Restore() {
  // What is opened here loads the rows that are looked for next.
  const auto first = open_.isEmpty() && current_.isEmpty();
  for (QTreeWidgetItemIterator at(&tree_); *at != nullptr; ++at) {
    const auto key = KeyOf(**at);
    if (open_.contains(key) || (first && (*at)->parent() == nullptr)) {
      // Loaded here, where one failure is enough.
      const QSignalBlocker quiet(tree_);
      (*at)->setExpanded(true);
      if (!LoadSubjects(**at)) return false;
    }
    if (key == current_) tree_.setCurrentItem(*at);
  }
  tree_.verticalScrollBar()->setValue(scrolled_);
  return true;
}

void StateDialog::Choose(const QTreeWidgetItem& item) {
  const auto section = item.data(kName, kSection).toInt();
  if (section == 0) return;
  const GradeTarget target{section, item.data(kName, kSubject).toInt(),
                           item.data(kName, kEvaluation).toInt()};
  // Nothing may clear the tree while a message is being read.
  const auto ticked = minute_.isActive();
  minute_.stop();
  std::optional<GradeRoute> route;
  if (!Attempt(this, [&] { route = RouteTo(school_, target, viewer_.seesAll ? 0 : Me()); })) return;
  if (route) {
    chosen_ = route;
    accept();
    return;
  }
  ShowWarning(this, "Ninguna pantalla de notas encuentra esta línea.",
              "Sus alumnos no están en el registro de su sección. Póngalos en él, o pida las notas "
              "a quien las introduce en la sección de su registro.");
  if (ticked) minute_.start(kMinute);
}

}  // namespace quorvane::zendria

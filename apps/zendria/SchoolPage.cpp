#include "apps/zendria/SchoolPage.h"

#include <QDir>
#include <QGroupBox>
#include <QHeaderView>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/School.h"

namespace quorvane::zendria {
namespace {

constexpr int kNodeRole = Qt::UserRole;
constexpr int kLeastTree = 300;

void Enlarge(QLabel& label, double factor) {
  auto font = label.font();
  font.setPointSizeF(font.pointSizeF() * factor);
  font.setBold(true);
  label.setFont(font);
}

QLabel* WithName(QLabel& label, const char* name) {
  label.setObjectName(name);
  label.setTextFormat(Qt::PlainText);
  label.setWordWrap(true);
  label.setTextInteractionFlags(Qt::TextSelectableByMouse);
  return &label;
}

}  // namespace

SchoolPage::SchoolPage(ScreenCatalogue screens, QWidget* parent)
    : QWidget(parent), screens_(std::move(screens)), session_(new QFormLayout), open_("&Abrir") {
  tree_.setObjectName("arbol");
  qt::ShowFocusOnBorder(tree_);
  tree_.setAccessibleName("Pantallas");
  tree_.setHeaderHidden(true);
  tree_.setStyleSheet("QTreeWidget::item { padding: 4px 2px; }");
  open_.setObjectName("abrirPantalla");
  Enlarge(school_, 1.4);
  Enlarge(title_, 1.2);

  session_->addRow("Fichero:", WithName(file_, "fichero"));
  session_->addRow("Centro:", WithName(centre_, "centro"));
  session_->addRow("Usuario:", WithName(user_, "usuario"));
  session_->addRow("Perfil:", WithName(profile_, "perfil"));
  session_->addRow("Año escolar:", WithName(year_, "año"));
  session_->addRow("Abiertas:", WithName(leftovers_, "abiertas"));

  auto* const selected = new QGroupBox;
  auto* const selectedColumn = new QVBoxLayout(selected);
  selectedColumn->addWidget(WithName(title_, "titulo"));
  selectedColumn->addWidget(WithName(description_, "descripcion"));
  selectedColumn->addStretch(1);
  selectedColumn->addWidget(&open_, 0, Qt::AlignRight);

  auto* const side = new QWidget;
  auto* const column = new QVBoxLayout(side);
  column->addWidget(WithName(school_, "escuela"));
  column->addLayout(session_);
  column->addSpacing(12);
  column->addWidget(selected, 1);

  // On a small screen, or with large letters, nothing of it is cut.
  auto* const room = new QScrollArea;
  room->setFrameShape(QFrame::NoFrame);
  room->setWidgetResizable(true);
  room->setFocusPolicy(Qt::NoFocus);
  room->setWidget(side);
  auto* const splitter = new QSplitter;
  splitter->addWidget(&tree_);
  splitter->addWidget(room);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  auto* const whole = new QVBoxLayout(this);
  whole->addWidget(splitter);

  ShowLeftovers({});
  FillTree();
  // Its texts whole, without a gap behind the longest.
  constexpr int kRoom = 24;
  tree_.header()->setStretchLastSection(false);
  tree_.resizeColumnToContents(0);
  tree_.setMinimumWidth(std::max(kLeastTree, tree_.columnWidth(0) + kRoom));
  tree_.header()->setStretchLastSection(true);
  connect(&tree_, &QTreeWidget::currentItemChanged, this, [this] { ShowSelected(); });
  connect(&tree_, &QTreeWidget::itemActivated, this, [this] { OpenSelected(); });
  connect(&open_, &QPushButton::clicked, this, [this] { OpenSelected(); });
  setFocusProxy(&tree_);
  if (!screens_.empty()) SelectNode(screens_.front().node);
  ShowSelected();
}

void SchoolPage::FillTree() {
  auto* const root = new QTreeWidgetItem(&tree_, {"Materias pendientes"});
  QTreeWidgetItem* branch = nullptr;
  for (const auto& screen : screens_) {
    if (branch == nullptr || branch->text(0) != screen.group)
      branch = new QTreeWidgetItem(root, {screen.group});
    auto* const item = new QTreeWidgetItem(branch, {screen.title});
    item->setData(0, kNodeRole, int{screen.node});
    item->setDisabled(!screen.available);
    item->setToolTip(0, screen.available ? screen.description
                                         : QStringLiteral("Esta pantalla no está disponible."));
  }
  tree_.expandAll();
}

void SchoolPage::ShowSession(const School& school, const User& user,
                             const std::optional<Centre>& centre, bool active) {
  session_->setRowVisible(&centre_, school.Centres().size() > 1);
  centre_.setText(centre ? centre->Text() : QString());
  school_.setText(school.Name());
  file_.setText(QDir::toNativeSeparators(school.File()));
  user_.setText(user.name);
  profile_.setText(user.ProfileText());
  year_.setText(active ? "activo" : "no activo: se puede consultar, no guardar notas");
}

void SchoolPage::ShowLeftovers(const QString& text) {
  leftovers_.setText(text);
  session_->setRowVisible(&leftovers_, !text.isEmpty());
}

const ScreenEntry* SchoolPage::Find(std::uint8_t node) const {
  const auto found =
      std::find_if(screens_.begin(), screens_.end(),
                   [node](const ScreenEntry& screen) { return screen.node == node; });
  return found == screens_.end() ? nullptr : &*found;
}

std::optional<std::uint8_t> SchoolPage::SelectedNode() const {
  const auto* const item = tree_.currentItem();
  if (item == nullptr || item->isDisabled() || !item->data(0, kNodeRole).isValid())
    return std::nullopt;
  return static_cast<std::uint8_t>(item->data(0, kNodeRole).toInt());
}

void SchoolPage::SelectNode(std::uint8_t node) {
  for (QTreeWidgetItemIterator at(&tree_); *at != nullptr; ++at)
    if ((*at)->data(0, kNodeRole).isValid() && (*at)->data(0, kNodeRole).toInt() == node)
      tree_.setCurrentItem(*at);
}

void SchoolPage::ShowSelected() {
  const auto node = SelectedNode();
  const auto* const screen = node ? Find(*node) : nullptr;
  title_.setText(screen != nullptr ? screen->title : "Elija una pantalla del árbol");
  description_.setText(screen != nullptr ? screen->description : QString());
  open_.setEnabled(screen != nullptr);
}

void SchoolPage::OpenSelected() {
  if (const auto node = SelectedNode(); node && OpenNode) OpenNode(*node);
}

}  // namespace quorvane::zendria

#include "apps/zendria/LocksDialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QVBoxLayout>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/ColumnsInSight.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/SchoolError.h"

namespace quorvane::zendria {
namespace {

constexpr int kPlaceRole = Qt::UserRole;
constexpr int kOwner = 1;  // column, as the next
constexpr int kHeldSubjects = 3;

QString Owner(const LockList::Publication& publication) {
  auto number = QStringLiteral("usuario %1").arg(publication.owner);
  if (publication.ownerName.empty()) return number;
  return QString::fromStdString(publication.ownerName) + " (" + number + ")";
}

bool Agrees(QWidget* parent, const LockList::Publication& publication) {
  QMessageBox box(QMessageBox::Question, "Quitar bloqueos",
                  QStringLiteral("¿Quitar la publicación %1, de %2, con sus %3 bloqueos?")
                      .arg(publication.id)
                      .arg(Owner(publication))
                      .arg(publication.subjects.size()),
                  QMessageBox::NoButton, parent);
  box.setObjectName("pregunta");
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(
      "Hágalo solo si esa persona ya no tiene abierta la pantalla de notas: si la tiene, otra "
      "podría calificar a la vez las mismas materias.");
  const auto* const yes = box.addButton("&Quitar", QMessageBox::AcceptRole);
  auto* const no = box.addButton("&Cancelar", QMessageBox::RejectRole);
  box.setDefaultButton(no);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

void ShowOpenHere(QWidget* parent, int publication) {
  ShowWarning(parent,
              QStringLiteral("La publicación %1 es la de la pantalla de notas que tiene abierta.")
                  .arg(publication),
              "Se quita sola al cerrar esa pantalla. Si se quitara ahora, otra persona podría "
              "calificar a la vez las mismas materias.");
}

}  // namespace

LocksDialog::LocksDialog(Connection& school, QWidget* parent)
    : QDialog(parent), locks_(school), remove_("&Quitar…") {
  setObjectName("bloqueos");
  setWindowTitle("Publicaciones y bloqueos");
  auto* const hint = new QLabel(
      "Cada publicación es una pantalla de notas abierta; mientras dura, las materias que tiene "
      "bloqueadas no aparecen en las demás. Una pantalla que terminó mal deja las suyas.");
  hint->setWordWrap(true);
  list_.setObjectName("publicaciones");
  qt::ShowFocusOnBorder(list_);
  list_.setAccessibleName("Publicaciones");
  list_.setHeaderLabels({"Publicación", "Quién", "Evaluación", "Materias bloqueadas"});
  columns_ = new ColumnsInSight(list_, {kOwner, kHeldSubjects});
  list_.setAlternatingRowColors(true);
  list_.setStyleSheet("QTreeWidget::item { padding: 3px 8px 3px 2px; }");
  remove_.setObjectName("quitar");
  remove_.setAutoDefault(false);
  auto* const refresh = new QPushButton("&Actualizar");
  auto* const close = new QPushButton("&Cerrar");
  close->setDefault(true);

  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(&remove_);
  buttons->addWidget(refresh);
  buttons->addWidget(&count_, 1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(hint);
  column->addWidget(&list_, 1);
  column->addLayout(buttons);
  TakeFirstSize(*this, {760, 420});

  connect(&list_, &QTreeWidget::currentItemChanged, this,
          [this] { remove_.setEnabled(Selected() != nullptr); });
  connect(&remove_, &QPushButton::clicked, this, [this] { RemoveSelected(); });
  connect(refresh, &QPushButton::clicked, this, [this] { Read(); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  Read();
}

void LocksDialog::Read() {
  publications_.clear();
  Attempt(this, [this] { publications_ = locks_.Read(); });
  Fill();
}

void LocksDialog::Fill() {
  list_.clear();
  for (std::size_t at = 0; at < publications_.size(); ++at) {
    const auto& publication = publications_[at];
    const auto number = QString::number(publication.id);
    auto* const item = new QTreeWidgetItem(
        &list_, {publication.exists ? number : number + " (sin publicación)", Owner(publication),
                 QString::fromStdString(publication.evaluation),
                 QString::number(publication.subjects.size())});
    item->setData(0, kPlaceRole, static_cast<int>(at));
    for (const auto& subject : publication.subjects) {
      auto* const line = new QTreeWidgetItem(item, {{}, {}, {}, QString::fromStdString(subject)});
      // What the eye finds above is told anew.
      for (int column = 0; column < list_.columnCount() - 1; ++column)
        line->setData(column, Qt::AccessibleTextRole, item->text(column));
    }
  }
  list_.expandAll();
  columns_->Fit();
  if (!publications_.empty()) list_.setCurrentItem(list_.topLevelItem(0));
  remove_.setEnabled(Selected() != nullptr);
  count_.setText(publications_.empty() ? "No hay ninguna."
                                       : QStringLiteral("%1 en total").arg(publications_.size()));
}

const LockList::Publication* LocksDialog::Selected() const {
  const auto* item = list_.currentItem();
  if (item == nullptr) return nullptr;
  if (item->parent() != nullptr) item = item->parent();
  return &publications_[item->data(0, kPlaceRole).toULongLong()];
}

void LocksDialog::RemoveSelected() {
  const auto* const publication = Selected();
  if (publication == nullptr) return;
  const auto number = publication->id;
  if (IsOpenHere && IsOpenHere(number)) return ShowOpenHere(this, number);
  if (!Agrees(this, *publication)) return;
  auto removed = false;
  if (!Attempt(this, [&] { removed = locks_.RemoveUnchanged(*publication); })) return;
  if (removed && Removed) Removed(number);
  Read();
  if (!removed)
    ShowSchoolError(this, SchoolError("La publicación ha cambiado desde que se leyó la lista, y no "
                                      "se ha quitado nada. Mire otra vez la lista, que ya está al "
                                      "día."));
}

}  // namespace quorvane::zendria

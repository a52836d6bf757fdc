#include "apps/zendria/WelcomePage.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QVBoxLayout>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/SchoolPlace.h"

namespace quorvane::zendria {

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent),
      open_("&Abrir escuela…"),
      connect_("Co&nectar con un servidor…"),
      heading_("Escuelas &recientes") {
  auto* const picture = new QLabel;
  picture->setPixmap(QIcon(":/iconos/zendria.svg").pixmap(72, 72));
  picture->setAlignment(Qt::AlignCenter);
  auto* const title = new QLabel("Zendria Escuela");
  auto font = title->font();
  font.setPointSizeF(font.pointSizeF() * 1.8);
  font.setBold(true);
  title->setFont(font);
  title->setAlignment(Qt::AlignCenter);
  auto* const hint = new QLabel("Abra la base de datos de una escuela para empezar a trabajar.");
  hint->setAlignment(Qt::AlignCenter);
  open_.setObjectName("abrirEscuela");
  // Enter presses it, without a look that says that it has the keyboard.
  open_.setAutoDefault(true);
  connect_.setObjectName("conectarEscuela");
  heading_.setBuddy(&recent_);
  recent_.setObjectName("recientes");
  recent_.setAccessibleName("Escuelas recientes");
  qt::ShowFocusOnBorder(recent_);
  recent_.setAlternatingRowColors(true);
  recent_.setStyleSheet("QListWidget::item { padding: 3px; }");

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(60, 24, 60, 24);
  column->setSpacing(10);
  column->addStretch(1);
  column->addWidget(picture);
  column->addWidget(title);
  column->addWidget(hint);
  auto* const ways = new QHBoxLayout;
  ways->addStretch(1);
  ways->addWidget(&open_);
  ways->addWidget(&connect_);
  ways->addStretch(1);
  column->addLayout(ways);
  column->addSpacing(12);
  column->addWidget(&heading_);
  column->addWidget(&recent_, 3);
  column->addStretch(1);

  connect(&open_, &QPushButton::clicked, this, [this] {
    if (Open) Open();
  });
  connect(&connect_, &QPushButton::clicked, this, [this] {
    if (Connect) Connect();
  });
  connect(&recent_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    if (OpenRecent) OpenRecent(item->data(Qt::UserRole).toString());
  });
  ShowRecent({});
}

void WelcomePage::ShowRecent(const QStringList& files) {
  recent_.clear();
  for (const auto& file : files) {
    auto* const item = new QListWidgetItem(PlaceTitle(file), &recent_);
    item->setData(Qt::UserRole, file);
    item->setToolTip(QString::fromStdString(AddressOf(file).Shown()));
  }
  if (!files.isEmpty()) recent_.setCurrentRow(0);
  // Enter opens the school that is marked.
  setFocusProxy(files.isEmpty() ? static_cast<QWidget*>(&open_) : &recent_);
  heading_.setVisible(!files.isEmpty());
  recent_.setVisible(!files.isEmpty());
}

}  // namespace quorvane::zendria

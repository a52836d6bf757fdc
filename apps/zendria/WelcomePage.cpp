#include "apps/zendria/WelcomePage.h"

#include <QFileInfo>
#include <QIcon>
#include <QVBoxLayout>

namespace quorvane::zendria {

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent), open_("&Abrir escuela…"), heading_("Escuelas &recientes") {
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
  open_.setDefault(true);
  heading_.setBuddy(&recent_);
  recent_.setObjectName("recientes");
  recent_.setAlternatingRowColors(true);
  recent_.setStyleSheet("QListWidget::item { padding: 3px; }");

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(60, 24, 60, 24);
  column->setSpacing(10);
  column->addStretch(1);
  column->addWidget(picture);
  column->addWidget(title);
  column->addWidget(hint);
  column->addWidget(&open_, 0, Qt::AlignCenter);
  column->addSpacing(12);
  column->addWidget(&heading_);
  column->addWidget(&recent_, 3);
  column->addStretch(1);

  connect(&open_, &QPushButton::clicked, this, [this] {
    if (Open) Open();
  });
  connect(&recent_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    if (OpenRecent) OpenRecent(item->data(Qt::UserRole).toString());
  });
  ShowRecent({});
}

void WelcomePage::ShowRecent(const QStringList& files) {
  recent_.clear();
  for (const auto& file : files) {
    const QFileInfo info(file);
    auto* const item =
        new QListWidgetItem(info.fileName() + QStringLiteral("  ·  ") + info.path(), &recent_);
    item->setData(Qt::UserRole, file);
    item->setToolTip(file);
  }
  if (!files.isEmpty()) recent_.setCurrentRow(0);
  heading_.setVisible(!files.isEmpty());
  recent_.setVisible(!files.isEmpty());
}

}  // namespace quorvane::zendria

#include "apps/zendria/CopyButton.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>

namespace quorvane::zendria {

void AddCopyButton(QMessageBox& box, const QString& text) {
  auto* const copy = box.addButton("&Copiar detalles", QMessageBox::HelpRole);
  copy->setObjectName("copiar");
  // Any button closes a box unless it is cut off from it.
  QObject::disconnect(copy, &QPushButton::clicked, nullptr, nullptr);
  QObject::connect(copy, &QPushButton::clicked, copy, [copy, text] {
    QGuiApplication::clipboard()->setText(text);
    copy->setText("&Copiado");
  });
}

}  // namespace quorvane::zendria

#include "apps/zendria/RescuedGradesInBox.h"

#include <QGridLayout>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

#include "apps/zendria/GradeRescue.h"
#include "apps/zendria/RescueWindow.h"

namespace quorvane::zendria {

void AddRescuedGrades(QMessageBox& box, const RescuedGrades& rescued) {
  auto* const show = box.addButton("&Mostrar las notas", QMessageBox::HelpRole);
  show->setObjectName("mostrarNotas");
  // Any button closes a box unless it is cut off from it.
  QObject::disconnect(show, &QPushButton::clicked, nullptr, nullptr);
  QObject::connect(show, &QPushButton::clicked, &box,
                   [&box, &rescued] { RescueWindow(rescued, &box).exec(); });
  auto* const grid = qobject_cast<QGridLayout*>(box.layout());
  if (!rescued.file.isEmpty() || grid == nullptr) return;
  auto* const text = new QPlainTextEdit(rescued.text);
  text->setObjectName("notas");
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  grid->addWidget(text, grid->rowCount(), 0, 1, grid->columnCount());
}

}  // namespace quorvane::zendria

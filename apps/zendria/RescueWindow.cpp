#include "apps/zendria/RescueWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/GradeRescue.h"

namespace quorvane::zendria {
namespace {

constexpr QSize kFirstSize(760, 460);

}  // namespace

RescueWindow::RescueWindow(const RescuedGrades& rescued, QWidget* parent) : QDialog(parent) {
  setObjectName("notasSinGuardar");
  setWindowTitle("Notas sin guardar");
  auto* const file = new QLabel(rescued.file);
  file->setObjectName("fichero");
  file->setTextFormat(Qt::PlainText);
  file->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  file->setWordWrap(true);
  file->setVisible(!rescued.file.isEmpty());
  auto* const text = new QPlainTextEdit(rescued.text);
  text->setAccessibleName("Notas sin guardar");
  text->setReadOnly(true);
  text->setTabStopDistance(text->fontMetrics().averageCharWidth() * 24);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  qt::ShowFocusOnBorder(*text);
  auto* const copy = new QPushButton("&Copiar");
  copy->setObjectName("copiarNotas");
  copy->setAutoDefault(false);
  auto* const close = new QPushButton("C&errar");
  close->setDefault(true);

  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(copy);
  buttons->addStretch(1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(file);
  column->addWidget(text, 1);
  column->addLayout(buttons);
  TakeFirstSize(*this, kFirstSize);

  connect(copy, &QPushButton::clicked, this,
          [text] { QGuiApplication::clipboard()->setText(text->toPlainText()); });
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

}  // namespace quorvane::zendria

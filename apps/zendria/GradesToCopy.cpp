#include "apps/zendria/GradesToCopy.h"

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/FirstSize.h"

namespace quorvane::zendria {
namespace {

constexpr int kTabLetters = 24;

}  // namespace

void LayOutGradesToCopy(QDialog& dialog, QWidget* above, const QString& grades,
                        const QSize& first) {
  auto* const text = new QPlainTextEdit(grades);
  text->setObjectName("notas");
  text->setAccessibleName(dialog.windowTitle());
  text->setReadOnly(true);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setTabStopDistance(text->fontMetrics().averageCharWidth() * kTabLetters);
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
  auto* const column = new QVBoxLayout(&dialog);
  column->addWidget(above);
  column->addWidget(text, 1);
  column->addLayout(buttons);
  TakeFirstSize(dialog, first);

  QObject::connect(copy, &QPushButton::clicked, &dialog,
                   [text] { QGuiApplication::clipboard()->setText(text->toPlainText()); });
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
}

}  // namespace quorvane::zendria

#include "apps/zendria/StatementWindow.h"

#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include "adapters/qt/views/FocusBorder.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/TextFolding.h"

namespace quorvane::zendria {
namespace {

/// The desktop may make all other letters larger, and not these.
QFont FixedFont(const QFont& around) {
  auto fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  if (fixed.pointSizeF() > 0 && fixed.pointSizeF() < around.pointSizeF())
    fixed.setPointSizeF(around.pointSizeF());
  return fixed;
}

QString Shown(const StatementLog::Line& line) {
  return line.when.toString("hh:mm:ss.zzz  ") + line.connection + "  " + line.statement;
}

}  // namespace

StatementWindow::StatementWindow(StatementLog& log, QWidget* parent) : QDialog(parent), log_(log) {
  setObjectName("sentencias");
  setWindowTitle("Sentencias");
  // Stays usable while a screen of the module is open.
  setWindowModality(Qt::NonModal);
  filter_.setPlaceholderText("Filtrar: palabras de la sentencia o de la conexión");
  filter_.setAccessibleName("Filtro");
  filter_.setClearButtonEnabled(true);
  text_.setReadOnly(true);
  text_.setAccessibleName("Sentencias");
  qt::ShowFocusOnBorder(text_);
  text_.setLineWrapMode(QPlainTextEdit::NoWrap);
  text_.setFont(FixedFont(font()));
  text_.setMaximumBlockCount(static_cast<int>(StatementLog::kMostLines));
  auto* const copy = new QPushButton("&Copiar");
  auto* const clear = new QPushButton("&Vaciar");
  auto* const close = new QPushButton("C&errar");
  clear->setObjectName("vaciar");
  for (auto* const button : {copy, clear, close}) button->setAutoDefault(false);

  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(copy);
  buttons->addWidget(clear);
  buttons->addStretch(1);
  buttons->addWidget(close);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(&filter_);
  column->addWidget(&text_, 1);
  column->addLayout(buttons);
  TakeFirstSize(*this, kFirstSize);

  connect(&filter_, &QLineEdit::textChanged, this, [this] { ShowAll(); });
  connect(copy, &QPushButton::clicked, this, [this] { CopyAll(); });
  connect(clear, &QPushButton::clicked, this, [this] {
    log_.Clear();
    ShowAll();
  });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  log_.Added = [this](const StatementLog::Line& line) {
    if (!Passes(line)) return;
    auto* const bar = text_.verticalScrollBar();
    const auto atLast = bar->value() == bar->maximum();
    text_.appendPlainText(Shown(line));
    if (atLast) bar->setValue(bar->maximum());
  };
  ShowAll();
}

StatementWindow::~StatementWindow() { log_.Added = nullptr; }

bool StatementWindow::Passes(const StatementLog::Line& line) const {
  return HoldsWords(Folded(line.Text()), Folded(filter_.text()));
}

void StatementWindow::ShowAll() {
  QStringList shown;
  for (const auto& line : log_.Lines())
    if (Passes(line)) shown.append(Shown(line));
  text_.setPlainText(shown.join(u'\n'));
  GoToLast();
}

void StatementWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // It knows its measures only then; those that run from now on are followed from the last.
  QTimer::singleShot(0, this, [this] { GoToLast(); });
}

void StatementWindow::GoToLast() {
  text_.moveCursor(QTextCursor::End);
  // The end of a long one would have all begin out of sight.
  text_.moveCursor(QTextCursor::StartOfBlock);
  auto* const bar = text_.verticalScrollBar();
  bar->setValue(bar->maximum());
}

void StatementWindow::CopyAll() const {
  QStringList lines;
  for (const auto& line : log_.Lines())
    if (Passes(line)) lines.append(line.Text());
  QGuiApplication::clipboard()->setText(lines.join(u'\n') + u'\n');
}

}  // namespace quorvane::zendria

#include "tools/screenshots/Terminal.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPlainTextEdit>
#include <QProcess>
#include <stdexcept>

namespace quorvane::screenshots {
namespace {

constexpr int kColumns = 118;
constexpr int kMostLines = 26;
constexpr auto kColours = "QPlainTextEdit { background: #20242a; color: #e6e6e6; border: none; }";

/// As somebody would type it.
QString Typed(const QStringList& words) {
  QStringList typed;
  for (const auto& word : words)
    typed.append(word.contains(u' ') || word.contains(u'*') ? "'" + word + "'" : word);
  return typed.join(u' ');
}

/// The terminal breaks a line where it ends.
QString Folded(const QString& line) {
  QStringList parts;
  for (qsizetype at = 0; at == 0 || at < line.size(); at += kColumns)
    parts.append(line.mid(at, kColumns));
  return parts.join(u'\n');
}

}  // namespace

Terminal::Terminal(Camera& camera, const QString& folder) : camera_(camera), folder_(folder) {
  QDir().mkpath(folder);
}

void Terminal::Type(const QStringList& words, bool seen) {
  QProcess order;
  order.setWorkingDirectory(folder_);
  order.setProcessChannelMode(QProcess::MergedChannels);
  const auto& name = words.front();
  order.start(name == "quorvane-escuela" ? QUORVANE_ESCUELA : name, words.mid(1));
  if (!order.waitForFinished())
    throw std::runtime_error("No se puede ejecutar " + name.toStdString());
  if (!seen) return;
  text_ += Folded("$ " + Typed(words)) + "\n";
  const auto told = QString::fromUtf8(order.readAll());
  for (const auto& line : told.split(u'\n', Qt::SkipEmptyParts)) text_ += Folded(line) + "\n";
}

void Terminal::Take(const QString& name) {
  QPlainTextEdit screen;
  auto font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setFamily("DejaVu Sans Mono");
  font.setPointSize(QApplication::font().pointSize());
  screen.setFont(font);
  screen.setStyleSheet(kColours);
  screen.setWindowTitle("Terminal");
  screen.setReadOnly(true);
  screen.setLineWrapMode(QPlainTextEdit::NoWrap);
  auto lines = text_.trimmed().split(u'\n');
  if (lines.size() > kMostLines) lines = lines.mid(0, kMostLines - 1) << "…";
  screen.setPlainText(lines.join(u'\n'));
  screen.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  screen.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const QFontMetrics letters(font);
  screen.resize(letters.horizontalAdvance(QString(kColumns + 3, u'm')),
                letters.lineSpacing() * (static_cast<int>(lines.size()) + 1));
  screen.show();
  QApplication::processEvents();
  camera_.Take(name, screen);
  screen.close();
  text_.clear();
}

}  // namespace quorvane::screenshots

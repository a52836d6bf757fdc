#include "apps/zendria/SheetCsv.h"

namespace quorvane::zendria {
namespace {

QString Cell(QString text, QChar separator) {
  const auto plain = !text.contains(separator) && !text.contains(u'"') && !text.contains(u'\n') &&
                     !text.contains(u'\r') && text == text.trimmed();
  if (plain) return text;
  return u'"' + text.replace(u'"', "\"\"") + u'"';
}

QString SheetLine(const QStringList& cells, QChar separator) {
  QStringList written;
  for (const auto& cell : cells) written.append(Cell(cell, separator));
  return written.join(separator) + "\r\n";
}

}  // namespace

QChar CsvSeparator(const QLocale& locale) { return locale.decimalPoint() == "," ? u';' : u','; }

QByteArray CsvOf(const Sheet& sheet, QChar separator) {
  QString text(QChar::ByteOrderMark);
  if (!sheet.headings.isEmpty()) text += SheetLine(sheet.headings, separator);
  for (const auto& row : sheet.rows) text += SheetLine(row, separator);
  return text.toUtf8();
}

}  // namespace quorvane::zendria

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace quorvane::test {

/// All of a file; a word that no file of ours holds where it can't be read.
inline QByteArray FileBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// Pages of a PDF, by their objects; -1 for what is none.
inline qsizetype PdfPages(const QString& path) {
  const auto content = FileBytes(path);
  return content.startsWith("%PDF-") ? content.count("/Type /Page\n") : -1;
}

}  // namespace quorvane::test

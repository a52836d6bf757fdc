#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <sys/stat.h>

namespace quorvane::test {

/// All of a file; a word that no file of ours holds where it can't be read.
inline QByteArray FileBytes(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

/// Who may do what with a file or folder; 0 where there is none.
inline mode_t Mode(const QString& path) {
  struct stat status {};
  return stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// All that lies in a folder, hidden files and what is no file too.
inline QStringList Entries(const QString& folder) {
  return QDir(folder).entryList(
      QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// Pages of a PDF, by their objects; -1 for what is none.
inline qsizetype PdfPages(const QString& path) {
  const auto content = FileBytes(path);
  return content.startsWith("%PDF-") ? content.count("/Type /Page\n") : -1;
}

}  // namespace quorvane::test

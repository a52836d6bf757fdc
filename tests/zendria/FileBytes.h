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

}  // namespace quorvane::test

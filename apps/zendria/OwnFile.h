#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace quorvane::zendria {

/// Makes a new file that only this user can read (0600), in a folder that only he can enter (0700)
/// and that is made when it isn't there. The file is there whole and safe on disk, or not at all:
/// then nothing is left of it. It never takes the place of another: where the name is taken, a
/// number goes before its ending. Gives the file's path; none when it can't be written, nor when
/// the folder is somebody else's.
std::optional<QString> WriteOwnFile(const QString& folder, const QString& name,
                                    const QByteArray& content);

/// The same in a new folder among the temporary files.
std::optional<QString> WriteOwnTemporaryFile(const QString& name, const QByteArray& content);

}  // namespace quorvane::zendria

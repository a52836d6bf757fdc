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

/// The same, but in the place of the file of that name, which stays as it was when it fails.
bool ReplaceOwnFile(const QString& folder, const QString& name, const QByteArray& content);

/// What `ReadOwnFile` finds under a path.
enum class OwnFileState { Missing, Read, Unfit };

/// Reads a file of this user's own. Unfit is what is no plain file, somebody else's, greater than
/// 16 MB or can't be read; a link isn't followed.
OwnFileState ReadOwnFile(const QString& path, QByteArray& content);

/// Gives what stands under that name in the folder another that is free, with that ending. Gives
/// the new path; none when that fails.
std::optional<QString> SetOwnFileAside(const QString& folder, const QString& name,
                                       const QString& ending);

/// Removes what a program that was killed while it wrote has left in such a folder. What is younger
/// than an hour stays: another program may be at it.
void SweepUnfinishedFiles(const QString& folder);

/// As `WriteOwnFile`, in a new folder among the temporary files.
std::optional<QString> WriteOwnTemporaryFile(const QString& name, const QByteArray& content);

}  // namespace quorvane::zendria

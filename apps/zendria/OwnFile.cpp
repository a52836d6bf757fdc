#include "apps/zendria/OwnFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quorvane::zendria {
namespace {

constexpr mode_t kFileMode = 0600;
constexpr mode_t kFolderMode = 0700;
constexpr auto kUnfinished = "/.notas-XXXXXX";
constexpr qint64 kOldAge = 3600;  // seconds
constexpr int kMostOfOneName = 1000;
constexpr qint64 kMostRead = qint64{16} << 20;

/// A file that isn't finished: it goes with the object, unless it was given a name.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(const QString& folder)
      : path_(QFile::encodeName(folder + kUnfinished)),
        handle_(mkostemp(path_.data(), O_CLOEXEC)) {}
  ~UnfinishedFile() {
    if (handle_ < 0) return;
    close(handle_);
    unlink(path_.constData());
  }
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;
  UnfinishedFile(UnfinishedFile&&) = delete;
  UnfinishedFile& operator=(UnfinishedFile&&) = delete;

  /// On the disk, and not in its buffers alone.
  [[nodiscard]] bool Write(const QByteArray& content) const {
    // The user's mask may have taken even his own rights away.
    if (handle_ < 0 || fchmod(handle_, kFileMode) != 0) return false;
    const auto* left = content.constData();
    const auto* const end = left + content.size();
    while (left < end) {
      const auto written = write(handle_, left, static_cast<std::size_t>(end - left));
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      left += written;
    }
    return fsync(handle_) == 0;
  }

  /// Takes the name from the file that has it.
  [[nodiscard]] bool TakePlace(const QByteArray& path) const {
    return rename(path_.constData(), path.constData()) == 0;
  }

  /// False with the reason in `errno`; EEXIST when there is one of that name.
  [[nodiscard]] bool TakeName(const QByteArray& path) const {
    if (renameat2(AT_FDCWD, path_.constData(), AT_FDCWD, path.constData(), RENAME_NOREPLACE) == 0)
      return true;
    // Not every file system can; a second name for the file is refused in the same way.
    return (errno == EINVAL || errno == ENOSYS) && link(path_.constData(), path.constData()) == 0;
  }

 private:
  QByteArray path_;
  int handle_;
};

bool MakeOwnFolder(const QString& folder) {
  QDir().mkpath(QFileInfo(folder).absolutePath());
  const auto path = QFile::encodeName(folder);
  if (mkdir(path.constData(), kFolderMode) != 0 && errno != EEXIST) return false;
  struct stat status {};
  if (lstat(path.constData(), &status) != 0 || !S_ISDIR(status.st_mode) ||
      status.st_uid != geteuid())
    return false;
  return (status.st_mode & ~mode_t{S_IFMT}) == kFolderMode ||
         chmod(path.constData(), kFolderMode) == 0;
}

/// A name that is new in a folder is safe when the folder is.
void SyncFolder(const QString& folder) {
  const auto handle =
      open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  fsync(handle);
  close(handle);
}

QString Numbered(const QString& name, int number) {
  const QFileInfo parts(name);
  return number == 1 ? name
                     : QStringLiteral("%1-%2.%3")
                           .arg(parts.completeBaseName())
                           .arg(number)
                           .arg(parts.suffix());
}

/// Gives a free name, with the reason for a refusal in `errno`: EEXIST when there is one of it.
bool GiveName(const QByteArray& from, const QByteArray& to) {
  if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
    return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  // Not every file system can, nor has each a second name for a file: an empty one keeps the name
  // free of others until it is taken.
  struct stat status {};
  if (lstat(from.constData(), &status) != 0) return false;
  const auto isFolder = S_ISDIR(status.st_mode);
  if (isFolder) {
    if (mkdir(to.constData(), kFolderMode) != 0) return false;
  } else {
    const auto handle =
        open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kFileMode);
    if (handle < 0) return false;
    close(handle);
  }
  if (rename(from.constData(), to.constData()) == 0) return true;
  const auto why = errno;
  isFolder ? rmdir(to.constData()) : unlink(to.constData());
  errno = why;
  return false;
}

std::optional<QString> WriteIn(const QString& folder, const QString& name,
                               const QByteArray& content) {
  const UnfinishedFile file(folder);
  if (!file.Write(content)) return std::nullopt;
  for (int number = 1; number <= kMostOfOneName; ++number) {
    const auto path = folder + '/' + Numbered(name, number);
    if (file.TakeName(QFile::encodeName(path))) {
      SyncFolder(folder);
      return path;
    }
    if (errno != EEXIST) break;
  }
  return std::nullopt;
}

}  // namespace

std::optional<QString> WriteOwnFile(const QString& folder, const QString& name,
                                    const QByteArray& content) {
  if (!MakeOwnFolder(folder)) return std::nullopt;
  return WriteIn(folder, name, content);
}

bool ReplaceOwnFile(const QString& folder, const QString& name, const QByteArray& content) {
  if (!MakeOwnFolder(folder)) return false;
  const UnfinishedFile file(folder);
  if (!file.Write(content) || !file.TakePlace(QFile::encodeName(folder + '/' + name))) return false;
  SyncFolder(folder);
  return true;
}

OwnFileState ReadOwnFile(const QString& path, QByteArray& content) {
  struct stat status {};
  const auto encoded = QFile::encodeName(path);
  if (lstat(encoded.constData(), &status) != 0)
    return errno == ENOENT || errno == ENOTDIR ? OwnFileState::Missing : OwnFileState::Unfit;
  // Opening a pipe would wait for its other end.
  if (!S_ISREG(status.st_mode) || status.st_uid != geteuid() || status.st_size > kMostRead)
    return OwnFileState::Unfit;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return OwnFileState::Unfit;
  content = file.read(kMostRead);
  return file.error() == QFileDevice::NoError ? OwnFileState::Read : OwnFileState::Unfit;
}

std::optional<QString> SetOwnFileAside(const QString& folder, const QString& name,
                                       const QString& ending) {
  const auto from = QFile::encodeName(folder + '/' + name);
  for (int number = 1; number <= kMostOfOneName; ++number) {
    const auto path =
        folder + '/' + Numbered(QFileInfo(name).completeBaseName() + '.' + ending, number);
    if (GiveName(from, QFile::encodeName(path))) {
      SyncFolder(folder);
      return path;
    }
    if (errno != EEXIST) break;
  }
  return std::nullopt;
}

void SweepUnfinishedFiles(const QString& folder) {
  const auto now = QDateTime::currentSecsSinceEpoch();
  const auto pattern = QString(kUnfinished).mid(1).replace(u'X', u'?');
  for (const auto& name : QDir(folder).entryList({pattern}, QDir::Files | QDir::Hidden)) {
    const auto path = QFile::encodeName(folder + '/' + name);
    struct stat status {};
    if (lstat(path.constData(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_uid == geteuid() && now - status.st_mtime > kOldAge)
      unlink(path.constData());
  }
}

std::optional<QString> WriteOwnTemporaryFile(const QString& name, const QByteArray& content) {
  // Qt knows none when the user's own has gone.
  const auto folder = QDir::tempPath();
  auto path = QFile::encodeName((folder.isEmpty() ? P_tmpdir : folder) + "/zendria-XXXXXX");
  if (mkdtemp(path.data()) == nullptr) return std::nullopt;
  auto written = chmod(path.constData(), kFolderMode) == 0
                     ? WriteIn(QFile::decodeName(path), name, content)
                     : std::nullopt;
  if (!written) rmdir(path.constData());
  return written;
}

}  // namespace quorvane::zendria

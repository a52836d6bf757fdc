#include "adapters/sqlite/OpenedFile.h"

#include <cerrno>
#include <filesystem>
#include <sqlite3.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "platform/RuntimeError.h"

namespace quorvane::sqlite {
namespace {

constexpr std::chrono::seconds kTrusted{1};  // how long a look holds for writes

bool HasFile(sqlite3* database) {
  const char* const file = sqlite3_db_filename(database, "main");
  return file != nullptr && *file != '\0';
}

/// Whether the engine finds another file than the one it has opened.
bool HasMoved(sqlite3* database) {
  int moved = 0;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

bool TellsOfNoFile(int error) { return error == ENOENT || error == ENOTDIR || error == ELOOP; }

}  // namespace

OpenedFile::OpenedFile(sqlite3* database, std::string path) : path_(std::move(path)) {
  if (!HasFile(database)) return;
  std::error_code ignored;
  whole_ = std::filesystem::absolute(path_, ignored).string();
  real_ = std::filesystem::canonical(path_, ignored).string();
  struct stat found {};
  if (stat(whole_.c_str(), &found) == 0 && !HasMoved(database))
    identity_ = {found.st_dev, found.st_ino};
}

void OpenedFile::Require() {
  Look();
  if (place_ != Place::Kept) Refuse();
}

void OpenedFile::RequireForWrite(Time now) {
  if (!MayWrite(now)) Refuse();
}

bool OpenedFile::MayWrite(Time now) {
  if (now >= nextLook_) {
    nextLook_ = now + kTrusted;
    Look();
  }
  return place_ == Place::Kept;
}

void OpenedFile::Look() {
  if (whole_.empty()) return;
  place_ = PlaceAt(whole_, Links::Followed);
  if (place_ == Place::Kept && PlaceAt(real_, Links::NotFollowed) != Place::Kept)
    place_ = Place::Lost;
}

OpenedFile::Place OpenedFile::PlaceAt(const std::string& path, Links links) {
  struct stat found {};
  const auto look = links == Links::Followed ? stat : lstat;
  if (look(path.c_str(), &found) != 0) {
    reason_ = errno;
    return TellsOfNoFile(reason_) ? Place::Lost : Place::OutOfReach;
  }
  if (S_ISDIR(found.st_mode)) return Place::OfFolder;
  return identity_ == Identity{found.st_dev, found.st_ino} ? Place::Kept : Place::OfAnother;
}

std::string OpenedFile::What() const {
  const std::string putBack =
      "Devuélvalo a su sitio, o recupere una copia y abra la escuela de nuevo";
  switch (place_) {
    case Place::Kept:
      return {};
    case Place::Lost:
      return "se ha borrado, movido o cambiado de nombre. " + putBack;
    case Place::OfFolder:
      return "una carpeta ha ocupado su sitio. " + putBack;
    case Place::OfAnother:
      return "otro ha ocupado su sitio. Abra la escuela de nuevo para trabajar con el que hay "
             "ahora, o devuelva el anterior a su sitio";
    case Place::OutOfReach:
      return "no se puede llegar a él (" + std::generic_category().message(reason_) +
             "). Compruebe el disco, la red y los permisos de sus carpetas";
  }
  return {};
}

void OpenedFile::Refuse() const {
  throw RuntimeError(
      ErrorNumber::StatementFailed,
      "Se ha perdido el archivo " + path_ + ": " + What() + "; hasta entonces no se guarda nada.");
}

}  // namespace quorvane::sqlite

#include "apps/escuela/SchoolFile.h"

#include <cerrno>
#include <filesystem>
#include <random>
#include <system_error>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Transaction.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void RefuseFile(const std::string& path, const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed, "No se puede crear " + path + ": " + reason);
}

/// The file that the school is written to, removed at the end with what the engine left beside it.
class PartialFile {
 public:
  explicit PartialFile(const std::string& path)
      : path_(path + ".parcial-" + std::to_string(std::random_device()())) {}
  ~PartialFile() {
    std::error_code ignored;
    for (const auto* const ending : {"", "-journal", "-wal", "-shm"})
      fs::remove(path_ + ending, ignored);
  }
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  PartialFile(PartialFile&&) = delete;
  PartialFile& operator=(PartialFile&&) = delete;

  [[nodiscard]] const std::string& Path() const noexcept { return path_; }

  /// Gives it its name. A second name for the file, unlike a change of name, fails when somebody
  /// has made a file of that name meanwhile; where the file system has none, the look has to do.
  void Publish(const std::string& path) const {
    std::error_code error;
    fs::create_hard_link(path_, path, error);
    if (!error) return;
    if (fs::exists(fs::symlink_status(path))) RefuseFile(path, "el archivo ya existe");
    fs::rename(path_, path, error);
    if (error) RefuseFile(path, error.message());
  }

 private:
  std::string path_;
};

// Before the engine does, who would name the file that nobody has asked for.
void RequireWritableFolder(const std::string& path) {
  const auto named = fs::path(path).parent_path();
  const auto folder = named.empty() ? fs::path(".") : named;
  std::error_code error;
  if (!fs::is_directory(folder, error)) RefuseFile(path, "la carpeta no existe");
  if (access(folder.c_str(), W_OK) == 0) return;
  RefuseFile(path, errno == EROFS ? "el disco es de solo lectura"
                                  : "no tiene permiso para escribir en la carpeta");
}

}  // namespace

void MakeSchoolFile(const std::string& path, const std::function<void(Connection& school)>& fill,
                    const std::function<void()>& goOn) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error))) RefuseFile(path, "el archivo ya existe");
  RequireWritableFolder(path);
  const PartialFile partial(path);
  sqlite::SqliteConnection school(partial.Path(), "", sqlite::OpenMode::Create);
  school.Open();
  {
    Transaction transaction(school);
    WriteSchool(school, SqliteSchema(), fill, goOn);
    transaction.Keep();
  }
  // Readers and the one who writes don't wait for each other, and a statement locks, and syncs,
  // a third as often. The file keeps this; connections leave it as they find it.
  school.Execute("PRAGMA journal_mode=WAL");
  school.Close();
  partial.Publish(path);
}

}  // namespace quorvane

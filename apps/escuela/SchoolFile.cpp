#include "apps/escuela/SchoolFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <random>
#include <sys/stat.h>
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

constexpr const char* kEndings[] = {"", "-journal", "-wal", "-shm"};
constexpr std::size_t kLongestEnding = 8;
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestPath = 511;  // as the engine takes it
constexpr std::size_t kPartialName = 20;
constexpr mode_t kOwnerAlone = 0600;

/// The paths of the file that is being written, for a handler that may call little more than the
/// system. Empty for none.
char partialPaths[std::size(kEndings)][kLongestPath + 1];

/// The file that the school is written to, removed at the end with what the engine left beside it.
/// Its name is no longer than others, whatever that of the school.
class PartialFile {
 public:
  explicit PartialFile(const std::string& path)
      : path_(
            (fs::path(path).parent_path() / (".parcial-" + std::to_string(std::random_device()())))
                .string()) {
    for (std::size_t i = 0; i < std::size(kEndings); ++i)
      (path_ + kEndings[i]).copy(partialPaths[i], kLongestPath);
    // Made by us, the file is its owner's alone from its first moment on, and the engine gives its
    // log the same rights.
    const auto handle = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, kOwnerAlone);
    if (handle < 0) RefuseFile(path, std::generic_category().message(errno));
    // The user's mask may have taken even his own rights away.
    fchmod(handle, kOwnerAlone);
    close(handle);
  }
  ~PartialFile() {
    RemovePartialSchool();
    for (auto& partial : partialPaths) std::fill(std::begin(partial), std::end(partial), '\0');
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

/// The engine has to find room for the names of its journals beside the school's.
void RequireShortName(const std::string& path) {
  if (fs::path(path).filename().string().size() > kLongestName - kLongestEnding)
    RefuseFile(path, "el nombre es demasiado largo: se admiten " +
                         std::to_string(kLongestName - kLongestEnding) + " bytes");
  std::error_code ignored;
  // What is written to meanwhile may have the longer name.
  const auto most = kLongestPath - kLongestEnding - kPartialName;
  if (fs::absolute(path, ignored).string().size() > most)
    RefuseFile(
        path, "la ruta completa es demasiado larga: se admiten " + std::to_string(most) + " bytes");
}

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

/// A failure of the engine's names the file that was given, rather than one that nobody knows of.
void OpenPartial(sqlite::SqliteConnection& school, const PartialFile& partial,
                 const std::string& path) {
  try {
    school.Open();
  } catch (const RuntimeError& error) {
    const auto text = error.Description();
    const auto name = text.find(partial.Path());
    RefuseFile(path,
               name == std::string::npos ? text : text.substr(name + partial.Path().size() + 2));
  }
}

}  // namespace

void RemovePartialSchool() noexcept {
  for (const auto& partial : partialPaths)
    if (*partial != '\0') unlink(partial);
}

void MakeSchoolFile(const std::string& path, const std::function<void(Connection& school)>& fill,
                    const std::function<void()>& goOn) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error))) RefuseFile(path, "el archivo ya existe");
  RequireShortName(path);
  RequireWritableFolder(path);
  const PartialFile partial(path);
  sqlite::SqliteConnection school(partial.Path(), "", sqlite::OpenMode::Create);
  OpenPartial(school, partial, path);
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

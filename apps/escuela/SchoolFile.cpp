#include "apps/escuela/SchoolFile.h"

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/PartialFile.h"
#include "apps/escuela/Refusal.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Transaction.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestEnding = 8;
constexpr std::size_t kLongestName = 255;
constexpr std::size_t kPartialName = 20;

/// The engine has to find room for the names of its journals beside the school's.
void RequireShortName(const std::string& path) {
  if (fs::path(path).filename().string().size() > kLongestName - kLongestEnding)
    RefuseToCreate(path, "el nombre es demasiado largo: se admiten " +
                             std::to_string(kLongestName - kLongestEnding) + " bytes");
  std::error_code ignored;
  // What is written to meanwhile may have the longer name.
  const auto most = PartialFile::kLongestPath - kLongestEnding - kPartialName;
  if (fs::absolute(path, ignored).string().size() > most)
    RefuseToCreate(
        path, "la ruta completa es demasiado larga: se admiten " + std::to_string(most) + " bytes");
}

// Before the engine does, who would name the file that nobody has asked for.
void RequireWritableFolder(const std::string& path) {
  const auto named = fs::path(path).parent_path();
  const auto folder = named.empty() ? fs::path(".") : named;
  std::error_code error;
  if (!fs::is_directory(folder, error)) RefuseToCreate(path, "la carpeta no existe");
  if (access(folder.c_str(), W_OK) == 0) return;
  RefuseToCreate(path, errno == EROFS ? "el disco es de solo lectura"
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
    RefuseToCreate(
        path, name == std::string::npos ? text : text.substr(name + partial.Path().size() + 2));
  }
}

}  // namespace

void MakeSchoolFile(const std::string& path, const std::function<void(Connection& school)>& fill,
                    const std::function<void()>& goOn) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error))) RefuseToCreate(path, "el archivo ya existe");
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
  partial.Publish();
}

}  // namespace quorvane

#include "apps/escuela/repair/FileBackup.h"

#include <ctime>
#include <filesystem>
#include <system_error>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/PartialFile.h"
#include "apps/escuela/QuotedText.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

std::string BackupMoment() {
  const auto now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &local)};
}

/// A name that no file has yet: two repairs may fall into one second.
std::string FreeName(const std::string& school) {
  const auto name = school + ".antes-de-reparar-" + BackupMoment();
  auto free = name;
  for (auto number = 2; std::filesystem::exists(std::filesystem::symlink_status(free)); ++number)
    free = name + "-" + std::to_string(number);
  return free;
}

}  // namespace

FileBackup::~FileBackup() {
  std::error_code ignored;
  if (!kept_ && !path_.empty()) std::filesystem::remove(path_, ignored);
}

void FileBackup::Make(const std::string& school) {
  const auto copy = FreeName(school);
  try {
    // The engine makes no copy through a connection that may not write.
    sqlite::SqliteConnection original(school, "");
    original.Open();
    const auto journal = original.Execute("PRAGMA journal_mode").Fields(0).Text();
    const PartialFile partial(copy);
    std::string statement = "VACUUM INTO ";
    AppendQuoted(statement, partial.Path(), sqltext::Engine::Sqlite);
    original.Execute(statement);
    if (journal == "wal") {
      sqlite::SqliteConnection made(partial.Path(), "");
      made.Open();
      made.Execute("PRAGMA journal_mode=WAL");
    }
    // Whole from its first moment under a name that somebody could trust.
    partial.Publish();
    path_ = copy;
  } catch (const RuntimeError& error) {
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se ha podido hacer la copia " + copy +
                           ", y no se ha tocado nada: " + error.Description());
  }
}

}  // namespace quorvane

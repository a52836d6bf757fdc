#include "apps/escuela/PublishFile.h"

#include <filesystem>
#include <system_error>

namespace quorvane {

// A second name for the file, unlike a change of name, fails when somebody has made a file of that
// name meanwhile; where the file system has none, the look has to do.
std::string PublishFile(const std::string& from, const std::string& to) {
  std::error_code error;
  std::filesystem::create_hard_link(from, to, error);
  if (!error) return {};
  if (std::filesystem::exists(std::filesystem::symlink_status(to))) return "el archivo ya existe";
  std::filesystem::rename(from, to, error);
  return error ? error.message() : std::string();
}

}  // namespace quorvane

#include "apps/escuela/report/NewFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <system_error>

#include "apps/escuela/PublishFile.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void RefuseToWrite(const std::string& path, const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed, "No se puede escribir " + path + ": " + reason);
}

}  // namespace

void WriteNewFile(const std::string& path, const std::string& content) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error))) RefuseToWrite(path, "el archivo ya existe");
  const auto partial = path + ".parcial-" + std::to_string(std::random_device()());
  const auto give = [&](const std::string& reason) {
    std::error_code ignored;
    fs::remove(partial, ignored);
    RefuseToWrite(path, reason);
  };
  {
    std::ofstream file(partial, std::ios::binary);
    if (!file) RefuseToWrite(path, std::strerror(errno));
    file << content;
    if (!file.flush()) give("compruebe que queda espacio en el disco");
  }
  if (const auto reason = PublishFile(partial, path); !reason.empty()) give(reason);
  fs::remove(partial, error);
}

std::string AsFileName(const std::string& text) {
  std::string name;
  for (const auto letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    const auto odd = byte < ' ' || std::strchr("/\\:*?\"<>|", letter) != nullptr;
    name += odd ? '-' : letter;
  }
  if (name.empty() || name.front() == '.') name.insert(0, "_");
  return name;
}

}  // namespace quorvane

#include "apps/escuela/report/NewFile.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "apps/escuela/PartialFile.h"
#include "apps/escuela/Refusal.h"
#include "platform/text/Utf8.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// Leaves room for a number and an ending in a name of 255 bytes.
constexpr std::size_t kMostNameBytes = 200;
constexpr char32_t kPastAscii = 0x80;

bool Fits(char32_t letter) {
  if (ActsOnTerminal(letter)) return false;
  return letter >= kPastAscii || std::strchr("/\\:*?\"<>|", static_cast<char>(letter)) == nullptr;
}

}  // namespace

void WriteNewFile(const std::string& path, const std::string& content,
                  const std::function<void()>& goOn) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(path, error))) RefuseToWrite(path, "el archivo ya existe");
  const PartialFile partial(path);
  std::ofstream file(partial.Path(), std::ios::binary);
  file << content;
  file.close();
  if (!file) RefuseToWrite(path, "compruebe que queda espacio en el disco");
  goOn();
  partial.Publish();
}

std::string AsFileName(const std::string& text) {
  std::string name;
  for (std::size_t at = 0; at < text.size();) {
    const auto begin = at;
    const auto letter = NextUtf8(text, at);
    if (name.size() + at - begin > kMostNameBytes) break;
    if (letter && Fits(*letter))
      name.append(text, begin, at - begin);
    else
      name += '-';
  }
  // A hidden file, or what a command would take for an option.
  if (name.empty() || name.front() == '.' || name.front() == '-') name.insert(0, "_");
  return name;
}

}  // namespace quorvane

#include "platform/StatementTrace.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace quorvane {
namespace {

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

File OpenFromEnvironment() {
  const auto* path = std::getenv("QUORVANE_TRAZA");
  if (path == nullptr || *path == '\0') return nullptr;
  File file(std::fopen(path, "ab"));
  if (file == nullptr) {
    std::fprintf(stderr, "No se puede escribir la traza %s\n", path);
    return nullptr;
  }
  // A line leaves the buffer in one write, so that processes don't mix theirs.
  std::setvbuf(file.get(), nullptr, _IOFBF, std::size_t{1} << 20U);
  return file;
}

int silences = 0;

}  // namespace

StatementTrace::Silence::Silence() noexcept { ++silences; }

StatementTrace::Silence::~Silence() { --silences; }

void StatementTrace::Write(const std::string& connection, const std::string& statement) {
  static const auto file = OpenFromEnvironment();
  if (file == nullptr || silences > 0) return;
  const auto line = "sql " + connection + " " + statement + "\n";
  std::fwrite(line.data(), 1, line.size(), file.get());
  std::fflush(file.get());
}

}  // namespace quorvane

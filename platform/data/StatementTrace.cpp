#include "platform/data/StatementTrace.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace quorvane {
namespace {

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

constexpr const char* kVariable = "QUORVANE_TRAZA";

void TellUnwritable() {
  std::fprintf(stderr,
               "No se puede escribir la traza %s: compruebe su carpeta y que queda espacio en el "
               "disco\n",
               std::getenv(kVariable));
}

File OpenFromEnvironment() {
  const auto* path = std::getenv(kVariable);
  if (path == nullptr || *path == '\0') return nullptr;
  File file(std::fopen(path, "ab"));
  if (file == nullptr) {
    TellUnwritable();
    return nullptr;
  }
  // Without a buffer a line goes out in one write, however long, so that processes don't mix
  // theirs.
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

int silences = 0;

}  // namespace

StatementTrace::Silence::Silence() noexcept { ++silences; }

StatementTrace::Silence::~Silence() { --silences; }

void StatementTrace::Write(const std::string& connection, const std::string& statement) {
  static auto file = OpenFromEnvironment();
  if (file == nullptr || silences > 0) return;
  const auto line = "sql " + connection + " " + statement + "\n";
  if (std::fwrite(line.data(), 1, line.size(), file.get()) == line.size()) return;
  // A trace with holes would tell of a session that never was: it ends here.
  TellUnwritable();
  file.reset();
}

}  // namespace quorvane

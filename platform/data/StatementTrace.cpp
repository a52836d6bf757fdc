#include "platform/data/StatementTrace.h"

#include <cstdlib>
#include <memory>

#include "platform/data/TraceFile.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

constexpr const char* kVariable = "QUORVANE_TRAZA";

void TellUnwritable(const TraceFile& file) {
  TraceFile::Tell("No se puede escribir la traza " + VisibleText(std::getenv(kVariable)) +
                  (file.Unread() ? ": nadie la lee\n"
                                 : ": compruebe su carpeta y que queda espacio en el disco\n"));
}

std::unique_ptr<TraceFile> OpenFromEnvironment() {
  const auto* path = std::getenv(kVariable);
  if (path == nullptr || *path == '\0') return nullptr;
  auto file = std::make_unique<TraceFile>(path);
  if (file->IsOpen()) return file;
  TellUnwritable(*file);
  return nullptr;
}

int silences = 0;

}  // namespace

StatementTrace::Silence::Silence() noexcept { ++silences; }

StatementTrace::Silence::~Silence() { --silences; }

void StatementTrace::Write(const std::string& connection, const std::string& statement) {
  static auto file = OpenFromEnvironment();
  if (file == nullptr || silences > 0) return;
  const auto line = "sql " + connection + " " + statement + "\n";
  if (file->Append(line)) return;
  // A trace with holes would tell of a session that never was: it ends here.
  TellUnwritable(*file);
  file.reset();
}

}  // namespace quorvane

#include "apps/programs/Process.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace quorvane {
namespace {

std::array<bool, 3> closed{};

}  // namespace

void BeginProcess() {
  umask(S_IRWXG | S_IRWXO);
  for (const auto stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    closed.at(static_cast<std::size_t>(stream)) = true;
    // The lowest number that is free is this stream's.
    static_cast<void>(open("/dev/null", O_RDWR));
  }
}

std::optional<std::string> OutputTrouble() {
  if (closed.at(STDOUT_FILENO)) return "No se puede escribir la salida: está cerrada";
  // Of no bytes: the devices that take none, and what isn't open for writing, refuse that too.
  if (write(STDOUT_FILENO, "", 0) >= 0) return std::nullopt;
  return "No se puede escribir la salida: " + std::generic_category().message(errno);
}

bool InputWasClosed() { return closed.at(STDIN_FILENO); }

}  // namespace quorvane

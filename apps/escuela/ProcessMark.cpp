#include "apps/escuela/ProcessMark.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <optional>
#include <sstream>  // IWYU pragma: keep
#include <unistd.h>

namespace quorvane {
namespace {

std::string FirstLine(const char* path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

std::string Machine() {
  auto id = FirstLine("/etc/machine-id");
  // Copies of one disk may share the number; with the name as well they hardly do.
  if (!id.empty()) id += "-" + ComputerName();
  for (auto& letter : id)
    if (letter == ' ' || letter == '\n') letter = '_';
  return id;
}

std::string Space() {
  std::array<char, 64> name{};
  const auto length = readlink("/proc/self/ns/pid", name.data(), name.size());
  return length <= 0 ? std::string() : std::string(name.data(), static_cast<std::size_t>(length));
}

/// None for a process that the system doesn't show.
std::optional<std::uint64_t> StartOf(std::int64_t process) {
  constexpr int kFieldsBefore = 19;  // behind the name, which may hold blanks and brackets
  const auto text = FirstLine(("/proc/" + std::to_string(process) + "/stat").c_str());
  const auto name = text.rfind(')');
  if (name == std::string::npos) return std::nullopt;
  std::istringstream fields(text.substr(name + 1));
  std::string skipped;
  for (int field = 0; field < kFieldsBefore; ++field) fields >> skipped;
  std::uint64_t start = 0;
  if (!(fields >> start)) return std::nullopt;
  return start;
}

}  // namespace

std::string ComputerName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

ProcessMark ProcessMark::Own() {
  const std::int64_t process = getpid();
  return {Machine(), FirstLine("/proc/sys/kernel/random/boot_id"), Space(), process,
          StartOf(process).value_or(0)};
}

ProcessState StateOf(const ProcessMark& mark) {
  const auto own = ProcessMark::Own();
  const auto told = [](const ProcessMark& one) {
    return !one.machine.empty() && !one.boot.empty() && !one.space.empty() && one.process > 0 &&
           one.start > 0;
  };
  if (!told(mark) || !told(own) || mark.machine != own.machine) return ProcessState::Unknown;
  // Nothing outlives the system's end.
  if (mark.boot != own.boot) return ProcessState::Gone;
  if (mark.space != own.space) return ProcessState::Unknown;
  // Asked by a signal that isn't sent: one whose files are hidden from this user is there too.
  if (kill(static_cast<pid_t>(mark.process), 0) != 0)
    return errno == ESRCH ? ProcessState::Gone : ProcessState::Unknown;
  const auto start = StartOf(mark.process);
  if (!start) return ProcessState::Unknown;
  return *start == mark.start ? ProcessState::Running : ProcessState::Gone;
}

}  // namespace quorvane

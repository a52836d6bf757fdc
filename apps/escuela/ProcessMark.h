#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// What tells one running program from all others, on any computer and at any time: a number that
/// the system has given again since, or that another computer or container gives too, isn't taken
/// for it.
struct ProcessMark {
  std::string machine;  ///< of the installed system, and its name
  std::string boot;     ///< since its last start
  std::string space;    ///< what the process numbers count in: a container has its own
  std::int64_t process = 0;
  std::uint64_t start = 0;  ///< in the system's clock ticks since its start

  /// Of this program. What the system doesn't tell is empty, and then nothing can be said of it.
  static ProcessMark Own();

  bool operator==(const ProcessMark&) const = default;
};

enum class ProcessState {
  Running,
  Gone,
  Unknown,  ///< elsewhere, or it can't be told
};

ProcessState StateOf(const ProcessMark& mark);

/// The computer's name, as people know it.
std::string ComputerName();

}  // namespace quorvane

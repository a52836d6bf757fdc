#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::guion {

struct CommandKind;

/// A word of a script's line. One that stood in quotes is a text, whatever it looks like.
struct Word {
  std::string text;
  bool quoted = false;
};

/// A line of a script, its syntax checked against its kind.
struct Command {
  std::size_t line = 0;  ///< counted from 1
  std::string text;      ///< as read, without the comment and the blanks round it
  const CommandKind* kind = nullptr;
  std::vector<Word> arguments;

  /// An argument of the kind Number, Positive or Flag.
  [[nodiscard]] std::int32_t Number(std::size_t argument) const;
  [[nodiscard]] const std::string& Text(std::size_t argument) const {
    return arguments[argument].text;
  }
};

}  // namespace quorvane::guion

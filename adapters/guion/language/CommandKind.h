#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "adapters/guion/language/Command.h"

namespace quorvane::guion {

class Guion;

/// What stands at a place of a command.
enum class Argument {
  Name,      ///< a control's name
  Entry,     ///< an entry of a list: "text", #index or =data
  Number,    ///< an integer of 32 bits
  Positive,  ///< one from 1 on
  Flag,      ///< 0 or 1
  Text,      ///< any text
  Setting,   ///< KEY=NUMBER of the session; once or more, so always the last
};

/// A command of the language: its syntax, and what it does.
struct CommandKind {
  std::string_view name;
  std::vector<Argument> arguments;
  std::size_t required;  ///< arguments that can't be left out
  void (*run)(Guion&, const Command&);
};

/// The command of that name; null when there is none.
const CommandKind* FindCommand(std::string_view name);

}  // namespace quorvane::guion

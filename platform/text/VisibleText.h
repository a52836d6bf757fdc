#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// Whether a letter does something else on a terminal than to stand there: a control character, a
/// line's or paragraph's end, or a mark that turns the direction of writing. What stands between
/// two of those marks may be read as something that it isn't.
[[nodiscard]] bool ActsOnTerminal(char32_t letter) noexcept;

/// A text from a school, a server or a user as it may be printed: one line, in which what would act
/// on the terminal, and bytes that are no UTF-8, are written out, as "\n", "\x1b" or "\u202e". The
/// letters of ASCII in `kept` stay.
[[nodiscard]] std::string VisibleText(std::string_view text, std::string_view kept = {});

/// A text in JSON, whose strings keep their values, with what would act on a terminal escaped.
[[nodiscard]] std::string VisibleJson(std::string_view json);

}  // namespace quorvane

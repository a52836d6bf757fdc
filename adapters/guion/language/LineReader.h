#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "adapters/guion/language/Command.h"

namespace quorvane::guion {

/// Cuts a line into words. Blanks part words; a word in double quotes may hold blanks, and a quote
/// when it is doubled. `#` at the start of a word begins a comment.
class LineReader {
 public:
  LineReader(std::string_view text, std::size_t line);

  /// The next word; none at the line's end or comment. `indexAllowed`: a `#` that a number follows
  /// is an entry's index, and no comment. Throws `ScriptError` for a quote that isn't closed.
  std::optional<Word> Next(bool indexAllowed);

  /// The line up to the last word read.
  [[nodiscard]] std::string_view TextRead() const { return text_.substr(0, end_); }

 private:
  Word Quoted();
  Word Plain();
  [[nodiscard]] bool AtIndex() const;

  std::string_view text_;
  std::size_t line_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
};

}  // namespace quorvane::guion

#include "adapters/guion/language/LineReader.h"

#include <algorithm>

#include "adapters/guion/language/ScriptError.h"

namespace quorvane::guion {
namespace {

// A carriage return parts words too: a script that comes from elsewhere ends its lines with one.
constexpr std::string_view kBlanks = " \t\r";

std::size_t FirstBlank(std::string_view text, std::size_t from) {
  return std::min(text.find_first_of(kBlanks, from), text.size());
}

}  // namespace

LineReader::LineReader(std::string_view text, std::size_t line)
    : text_(text.substr(std::min(text.find_first_not_of(kBlanks), text.size()))), line_(line) {}

std::optional<Word> LineReader::Next(bool indexAllowed) {
  at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
  if (at_ == text_.size()) return std::nullopt;
  if (text_[at_] == '#' && !(indexAllowed && AtIndex())) return std::nullopt;
  auto word = text_[at_] == '"' ? Quoted() : Plain();
  end_ = at_;
  return word;
}

bool LineReader::AtIndex() const {
  const auto next = text_.substr(at_ + 1, 1);
  return !next.empty() && std::string_view("-0123456789").find(next) != std::string_view::npos;
}

Word LineReader::Plain() {
  const auto end = FirstBlank(text_, at_);
  Word word{std::string(text_.substr(at_, end - at_)), false};
  at_ = end;
  return word;
}

Word LineReader::Quoted() {
  Word word{"", true};
  for (++at_; at_ < text_.size(); ++at_) {
    if (text_[at_] == '"') {
      if (text_.substr(at_ + 1, 1) != "\"") break;
      ++at_;
    }
    word.text += text_[at_];
  }
  if (at_ == text_.size()) throw ScriptError(line_, "falta la comilla que cierra el texto");
  ++at_;
  if (FirstBlank(text_, at_) != at_)
    throw ScriptError(line_, "sobra algo detrás de la comilla que cierra el texto");
  return word;
}

}  // namespace quorvane::guion

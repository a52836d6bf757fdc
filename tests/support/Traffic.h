#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/ScriptRun.h"

namespace quorvane::test {

// What a session sends out, as the lines of a script tell it.

using Lines = std::vector<std::string>;

Lines operator+(Lines left, const Lines& right);

/// Statements and calls of the host among the lines, in their order.
Lines Traffic(const Lines& lines);
Lines Traffic(const ScriptResult& result);
/// The statements alone, each with its connection.
Lines Statements(const Lines& lines);
/// The first so many of them.
Lines First(Lines lines, std::size_t count);

/// What fills a "{}" of an expected statement: a number or a list of them.
class Hole {
 public:
  template <std::integral Number>
  Hole(Number number) : text_(std::to_string(number)) {}
  Hole(const char* text) : text_(text) {}
  Hole(std::string text) : text_(std::move(text)) {}

  [[nodiscard]] const std::string& Text() const noexcept { return text_; }

 private:
  std::string text_;
};

/// An expected statement on the school's connection, its holes filled from left to right.
std::string Sql(const std::string& statement, std::initializer_list<Hole> holes = {});
/// One on the connection of the users.
std::string SqlOfUsers(const std::string& statement, std::initializer_list<Hole> holes = {});

}  // namespace quorvane::test

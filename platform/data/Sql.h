#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace quorvane {

/// The text of a statement, whole, with so many places "{}" for whole numbers. Counted when it is
/// compiled: a text with another number of places is no text of a statement.
template <std::size_t Places>
class SqlText {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): a literal is what is handed over.
  consteval SqlText(const char* text) : text_(text) {
    std::size_t places = 0;
    for (auto at = text_.find("{}"); at != std::string_view::npos; at = text_.find("{}", at + 2))
      ++places;
    if (places != Places) throw "as many numbers as there are places in the statement";
  }

  [[nodiscard]] constexpr std::string_view Text() const noexcept { return text_; }

 private:
  std::string_view text_;
};

/// What may be put into a statement: a whole number, and nothing that only passes for one.
template <class T>
concept SqlNumber = std::integral<T> && !std::same_as<T, bool> && !std::same_as<T, char> &&
                    (sizeof(T) < sizeof(std::int64_t) || std::signed_integral<T>);

/// For `Sql`: as many numbers as there are places.
std::string FillSql(std::string_view text, std::initializer_list<std::int64_t> numbers);

/// The statement with its numbers, in decimal, each in its place:
///
///   Sql("SELECT Orden FROM Curso WHERE IDCurso={} AND codTipoEnsenanza={}", curso, tipo)
///
/// A part that isn't always there is a text of its own, joined with `+`.
template <SqlNumber... Numbers>
std::string Sql(SqlText<sizeof...(Numbers)> text, Numbers... numbers) {
  return FillSql(text.Text(), {static_cast<std::int64_t>(numbers)...});
}

}  // namespace quorvane

#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/Choices.h"
#include "fuzz/Fail.h"
#include "platform/RuntimeError.h"
#include "platform/data/RecordsetFilter.h"

// A filter's text is refused with one of its two errors, or lets a row through exactly when its
// conditions hold.
namespace quorvane::fuzz {
namespace {

const std::vector<std::string> kNames{"IDMateria", "Nota", "Nombre", "Con blanco"};

struct Number {
  std::string_view text;
  double value;
};
constexpr std::array kNumbers{Number{"0", 0},     Number{"5", 5},     Number{"-1", -1},
                              Number{"2.5", 2.5}, Number{"1e2", 100}, Number{"007", 7}};
constexpr std::array<std::string_view, 8> kTexts{"",     "a",  "O'Neil", "x=1 AND y=2",
                                                 "ñ\n[", "''", "b",      "<>"};
constexpr std::array<std::string_view, 6> kComparisons{"=", "<>", "<", "<=", ">", ">="};

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const auto c : text) quoted += c == '\'' ? "''" : std::string(1, c);
  return quoted + "'";
}

template <typename Type>
bool Holds(std::string_view comparison, const Type& left, const Type& right) {
  if (comparison == "=") return left == right;
  if (comparison == "<>") return left != right;
  if (comparison == "<") return left < right;
  if (comparison == "<=") return left <= right;
  if (comparison == ">") return left > right;
  return left >= right;
}

void KnownConditions(Choices& choices) {
  const auto& id = choices.Of(kNumbers);
  const auto& name = choices.Of(kTexts);
  const auto null = choices.OneIn(3);
  const std::array<Value, 4> row{Value(id.value), null ? Value() : Value(5),
                                 Value(std::string(name)), Value(1)};
  std::string text;
  auto expected = true;
  const auto count = 1 + choices.Below(4);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += choices.Below(2) == 0 ? " AND " : "\tand  ";
    const auto& comparison = choices.Of(kComparisons);
    const auto* const blank = choices.Below(2) == 0 ? "" : " ";
    const auto column = choices.Below(4);
    text += column == 3 ? "[Con blanco]" : kNames[column];
    text += blank + std::string(comparison) + blank;
    if (column == 2) {
      const auto& with = choices.Of(kTexts);
      text += Quoted(with);
      expected = expected && Holds(comparison, name, with);
    } else {
      const auto& with = choices.Of(kNumbers);
      text += with.text;
      const auto value = column == 0 ? id.value : column == 1 ? 5.0 : 1.0;
      expected = expected && !(column == 1 && null) && Holds(comparison, value, with.value);
    }
  }
  if (RecordsetFilter(text, kNames).Passes(row.data()) != expected) Fail("otherwise: " + text);
}

void AnyText(const std::string& text) {
  const std::array<Value, 4> row{Value(5), Value(), Value("a"), Value(2.5)};
  try {
    const RecordsetFilter filter(text, kNames);
    const auto passes = filter.Passes(row.data());
    if (filter.Empty() && !passes) Fail("no condition, and no row: " + text);
    if (passes != RecordsetFilter(text, kNames).Passes(row.data())) Fail("not the same: " + text);
  } catch (const RuntimeError& error) {
    // A text compared with a number is the third.
    if (error.Number() != 3001 && error.Number() != 3265 && error.Number() != 13)
      Fail("error " + std::to_string(error.Number()) + ": " + text);
  }
}

}  // namespace
}  // namespace quorvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorvane::fuzz;
  if (size == 0) return 0;
  if (data[0] != 0) {
    AnyText(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
  }
  Choices choices({data + 1, size - 1});
  KnownConditions(choices);
  return 0;
}

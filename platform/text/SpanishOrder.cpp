#include "platform/text/SpanishOrder.h"

#include "platform/data/Value.h"
#include "platform/text/Utf8.h"

namespace quorvane {
namespace {

char32_t WithoutAccent(char32_t letter) {
  static const std::u32string accented = U"áàâäãåÁÀÂÄÃÅéèêëÉÈÊËíìîïÍÌÎÏóòôöõÓÒÔÖÕúùûüÚÙÛÜçÇýÿÝ";
  static const std::u32string plain = U"aaaaaaaaaaaaeeeeeeeeiiiiiiiioooooooooouuuuuuuuccyyy";
  const auto at = accented.find(letter);
  return at == std::u32string::npos ? letter : plain[at];
}

/// Twice the letter, so that ñ finds a place behind n.
char32_t Weight(char32_t letter) {
  if (letter == U'ñ' || letter == U'Ñ') return U'n' * 2 + 1;
  letter = WithoutAccent(letter);
  if (letter >= U'A' && letter <= U'Z') letter += U'a' - U'A';
  return letter * 2;
}

std::u32string Weights(const std::string& text) {
  auto weights = Utf8Decode(text);
  for (auto& letter : weights) letter = Weight(letter);
  return weights;
}

}  // namespace

bool SpanishLess(const std::string& one, const std::string& other) {
  return Weights(one) < Weights(other);
}

bool NumbersThenSpanishLess(const std::string& one, const std::string& other) {
  double first = 0;
  double second = 0;
  const auto firstIsNumber = ParseNumber(one, first);
  const auto secondIsNumber = ParseNumber(other, second);
  if (firstIsNumber && secondIsNumber) return first < second;
  if (firstIsNumber != secondIsNumber) return firstIsNumber;
  return SpanishLess(one, other);
}

}  // namespace quorvane

#include "platform/text/SpanishOrder.h"
#include "platform/text/StringTable.h"
#include "platform/text/Utf8.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

TEST(SpanishTextTest, SortWithoutCaseOrAccents) {
  EXPECT_TRUE(SpanishLess("abeja", "Árbol"));
  EXPECT_TRUE(SpanishLess("ÁRBOL", "barco"));
  EXPECT_FALSE(SpanishLess("Óscar", "oscar"));
  EXPECT_FALSE(SpanishLess("oscar", "Óscar"));
  EXPECT_TRUE(SpanishLess("pingui", "pingüino"));
  EXPECT_TRUE(SpanishLess("Gil", "Gil Mora"));
  EXPECT_TRUE(SpanishLess("", "a"));
  EXPECT_FALSE(SpanishLess("", ""));
}

TEST(SpanishTextTest, HaveEnyeBetweenNAndO) {
  EXPECT_TRUE(SpanishLess("nz", "ñ"));
  EXPECT_TRUE(SpanishLess("ñu", "o"));
  EXPECT_TRUE(SpanishLess("Cano", "Caña"));
  EXPECT_TRUE(SpanishLess("caña", "CAÑO"));
}

TEST(SpanishTextTest, ComeBehindNumbers) {
  EXPECT_TRUE(NumbersThenSpanishLess("9", "10"));
  EXPECT_TRUE(NumbersThenSpanishLess("10", "9a"));
  EXPECT_TRUE(NumbersThenSpanishLess("2,5", "3"));
  EXPECT_TRUE(NumbersThenSpanishLess("100", ""));
  EXPECT_FALSE(NumbersThenSpanishLess("a", "1"));
  EXPECT_TRUE(NumbersThenSpanishLess("1º ESO", "2º ESO"));
}

TEST(Utf8TextTest, AreCountedByCharacters) {
  EXPECT_EQ(Utf8Length(""), 0U);
  EXPECT_EQ(Utf8Length("año"), 3U);
  EXPECT_EQ(Utf8Length("1º €"), 4U);
  EXPECT_EQ(Utf8Length("\xF0\x9F\x98\x80"), 1U);
}

TEST(Utf8TextTest, GoThereAndBack) {
  const std::string text = "Ñandú 1º € \xF0\x9F\x98\x80";
  std::string again;
  for (const auto character : Utf8Decode(text)) again += Utf8Encode(character);
  EXPECT_EQ(again, text);
}

TEST(Utf8TextTest, AByteThatIsNoneStandsForItself) {
  EXPECT_EQ(Utf8Decode("a\xF1o"), (std::u32string{U'a', 0xF1, U'o'}));
  EXPECT_EQ(Utf8Decode("\xC3"), std::u32string{0xC3});
  EXPECT_EQ(Utf8Decode("\x80\xFF"), (std::u32string{0x80, 0xFF}));
  EXPECT_EQ(Utf8Length("\xE2\x82"), 2U);
}

TEST(StringTableTest, HoldsTheTitleAlone) {
  EXPECT_EQ(LoadString(100), "Zendria Escuela");
  EXPECT_EQ(LoadString(kTitleString), "Zendria Escuela");
  for (const auto id : {0, 99, 101, -100})
    EXPECT_EQ(ErrorOf([id] { static_cast<void>(LoadString(id)); }), 326) << id;
}

TEST(RuntimeErrorTest, HasItsNumberAndText) {
  const RuntimeError error(ErrorNumber::DuplicateKey);
  EXPECT_EQ(error.Number(), 457);
  EXPECT_TRUE(error.Is(ErrorNumber::DuplicateKey));
  EXPECT_FALSE(error.Is(ErrorNumber::InvalidCall));
  EXPECT_FALSE(error.Description().empty());
  EXPECT_EQ(RuntimeError(ErrorNumber::StatementFailed, "no such table: x").Description(),
            "no such table: x");
  EXPECT_EQ(RuntimeError(ErrorNumber::StatementFailed).Number(), -2147467259);
}

}  // namespace
}  // namespace quorvane::test

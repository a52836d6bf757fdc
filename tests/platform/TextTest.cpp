#include "platform/text/PlainNumber.h"
#include "platform/text/SpanishOrder.h"
#include "platform/text/StringTable.h"
#include "platform/text/Utf8.h"
#include "platform/text/VisibleText.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(SpanishTextTest, SortWithoutCaseOrAccents) {
  const Pairs inOrder = {{"abeja", "Árbol"},
                         {"ÁRBOL", "barco"},
                         {"pingui", "pingüino"},
                         {"Gil", "Gil Mora"},
                         {"", "a"},
                         // The letter between n and o.
                         {"nz", "ñ"},
                         {"ñu", "o"},
                         {"Cano", "Caña"},
                         {"caña", "CAÑO"}};
  for (const auto& [left, right] : inOrder)
    EXPECT_TRUE(SpanishLess(left, right)) << left << ", " << right;
  for (const auto& [left, right] : Pairs{{"Óscar", "oscar"}, {"oscar", "Óscar"}, {"", ""}})
    EXPECT_FALSE(SpanishLess(left, right)) << left << ", " << right;
}

TEST(SpanishTextTest, ComeBehindNumbers) {
  for (const auto& [left, right] :
       Pairs{{"9", "10"}, {"10", "9a"}, {"2,5", "3"}, {"100", ""}, {"1º ESO", "2º ESO"}})
    EXPECT_TRUE(NumbersThenSpanishLess(left, right)) << left << ", " << right;
  EXPECT_FALSE(NumbersThenSpanishLess("a", "1"));
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

TEST(PlainNumberTest, IsDecimalAndWhole) {
  EXPECT_EQ(PlainNumber<std::int32_t>("0"), 0);
  EXPECT_EQ(PlainNumber<std::int32_t>("-7"), -7);
  EXPECT_EQ(PlainNumber<std::int32_t>("2147483647"), 2147483647);
  EXPECT_EQ(PlainNumber<std::int32_t>("-2147483648"), INT32_MIN);
  EXPECT_EQ(PlainNumber<std::uint64_t>("18446744073709551615"), UINT64_MAX);
}

TEST(PlainNumberTest, IsNothingElse) {
  for (const std::string text :
       {"",     " ",       "-",     "+1",  " 1",         "1 ",          "010",
        "-010", "00",      "-0",    "0x1", "0b1",        "0o7",         "1e3",
        "1.0",  "1,0",     "1'000", "uno", "2147483648", "-2147483649", "99999999999999999999999",
        "--1",  "\xD9\xA1"})
    EXPECT_FALSE(PlainNumber<std::int32_t>(text)) << text;
  EXPECT_FALSE(PlainNumber<std::int32_t>(std::string("1\0", 2)));
  EXPECT_FALSE(PlainNumber<std::uint64_t>("18446744073709551616"));
  EXPECT_FALSE(PlainNumber<std::uint64_t>("-1"));
  EXPECT_FALSE(PlainNumber<std::uint8_t>("256"));
}

TEST(VisibleTextTest, LeavesWhatOnlyStandsThere) {
  const std::string text = "Ñandú 1º € \xF0\x9F\x98\x80 \\n «a» \xD7\x90";
  EXPECT_EQ(VisibleText(text), text);
  EXPECT_EQ(VisibleText(""), "");
}

TEST(VisibleTextTest, WritesOutWhatActs) {
  EXPECT_EQ(VisibleText("a\x1B[2Jb"), "a\\x1b[2Jb");
  EXPECT_EQ(VisibleText("uno\r\ndos\t"), "uno\\r\\ndos\\t");
  EXPECT_EQ(VisibleText(std::string("\0\x7F", 2)), "\\x00\\x7f");
  EXPECT_EQ(VisibleText("\u0085\u009B\u2028\u202E\u2066\u200F\u061C"),
            "\\u0085\\u009b\\u2028\\u202e\\u2066\\u200f\\u061c");
}

TEST(VisibleTextTest, LeavesWhatIsToBeKept) {
  EXPECT_EQ(VisibleText("a\tb\nc\x1B\xE2\x80\xAE\x9B", "\t"), "a\tb\\nc\\x1b\\u202e\\x9b");
  EXPECT_EQ(VisibleText("\t\n\r\n", "\n\t"), "\t\n\\r\n");
}

TEST(VisibleTextTest, WritesOutBytesThatAreNoUtf8) {
  EXPECT_EQ(VisibleText("\x9B"
                        "a\xC3"),
            "\\x9ba\\xc3");
  EXPECT_EQ(VisibleText("\xC0\x9B"), "\\xc0\\x9b");           // a longer form of U+001B
  EXPECT_EQ(VisibleText("\xED\xA0\x80"), "\\xed\\xa0\\x80");  // half a pair
  EXPECT_EQ(VisibleText("\xF4\x90\x80\x80"), "\\xf4\\x90\\x80\\x80");
}

TEST(VisibleTextTest, NothingThatActsIsLeftOfAnyLetterOrByte) {
  std::string all;
  for (char32_t letter = 0; letter < 0x3000; ++letter) all += Utf8Encode(letter);
  for (int byte = 0x80; byte < 0x100; ++byte) all += static_cast<char>(byte);
  for (const auto& visible : {VisibleText(all), VisibleJson(all)}) {
    ASSERT_TRUE(IsUtf8(visible));
    for (const auto letter : Utf8Decode(visible)) ASSERT_FALSE(ActsOnTerminal(letter));
  }
}

TEST(VisibleTextTest, JsonKeepsItsValues) {
  EXPECT_EQ(VisibleJson("[\"a\x7F\u202E\u0085\",1]"), "[\"a\\u007f\\u202e\\u0085\",1]");
}

TEST(StrictUtf8Test, IsOneFormOfEachLetter) {
  for (const std::string text :
       {"", "a", "ñ", "€", "\xF0\x9F\x98\x80", "\xF4\x8F\xBF\xBF", "\xED\x9F\xBF", "\xEE\x80\x80"})
    EXPECT_TRUE(IsUtf8(text)) << text;
  for (const std::string text :
       {"\x80", "\xC3", "\xC3(", "\xE2\x82", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF",
        "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
        "\xF8\x88\x80\x80\x80", "\xFF"})
    EXPECT_FALSE(IsUtf8(text)) << VisibleText(text);
}

}  // namespace
}  // namespace quorvane::test

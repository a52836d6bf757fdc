#include <gtest/gtest.h>
#include <string>

#include "platform/text/Utf8.h"
#include "platform/text/VisibleText.h"

namespace quorvane::test {
namespace {

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

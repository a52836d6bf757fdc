#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "platform/text/PlainNumber.h"

namespace quorvane::test {
namespace {

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

}  // namespace
}  // namespace quorvane::test

#include <ctime>
#include <gtest/gtest.h>

#include "platform/host/LocalTime.h"

namespace quorvane::test {
namespace {

TEST(LocalTimeTest, IsTheMomentInThePartsOfThisTimeZone) {
  constexpr std::time_t kMoment = 1774051200;  // some hour of the 20th or the 21st of March 2026
  auto parts = LocalTime(kMoment);
  EXPECT_EQ(parts.tm_year, 126);
  EXPECT_EQ(parts.tm_mon, 2);
  EXPECT_TRUE(parts.tm_mday == 20 || parts.tm_mday == 21) << parts.tm_mday;
  EXPECT_EQ(std::mktime(&parts), kMoment);
}

}  // namespace
}  // namespace quorvane::test

#include <concepts>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

#include "platform/data/Sql.h"
#include "platform/data/SqlList.h"

namespace quorvane::test {
namespace {

TEST(SqlTest, PutsEachNumberInItsPlace) {
  EXPECT_EQ(Sql("SELECT * FROM Curso"), "SELECT * FROM Curso");
  EXPECT_EQ(Sql("DELETE FROM T WHERE A={} AND B IN ({},{}) ", 7, -1, 0),
            "DELETE FROM T WHERE A=7 AND B IN (-1,0) ");
}

TEST(SqlTest, TakesWholeNumbersOfEveryWidth) {
  EXPECT_EQ(Sql("{} {} {}", std::numeric_limits<std::int64_t>::min(), std::uint8_t{255},
                std::int16_t{-32768}),
            "-9223372036854775808 255 -32768");
  EXPECT_EQ(Sql("{}", std::numeric_limits<std::uint32_t>::max()), "4294967295");
}

template <class T>
concept GoesIntoSql = requires(T value) {
  Sql("{}", value);
};

TEST(SqlTest, TakesNothingElse) {
  EXPECT_TRUE(GoesIntoSql<std::int32_t>);
  EXPECT_FALSE(GoesIntoSql<bool>);
  EXPECT_FALSE(GoesIntoSql<char>);
  EXPECT_FALSE(GoesIntoSql<double>);
  EXPECT_FALSE(GoesIntoSql<std::string>);
  EXPECT_FALSE(GoesIntoSql<std::uint64_t>);
}

TEST(SqlListTest, IsZeroWithoutNumbersAndStandsInAPlaceAmongThem) {
  SqlList ids;
  EXPECT_TRUE(ids.Empty());
  EXPECT_EQ(ids.Text(), "0");
  ids.Add(3111);
  ids.Add(-4);
  EXPECT_FALSE(ids.Empty());
  EXPECT_EQ(ids.Text(), "3111,-4");
  EXPECT_EQ(Sql("A={} AND B IN ({}) AND C IN({})", 7, ids, ids),
            "A=7 AND B IN (3111,-4) AND C IN(3111,-4)");
}

}  // namespace
}  // namespace quorvane::test

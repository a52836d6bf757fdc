#include "platform/data/Recordset.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

using Ids = std::vector<std::int32_t>;

Ids Walk(Recordset& rows) {
  Ids ids;
  for (; !rows.Eof(); rows.MoveNext()) ids.push_back(rows.Fields("IDNota").Long());
  return ids;
}

class RecordsetTest : public testing::Test {
 protected:
  /// Those of the three that are left when a walker on the second filters them.
  Ids Filtered(const std::string& conditions) const {
    auto left = rows;
    left.MoveNext();
    left.Filter(conditions);
    const auto count = left.RecordCount();
    auto ids = Walk(left);
    EXPECT_EQ(count, ids.size());
    return ids;
  }

  Recordset rows{std::make_shared<FieldNames>(FieldNames{"IDNota", "Texto"}),
                 {Value(1), Value("uno"), Value(2), Value(), Value(3), Value("tres")}};
  Recordset none{std::make_shared<FieldNames>(FieldNames{"IDNota"}), {}};
};

TEST_F(RecordsetTest, StandsOnTheFirstRow) {
  EXPECT_FALSE(rows.Bof());
  EXPECT_EQ(rows.RecordCount(), 3U);
  EXPECT_EQ(Walk(rows), (Ids{1, 2, 3}));
}

TEST_F(RecordsetTest, GoesBothWays) {
  Walk(rows);
  rows.MovePrevious();
  EXPECT_EQ(rows.Fields("IDNota").Long(), 3);
  rows.MovePrevious();
  rows.MovePrevious();
  rows.MovePrevious();
  EXPECT_TRUE(rows.Bof());
  EXPECT_FALSE(rows.Eof());
  EXPECT_EQ(ErrorOf([&] { rows.MovePrevious(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields("IDNota")); }), 3021);
  rows.MoveNext();
  EXPECT_EQ(rows.Fields("IDNota").Long(), 1);
  Walk(rows);
  rows.MoveFirst();
  EXPECT_EQ(rows.Fields("IDNota").Long(), 1);
}

TEST_F(RecordsetTest, BehindTheLastRowThereIsNoRecord) {
  Walk(rows);
  EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields("Texto").Text()); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields(0)); }), 3021);
}

TEST_F(RecordsetTest, WithoutRowsItIsAtBothEnds) {
  EXPECT_TRUE(none.Eof());
  EXPECT_TRUE(none.Bof());
  EXPECT_EQ(none.RecordCount(), 0U);
  EXPECT_EQ(ErrorOf([&] { none.MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { none.MoveFirst(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(none.Fields("IDNota")); }), 3021);
}

TEST_F(RecordsetTest, FieldsAreFoundWithoutRegardToCaseAndByPosition) {
  EXPECT_EQ(rows.Fields("idnota").Long(), 1);
  EXPECT_EQ(rows.Fields("TEXTO").Text(), "uno");
  EXPECT_EQ(rows.Fields(1).Text(), "uno");
}

TEST_F(RecordsetTest, AnUnknownFieldComesBeforeTheMissingRow) {
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(none.Fields("Otra")); }), 3265);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(none.Fields(1)); }), 3265);
}

TEST_F(RecordsetTest, AClosedOneTakesNothingButClose) {
  EXPECT_TRUE(rows.IsOpen());
  rows.Close();
  rows.Close();
  EXPECT_FALSE(rows.IsOpen());
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Eof()); }), 3704);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.RecordCount()); }), 3704);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields("IDNota")); }), 3704);
  EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), 3704);
  EXPECT_EQ(ErrorOf([&] { rows.Filter(""); }), 3704);
  EXPECT_FALSE(Recordset(std::make_shared<FieldNames>(), {}).IsOpen());
}

TEST_F(RecordsetTest, ACopyWalksOnItsOwn) {
  auto copy = rows;
  copy.MoveNext();
  EXPECT_EQ(rows.Fields(0).Long(), 1);
  EXPECT_EQ(copy.Fields(0).Long(), 2);
}

TEST_F(RecordsetTest, FiltersCompareNumbersAndTexts) {
  EXPECT_EQ(Filtered("IDNota=2"), Ids{2});
  EXPECT_EQ(Filtered("idnota <> 2"), (Ids{1, 3}));
  EXPECT_EQ(Filtered("IDNota>=2 AND IDNota<3"), Ids{2});
  EXPECT_EQ(Filtered("IDNota<=1 and Texto='uno'"), Ids{1});
  EXPECT_EQ(Filtered("[IDNota] > 1.5"), (Ids{2, 3}));
  EXPECT_EQ(Filtered("IDNota=-1"), Ids{});
  EXPECT_EQ(Filtered("Texto='o''x'"), Ids{});
}

TEST_F(RecordsetTest, NullSatisfiesNoFilter) { EXPECT_EQ(Filtered("Texto<>'uno'"), Ids{3}); }

TEST_F(RecordsetTest, TheEmptyFilterLetsAllThroughAgain) {
  rows.Filter("IDNota=3");
  EXPECT_EQ(rows.Fields(0).Long(), 3);
  EXPECT_EQ(ErrorOf([&] { rows.MovePrevious(); }), 0);
  EXPECT_TRUE(rows.Bof());
  rows.Filter("");
  EXPECT_EQ(Walk(rows), (Ids{1, 2, 3}));
}

TEST_F(RecordsetTest, AFilterThatCantBeReadIsRefused) {
  for (const auto* conditions :
       {"IDNota", "IDNota=", "IDNota==1", "IDNota=1 OR IDNota=2", "IDNota=1 IDNota=2", "=1",
        "Texto='uno", "IDNota=x", "IDNota=1 AND", "[IDNota=1"})
    EXPECT_EQ(ErrorOf([&] { Filtered(conditions); }), 3001) << conditions;
  EXPECT_EQ(ErrorOf([&] { Filtered("Otra=1"); }), 3265);
}

}  // namespace
}  // namespace quorvane::test

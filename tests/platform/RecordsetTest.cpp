#include "platform/data/Recordset.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

Recordset Three() {
  return {std::make_shared<FieldNames>(FieldNames{"IDNota", "Texto"}),
          {Value(1), Value("uno"), Value(2), Value(), Value(3), Value("tres")}};
}

Recordset None() { return {std::make_shared<FieldNames>(FieldNames{"IDNota"}), {}}; }

std::vector<std::int32_t> Walk(Recordset& rows) {
  std::vector<std::int32_t> ids;
  for (; !rows.Eof(); rows.MoveNext()) ids.push_back(rows.Fields("IDNota").Long());
  return ids;
}

TEST(RecordsetWalkTest, StandsOnTheFirstRow) {
  auto rows = Three();
  EXPECT_FALSE(rows.Bof());
  EXPECT_EQ(rows.RecordCount(), 3U);
  EXPECT_EQ(Walk(rows), (std::vector<std::int32_t>{1, 2, 3}));
}

TEST(RecordsetWalkTest, GoesBothWays) {
  auto rows = Three();
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

TEST(RecordsetWalkTest, BehindTheLastRowThereIsNoRecord) {
  auto rows = Three();
  Walk(rows);
  EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields("Texto").Text()); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields(0)); }), 3021);
}

TEST(RecordsetWalkTest, WithoutRowsItIsAtBothEnds) {
  auto rows = None();
  EXPECT_TRUE(rows.Eof());
  EXPECT_TRUE(rows.Bof());
  EXPECT_EQ(rows.RecordCount(), 0U);
  EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { rows.MoveFirst(); }), 3021);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields("IDNota")); }), 3021);
}

TEST(RecordsetFieldsTest, AreFoundWithoutRegardToCaseAndByPosition) {
  const auto rows = Three();
  EXPECT_EQ(rows.Fields("idnota").Long(), 1);
  EXPECT_EQ(rows.Fields("TEXTO").Text(), "uno");
  EXPECT_EQ(rows.Fields(1).Text(), "uno");
}

TEST(RecordsetFieldsTest, AnUnknownOneComesBeforeTheMissingRow) {
  const auto rows = None();
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields("Otra")); }), 3265);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(rows.Fields(1)); }), 3265);
}

TEST(RecordsetStateTest, AClosedOneTakesNothingButClose) {
  auto rows = Three();
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

TEST(RecordsetStateTest, ACopyWalksOnItsOwn) {
  auto rows = Three();
  auto copy = rows;
  copy.MoveNext();
  EXPECT_EQ(rows.Fields(0).Long(), 1);
  EXPECT_EQ(copy.Fields(0).Long(), 2);
}

std::vector<std::int32_t> Filtered(const std::string& conditions) {
  auto rows = Three();
  rows.MoveNext();
  rows.Filter(conditions);
  const auto count = rows.RecordCount();
  auto ids = Walk(rows);
  EXPECT_EQ(count, ids.size());
  return ids;
}

TEST(RecordsetFiltersTest, CompareNumbersAndTexts) {
  using Ids = std::vector<std::int32_t>;
  EXPECT_EQ(Filtered("IDNota=2"), Ids{2});
  EXPECT_EQ(Filtered("idnota <> 2"), (Ids{1, 3}));
  EXPECT_EQ(Filtered("IDNota>=2 AND IDNota<3"), Ids{2});
  EXPECT_EQ(Filtered("IDNota<=1 and Texto='uno'"), Ids{1});
  EXPECT_EQ(Filtered("[IDNota] > 1.5"), (Ids{2, 3}));
  EXPECT_EQ(Filtered("IDNota=-1"), Ids{});
  EXPECT_EQ(Filtered("Texto='o''x'"), Ids{});
}

TEST(RecordsetFiltersTest, NullSatisfiesNothing) {
  EXPECT_EQ(Filtered("Texto<>'uno'"), std::vector<std::int32_t>{3});
}

TEST(RecordsetFiltersTest, TheEmptyTextLetsAllThroughAgain) {
  auto rows = Three();
  rows.Filter("IDNota=3");
  EXPECT_EQ(rows.Fields(0).Long(), 3);
  EXPECT_EQ(ErrorOf([&] { rows.MovePrevious(); }), 0);
  EXPECT_TRUE(rows.Bof());
  rows.Filter("");
  EXPECT_EQ(Walk(rows), (std::vector<std::int32_t>{1, 2, 3}));
}

TEST(RecordsetFiltersTest, WhatCantBeReadIsRefused) {
  for (const auto* conditions :
       {"IDNota", "IDNota=", "IDNota==1", "IDNota=1 OR IDNota=2", "IDNota=1 IDNota=2", "=1",
        "Texto='uno", "IDNota=x", "IDNota=1 AND", "[IDNota=1"})
    EXPECT_EQ(ErrorOf([conditions] { Filtered(conditions); }), 3001) << conditions;
  EXPECT_EQ(ErrorOf([] { Filtered("Otra=1"); }), 3265);
}

}  // namespace
}  // namespace quorvane::test

#include "platform/data/Collection.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

Collection<int> Numbers(std::initializer_list<int> numbers) {
  Collection<int> collection;
  for (const auto number : numbers) collection.Add(std::make_shared<int>(number), Key(number));
  return collection;
}

std::vector<int> InOrder(const Collection<int>& collection) {
  std::vector<int> numbers;
  for (const auto& number : collection) numbers.push_back(*number);
  return numbers;
}

TEST(CollectionTest, KeepsTheOrderOfItsAdds) {
  const auto collection = Numbers({30, 10, 20});
  EXPECT_THAT(InOrder(collection), ElementsAre(30, 10, 20));
  EXPECT_EQ(collection.Count(), 3U);
  EXPECT_EQ(*collection[Key(10)], 10);
  EXPECT_TRUE(collection.Contains("20"));
  EXPECT_FALSE(collection.Contains("21"));
}

TEST(CollectionTest, AKeyTwiceIsErrorAndChangesNothing) {
  auto collection = Numbers({1, 2});
  EXPECT_EQ(ErrorOf([&] { collection.Add(std::make_shared<int>(9), "1"); }), 457);
  EXPECT_EQ(InOrder(collection), (std::vector<int>{1, 2}));
  EXPECT_EQ(*collection["1"], 1);
}

TEST(CollectionTest, AMissingKeyIsError) {
  auto collection = Numbers({1});
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(collection["2"]); }), 5);
  EXPECT_EQ(ErrorOf([&] { collection.Remove("2"); }), 5);
}

TEST(CollectionTest, RemovingClosesUpAndFreesTheKey) {
  auto collection = Numbers({1, 2, 3});
  collection.Remove("2");
  EXPECT_EQ(InOrder(collection), (std::vector<int>{1, 3}));
  EXPECT_EQ(*collection["3"], 3);
  collection.Add(std::make_shared<int>(22), "2");
  EXPECT_EQ(InOrder(collection), (std::vector<int>{1, 3, 22}));
  collection.Clear();
  EXPECT_EQ(collection.Count(), 0U);
  EXPECT_FALSE(collection.Contains("1"));
}

TEST(CollectionTest, ASnapshotCanBeWalkedWhileItemsGo) {
  auto collection = Numbers({1, 2, 3});
  for (const auto& number : collection.Snapshot()) collection.Remove(Key(*number));
  EXPECT_EQ(collection.Count(), 0U);
}

TEST(CollectionTest, KeysAreDecimalTexts) {
  EXPECT_EQ(Key(0), "0");
  EXPECT_EQ(Key(-5), "-5");
  EXPECT_EQ(Key(2147483647), "2147483647");
}

}  // namespace
}  // namespace quorvane::test

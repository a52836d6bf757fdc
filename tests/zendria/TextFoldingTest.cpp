#include <gtest/gtest.h>

#include "apps/zendria/TextFolding.h"

namespace quorvane::zendria {
namespace {

TEST(TextFoldingTest, CaseAndAccentsDoNotCount) {
  EXPECT_EQ(Folded("ÁLVAREZ Núñez, Zoë"), Folded("alvarez nunez, zoe"));
}

TEST(TextFoldingTest, EveryWordHasToStandSomewhere) {
  const auto text = Folded("Gómez Peña, Íñigo");
  EXPECT_TRUE(HoldsWords(text, Folded("iñi gom")));
  EXPECT_TRUE(HoldsWords(text, Folded("pena")));
  EXPECT_FALSE(HoldsWords(text, Folded("gomez luis")));
}

TEST(TextFoldingTest, NothingWantedIsAlwaysThere) {
  EXPECT_TRUE(HoldsWords("", ""));
  EXPECT_TRUE(HoldsWords("a", "  "));
}

}  // namespace
}  // namespace quorvane::zendria

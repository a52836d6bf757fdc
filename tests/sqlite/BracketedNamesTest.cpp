#include <gtest/gtest.h>

#include "adapters/sqltext/BracketedNames.h"

namespace quorvane::sqltext {
namespace {

TEST(BracketedNamesTest, NameInBracketsIsQuotedInSmallLetters) {
  EXPECT_EQ(QuoteBracketedNames("SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]"),
            "SELECT MAX(IDAlumnopte_matdet) FROM \"alumnopte_matdet\"");
  EXPECT_EQ(QuoteBracketedNames("SELECT [De Todo].[X] FROM [De Todo]"),
            "SELECT \"de todo\".\"x\" FROM \"de todo\"");
}

TEST(BracketedNamesTest, BracketsInATextAQuotedNameOrACommentStay) {
  const auto* const statement = "SELECT '[a]', \"[b]\" FROM T -- [c]\n";
  EXPECT_EQ(QuoteBracketedNames(statement), statement);
}

TEST(BracketedNamesTest, WhatIsNoNameStays) {
  for (const auto* const statement : {"SELECT []", "SELECT [a", "SELECT [a\"b]"})
    EXPECT_EQ(QuoteBracketedNames(statement), statement);
}

}  // namespace
}  // namespace quorvane::sqltext

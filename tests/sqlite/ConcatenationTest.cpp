#include <gtest/gtest.h>

#include "adapters/sqltext/Concatenation.h"

namespace quorvane::sqltext {
namespace {

TEST(ConcatenationTest, PlusBesideATextJoinsTexts) {
  EXPECT_EQ(RewriteConcatenation("SELECT Ltrim(Rtrim(A + ' ' + B)) + ', ' + C AS N FROM T"),
            "SELECT Ltrim(Rtrim(A || ' ' || B)) || ', ' || C AS N FROM T");
  EXPECT_EQ(RewriteConcatenation("SELECT A+'x'+B"), "SELECT A||'x'||B");
}

TEST(ConcatenationTest, PlusBetweenNumbersAdds) {
  EXPECT_EQ(RewriteConcatenation("SELECT A + 1, B+C FROM T"), "SELECT A + 1, B+C FROM T");
}

TEST(ConcatenationTest, PlusInsideATextOrANameStays) {
  EXPECT_EQ(RewriteConcatenation("SELECT 'a + b', [c + 'd'] FROM T WHERE A='it''s + x'"),
            "SELECT 'a + b', [c + 'd'] FROM T WHERE A='it''s + x'");
}

TEST(ConcatenationTest, AQuotedNameIsNoText) {
  EXPECT_EQ(RewriteConcatenation("SELECT [a] + [b]"), "SELECT [a] + [b]");
}

TEST(ConcatenationTest, ACommentIsNeitherATextNorBetweenThem) {
  EXPECT_EQ(RewriteConcatenation("SELECT A + /* 1 */ 'b', 'c' -- it's\n + D"),
            "SELECT A || /* 1 */ 'b', 'c' -- it's\n || D");
  EXPECT_EQ(RewriteConcatenation("SELECT /* don't */ 'a + ', B+1 /* 'c'+'d' */"),
            "SELECT /* don't */ 'a + ', B+1 /* 'c'+'d' */");
  EXPECT_EQ(RewriteConcatenation("SELECT 'a' /* + 'b'"), "SELECT 'a' /* + 'b'");
}

}  // namespace
}  // namespace quorvane::sqltext

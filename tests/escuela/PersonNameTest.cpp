#include <gtest/gtest.h>

#include "apps/escuela/PersonName.h"

namespace quorvane::test {
namespace {

TEST(PersonNameTest, SurnamesComeBeforeTheName) {
  EXPECT_EQ(FullName("Domínguez", "Ruiz", "Marina"), "Domínguez Ruiz, Marina");
}

TEST(PersonNameTest, AnyPartMayBeMissing) {
  EXPECT_EQ(FullName("Domínguez", "", "Marina"), "Domínguez, Marina");
  EXPECT_EQ(FullName("", "Ruiz", "Marina"), "Ruiz, Marina");
  EXPECT_EQ(FullName("", "", "Marina"), "Marina");
  EXPECT_EQ(FullName("Domínguez", "Ruiz", ""), "Domínguez Ruiz");
  EXPECT_EQ(FullName("Domínguez", "", ""), "Domínguez");
  EXPECT_EQ(FullName("", "", ""), "");
}

TEST(PersonNameTest, TheBlanksRoundAPartAreNone) {
  EXPECT_EQ(FullName(" Domínguez  ", "   ", " María José "), "Domínguez, María José");
  EXPECT_EQ(FullName("de la  Vega ", " Ruiz", "  "), "de la  Vega Ruiz");
}

}  // namespace
}  // namespace quorvane::test

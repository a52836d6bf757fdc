// A script's screens after the server has ended the connections.

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/ScriptRun.h"
#include "tests/support/Sessions.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kEnd =
    "sql \"SELECT pg_terminate_backend(pid,5000) FROM pg_stat_activity WHERE "
    "datname=current_database() AND usename=current_user AND pid<>pg_backend_pid()\"\n";

TEST(ReconnectTest, AScreenThatLostTheConnectionOpensAgain) {
  const SmallSchool school;
  const auto played = RunScript(school, "nodo 124\n" + kEnd +
                                            "elegir cboTipoEnsenanza =3\n"
                                            "nodo 124\nelegir cboTipoEnsenanza =3\n"
                                            "ver\ncerrar\n");
  EXPECT_THAT(
      played.Of("error"),
      ElementsAre(StartsWith("-2147467259 Se ha perdido la conexión con la base de datos: [")))
      << played.Text();
  EXPECT_THAT(played.Of("ver"), ElementsAre(testing::HasSubstr("2º ESO"))) << played.Text();
}

TEST(ReconnectTest, AScreenAfterARestConnectsAgainByItself) {
  const SmallSchool school;
  const auto played = RunScript(school, "nodo 123\ncerrar\n" + kEnd + "nodo 123\ncerrar\n");
  EXPECT_THAT(played.Of("error"), IsEmpty()) << played.Text();
  EXPECT_EQ(played.Of("muestra").size(), 2U);
}

}  // namespace
}  // namespace quorvane::test

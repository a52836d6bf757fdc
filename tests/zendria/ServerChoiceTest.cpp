// The connection string that the fields of "Conectar con un servidor" make.

#include <gtest/gtest.h>

#include "adapters/odbc/ConnectionString.h"
#include "apps/zendria/ServerChoice.h"

namespace quorvane::zendria {
namespace {

using Kind = ServerChoice::Kind;

TEST(ServerChoice, MakesTheStringOfEachKind) {
  EXPECT_EQ((ServerChoice{Kind::PostgreSql, "escuela", "", "centro", "ana", "require"}).Text(),
            "Driver={PostgreSQL Unicode};Server=escuela;Port=5432;Database=centro;UID=ana;"
            "sslmode=require");
  EXPECT_EQ((ServerChoice{Kind::SqlServer, "escuela", "1500", "centro", "ana", "prefer"}).Text(),
            "Driver=FreeTDS;Server=escuela;Port=1500;Database=centro;UID=ana;TDS_Version=7.4");
  EXPECT_EQ((ServerChoice{Kind::PostgreSql, " escuela ", "1", "centro", "", "prefer"}).Text(),
            "Driver={PostgreSQL Unicode};Server=escuela;Port=1;Database=centro;sslmode=prefer");
}

TEST(ServerChoice, OddNamesComeBackAsTheyWere) {
  for (const QString name : {"con=igual", "a}b", "a{b", "dos palabras", "centro(1)", "ñandú"})
    for (const auto kind : {Kind::PostgreSql, Kind::SqlServer}) {
      const ServerChoice choice{kind, "escuela", "1500", name, name, "verify-full"};
      EXPECT_FALSE(choice.Mistake());
      const odbc::ConnectionString given(choice.Text().toStdString());
      EXPECT_EQ(given.Value("Database"), name.toStdString()) << choice.Text().toStdString();
      EXPECT_EQ(given.Value("UID"), name.toStdString());
    }
}

// Its driver takes braces for a part of every value but a password.
TEST(ServerChoice, ForPostgreSqlNothingStandsInBraces) {
  const ServerChoice choice{Kind::PostgreSql, "escuela", "", "centro(1)", "a@b", "prefer"};
  EXPECT_TRUE(choice.Text().contains(";Database=centro(1);UID=a@b;"));
  for (const QString name : {"a;b", "{a}"}) {
    const ServerChoice bad{Kind::PostgreSql, "escuela", "", name, "ana", "prefer"};
    ASSERT_TRUE(bad.Mistake());
    EXPECT_TRUE(bad.Mistake()->text.contains("«" + name + "»"));
    EXPECT_EQ(bad.Mistake()->about, ServerAnswer::About::Database);
    EXPECT_FALSE((ServerChoice{Kind::SqlServer, "escuela", "", name, "ana", ""}).Mistake());
  }
}

TEST(ServerChoice, KnowsItsOwnStringsAndNoOthers) {
  for (const auto kind : {Kind::PostgreSql, Kind::SqlServer}) {
    const ServerChoice choice{kind, "escuela", "1500", "a}b", "ana", "require"};
    const auto again = ServerChoice::Of(choice.Text());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->Text(), choice.Text());
    EXPECT_FALSE(ServerChoice::Of(choice.Text() + ";Timeout=3"));
  }
  for (const std::string mode : {"disable", "prefer", "require", "verify-ca", "verify-full"})
    EXPECT_TRUE(ServerChoice::Of(
        QString::fromStdString("Driver={PostgreSQL Unicode};Server=a;Port=1;sslmode=" + mode)))
        << mode;
  EXPECT_EQ(ServerChoice::Of("Driver=FreeTDS;Server=a;Port=1;Database=b;TDS_Version=7.4")->sslmode,
            "prefer");
  EXPECT_FALSE(ServerChoice::Of("DSN=escuela;UID=ana"));
  EXPECT_FALSE(ServerChoice::Of("Driver={PostgreSQL Unicode};Server=a;Port=1;sslmode=otro"));
}

}  // namespace
}  // namespace quorvane::zendria

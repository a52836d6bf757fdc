#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/DriverSettings.h"
#include "tests/support/DataSources.h"

namespace quorvane::test {
namespace {

using odbc::Completed;
using odbc::ConnectionString;
using odbc::NamedEngine;
using odbc::NamedServers;
using sqltext::Engine;

std::string Option(const std::string& string, const char* keyword) {
  return ConnectionString(Completed(string, Engine::PostgreSql)).Value(keyword);
}

TEST(DriverSettingsTest, TheStringLacksNothingAfterwards) {
  EXPECT_EQ(Completed("Driver=SQLite3;Database=a", Engine::Sqlite),
            "Driver=SQLite3;Database=a;Timeout=60000;NoCreat=Yes;SyncPragma=FULL");
  EXPECT_EQ(Completed("Driver=FreeTDS", Engine::SqlServer), "Driver=FreeTDS");
  EXPECT_EQ(Completed("Driver=x", Engine::PostgreSql),
            "Driver=x;pqopt={keepalives_count=3 tcp_user_timeout=20000};UseServerSidePrepare=0;"
            "UseDeclareFetch=0;CommLog=0;Debug=0;BoolsAsChar=0;KeepaliveTime=30;"
            "KeepaliveInterval=10");
}

TEST(DriverSettingsTest, WhatTheStringHasCounts) {
  EXPECT_EQ(Option("Driver=x;KeepaliveTime=7", "KeepaliveTime"), "7");
  EXPECT_EQ(Option("Driver=x;pqopt={sslrootcert=/a b};UID=y", "pqopt"),
            "sslrootcert=/a b keepalives_count=3 tcp_user_timeout=20000");
  EXPECT_EQ(Option("Driver=x;pqopt=tcp_user_timeout=0", "pqopt"),
            "tcp_user_timeout=0 keepalives_count=3");
  EXPECT_EQ(Option("Driver=x;pqopt={a=b};PWD={c;d}", "PWD"), "c;d");
}

TEST(DriverSettingsTest, WhatTheDataSourceHasCounts) {
  const DataSources sources(
      "[Centro]\nDriver=PostgreSQL Unicode\nBoolsAsChar=1\npqopt={application_name=aula}\n");
  EXPECT_EQ(NamedEngine("DSN=Centro"), Engine::PostgreSql);
  EXPECT_EQ(Option("DSN=Centro", "BoolsAsChar"), "");
  EXPECT_EQ(Option("DSN=Centro", "CommLog"), "0");
  EXPECT_EQ(Option("DSN=Centro", "pqopt"),
            "application_name=aula keepalives_count=3 tcp_user_timeout=20000");
  EXPECT_EQ(Option("DSN=Centro;BoolsAsChar=0", "BoolsAsChar"), "0");
}

TEST(DriverSettingsTest, TheEngineIsNamedByTheDriverOrItsFile) {
  EXPECT_EQ(NamedEngine("Driver={PostgreSQL Unicode};Server=a"), Engine::PostgreSql);
  EXPECT_EQ(NamedEngine("Driver=/usr/lib/odbc/psqlodbcw.so"), Engine::PostgreSql);
  EXPECT_EQ(NamedEngine("Driver=libsqlite3odbc.so"), Engine::Sqlite);
  EXPECT_EQ(NamedEngine("Driver=FreeTDS"), Engine::SqlServer);
  EXPECT_EQ(NamedEngine("DSN=no_hay_tal"), Engine::Unknown);
}

TEST(DriverSettingsTest, OneOfSeveralServersIsReachedByItsAddress) {
  const DataSources sources("[Centro]\nDriver=PostgreSQL Unicode\nServername=uno,dos\n");
  EXPECT_EQ(odbc::OnlyAt("DSN=Centro;UID=a;pqopt={target_session_attrs=read-write}", "::1", 7),
            "DSN=Centro;UID=a;pqopt={target_session_attrs=read-write target_session_attrs=any "
            "hostaddr=::1,::1};Port=7");
  EXPECT_EQ(odbc::OnlyAt("Driver=x;Server=uno;Port=5432,5433;pqopt={a=b}", "10.0.0.1", 5433),
            "Driver=x;Server=uno;Port=5433;pqopt={a=b target_session_attrs=any hostaddr=10.0.0.1}");
  for (const auto* const other :
       {"Driver=FreeTDS;Server=uno", "DSN=Centro;pqopt={hostaddr=1.2.3.4}"})
    EXPECT_EQ(odbc::OnlyAt(other, "10.0.0.1", 7), other);
}

TEST(DriverSettingsTest, OnlyPostgreSqlIsGivenSeveralServers) {
  const DataSources sources(
      "[Centro]\nDriver=PostgreSQL Unicode\nServername=uno,dos\n"
      "[Notas]\nDriver=FreeTDS\nServer=tcp:escuela,1433\n");
  EXPECT_EQ(NamedServers("Driver=PostgreSQL Unicode;Server=uno"), 1U);
  EXPECT_EQ(NamedServers("Driver=PostgreSQL Unicode;Server=uno,dos,tres"), 3U);
  EXPECT_EQ(NamedServers("DSN=Centro"), 2U);
  EXPECT_EQ(NamedServers("DSN=Centro;Server=uno,dos,tres"), 3U);
  EXPECT_EQ(NamedServers("Driver=ODBC Driver 18 for SQL Server;Server=tcp:escuela,1433"), 1U);
  EXPECT_EQ(NamedServers("DSN=Notas"), 1U);
}

}  // namespace
}  // namespace quorvane::test

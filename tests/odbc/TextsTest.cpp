#include <gtest/gtest.h>
#include <regex>
#include <string>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/Secrets.h"
#include "adapters/odbc/WideText.h"

namespace quorvane::test {
namespace {

using odbc::ConnectionString;
using odbc::FromWide;
using odbc::ToWide;

TEST(WideTextTest, LettersOfEveryLengthGoThereAndBack) {
  const std::string text = "a\x7fñ߿ࠀ\uFFFF😀\U0010FFFF";
  EXPECT_EQ(ToWide("añ€😀"), u"añ€😀");
  EXPECT_EQ(FromWide(ToWide(text)), text);
  EXPECT_EQ(ToWide(""), u"");
}

TEST(WideTextTest, WhatIsNoTextIsReplaced) {
  EXPECT_EQ(ToWide("a\xff"
                   "b\xc3"),
            u"a\uFFFDb\uFFFD");
  EXPECT_EQ(ToWide("\xc3(\xe2\x82"), u"\uFFFD(\uFFFD");
  EXPECT_EQ(ToWide("\xc0\x80"), u"\uFFFD\uFFFD");    // longer than it need be
  EXPECT_EQ(ToWide("\xed\xa0\x80"), u"\uFFFD");      // half a pair
  EXPECT_EQ(ToWide("\xf4\x90\x80\x80"), u"\uFFFD");  // beyond the last letter
  EXPECT_EQ(FromWide(std::u16string{u'a', 0xD83D}), "a\uFFFD");
  EXPECT_EQ(FromWide(std::u16string{0xDE00, u'b'}), "\uFFFDb");
  EXPECT_EQ(FromWide(std::u16string{0xD83D, u'b'}), "\uFFFDb");
}

TEST(ConnectionStringTest, IsReadByItsKeywords) {
  const ConnectionString given(" Driver = {SQL Server;x} ;;Server=a,1433; PWD={a}};b};Vacio=");
  EXPECT_EQ(given.Value("driver"), "SQL Server;x");
  EXPECT_EQ(given.Value("SERVER"), "a,1433");
  EXPECT_EQ(given.Value("pwd"), "a};b");
  EXPECT_TRUE(given.Has("Vacio"));
  EXPECT_EQ(given.Value("Vacio"), "");
  EXPECT_FALSE(given.Has("UID"));
}

TEST(ConnectionStringTest, IsWrittenAsItWasGiven) {
  for (const auto* const text :
       {"", "Driver=FreeTDS;Server=a",
        "Driver={ODBC Driver 18 for SQL Server};Server=tcp:a\\b,1433", "PWD={a}};b}"})
    EXPECT_EQ(ConnectionString(text).Text(), text);
}

TEST(ConnectionStringTest, LosesItsPasswordWhenShown) {
  for (const auto* const text :
       {"DSN=a;PWD=secreto;UID=b", "DSN=a;pwd={se;creto};UID=b", "DSN=a;Password=secreto;UID=b",
        "DSN=a; Pwd = secreto ;UID=b", "PWD=x;DSN=a;PWD=secreto;UID=b",
        "DSN=a;Trusted_Connection;PWD=secreto;UID=b", "DSN=a;PWD=se;creto;UID=b",
        "DSN=a;UID=b;Server={a;PWD=secreto", "DSN=a;pqopt={password=secreto};UID=b",
        "DSN=a;pqopt={sslPassword = x};UID=b", "DSN=a;APIKey=secreto;UID=b", "DSN=a;UID=b;Port={",
        "DSN=a;ConnSettings=SET x.password='secreto';UID=b"})
    EXPECT_EQ(ConnectionString(text).TextWithoutPassword(), "DSN=a;UID=b") << text;
}

TEST(ConnectionStringTest, KeepsTheRestWhenShown) {
  for (const auto* const text :
       {"Driver={PostgreSQL Unicode};Server=a;Port=5432;Database=c;UID=b;sslmode=verify-full;"
        "pqopt={sslrootcert=/etc/a.pem};KeepaliveTime=10",
        "Driver=FreeTDS;Server=a;Port=1433;Database=c;UID=b;TDS_Version=7.4;ClientCharset=UTF-8",
        "Driver={ODBC Driver 18 for SQL Server};Server=a;Trusted_Connection=yes;Encrypt=strict",
        "Driver=SQLite3;Database=/a b/c.sqlite;Timeout=5;SyncPragma=OFF"})
    EXPECT_EQ(ConnectionString(text).TextWithoutPassword(), text);
}

TEST(ConnectionStringTest, AWordWithoutAValueIsNoPartOfTheNextKeyword) {
  const ConnectionString given("Trusted_Connection;PWD=abc;def;Server=s");
  EXPECT_EQ(given.Value("PWD"), "abc");
  EXPECT_EQ(given.Value("Server"), "s");
}

TEST(ConnectionStringTest, IsKnownByTheKeyOfItsUser) {
  EXPECT_TRUE(ConnectionString::Reads("ClientKey={file:k,password:secreto}"));
  EXPECT_FALSE(ConnectionString::Reads("escuela=1.sqlite"));
}

TEST(SecretsTest, BehindAColonIsMaskedToo) {
  for (const auto* const text :
       {"ClientKey={file:k,password:secreto}", "ClientKey={file:k,Password : se,c;r=eto}",
        "ClientKey={file:k,password:se}}creto}"})
    EXPECT_TRUE(std::regex_match(odbc::WithoutSecrets(text),
                                 std::regex(R"(ClientKey=\{file:k,[Pp]assword ?:\*\*\*\})")))
        << odbc::WithoutSecrets(text);
  EXPECT_EQ(odbc::WithoutSecrets("ClientKey=file:k,password:secreto;UID=b"),
            "ClientKey=file:k,password:***;UID=b");
  EXPECT_EQ(odbc::WithoutSecrets("ClientKey={file:k,secreto:abc};PWD=x;UID=b"),
            "ClientKey={file:k,secreto:***};PWD=***;UID=b");
}

TEST(SecretsTest, WhatAnEngineSaysBehindAColonIsKept) {
  for (const auto* const text : {"unrecognized token: \"#\"", "near \"x\": syntax error",
                                 "FATAL: password authentication failed for user \"b\""})
    EXPECT_EQ(odbc::WithoutSecrets(text), text);
}

TEST(ConnectionStringTest, TakesAPasswordOfAnyLetters) {
  for (const auto* const password :
       {"simple", "a;b", "a}b", "{a}", " a ", "=", "ñ'\"", "{}};PWD=x"}) {
    ConnectionString given("DSN=a;UID=b");
    given.Set("PWD", "antes");
    given.Set("pwd", password);
    EXPECT_EQ(ConnectionString(given.Text()).Value("PWD"), password) << given.Text();
  }
}

TEST(ConnectionStringTest, OfRubbishHasNothing) {
  for (const auto* const text : {"=", ";;;", "a", "={", "a;b", ";=x;"})
    EXPECT_EQ(ConnectionString(text).Text(), "") << text;
  EXPECT_EQ(ConnectionString("PWD={sin cerrar;UID=b").TextWithoutPassword(), "");
}

}  // namespace
}  // namespace quorvane::test

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "apps/zendria/CommandLine.h"
#include "tests/support/HelpText.h"

namespace quorvane::zendria {
namespace {

class CommandLineTest : public testing::Test {
 protected:
  std::optional<CommandLine> Read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "zendria");
    return ReadCommandLine(static_cast<int>(arguments.size()), arguments.data(), out_, err_,
                           status_);
  }
  void ExpectRefused(const std::vector<const char*>& arguments) {
    EXPECT_FALSE(Read(arguments)) << testing::PrintToString(arguments);
    EXPECT_EQ(status_, ExitStatus::BadArguments) << testing::PrintToString(arguments);
  }

  std::ostringstream out_;
  std::ostringstream err_;
  ExitStatus status_ = ExitStatus::Ok;
};

TEST_F(CommandLineTest, NothingIsNeeded) {
  const auto line = Read({});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->file, "");
  EXPECT_FALSE(line->user);
}

TEST_F(CommandLineTest, FileAndUser) {
  const auto line = Read({"escuela.sqlite", "--usuario", "4"});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->file, "escuela.sqlite");
  EXPECT_EQ(line->user, 4);
}

TEST_F(CommandLineTest, AConnectionStringStandsInTheFilesPlace) {
  const auto line = Read({"--odbc", "DSN=Centro;UID=ana", "--usuario", "4"});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->odbc, "DSN=Centro;UID=ana");
  EXPECT_EQ(line->file, "");
  ExpectRefused({"escuela.sqlite", "--odbc", "DSN=Centro"});
}

TEST_F(CommandLineTest, HelpIsNoFailure) {
  EXPECT_FALSE(Read({"--help"}));
  EXPECT_EQ(status_, ExitStatus::Ok);
  EXPECT_NE(out_.str().find("--usuario"), std::string::npos);
  EXPECT_NE(out_.str().find("Uso: "), std::string::npos);
  EXPECT_EQ(out_.str().find("Options"), std::string::npos) << "all in the user's language";
}

TEST_F(CommandLineTest, UnknownOptionsAreRefused) {
  ExpectRefused({"--nada"});
  EXPECT_NE(err_.str().find("--nada"), std::string::npos);
  EXPECT_NE(err_.str().find("zendria --help muestra la ayuda"), std::string::npos);
}

TEST_F(CommandLineTest, AUserIsANumberOfASchool) {
  ExpectRefused({"escuela.sqlite", "--usuario", "Ana"});
  ExpectRefused({"--usuario", "4"});
}

TEST_F(CommandLineTest, EveryNumberIsPlainDecimal) {
  EXPECT_FALSE(Read({"--help"}));
  const auto names = test::NumbersTold(out_.str());
  EXPECT_TRUE(names.contains("--usuario"));
  for (const auto& name : names)
    for (const auto* const number : test::kNoPlainNumbers) {
      ExpectRefused({"escuela.sqlite", name.c_str(), number});
      EXPECT_NE(err_.str().find(name), std::string::npos);
    }
}

}  // namespace
}  // namespace quorvane::zendria

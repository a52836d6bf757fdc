// Arguments, standard streams and paths that nobody means well by.

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "tests/escuela/Orders.h"
#include "tests/support/HelpText.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

constexpr auto kSchoolTool = QUORVANE_ESCUELA " ";
constexpr auto kScriptTool = QUORVANE_GUION " ";

/// What waits for anything is a failure of its own.
Outcome RunBriefly(const std::string& command) { return RunCommand("timeout 20 " + command); }

/// What a help names at the beginnings of its lines.
std::set<std::string> NamedBy(const std::string& help) {
  std::set<std::string> names;
  std::istringstream lines(help);
  auto orders = false;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(' ')) orders = line == "Órdenes:";
    std::istringstream words(line);
    std::string word;
    words >> word;
    if (!line.starts_with("  ") || line.starts_with("   ")) continue;
    if (orders || word.starts_with("--")) names.insert(word);
  }
  return names;
}

class HostileArgumentsTest : public testing::Test {
 protected:
  [[nodiscard]] std::string InFolder(const std::string& command) const {
    return "sh -c 'cd " + (folder_ / "") + " && " + command + "'";
  }
  void MakeDemo() const { ASSERT_EQ(RunBriefly(kSchoolTool + ("demo " + path_)).status, 0); }

  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
};

/// Whether a word of the list of orders stands for a number.
bool IsNumber(const std::string& word) {
  return !word.empty() && word.find_first_not_of("0123456789") == std::string::npos;
}

/// What may be called by its name, too: what is no number is looked for, and not found.
const std::set<std::string> kNumbersOrNames = {"informe --seccion", "informe --materia",
                                               "usuarios clave", "usuarios quitar"};

TEST_F(HostileArgumentsTest, EveryNumberOfEveryOrderIsPlainDecimalOrRefused) {
  MakeDemo();
  const auto before = Content(path_);
  std::map<std::string, std::set<std::string>> tried;
  for (const auto& order : AllOrders())
    for (std::size_t at = 1; at < order.size(); ++at) {
      const auto& name = order[at - 1];
      if (!IsNumber(order[at]) || !tried[order.front()].insert(name).second) continue;
      const auto orName = kNumbersOrNames.contains(order.front() + " " + name);
      for (const std::string value : kNoPlainNumbers) {
        auto words = WithPaths(order, path_, folder_ / "nueva", folder_ / "a.csv");
        words[at] = value;
        if (name.starts_with("--") && value.size() % 2 == 1) {
          words[at - 1] += "=" + value;
          words.erase(words.begin() + static_cast<std::ptrdiff_t>(at));
        }
        const auto refused = RunBriefly(QUORVANE_ESCUELA + ForShell(words) + " </dev/null");
        EXPECT_THAT(refused.status, testing::AnyOf(2, orName ? 1 : 2))
            << ForShell(words) << refused.text;
        EXPECT_TRUE(orName || refused.text.find(name) != std::string::npos) << refused.text;
        EXPECT_THAT(refused.text, Not(HasSubstr("Could"))) << ForShell(words);
      }
    }
  EXPECT_EQ(Content(path_), before);
  EXPECT_EQ(folder_.Files(), 1U);
  std::size_t numbers = 0;
  for (auto& [order, names] : tried) {
    EXPECT_THAT(NumbersTold(RunBriefly(kSchoolTool + (order + " --help")).text),
                testing::IsSubsetOf(names))
        << "the list of orders gives no number to one of these";
    numbers += names.size();
  }
  EXPECT_GT(numbers, 10U);
}

TEST_F(HostileArgumentsTest, EveryNumberOfAPlayIsPlainDecimalOrRefused) {
  MakeDemo();
  const auto names = NumbersTold(RunBriefly(kScriptTool + std::string("--help")).text);
  EXPECT_GE(names.size(), 3U);
  for (const auto& name : names)
    for (const std::string value : kNoPlainNumbers) {
      const auto* const joint = value.size() % 2 == 0 ? " " : "=";
      const auto refused = RunBriefly(kScriptTool + ("--bd " + path_) + " " + name + joint +
                                      Quoted(value) + " </dev/null");
      EXPECT_EQ(refused.status, 2) << name << joint << value;
      EXPECT_THAT(refused.text, AllOf(HasSubstr(name), Not(HasSubstr("Could")))) << value;
    }
}

TEST_F(HostileArgumentsTest, AConnectionStringInAFilesPlaceIsNotRepeated) {
  const std::vector<std::string> strings = {
      "Driver=PostgreSQL Unicode;Server=a;UID=b;PWD=secreto", "PWD={secr;eto}",
      "Server=a;Password=secreto", "DSN=a;KeystoreSecret=secreto", "UID=a;sslpassword=secreto"};
  const std::string tool = kSchoolTool;
  std::size_t turn = 0;
  for (const auto& command :
       {tool + "crear ", tool + "demo ", tool + "comprobar ", tool + "bloqueos ",
        tool + "generar --alumnos 1 --semilla 1 ", tool + "copiar /no/hay ", tool + "copiar ",
        tool + "nada ", tool + "crear x ", kScriptTool + std::string("--bd "),
        kScriptTool + std::string("--odbc DSN=a x "),
        kScriptTool + std::string("--bd /dev/null --entrada ")})
    for (auto i = 0; i < 2; ++i) {
      const auto& string = strings[turn++ % strings.size()];
      const auto refused = RunBriefly(InFolder(command + "\"" + string + "\" </dev/null"));
      EXPECT_NE(refused.status, 0) << command << string;
      EXPECT_THAT(refused.text, AllOf(Not(HasSubstr("secr")), Not(HasSubstr("eto}")))) << command;
    }
  EXPECT_THAT(RunBriefly(kSchoolTool + std::string("crear 'DSN=a;PWD=b'")).text,
              HasSubstr("--odbc"));
}

TEST_F(HostileArgumentsTest, AConnectionStringInPlaceOfAnyWordIsNotRepeated) {
  MakeDemo();
  const auto csv = folder_ / "a.csv";
  std::ofstream(csv) << "alumno,sección,materia\n";
  const std::vector<std::string> strings = {"Server=a;UID=b;PWD=secreto",
                                            "DSN=nadie;PW\"D=secreto",
                                            "PW D=secreto",
                                            "PWD={secreto",
                                            "DSN=a;PWD=;secreto",
                                            "P=WD=secreto",
                                            "Password=otra;secreto;UID=b"};
  std::size_t turn = 0;
  for (const auto& order : AllOrders())
    for (std::size_t at = 0; at < order.size(); ++at) {
      auto words = WithPaths(order, path_, folder_ / "nueva", csv);
      const auto& string = strings[turn++ % strings.size()];
      words[at] = order[at].starts_with("--") ? order[at] + "=" + string : string;
      const auto told = RunCommand("cd " + (folder_ / "") + " && timeout 20 " + QUORVANE_ESCUELA +
                                   ForShell(words) + " </dev/null");
      EXPECT_THAT(told.text, Not(HasSubstr("secreto"))) << ForShell(words);
    }
  for (const auto& place : {"historial " + path_ + " ", "importar " + path_ + " ",
                            "informe " + path_ + " --todas --salida "}) {
    const auto refused = RunBriefly(kSchoolTool + place + Quoted(strings.front()));
    EXPECT_EQ(refused.status, 2) << place;
    EXPECT_THAT(refused.text, HasSubstr("désela a --odbc")) << place;
  }
  EXPECT_THAT(RunBriefly(kScriptTool + ("--bd " + path_) + " . " + Quoted(strings[1])).text,
              AllOf(HasSubstr("No se esperaba"), Not(HasSubstr("secreto"))));
}

TEST_F(HostileArgumentsTest, TheListOfOrdersIsWhole) {
  std::map<std::string, std::set<std::string>> listed;
  std::set<std::string> orders;
  for (const auto& order : AllOrders()) {
    orders.insert(order.front());
    auto& words = listed[order.front()];
    words.insert(order.begin() + 1, order.end());
  }
  EXPECT_EQ(NamedBy(RunBriefly(kSchoolTool + std::string("--help")).text), orders);
  for (const auto& [order, words] : listed) {
    const auto named = NamedBy(RunBriefly(kSchoolTool + (order + " --help")).text);
    EXPECT_TRUE(order == "copiar" || named.contains("--odbc")) << order;
    for (const auto& word : named)
      EXPECT_TRUE(word == "--odbc" || words.contains(word)) << order << " " << word;
  }
}

TEST_F(HostileArgumentsTest, AStringTooLongForTheDriversManagerIsRefused) {
  for (const std::string beginning : {"Driver=", "DSN=", "Driver=SQLite3;Database=",
                                      "Driver=PostgreSQL Unicode;Server=127.0.0.1;"
                                      "Port=1;UID=",
                                      ""})
    for (const auto length : {1'100, 40'000, 120'000}) {
      const auto refused = RunBriefly(kSchoolTool + ("comprobar --odbc '" + beginning) +
                                      std::string(static_cast<std::size_t>(length), 'x') + "=1'");
      EXPECT_EQ(refused.status, 1) << beginning << length;
      EXPECT_THAT(refused.text, HasSubstr("demasiado larga")) << beginning;
      EXPECT_LT(refused.text.size(), 400U);
    }
}

TEST_F(HostileArgumentsTest, WhatCantBeToldIsNotDone) {
  MakeDemo();
  const auto csv = folder_ / "a.csv";
  std::ofstream(csv) << "alumno,sección,materia\n";
  const auto before = Content(path_);
  for (const std::string to : {">/dev/full", ">&-", "1</dev/null"}) {
    for (const auto& order : AllOrders()) {
      const auto command = ForShell(WithPaths(order, path_, path_ + "2", csv));
      const auto refused = RunBriefly("sh -c \"" + (kSchoolTool + command) + " " + to + "\"");
      EXPECT_EQ(refused.status, 1) << command << to;
      EXPECT_THAT(refused.text, HasSubstr("No se puede escribir la salida")) << command << to;
    }
    const auto refused = RunBriefly("sh -c 'echo sql \\\"DELETE FROM Alumno\\\" | " +
                                    (kScriptTool + ("--bd " + path_)) + " " + to + "'");
    EXPECT_EQ(refused.status, 2) << to;
    EXPECT_THAT(refused.text, HasSubstr("No se puede escribir la salida")) << to;
  }
  EXPECT_EQ(Content(path_), before);
  EXPECT_EQ(folder_.Files(), 2U);
}

TEST_F(HostileArgumentsTest, WhatFindsNoRoomAtItsEndIsNoSuccess) {
  const auto told = RunBriefly("sh -c 'trap \"\" XFSZ; ulimit -f 0; " +
                               (kSchoolTool + ("crear --help >" + folder_ / "salida")) + "'");
  EXPECT_EQ(told.status, 1) << told.text;
  EXPECT_THAT(told.text, HasSubstr("no se puede escribir la salida"));
}

TEST_F(HostileArgumentsTest, AScriptThatCantBeReadIsNoEmptyScript) {
  MakeDemo();
  for (const std::string from : {"<&-", "</", "</proc/self/mem", "/proc/self/mem"}) {
    const auto refused =
        RunBriefly("sh -c '" + (kScriptTool + ("--bd " + path_)) + " " + from + "'");
    EXPECT_EQ(refused.status, 2) << from;
    EXPECT_THAT(refused.text, HasSubstr("o se puede leer")) << from;
  }
}

TEST_F(HostileArgumentsTest, AScriptPlaysWholeOrNotWhereMemoryRunsOut) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer takes all addresses for itself";
#endif
  MakeDemo();
  const auto script = folder_ / "guion";
  std::ofstream(script) << "sql \"CREATE TABLE Jugado (a)\"\nsql \"" << std::string(60'000'000, 'a')
                        << "\"\n";
  const auto refused = RunBriefly("sh -c 'ulimit -v 190000; " + (kScriptTool + ("--bd " + path_)) +
                                  " " + script + "'");
  std::filesystem::remove(script);
  EXPECT_EQ(refused.status, 2) << refused.text.substr(0, 300);
  EXPECT_THAT(Content(path_), Not(HasSubstr("Jugado")));
}

TEST_F(HostileArgumentsTest, APathIsAPath) {
  for (const std::string name :
       {"file:zz", ":memory:", "file:zz?mode=memory", "-x", "a b", "\xFF", "%41", "a?b#c"}) {
    const auto at = name.starts_with('-') ? "-- " + Quoted(name) : Quoted(name);
    EXPECT_EQ(
        RunBriefly("sh -c \"cd " + (folder_ / "") + " && " + kSchoolTool + "crear " + at + "\"")
            .status,
        0)
        << name;
    EXPECT_TRUE(std::filesystem::exists(folder_ / name)) << name;
    EXPECT_EQ(
        RunBriefly("sh -c \"cd " + (folder_ / "") + " && " + kSchoolTool + "comprobar " + at + "\"")
            .status,
        0)
        << name;
  }
  EXPECT_EQ(folder_.Files(), 8U);
}

TEST_F(HostileArgumentsTest, APathThatCantBeTakenIsNamedAsItWasGiven) {
  const auto pipe = folder_ / "tuberia";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const auto longName = folder_ / std::string(250, 'n');
  auto deep = folder_ / "";
  while (deep.size() < 900) deep += std::string(99, 'd') + "/";
  std::filesystem::create_directories(deep);
  for (const auto& path :
       {pipe, longName, folder_ / std::string(300, 'n'), deep + "e", folder_ / "no/hay",
        std::string("/proc/nada"), std::string("/proc/self/mem"), std::string("/dev/null"),
        std::string("/dev/zero"), folder_ / "", std::string("/proc/1/environ/x")})
    for (const std::string command :
         {"crear ", "comprobar ", "bloqueos ", "copiar /dev/zero ", "usuarios ", "reparar ",
          "estado ", "informe --todas --salida /no/hay "}) {
      const auto refused = RunBriefly(kSchoolTool + command + path);
      const auto named = command.starts_with("copiar") ? std::string("/dev/zero") : path;
      EXPECT_EQ(refused.status, 1) << command << path << refused.text;
      EXPECT_THAT(refused.text, HasSubstr(named + ": ")) << command;
      EXPECT_THAT(refused.text, AllOf(Not(HasSubstr("parcial")), Not(HasSubstr("file:"))));
    }
  EXPECT_EQ(folder_.Files(), 2U);
}

TEST_F(HostileArgumentsTest, ASchoolIsItsOwnersAloneAndIsToldWhereItIsnt) {
  const auto mode = [](const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 0777U;
  };
  for (const std::string mask : {"0", "022", "0777"}) {
    const auto make = [&](const std::string& command) {
      EXPECT_EQ(RunBriefly("sh -c 'umask " + mask + "; " + (kSchoolTool + command) + "'").status,
                0);
    };
    make("demo " + path_ + mask);
    make("copiar " + path_ + mask + " " + path_ + mask + "b");
    EXPECT_EQ(mode(path_ + mask), 0600U) << mask;
    EXPECT_EQ(mode(path_ + mask + "b"), 0600U) << mask;
  }
  EXPECT_EQ(RunBriefly(kSchoolTool + ("comprobar " + path_) + "0").status, 0);
  const auto trace = folder_ / "traza";
  RunBriefly("sh -c 'umask 0; echo nodo 123 | QUORVANE_TRAZA=" + trace + " " +
             (kScriptTool + ("--bd " + path_)) + "0'");
  EXPECT_EQ(mode(trace), 0600U);
  chmod((path_ + "0").c_str(), 0644);
  const auto told = RunBriefly(kSchoolTool + ("comprobar " + path_) + "0");
  EXPECT_EQ(told.status, 1);
  EXPECT_THAT(told.text, HasSubstr("puede leer el fichero"));
}

TEST_F(HostileArgumentsTest, ATraceStopsNoWork) {
  MakeDemo();
  const auto pipe = folder_ / "tuberia";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  const auto script = folder_ / "guion";
  std::ofstream(script) << "nodo 123\ncerrar\nnodo 124\ncerrar\nnodo 123\ncerrar\n";
  const auto play = "QUORVANE_TRAZA=$t " + (kScriptTool + ("--bd " + path_)) + " " + script;
  const auto whole = RunBriefly("sh -c 't=; " + play + "'");
  EXPECT_EQ(whole.status, 0);
  const auto told = [&](const std::string& text, const std::string& why) {
    const std::string words = "No se puede escribir la traza";
    const auto first = text.find(words);
    return first != std::string::npos && text.find(words, first + 1) == std::string::npos &&
           text.find(why, first) != std::string::npos;
  };
  const std::string unread = ": nadie la lee\n";
  // Who reads it, and is there before it is written, leaves while the script is at work.
  const auto left =
      RunBriefly("sh -c 'exec 3<>" + pipe + "; { head -c 1 <&3 >/dev/null; exec 3>&-; echo >" +
                 pipe + ".fin; } & exec 3>&-; { cat " + script + "; until [ -e " + pipe +
                 ".fin ]; do sleep 0.01; done; cat " + script + "; } | QUORVANE_TRAZA=" + pipe +
                 " " + (kScriptTool + ("--bd " + path_)) + "'");
  EXPECT_EQ(left.status, 0);
  EXPECT_TRUE(told(left.text, unread)) << left.text.substr(0, 500);
  // Nobody reads it, who has it open or not; the disk is full; there is no such folder.
  const auto full = "exec 3<>" + pipe + "; dd if=/dev/zero of=" + pipe +
                    " bs=4096 count=1000 oflag=nonblock 2>/dev/null; t=" + pipe + "; ";
  for (const auto& [shell, why] :
       std::vector<std::pair<std::string, std::string>>{{"t=" + pipe + "; ", unread},
                                                        {full, unread},
                                                        {"t=/dev/full; ", "espacio en el disco"},
                                                        {"t=/no/hay; ", "espacio en el disco"}}) {
    const auto ended = RunBriefly("sh -c '" + shell + play + "'");
    EXPECT_EQ(ended.status, 0) << shell;
    EXPECT_THAT(ended.text, HasSubstr("vuelve 123\n"));
    EXPECT_TRUE(told(ended.text, why)) << shell << ended.text.substr(0, 500);
  }
}

}  // namespace
}  // namespace quorvane::test

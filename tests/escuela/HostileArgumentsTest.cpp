// Arguments, standard streams and paths that nobody means well by.

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <sys/stat.h>

#include "tests/escuela/Orders.h"
#include "tests/escuela/Tool.h"
#include "tests/support/HelpText.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

constexpr auto kLost = "No se puede escribir la salida";

/// What waits for anything is a failure of its own.
Outcome RunBriefly(const std::string& command) { return RunCommand("timeout 20 " + command); }
Outcome Tool(const std::string& arguments) { return RunBriefly(QUORVANE_ESCUELA " " + arguments); }
Outcome Player(const std::string& arguments) { return RunBriefly(QUORVANE_GUION " " + arguments); }
Outcome InShell(const std::string& script) { return RunBriefly("sh -c '" + script + "'"); }

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
  void MakeDemo() const { ASSERT_EQ(Tool("demo " + path_).status, 0); }
  [[nodiscard]] std::string NewList() const {
    auto path = folder_ / "a.csv";
    std::ofstream(path) << "alumno,sección,materia\n";
    return path;
  }
  /// One that nobody reads.
  [[nodiscard]] std::string NewPipe() const {
    auto path = folder_ / "tuberia";
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    return path;
  }

  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
  std::string play_ = QUORVANE_GUION " --bd " + path_ + " ";
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
        EXPECT_THAT(refused, FieldsAre(testing::AnyOf(2, orName ? 1 : 2), Not(HasSubstr("Could"))))
            << ForShell(words);
        EXPECT_THAT(refused.text, HasSubstr(orName ? "" : name)) << ForShell(words);
      }
    }
  EXPECT_EQ(Content(path_), before);
  EXPECT_EQ(folder_.Files(), 1U);
  std::size_t numbers = 0;
  for (auto& [order, names] : tried) {
    EXPECT_THAT(NumbersTold(Tool(order + " --help").text), testing::IsSubsetOf(names))
        << "the list of orders gives no number to one of these";
    numbers += names.size();
  }
  EXPECT_GT(numbers, 10U);
}

TEST_F(HostileArgumentsTest, EveryNumberOfAPlayIsPlainDecimalOrRefused) {
  MakeDemo();
  const auto names = NumbersTold(Player("--help").text);
  EXPECT_GE(names.size(), 3U);
  for (const auto& name : names)
    for (const std::string value : kNoPlainNumbers) {
      const auto* const joint = value.size() % 2 == 0 ? " " : "=";
      EXPECT_THAT(RunBriefly(play_ + name + joint + Quoted(value) + " </dev/null"),
                  FieldsAre(2, AllOf(HasSubstr(name), Not(HasSubstr("Could")))))
          << name << joint << value;
    }
}

TEST_F(HostileArgumentsTest, AConnectionStringInAFilesPlaceIsNotRepeated) {
  const std::vector<std::string> strings = {
      "Driver=PostgreSQL Unicode;Server=a;UID=b;PWD=secreto", "PWD={secr;eto}",
      "Server=a;Password=secreto", "DSN=a;KeystoreSecret=secreto", "UID=a;sslpassword=secreto"};
  const std::string tool = QUORVANE_ESCUELA " ";
  const std::string player = QUORVANE_GUION " ";
  std::size_t turn = 0;
  for (const auto& command :
       {tool + "crear ", tool + "demo ", tool + "comprobar ", tool + "bloqueos ",
        tool + "generar --alumnos 1 --semilla 1 ", tool + "copiar /no/hay ", tool + "copiar ",
        tool + "nada ", tool + "crear x ", player + "--bd ", player + "--odbc DSN=a x ",
        player + "--bd /dev/null --entrada "})
    for (auto i = 0; i < 2; ++i) {
      const auto& string = strings[turn++ % strings.size()];
      EXPECT_THAT(
          InShell("cd " + (folder_ / "") + " && " + command + "\"" + string + "\" </dev/null"),
          FieldsAre(testing::Ne(0), AllOf(Not(HasSubstr("secr")), Not(HasSubstr("eto}")))))
          << command << string;
    }
  EXPECT_THAT(Tool("crear 'DSN=a;PWD=b'").text, HasSubstr("--odbc"));
}

TEST_F(HostileArgumentsTest, AConnectionStringInPlaceOfAnyWordIsNotRepeated) {
  MakeDemo();
  const auto csv = NewList();
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
                            "informe " + path_ + " --todas --salida "})
    EXPECT_THAT(Tool(place + Quoted(strings.front())), FieldsAre(2, HasSubstr("désela a --odbc")))
        << place;
  EXPECT_THAT(RunBriefly(play_ + ". " + Quoted(strings[1])).text,
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
  EXPECT_EQ(NamedBy(Tool("--help").text), orders);
  for (const auto& [order, words] : listed) {
    const auto named = NamedBy(Tool(order + " --help").text);
    EXPECT_TRUE(order == "copiar" || named.contains("--odbc")) << order;
    for (const auto& word : named)
      EXPECT_TRUE(word == "--odbc" || words.contains(word)) << order << " " << word;
  }
}

TEST_F(HostileArgumentsTest, AStringTooLongForTheDriversManagerIsRefused) {
  for (const std::string beginning : {"Driver=", "DSN=", "Driver=SQLite3;Database=",
                                      "Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=1;UID=", ""})
    for (const auto length : {1'100U, 40'000U, 120'000U})
      EXPECT_THAT(Tool("comprobar --odbc '" + beginning + std::string(length, 'x') + "=1'"),
                  FieldsAre(1, AllOf(HasSubstr("demasiado larga"), SizeIs(testing::Lt(400U)))))
          << beginning << length;
}

TEST_F(HostileArgumentsTest, WhatCantBeToldIsNotDone) {
  MakeDemo();
  const auto csv = NewList();
  const auto before = Content(path_);
  for (const std::string to : {">/dev/full", ">&-", "1</dev/null"}) {
    for (const auto& order : AllOrders()) {
      const auto command = ForShell(WithPaths(order, path_, path_ + "2", csv));
      EXPECT_THAT(RunBriefly("sh -c \"" QUORVANE_ESCUELA " " + command + " " + to + "\""),
                  FieldsAre(1, HasSubstr(kLost)))
          << command << to;
    }
    EXPECT_THAT(InShell("echo sql \\\"DELETE FROM Alumno\\\" | " + play_ + to),
                FieldsAre(2, HasSubstr(kLost)))
        << to;
  }
  EXPECT_EQ(Content(path_), before);
  EXPECT_EQ(folder_.Files(), 2U);
}

TEST_F(HostileArgumentsTest, WhatFindsNoRoomAtItsEndIsNoSuccess) {
  EXPECT_THAT(InShell("trap \"\" XFSZ; ulimit -f 0; " QUORVANE_ESCUELA " crear --help >" +
                      (folder_ / "salida")),
              FieldsAre(1, HasSubstr("no se puede escribir la salida")));
}

TEST_F(HostileArgumentsTest, AScriptThatCantBeReadIsNoEmptyScript) {
  MakeDemo();
  for (const std::string from : {"<&-", "</", "</proc/self/mem", "/proc/self/mem"})
    EXPECT_THAT(InShell(play_ + from), FieldsAre(2, HasSubstr("o se puede leer"))) << from;
}

TEST_F(HostileArgumentsTest, AScriptPlaysWholeOrNotWhereMemoryRunsOut) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer takes all addresses for itself";
#endif
  MakeDemo();
  const auto script = folder_ / "guion";
  std::ofstream(script) << "sql \"CREATE TABLE Jugado (a)\"\nsql \"" << std::string(60'000'000, 'a')
                        << "\"\n";
  const auto refused = InShell("ulimit -v 190000; " + play_ + script);
  std::filesystem::remove(script);
  EXPECT_EQ(refused.status, 2) << refused.text.substr(0, 300);
  EXPECT_THAT(Content(path_), Not(HasSubstr("Jugado")));
}

TEST_F(HostileArgumentsTest, APathIsAPath) {
  for (const std::string name :
       {"file:zz", ":memory:", "file:zz?mode=memory", "-x", "a b", "\xFF", "%41", "a?b#c"}) {
    const auto at = name.starts_with('-') ? "-- " + Quoted(name) : Quoted(name);
    for (const std::string order : {"crear ", "comprobar "}) {
      EXPECT_EQ(RunBriefly("sh -c \"cd " + (folder_ / "") + " && " QUORVANE_ESCUELA " " + order +
                           at + "\"")
                    .status,
                0)
          << order << name;
      EXPECT_TRUE(std::filesystem::exists(folder_ / name)) << order << name;
    }
  }
  EXPECT_EQ(folder_.Files(), 8U);
}

TEST_F(HostileArgumentsTest, APathThatCantBeTakenIsNamedAsItWasGiven) {
  const auto pipe = NewPipe();
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
      const auto named = command.starts_with("copiar") ? "/dev/zero" : path;
      EXPECT_THAT(Tool(command + path),
                  FieldsAre(1, AllOf(HasSubstr(named + ": "), Not(HasSubstr("parcial")),
                                     Not(HasSubstr("file:")))))
          << command << path;
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
    const auto copy = path_ + mask + "b";
    for (const auto& order : {"demo " + path_ + mask, "copiar " + path_ + mask + " " + copy})
      EXPECT_EQ(InShell("umask " + mask + "; " QUORVANE_ESCUELA " " + order).status, 0);
    EXPECT_EQ(mode(path_ + mask), 0600U) << mask;
    EXPECT_EQ(mode(copy), 0600U) << mask;
  }
  EXPECT_EQ(Tool("comprobar " + path_ + "0").status, 0);
  const auto trace = folder_ / "traza";
  InShell("umask 0; echo nodo 123 | QUORVANE_TRAZA=" + trace + " " QUORVANE_GUION " --bd " + path_ +
          "0");
  EXPECT_EQ(mode(trace), 0600U);
  chmod((path_ + "0").c_str(), 0644);
  EXPECT_THAT(Tool("comprobar " + path_ + "0"), FieldsAre(1, HasSubstr("puede leer el fichero")));
}

TEST_F(HostileArgumentsTest, ATraceStopsNoWork) {
  MakeDemo();
  const auto pipe = NewPipe();
  const auto script = folder_ / "guion";
  std::ofstream(script) << "nodo 123\ncerrar\nnodo 124\ncerrar\nnodo 123\ncerrar\n";
  const auto play = "QUORVANE_TRAZA=$t " + play_ + script;
  EXPECT_EQ(InShell("t=; " + play).status, 0);
  const auto told = [](const std::string& text, const std::string& why) {
    const std::string words = "No se puede escribir la traza";
    return Occurrences(text, words) == 1 && text.find(why, text.find(words)) != std::string::npos;
  };
  const std::string unread = ": nadie la lee\n";
  // Who reads it, and is there before it is written, leaves while the script is at work.
  const auto left = InShell("exec 3<>" + pipe + "; { head -c 1 <&3 >/dev/null; exec 3>&-; echo >" +
                            pipe + ".fin; } & exec 3>&-; { cat " + script + "; until [ -e " + pipe +
                            ".fin ]; do sleep 0.01; done; cat " + script +
                            "; } | QUORVANE_TRAZA=" + pipe + " " + play_);
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
    const auto ended = InShell(shell + play);
    EXPECT_THAT(ended, FieldsAre(0, HasSubstr("vuelve 123\n"))) << shell;
    EXPECT_TRUE(told(ended.text, why)) << shell << ended.text.substr(0, 500);
  }
}

}  // namespace
}  // namespace quorvane::test

// The passwords of a school in a file, and the order that sets them.

#include <algorithm>
#include <array>
#include <chrono>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/CopySchool.h"
#include "apps/escuela/PasswordHash.h"
#include "apps/escuela/UserPasswords.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"

namespace quorvane::test {
namespace {

constexpr auto kSecret = "alcachofas azules";
constexpr auto kOther = "otra cosa muy larga";
constexpr auto kOpenToAll =
    "Sin contraseñas: quien abre el fichero entra como cualquiera de sus usuarios\n";

constexpr auto kInterrupt = "\x03";

/// What somebody at a terminal sees who sets user 3's password, and types those lines when he is
/// asked, or interrupts without ending one.
std::string AtTerminal(const std::vector<std::string>& typed, const std::string& school,
                       int& status) {
  int terminal = -1;
  const auto child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    alarm(60);  // one that waits for more than is typed is a failure, and not for ever
    execl(QUORVANE_ESCUELA, QUORVANE_ESCUELA, "usuarios", school.c_str(), "clave", "3", nullptr);
    _exit(127);
  }
  const auto quiet = [terminal] {
    termios now{};
    tcgetattr(terminal, &now);
    return (now.c_lflag & ECHO) == 0;
  };
  std::string seen;
  std::array<char, 512> buffer{};
  std::size_t asked = 0;
  for (std::size_t from = 0;;) {
    const auto count = read(terminal, buffer.data(), buffer.size());
    if (count <= 0) break;
    seen.append(buffer.data(), static_cast<std::size_t>(count));
    // The question ends so once the terminal has gone quiet.
    const auto question = seen.find(": ", from);
    if (question == std::string::npos || asked == typed.size()) continue;
    from = question + 2;
    for (int wait = 0; wait < 5000 && !quiet(); ++wait) usleep(1000);
    const auto line = typed[asked] + (typed[asked] == kInterrupt ? "" : "\n");
    ++asked;
    EXPECT_EQ(write(terminal, line.data(), line.size()), static_cast<ssize_t>(line.size()));
  }
  waitpid(child, &status, 0);
  close(terminal);
  return seen;
}

/// That this thread has used.
std::chrono::nanoseconds ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

class UserPasswordsTest : public testing::Test {
 protected:
  Outcome Users(const std::string& order, const std::string& input = "") {
    return RunCommand("printf '%s' " + Quoted(input) + " | " QUORVANE_ESCUELA " usuarios " +
                      school_.Path() + " " + order);
  }

  OpenSchool school_;
  UserPasswords passwords_{school_.Db()};
};

TEST_F(UserPasswordsTest, AreKeptByArgon2idAndKnowTheirOwner) {
  EXPECT_TRUE(passwords_.Kept());
  EXPECT_FALSE(passwords_.Any());
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), std::nullopt);
  passwords_.Set(3, kSecret);
  EXPECT_TRUE(passwords_.Any());
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), 3);
  EXPECT_EQ(passwords_.Owner({2, 3}, 1, kSecret), 3) << "two of one name";
  EXPECT_EQ(passwords_.Owner({3}, 1, kOther), std::nullopt);
  EXPECT_EQ(passwords_.Owner({2}, 1, kSecret), std::nullopt) << "who has none doesn't come in";
  EXPECT_EQ(passwords_.Owner({2}, 1, ""), std::nullopt);
  EXPECT_EQ(passwords_.Owner({}, 1, kSecret), std::nullopt);
  EXPECT_THAT(school_.FirstColumn("SELECT Clave FROM ClaveUsuario"),
              ElementsAre(AllOf(StartsWith("$argon2id$v=19$m=65536,t=2,p=1$"),
                                Not(HasSubstr("alcachofas")))));

  passwords_.Set(3, kOther);
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), std::nullopt);
  EXPECT_EQ(passwords_.Owner({3}, 1, kOther), 3);
  EXPECT_FALSE(passwords_.Remove(2));
  EXPECT_TRUE(passwords_.Remove(3));
  EXPECT_FALSE(passwords_.Any());
  EXPECT_EQ(school_.Count("sqlite_master WHERE name='ClaveUsuario'"), 0);
}

// In processor time, of which the comparisons take nearly all, whatever the machine does beside.
TEST_F(UserPasswordsTest, TakeAsLongForWhoIsThereAsForWhoIsNot) {
  passwords_.Set(3, kSecret);
  const auto time = [this](const std::vector<std::int32_t>& candidates, const char* password) {
    const auto before = ProcessorTime();
    (void)passwords_.Owner(candidates, 1, password);
    return static_cast<double>((ProcessorTime() - before).count());
  };
  // All in each round: what slows the processor for a while slows all of them.
  std::array<double, 4> best{};
  for (int round = 0; round < 5; ++round) {
    const std::array<double, 4> now = {time({3}, kSecret), time({3}, kOther), time({2}, kSecret),
                                       time({}, kSecret)};
    for (std::size_t i = 0; i < best.size(); ++i)
      best[i] = round == 0 ? now[i] : std::min(best[i], now[i]);
  }
  for (const auto other : best) {
    EXPECT_LT(other, best[0] * 1.6);
    EXPECT_GT(other, best[0] / 1.6);
  }
}

// However many share a name, a try takes the time of eight comparisons.
TEST_F(UserPasswordsTest, OfManyOfOneNameTheFirstComeIn) {
  const auto ours = PasswordHash(kSecret);
  const auto other = PasswordHash(kOther);
  school_.Sql("CREATE TABLE ClaveUsuario (IDUsuario INTEGER PRIMARY KEY, Clave TEXT NOT NULL)");
  std::vector<std::int32_t> all;
  const auto add = [&](std::int32_t user, const std::string& hash) {
    const auto id = std::to_string(user);
    school_.Sql("INSERT INTO Usuario (IDUsuario,Nombre,CodPerfil,CodPadre,AdminSistema) VALUES (" +
                id + ",'Ana',1,0,0)");
    if (!hash.empty()) school_.Sql("INSERT INTO ClaveUsuario VALUES (" + id + ",'" + hash + "')");
    all.insert(all.begin(), user);
  };
  for (auto user = 101; user <= 110; ++user) add(user, {});
  for (auto user = 111; user < 118; ++user) add(user, other);
  add(118, ours);
  EXPECT_EQ(passwords_.Owner(all, 1, kSecret), 118) << "who has none takes nobody's place";
  EXPECT_THAT(passwords_.Findings(), IsEmpty());
  school_.Sql(
      "UPDATE ClaveUsuario SET IDUsuario=110 WHERE IDUsuario=111;"
      "INSERT INTO ClaveUsuario VALUES (111,'" +
      other + "')");
  EXPECT_EQ(passwords_.Owner(all, 1, kSecret), std::nullopt) << "the ninth";
  EXPECT_THAT(
      passwords_.Findings(),
      ElementsAre(
          "Hay 9 usuarios con contraseña que se llaman «Ana», y solo los 8 primeros, por su "
          "número, pueden entrar: cambie el nombre de los demás"));
  for (auto user = 200; user < 400; ++user) add(user, other);
  const auto begun = ProcessorTime();
  EXPECT_EQ(passwords_.Owner(all, all.size(), kOther), 110);
  const auto many = ProcessorTime() - begun;
  EXPECT_EQ(passwords_.Owner({3}, 1, kOther), std::nullopt);
  EXPECT_LT(many, (ProcessorTime() - begun - many) * 20);
}

TEST_F(UserPasswordsTest, ShortOnesWontDo) {
  EXPECT_NE(UserPasswords::Fault("corta"), "");
  EXPECT_NE(UserPasswords::Fault("ñññññññ"), "") << "seven letters";
  EXPECT_EQ(UserPasswords::Fault("ññññññññ"), "");
  EXPECT_NE(UserPasswords::Fault(std::string(5000, 'a')), "");
  EXPECT_THROW(passwords_.Set(3, "corta"), RuntimeError);
  EXPECT_FALSE(passwords_.Any());
}

TEST_F(UserPasswordsTest, AreSetAndRemovedFromStandardInput) {
  EXPECT_THAT(Users("").text, EndsWith(kOpenToAll));
  EXPECT_THAT(Users("clave 3", std::string(kSecret) + "\n"),
              FieldsAre(0,
                        "Puesta la contraseña del usuario 3 (tutora3a)\n"
                        "Con contraseña: 1 de 8 usuarios; los demás no pueden entrar\n"));
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), 3) << "without the line's end";
  EXPECT_EQ(Users("clave JEFATURA", kOther).status, 0) << "by name, and without a line's end";
  EXPECT_EQ(passwords_.Owner({2}, 1, kOther), 2);
  EXPECT_THAT(Users("listar").text,
              HasSubstr("\n  3  tutora3a  con contraseña\n  4  profesor  sin contraseña\n"));
  EXPECT_THAT(Escuela("comprobar " + school_.Path()).text,
              StartsWith("Con contraseña: 2 de 8 usuarios; los demás no pueden entrar\nApta"));
  EXPECT_EQ(Users("quitar 2").status, 0);
  EXPECT_EQ(Users("quitar 2").status, 1);
  EXPECT_THAT(Users("quitar 3").text, EndsWith(kOpenToAll));

  for (const auto* const input : {"", "corta\n"}) EXPECT_EQ(Users("clave 3", input).status, 1);
  EXPECT_EQ(Users("clave 99", kSecret).status, 1);
  EXPECT_THAT(Users("clave nadie", kSecret).text, HasSubstr("No hay ningún usuario «nadie»"));
  EXPECT_FALSE(passwords_.Any());
}

TEST_F(UserPasswordsTest, AreNotSeenOnATerminal) {
  int status = -1;
  auto seen = AtTerminal({kSecret, kOther}, school_.Path(), status);
  EXPECT_EQ(WEXITSTATUS(status), 1) << seen;
  EXPECT_THAT(seen, HasSubstr("Las dos contraseñas no son la misma"));
  EXPECT_FALSE(passwords_.Any());
  seen = AtTerminal({kSecret, kSecret}, school_.Path(), status);
  EXPECT_EQ(WEXITSTATUS(status), 0) << seen;
  EXPECT_THAT(seen, AllOf(HasSubstr("Contraseña nueva del usuario 3 (tutora3a): "),
                          Not(HasSubstr("alcachofas"))));
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), 3);
}

TEST_F(UserPasswordsTest, AreInterruptedAtATerminalWithoutALinesEnd) {
  int status = -1;
  for (const auto& typed : {std::vector<std::string>{kInterrupt}, {kSecret, kInterrupt}}) {
    const auto seen = AtTerminal(typed, school_.Path(), status);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGINT) << status << seen;
  }
  EXPECT_FALSE(passwords_.Any());
}

TEST_F(UserPasswordsTest, AreInNoTrace) {
  const auto trace = school_.Path() + ".traza";
  RunCommand("printf '%s' " + Quoted(kSecret) + " | QUORVANE_TRAZA=" + trace +
             " " QUORVANE_ESCUELA " usuarios " + school_.Path() + " clave 3");
  EXPECT_TRUE(passwords_.Any());
  EXPECT_EQ(Content(trace), "");
}

// A copy that is open to all would give away what the school keeps from who may read the file.
TEST_F(UserPasswordsTest, GoAlongToAnotherFile) {
  passwords_.Set(3, kSecret);
  passwords_.Set(2, kOther);
  const auto copy = school_.Path() + ".copia";
  EXPECT_THAT(Escuela("copiar " + school_.Path() + " " + copy),
              FieldsAre(0, AllOf(Not(HasSubstr("No se ha copiado")), Not(HasSubstr("contraseñas")),
                                 Not(HasSubstr("argon2")))));
  Opened<sqlite::SqliteConnection> there(copy, "");
  const UserPasswords taken(there);
  EXPECT_EQ(taken.Owner({3}, 1, kSecret), 3);
  EXPECT_EQ(taken.Owner({2}, 1, kOther), 2);
  EXPECT_EQ(taken.Owner({2}, 1, kSecret), std::nullopt);
  EXPECT_EQ(taken.Hashes().size(), 2U);
}

TEST_F(UserPasswordsTest, ACopyOfASchoolWithoutAnyHasNone) {
  const auto copy = school_.Path() + ".copia";
  EXPECT_EQ(Escuela("copiar " + school_.Path() + " " + copy).status, 0);
  EXPECT_THAT(Escuela("comprobar " + copy).text, StartsWith(kOpenToAll));
}

// A row tells its own costs, and whoever wrote it may have written any.
TEST_F(UserPasswordsTest, OfOtherCostsAreNeverComputed) {
  passwords_.Set(3, kSecret);
  const auto good = school_.FirstColumn("SELECT Clave FROM ClaveUsuario")[0];
  const auto rest = good.substr(good.rfind('$', good.rfind('$') - 1));
  const auto changed = [&good](const std::string& part, const std::string& by) {
    auto text = good;
    return text.replace(text.find(part), part.size(), by);
  };
  for (const auto& hash :
       {changed("t=2", "t=4000000"), changed("m=65536", "m=4194304"), changed("p=1", "p=255"),
        changed("t=2", "t=1"), changed("m=65536", "m=8"),
        "$argon2i$v=19$m=65536,t=4000000,p=1" + rest, "$7$" + good, good + "A",
        good.substr(0, good.size() - 1), std::string()}) {
    school_.Sql("UPDATE ClaveUsuario SET Clave='" + hash + "'");
    SCOPED_TRACE(hash);
    const auto before = ProcessorTime();
    EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), std::nullopt);
    EXPECT_LT(ProcessorTime() - before, std::chrono::seconds(2));
    EXPECT_TRUE(passwords_.Any()) << "it isn't as good as none";
    EXPECT_THAT(passwords_.Findings(), SizeIs(1));
  }
  EXPECT_THAT(Escuela("comprobar " + school_.Path()),
              FieldsAre(1, HasSubstr("La contraseña del usuario 3 no la ha puesto este programa")));
  passwords_.Set(3, kSecret);
  EXPECT_THAT(passwords_.Findings(), IsEmpty());
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), 3);
}

TEST_F(UserPasswordsTest, OfAUserWhoIsGoneCountForNothing) {
  passwords_.Set(3, kSecret);
  school_.Sql("DELETE FROM Usuario WHERE IDUsuario=3");
  EXPECT_FALSE(passwords_.Any());
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), std::nullopt);
  passwords_.Set(2, kSecret);
  EXPECT_TRUE(passwords_.Remove(2));
  EXPECT_EQ(school_.Count("sqlite_master WHERE name='ClaveUsuario'"), 0);
}

TEST_F(UserPasswordsTest, ASchoolWithoutUsersNamesHasThemByNumber) {
  school_.Sql("ALTER TABLE Usuario DROP COLUMN Nombre");
  EXPECT_EQ(Users("clave 3", kSecret).status, 0);
  EXPECT_EQ(passwords_.Owner({3}, 1, kSecret), 3);
}

}  // namespace
}  // namespace quorvane::test

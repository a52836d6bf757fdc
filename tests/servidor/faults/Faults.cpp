#include "tests/servidor/faults/Faults.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "frame/cAsignarDatos.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "platform/text/PlainNumber.h"
#include "tests/servidor/Proxied.h"
#include "tests/support/Opened.h"
#include "tests/support/RunCommand.h"
#include "tests/support/ServerSchools.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr auto kLimit = std::chrono::seconds(30);
constexpr std::size_t kStatements = 100;
constexpr std::size_t kMicroseconds = 3000;
constexpr int kPatience = 400;  ///< statements, for one that suits
constexpr int kFaultsOfSchool = 10;
constexpr int kFirstUser = 2;
constexpr std::size_t kUsers = 7;
constexpr std::uint8_t kRegisterNode = 123;
constexpr std::size_t kNodes = 5;
constexpr char kTold[] = "-2147467259 Se ha perdido la conexión con la base de datos: ";

/// The sample school, in place of what is there.
void Refill(const std::string& database) {
  auto& school = OwnersConnection(database);
  for (const auto& table : SchoolTables()) school.Execute("DELETE FROM " + table.name);
  DemoSchool(school).Build();
  LockList locks(school);
  for (const auto& publication : locks.Read()) locks.Remove(publication.id);
}

std::int64_t Milliseconds(steady_clock::duration time) {
  return std::chrono::duration_cast<milliseconds>(time).count();
}

constexpr std::string_view kPublication = "Publicación ";
constexpr std::string_view kOrphans = "Bloqueos sin publicación ";

/// A line a table that tells its rows.
std::string RowsOf(const std::string& database) {
  std::string select;
  for (const auto& table : SchoolTables())
    select +=
        (select.empty() ? "SELECT '" : " UNION ALL SELECT '") + table.name +
        "' AS tabla, string_agg(CAST(t AS text), ';' ORDER BY CAST(t AS text)) AS filas FROM " +
        table.name + " t";
  std::string text;
  auto rows = OwnersConnection(database).Execute(select);
  for (; !rows.Eof(); rows.MoveNext())
    text += rows.Fields(0).Text() + ": " + rows.Fields(1).Text() + '\n';
  return text;
}

/// What they are once the statement has been executed; as they are where the engine refuses it.
std::string RowsWith(const std::string& database, const std::string& statement) {
  auto& connection = OwnersConnection(database);
  connection.Execute("SAVEPOINT antes");
  try {
    connection.Execute(statement);
  } catch (const RuntimeError&) {
    connection.Execute("ROLLBACK TO SAVEPOINT antes");
  }
  return RowsOf(database);
}

std::string FirstDifference(const std::string& one, const std::string& other) {
  std::istringstream left(one);
  std::istringstream right(other);
  for (std::string a, b; std::getline(left, a) && std::getline(right, b);)
    if (a != b) return a.substr(0, a.find(':'));
  return {};
}

std::string Bloqueos(const std::string& database, const std::string& more = {}) {
  const auto result =
      RunCommand(QUORVANE_ESCUELA " bloqueos --odbc " + Quoted(ServerString(database)) + more);
  if (result.status != 0) throw std::runtime_error("bloqueos: " + result.text);
  return result.text;
}

}  // namespace

FaultConnection::FaultConnection(const std::string& text, std::string name, FaultDiary& diary)
    : Connection(std::move(name)), engine_(text, ""), diary_(diary) {}

void FaultConnection::Open() {
  // The fault may just have met it at rest, or the server be on its way back.
  const auto until = steady_clock::now() + std::chrono::seconds(30);
  for (;; std::this_thread::sleep_for(milliseconds(50))) try {
      engine_.Open();
      process_ = engine_.Execute("SELECT pg_backend_pid()").Fields(0).Long();
      return;
    } catch (const RuntimeError&) {
      if (steady_clock::now() > until) throw;
    }
}

Recordset FaultConnection::Run(const std::string& statement) {
  const auto writes = !Reads(statement);
  diary_.before(statement);
  const auto begin = steady_clock::now();
  try {
    auto rows = engine_.Execute(statement);
    ++diary_.returned;
    if (writes) diary_.written.push_back(statement);
    return rows;
  } catch (const RuntimeError& error) {
    // What the engine refuses at a connection that goes on has done nothing.
    if (!engine_.IsOpen() && diary_.error.empty()) {
      diary_.error = std::to_string(error.Number()) + " " + error.Description();
      diary_.took = steady_clock::now() - begin;
      if (writes) diary_.inFlight = statement;
    }
    throw;
  }
}

Faults::Faults(const FaultOptions& options, std::uint64_t seed)
    : options_(options),
      random_(seed),
      proxy_(ServerPort()),
      school_(TakeServerSchool()),
      alike_(TakeServerSchool()),
      centro_(StringThrough(proxy_, ServerString(school_)), "centro", diary_),
      borrado_(StringThrough(proxy_, ServerString(school_)), "borrado", diary_),
      entrada_(StringThrough(proxy_, ServerString(school_)), "entrada", diary_),
      user_(random_, history_),
      host_(random_) {}

Faults::~Faults() {
  if (later_.joinable()) later_.join();
  FormInstances::DropAll();
}

FaultFigures Faults::Run(int times) {
  for (auto i = 0; i < times; ++i) try {
      // Sooner or later a user at random has emptied the register, and has nothing to grade.
      if (i % kFaultsOfSchool == 0)
        for (const auto& database : {school_, alike_}) Refill(database);
      One();
    } catch (const std::exception& failure) {
      throw std::runtime_error("falta " + std::to_string(i + 1) + ": " + failure.what());
    }
  return figures_;
}

void Faults::One() {
  Draw();
  PlayUntilLost();
  CheckError();
  BringBack();
  CompareRows();
  RemoveLocks();
  OpenAgain();
  ++figures_.faults;
}

void Faults::Draw() {
  diary_ = {};
  diary_.before = [this](const std::string& statement) { Told(statement); };
  untilFault_ = 1 + static_cast<int>(random_.Below(kStatements));
  whileWriting_ = random_.Chance(60);
  whilePublishing_ = random_.Chance(50);
  publishes_ = false;
  struck_ = false;
}

void Faults::PlayUntilLost() {
  while (diary_.error.empty()) {
    centro_.Open();
    if (struck_ && centro_.Process() != process_) StrikeAgain();
    host_.SignIn({centro_, borrado_, entrada_},
                 kFirstUser + static_cast<int>(random_.Below(kUsers)));
    try {
      cAsignarDatos().ActivarFormulario(
          static_cast<std::uint8_t>(kRegisterNode + static_cast<int>(random_.Below(kNodes))));
    } catch (const RuntimeError& error) {
      FormInstances::DropAll();
      const auto told = std::to_string(error.Number()) + " " + error.Description();
      if (!diary_.error.empty() && told != diary_.error)
        throw std::runtime_error("el usuario ve otro error: " + told);
      continue;
    }
    if (!diary_.error.empty()) throw std::runtime_error("el usuario no ve el error");
  }
  if (later_.joinable()) later_.join();
}

/// It came between two screens, and the next has connected again unseen.
void Faults::StrikeAgain() {
  if (later_.joinable()) later_.join();
  struck_ = false;
  ++figures_.unseen;
}

void Faults::Told(const std::string& statement) {
  if (statement.starts_with("DELETE FROM PublicacionPte")) publishes_ = false;
  --untilFault_;
  const auto suits = !(whileWriting_ && Reads(statement)) && !(whilePublishing_ && !publishes_);
  if (!struck_ && untilFault_ <= 0 && (suits || untilFault_ < -kPatience)) {
    struck_ = true;
    process_ = centro_.Process();
    Strike();
  }
  if (statement.starts_with("INSERT INTO Publicacionpte")) publishes_ = true;
}

/// Meanwhile the statement runs.
void Faults::Later(const std::function<void()>& work) {
  const std::chrono::microseconds delay(random_.Below(kMicroseconds));
  later_ = std::thread([work, delay] {
    std::this_thread::sleep_for(delay);
    work();
  });
}

void Faults::Strike() {
  using Moment = TcpProxy::Moment;
  const auto terminate = [database = school_, process = centro_.Process(),
                          other = entrada_.Process()] {
    Opened<odbc::OdbcConnection> same(ServerString(database), "");
    for (const auto one : {process, other})
      same.Execute("SELECT pg_terminate_backend(" + std::to_string(one) + ")");
  };
  switch (options_.fault) {
    case ServerFault::Stop:
      kill(PlainNumber<pid_t>(std::getenv("QUORVANE_PRUEBAS_MANDO")).value(), SIGUSR1);
      return;
    case ServerFault::Terminate:
      return random_.Chance(50) ? terminate() : Later(terminate);
    case ServerFault::Reset:
    case ServerFault::Silence:
      break;
  }
  const auto fault =
      options_.fault == ServerFault::Reset ? TcpProxy::Fault::Reset : TcpProxy::Fault::Silence;
  switch (random_.Below(3)) {
    case 0:
      return Later([this, fault] { proxy_.Fail(fault); });
    case 1:
      return proxy_.Fail(fault, Moment::NextRequest);
    default:
      return proxy_.Fail(fault, Moment::NextAnswer);
  }
}

void Faults::CheckError() {
  if (!diary_.error.starts_with(kTold) || diary_.error.find('[') == std::string::npos)
    throw std::runtime_error("no es el error que se espera: " + diary_.error);
  const auto took = Milliseconds(diary_.took);
  if (diary_.took > kLimit)
    throw std::runtime_error("el error ha tardado " + std::to_string(took) + " ms");
  figures_.shortestError = figures_.faults == 0 ? took : std::min(figures_.shortestError, took);
  figures_.longestError = std::max(figures_.longestError, took);
}

void Faults::BringBack() {
  // The network comes back as if nothing had been, or without any memory of what it carried.
  if (options_.fault == ServerFault::Silence && random_.Chance(50))
    proxy_.Fail(TcpProxy::Fault::Reset);
  else
    proxy_.Resume();
  const auto until = steady_clock::now() + kLimit;
  for (;; std::this_thread::sleep_for(milliseconds(50))) try {
      // What was in flight has ended one way or the other once its process has.
      auto& owner = OwnersConnection(school_);
      const auto left =
          owner.Execute("SELECT CAST(count(*) AS integer) FROM pg_stat_activity WHERE pid=" +
                        std::to_string(centro_.Process()));
      static_cast<void>(OwnersConnection(alike_));
      if (left.Fields(0).Long() == 0) return;
      if (steady_clock::now() > until) throw std::runtime_error("el servidor no la deja");
    } catch (const RuntimeError& error) {
      if (steady_clock::now() > until) throw std::runtime_error(error.Description());
    }
}

// What is looked at after a fault: the rows, the locks, and whether work goes on.

void Faults::CompareRows() {
  auto& alike = OwnersConnection(alike_);
  for (const auto& statement : diary_.written) alike.Execute(statement);
  figures_.written += static_cast<std::int64_t>(diary_.written.size());
  figures_.returned += diary_.returned;
  const auto found = RowsOf(school_);
  auto expected = RowsOf(alike_);
  if (diary_.inFlight) {
    ++figures_.inFlight;
    const auto without = expected;
    alike.Execute("BEGIN");
    const auto with = RowsWith(alike_, *diary_.inFlight);
    const auto inside = found == with;
    alike.Execute(inside ? "COMMIT" : "ROLLBACK");
    if (with != without) ++(inside ? figures_.inside : figures_.outside);
    if (inside) expected = with;
  }
  if (found != expected)
    throw std::runtime_error("no está lo que había vuelto, o hay algo más, en " +
                             FirstDifference(found, expected) +
                             "; en vuelo: " + diary_.inFlight.value_or("nada"));
}

void Faults::RemoveLocks() {
  std::istringstream lines(Bloqueos(school_));
  std::vector<std::string> numbers;
  std::int64_t locks = 0;
  for (std::string line; std::getline(lines, line);) {
    for (const auto prefix : {kPublication, kOrphans})
      if (line.starts_with(prefix))
        numbers.push_back(line.substr(prefix.size(), line.find(':') - prefix.size()));
    if (line.starts_with("  ")) ++locks;
  }
  const auto left = OwnersConnection(school_).Execute(
      "SELECT CAST((SELECT count(*) FROM (SELECT IDPublicacionPte AS n FROM PublicacionPte UNION "
      "SELECT CodPublicacion FROM BloqueoPte) p) AS integer),CAST((SELECT count(*) FROM "
      "BloqueoPte) AS integer)");
  if (left.Fields(0).Long() != static_cast<std::int64_t>(numbers.size()) ||
      left.Fields(1).Long() != locks)
    throw std::runtime_error("«bloqueos» no nombra lo que ha quedado");
  for (const auto& number : numbers) {
    Bloqueos(school_, " --borrar " + number);
    OwnersConnection(alike_).Execute("DELETE FROM BloqueoPte WHERE CodPublicacion=" + number);
    OwnersConnection(alike_).Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" + number);
  }
  if (RowsOf(school_) != RowsOf(alike_))
    throw std::runtime_error("al borrar los bloqueos ha cambiado algo más");
  figures_.publications += static_cast<std::int64_t>(numbers.size());
  figures_.locks += locks;
}

void Faults::OpenAgain() {
  const auto begin = steady_clock::now();
  user_.OnlyCloses(true);
  centro_.Open();
  host_.SignIn({centro_, borrado_, entrada_}, HostSession{});
  try {
    cAsignarDatos().ActivarFormulario(kRegisterNode);
  } catch (const RuntimeError& error) {
    FormInstances::DropAll();
    throw std::runtime_error("la pantalla no se abre de nuevo: " + error.Description());
  }
  user_.OnlyCloses(false);
  ++figures_.reopened;
  figures_.longestOpening =
      std::max(figures_.longestOpening, Milliseconds(steady_clock::now() - begin));
}

}  // namespace quorvane::test

#include "tests/servidor/faults/Faults.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <limits>
#include <stdexcept>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "frame/cAsignarDatos.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "platform/text/PlainNumber.h"
#include "tests/servidor/Proxied.h"
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
constexpr int kRegisterNode = 123;
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

}  // namespace

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
      host_(random_) {
  user_.UseOnlooker(nobody_);
  user_.Limit(std::numeric_limits<std::uint64_t>::max());
}

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
    odbc::OdbcConnection same(ServerString(database), "");
    same.Open();
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

}  // namespace quorvane::test

// What becomes of a statement that a server leaves without an answer, and of one that only waits.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <future>
#include <string>
#include <thread>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/odbc/OdbcConnection.h"
#include "adapters/odbc/SilenceWatch.h"
#include "platform/RuntimeError.h"
#include "tests/servidor/Proxied.h"
#include "tests/support/DataSources.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TcpProxy.h"

namespace quorvane::test {
namespace {

using namespace std::chrono_literals;
using odbc::OdbcConnection;
using std::chrono::steady_clock;
using Fault = TcpProxy::Fault;
using Moment = TcpProxy::Moment;

constexpr auto kLimit = 30s;
const std::string kLost =
    "Se ha perdido la conexión con la base de datos: el servidor no contesta: [08";

/// How it ended, and how long it took.
struct Ending {
  std::string error;
  steady_clock::duration took{};
};

template <class Work>
Ending EndingOf(const Work& work) {
  const auto begin = steady_clock::now();
  Ending ending;
  try {
    work();
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.Is(ErrorNumber::StatementFailed)) << error.Number();
    ending.error = error.Description();
  }
  ending.took = steady_clock::now() - begin;
  return ending;
}

class SilenceTest : public ProxiedTest {
 protected:
  /// That it ended in time, with an error that begins so.
  static void ExpectEnded(const Ending& ending, const std::string& error) {
    EXPECT_THAT(ending.error, StartsWith(error));
    EXPECT_LT(ending.took, kLimit);
  }
};

// All at once: each takes the time that a server is given.
TEST_F(SilenceTest, EndsWithinHalfAMinuteAndOnlyWhereTheServerIsSilent) {
  const auto lost = [this](Moment moment) {
    TcpProxy proxy(ServerPort());
    Opened<OdbcConnection> connection(Through(proxy), "");
    proxy.Fail(Fault::Silence, moment);
    const auto ending =
        EndingOf([&] { connection.Execute("INSERT INTO BloqueoPte VALUES (1,1,1,1,4,1)"); });
    ExpectEnded(ending, kLost);
    EXPECT_FALSE(connection.IsOpen());
    proxy.Resume();
    connection.Open();
    EXPECT_EQ(connection.Execute("SELECT 7").Fields(0).Long(), 7);
  };
  const auto opening = [this] {
    TcpProxy proxy(ServerPort());
    proxy.Fail(Fault::Silence);
    OdbcConnection connection(Through(proxy), "");
    ExpectEnded(EndingOf([&] { connection.Open(); }),
                "No se puede conectar con la base de datos: [08");
  };
  // The server has let it in, and is silent at what the driver asks then.
  const auto halfOpened = [this] {
    TcpProxy counting(ServerPort());
    OdbcConnection(Through(counting), "").Open();
    const auto trips = counting.Bursts();
    // Slow enough to be met at its last trip.
    TcpProxy proxy(ServerPort(), 100ms);
    OdbcConnection connection(Through(proxy), "");
    std::thread silencing([&] {
      while (proxy.Bursts() + 1 < trips) std::this_thread::yield();
      proxy.Fail(Fault::Silence, Moment::NextAnswer);
    });
    const auto ending = EndingOf([&] { connection.Open(); });
    silencing.join();
    ExpectEnded(ending, "No se puede conectar con la base de datos: [");
  };
  const auto waiting = [this] {
    TcpProxy proxy(ServerPort());
    Opened<OdbcConnection> connection(Through(proxy), "");
    const auto ending = EndingOf([&] {
      connection.Execute("SELECT pg_sleep(" +
                         std::to_string((2 * odbc::SilenceWatch::kPatience).count()) + ")");
    });
    EXPECT_EQ(ending.error, "");
    EXPECT_TRUE(connection.IsOpen());
    EXPECT_GT(proxy.Connections(), 1U);
  };
  auto request = std::async(std::launch::async, [&] { lost(Moment::NextRequest); });
  auto answer = std::async(std::launch::async, [&] { lost(Moment::NextAnswer); });
  auto open = std::async(std::launch::async, opening);
  auto half = std::async(std::launch::async, halfOpened);
  waiting();
  for (auto* const one : {&request, &answer, &open, &half}) one->get();
}

// That another answers doesn't help who waits for this one.
TEST_F(SilenceTest, OfSeveralServersTheOneThatIsUsedIsAsked) {
  const DataSources sources(
      "[Dos]\nDriver=PostgreSQL Unicode\nServername=127.0.0.2,127.0.0.1\nPort=" +
      std::to_string(ServerPort()) + "\n");
  const odbc::ConnectionString given(ServerString(database_));
  odbc::ConnectionString source("DSN=Dos");
  for (const auto* const keyword : {"Database", "UID", "PWD"})
    source.Set(keyword, given.Value(keyword));
  auto first = TcpProxy::Beside(ServerPort(), std::getenv("QUORVANE_PRUEBAS_ENCHUFE"));
  Opened<OdbcConnection> connection(source.Text(), "");
  EXPECT_EQ(first.Connections(), 1U);
  const auto patient = EndingOf([&] { connection.Execute("SELECT pg_sleep(11)"); });
  EXPECT_EQ(patient.error, "");
  EXPECT_GE(first.Connections(), 2U);
  first.Fail(Fault::Silence);
  ExpectEnded(EndingOf([&] { connection.Execute("SELECT 1"); }), kLost);
  connection.Open();
  EXPECT_EQ(connection.Execute("SELECT 7").Fields(0).Long(), 7);
}

// Hurried again and again, as by a window that paints: a server that answers is asked once.
TEST_F(SilenceTest, InAHurryASilentServerIsGivenUpAtOnceAndAnotherWaitedFor) {
  std::atomic<bool> over = false;
  TcpProxy silent(ServerPort());
  TcpProxy slow(ServerPort());
  Opened<OdbcConnection> lost(Through(silent), "");
  Opened<OdbcConnection> waiting(Through(slow), "");
  silent.Fail(Fault::Silence);
  const auto before = slow.Connections();
  auto ending =
      std::async(std::launch::async, [&] { return EndingOf([&] { lost.Execute("SELECT 1"); }); });
  std::thread hurrying([&over] {
    for (; !over; std::this_thread::sleep_for(40ms)) odbc::SilenceWatch::Hurry();
  });
  const auto patient = EndingOf([&] { waiting.Execute("SELECT pg_sleep(5)"); });
  over = true;
  hurrying.join();
  EXPECT_EQ(patient.error, "");
  EXPECT_TRUE(waiting.IsOpen());
  EXPECT_GT(slow.Connections(), before);
  EXPECT_LE(slow.Connections(), before + 2);
  const auto given = ending.get();
  EXPECT_THAT(given.error, StartsWith(kLost));
  EXPECT_LT(given.took, odbc::SilenceWatch::kPatience + 5s) << "and not asked as late as others";
}

// Beside the others' statements, whose server answers.
TEST_F(SilenceTest, WaitsForALockAtAServerThatLetsNobodyElseIn) {
  auto& owner = OwnersConnection(database_);
  Opened<OdbcConnection> teacher(ServerString(database_), "");
  owner.Execute("REVOKE CONNECT ON DATABASE " + database_ + " FROM PUBLIC");
  owner.Execute("BEGIN");
  owner.Execute("LOCK TABLE PublicacionPte");
  auto inserting = std::async(std::launch::async, [&] {
    return EndingOf([&] { teacher.Execute("INSERT INTO PublicacionPte VALUES (1,1,1,4,1)"); });
  });
  EXPECT_EQ(inserting.wait_for(2 * odbc::SilenceWatch::kPatience), std::future_status::timeout);
  OdbcConnection refused(ServerString(database_), "");
  EXPECT_THAT(EndingOf([&] { refused.Open(); }).error, HasSubstr("FATAL:"));
  owner.Execute("COMMIT");
  EXPECT_EQ(inserting.get().error, "");
  owner.Execute("GRANT CONNECT ON DATABASE " + database_ + " TO PUBLIC");
}

TEST_F(SilenceTest, OneThatTheServerHasEndedAtRestIsMadeAnew) {
  Opened<OdbcConnection> resting(ServerString(database_), "");
  const auto process = resting.Execute("SELECT pg_backend_pid()").Fields(0).Text();
  Opened<OdbcConnection>(ServerString(database_), "")
      .Execute("SELECT pg_terminate_backend(" + process + ",5000)");
  std::this_thread::sleep_for(100ms);
  resting.Open();
  EXPECT_NE(resting.Execute("SELECT pg_backend_pid()").Fields(0).Text(), process);
}

}  // namespace
}  // namespace quorvane::test

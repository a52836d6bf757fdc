// The network of the tests: what it counts, how long it takes, and how it fails.

#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <thread>

#include "adapters/odbc/OdbcConnection.h"
#include "platform/RuntimeError.h"
#include "tests/servidor/Proxied.h"
#include "tests/support/Opened.h"
#include "tests/support/TcpProxy.h"

namespace quorvane::test {
namespace {

using namespace std::chrono_literals;
using odbc::OdbcConnection;
using std::chrono::steady_clock;

class TcpProxyTest : public ProxiedTest {
 protected:
  static bool Fails(Connection& connection) {
    try {
      connection.Execute("SELECT 1");
    } catch (const RuntimeError&) {
      return true;
    }
    return false;
  }
};

TEST_F(TcpProxyTest, CountsARoundTripAStatement) {
  const TcpProxy proxy(ServerPort());
  Opened<OdbcConnection> connection(Through(proxy), "");
  EXPECT_EQ(proxy.Connections(), 1U);
  const auto before = proxy.Bursts();
  EXPECT_GT(before, 0U);
  for (auto i = 0; i < 5; ++i) connection.Execute("SELECT 1");
  connection.Execute("INSERT INTO PublicacionPte VALUES (1,1,1,4,1)");
  EXPECT_EQ(proxy.Bursts() - before, 6U);
}

TEST_F(TcpProxyTest, DelaysEachWay) {
  const TcpProxy proxy(ServerPort(), 20ms);
  Opened<OdbcConnection> connection(Through(proxy), "");
  const auto begin = steady_clock::now();
  for (auto i = 0; i < 5; ++i) connection.Execute("SELECT 1");
  const auto took = steady_clock::now() - begin;
  EXPECT_GE(took, 5 * 40ms);
  EXPECT_LT(took, 5 * 40ms + 2s);
}

TEST_F(TcpProxyTest, CarriesWhatIsLargerThanAnyBuffer) {
  const TcpProxy proxy(ServerPort());
  Opened<OdbcConnection> connection(Through(proxy), "");
  const auto rows = connection.Execute("SELECT repeat('a', 5000000) AS t");
  EXPECT_EQ(rows.Fields(0).Text().size(), 5000000U);
  const std::string text(5000000, 'b');
  EXPECT_EQ(connection.Execute("SELECT length('" + text + "')").Fields(0).Long(), 5000000);
}

TEST_F(TcpProxyTest, ResetEndsWhatThereIsAndLetsNewOnesPass) {
  TcpProxy proxy(ServerPort());
  Opened<OdbcConnection> connection(Through(proxy), "");
  proxy.Fail(TcpProxy::Fault::Reset);
  EXPECT_TRUE(Fails(connection));
  Opened<OdbcConnection> next(Through(proxy), "");
  EXPECT_FALSE(Fails(next));
}

TEST_F(TcpProxyTest, ResetAtTheRequestComesBeforeTheServerAndAtTheAnswerBehindIt) {
  TcpProxy proxy(ServerPort());
  const auto lose = [&](TcpProxy::Moment moment, const std::string& statement) {
    Opened<OdbcConnection> connection(Through(proxy), "");
    proxy.Fail(TcpProxy::Fault::Reset, moment);
    EXPECT_FALSE(proxy.HasFailed());
    EXPECT_THROW(connection.Execute(statement), RuntimeError);
    EXPECT_TRUE(proxy.HasFailed());
  };
  lose(TcpProxy::Moment::NextRequest, "INSERT INTO PublicacionPte VALUES (1,1,1,4,1)");
  lose(TcpProxy::Moment::NextAnswer, "INSERT INTO PublicacionPte VALUES (2,1,1,4,1)");
  const auto rows =
      Opened<OdbcConnection>(Through(proxy), "").Execute("SELECT * FROM PublicacionPte");
  ASSERT_EQ(rows.RecordCount(), 1);
  EXPECT_EQ(rows.Fields(0).Long(), 2);
}

TEST_F(TcpProxyTest, SilenceHoldsBackUntilItEnds) {
  TcpProxy proxy(ServerPort());
  Opened<OdbcConnection> connection(Through(proxy), "");
  proxy.Fail(TcpProxy::Fault::Silence, TcpProxy::Moment::NextAnswer);
  const auto begin = steady_clock::now();
  std::thread end([&] {
    std::this_thread::sleep_for(300ms);
    EXPECT_TRUE(proxy.HasFailed());
    proxy.Resume();
  });
  EXPECT_FALSE(Fails(connection));
  end.join();
  EXPECT_GE(steady_clock::now() - begin, 300ms);
}

}  // namespace
}  // namespace quorvane::test

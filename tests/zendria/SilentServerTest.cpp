// The server goes silent while somebody works at a screen.

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <functional>

#include "apps/zendria/SchoolPlace.h"
#include "tests/servidor/Proxied.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TcpProxy.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using Fault = TcpProxy::Fault;

constexpr auto kLimit = 30000;  // ms
constexpr auto kSoon = 11000;   // sooner than one is given up for whom nobody is in a hurry
constexpr auto kEach = 100;

/// Counts how often a window is painted that has something new to show.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& window) : window_(window) {
    window.installEventFilter(this);
    changing_.callOnTimeout(&window, [&window] { window.update(); });
    changing_.start(kEach);
  }
  ~Paints() override { window_.removeEventFilter(this); }
  Paints(Paints&&) = delete;

  [[nodiscard]] int Count() const noexcept { return count_; }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count_;
    return false;
  }

 private:
  QWidget& window_;
  QTimer changing_;
  int count_ = 0;
};

class SilentServerTest : public HostTest {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "no server";
    school_.Sql("UPDATE Usuario SET Nombre='zendria' WHERE IDUsuario=1");
    proxy_ = std::make_unique<TcpProxy>(ServerPort());
    const auto text = StringThrough(*proxy_, ServerString(school_.Path()));
    ASSERT_TRUE(window_->OpenSchool(zendria::OdbcPlace(QString::fromStdString(text)), 1));
  }

  /// The choice of a course finds the server silent. That is done while it is waited for.
  void LoseAtTheChoice(const std::function<void()>& meanwhile = {}) {
    robot_.On("frmNotaManual1", [this, meanwhile](qt::FormWindow& form) {
      Robot::Pick(form, "cboTipoEnsenanza", "ESO");
      proxy_->Fail(Fault::Silence, TcpProxy::Moment::NextRequest);
      sinceSilence_.start();
      if (meanwhile) QTimer::singleShot(1000, window_.get(), meanwhile);
      Robot::Pick(form, "cboCursos", "2");
      choice_ = sinceSilence_.elapsed();
    });
  }

  std::unique_ptr<TcpProxy> proxy_;
  QElapsedTimer sinceSilence_;
  qint64 choice_ = 0;  ///< what it took
};

TEST_F(SilentServerTest, OnAServerTheErrorComesWhileTheWindowPaintsAndTheScreenOpensAgain) {
  LoseAtTheChoice();
  const Paints paints(*window_);
  const auto before = paints.Count();
  const auto notice = NoticeOf(124);
  EXPECT_LT(sinceSilence_.elapsed(), kLimit);
  EXPECT_GT(paints.Count() - before, sinceSilence_.elapsed() / kEach / 4);
  EXPECT_THAT(notice, StartsWith("Error -2147467259: Se ha perdido la conexión con la base de "
                                 "datos: el servidor no contesta: [08"));

  proxy_->Fail(Fault::Reset);
  robot_.On("frmNotaManual1", {{"cboTipoEnsenanza", "ESO"},
                               {"cboCursos", "2"},
                               {"cboSecciones", "A"},
                               "cmdNotaManual1(1)"});
  Play(124);
  EXPECT_TRUE(window_->close());
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(SilentServerTest, OnAServerTheWindowCanBeClosedMeanwhile) {
  auto left = false;
  window_->Leave = [this, &left] {
    left = true;
    screen_.Leave();
  };
  LoseAtTheChoice([this] { window_->close(); });
  // No message: nobody is there any more to read it.
  Play(124);
  EXPECT_TRUE(left);
  EXPECT_LT(choice_, kSoon);
  EXPECT_LT(sinceSilence_.elapsed(), 2 * kSoon);
  EXPECT_EQ(screen_.LeavingFailures().size(), 1U);
}

TEST_F(SilentServerTest, OnAServerTheScreenCanBeClosedMeanwhile) {
  LoseAtTheChoice([this] { screen_.ActiveWindow()->close(); });
  const auto notice = NoticeOf(124);
  EXPECT_LT(choice_, kSoon);
  EXPECT_THAT(notice, HasSubstr("el servidor no contesta: [08"));
  EXPECT_EQ(screen_.ActiveWindow(), nullptr);
  EXPECT_FALSE(screen_.Leaving());
}

}  // namespace
}  // namespace quorvane::test

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "apps/zendria/ManualPage.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using ManualPageTest = HostTest;
using zendria::FindManual;

TEST_F(ManualPageTest, IsFoundWhereItIsLaidDownAndWhereItIsBuilt) {
  const QDir place(folder_.path());
  ASSERT_TRUE(place.mkpath("bin"));
  const auto programs = place.filePath("bin");
  EXPECT_EQ(FindManual(programs), "");

  ASSERT_TRUE(place.mkpath("docs"));
  const auto built = MakeFile("docs/manual.html", "<p>construido</p>");
  EXPECT_EQ(FindManual(programs), QFileInfo(built).canonicalFilePath());

  ASSERT_TRUE(place.mkpath("share/doc/quorvane/docs"));
  const auto laidDown = MakeFile("share/doc/quorvane/docs/manual.html", "<p>instalado</p>");
  EXPECT_EQ(FindManual(programs), QFileInfo(laidDown).canonicalFilePath());
}

TEST_F(ManualPageTest, IsOpenedFromTheMenu) {
  QUrl opened;
  window_->Browse = [&opened](const QUrl& page) { opened = page; };
  auto* const action = window_->findChild<QAction*>("manual");
  ASSERT_NE(action, nullptr);
  const auto page = FindManual(QCoreApplication::applicationDirPath());
  EXPECT_EQ(action->isEnabled(), !page.isEmpty());
  action->setEnabled(true);
  action->trigger();
  EXPECT_EQ(opened, QUrl::fromLocalFile(page));
}

}  // namespace
}  // namespace quorvane::test

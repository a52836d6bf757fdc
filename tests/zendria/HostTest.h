#pragma once

#include <QString>
#include <QTemporaryDir>
#include <cstdint>
#include <memory>

#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/MainWindow.h"
#include "apps/zendria/Preferences.h"
#include "tests/support/Matchers.h"
#include "tests/support/SmallSchool.h"
#include "tests/zendria/Robot.h"

namespace quorvane::test {

/// The host with its window on the screen and a user at it, and a small school: user 1 "Dirección"
/// of the unrestricted profile, users 2 "Ana Ruiz" and 3 "Luis Gil" of profile 3.
class HostTest : public testing::Test {
 protected:
  HostTest();
  ~HostTest() override;
  HostTest(HostTest&&) = delete;

  [[nodiscard]] QString SchoolFile() const;
  /// A file of that name and content in a folder of the test's own.
  [[nodiscard]] QString MakeFile(const QString& name, const QByteArray& content) const;
  /// Reads the host's next message into `text`, and accepts it.
  void ReadNotice(QString& text);
  /// The next sign-in is that of the user whose name is typed so.
  void SignIn(const QString& typed);
  /// Gives up the host's next dialog of that name.
  void GiveUp(const std::string& dialog);
  /// Opens that screen, on which all happens that was laid out.
  void Play(std::uint8_t node);
  /// The message that opening that screen ends in.
  QString NoticeOf(std::uint8_t node);
  /// Opens a file that can't be opened, and gives the message that says why.
  QString Refusal(const QString& file);
  /// Another window in the place of the one that stands.
  void UseScreens(zendria::ScreenCatalogue screens);
  /// The text of that label on the school's page.
  [[nodiscard]] QString LabelText(const char* name) const;

  QTemporaryDir folder_;
  SmallSchool school_;
  zendria::Preferences preferences_{folder_.filePath("zendria.ini")};
  qt::QtFrontEnd screen_;
  Robot robot_{screen_};
  std::unique_ptr<zendria::MainWindow> window_;
};

}  // namespace quorvane::test

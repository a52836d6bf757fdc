#pragma once

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>
#include <QTest>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/HostComponents.h"
#include "apps/zendria/MainWindow.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/SignInDialog.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"
#include "tests/support/Matchers.h"
#include "tests/support/SmallSchool.h"
#include "tests/zendria/FileBytes.h"
#include "tests/zendria/Robot.h"

namespace quorvane::test {

/// The host with its window on the screen and a user at it, and a small school: user 1 "Dirección"
/// of the unrestricted profile, users 2 "Ana Ruiz" and 3 "Luis Gil" of profile 3.
class HostTest : public testing::Test {
 protected:
  HostTest() {
    school_.Sql(
        "UPDATE Usuario SET Nombre='Dirección', CodPerfil=0 WHERE IDUsuario=1;"
        "UPDATE Usuario SET Nombre='Ana Ruiz', CodPerfil=3 WHERE IDUsuario=2;"
        "UPDATE Usuario SET Nombre='Luis Gil', CodPerfil=3 WHERE IDUsuario=3;"
        "UPDATE Usuario SET Nombre='Sin perfil', CodPerfil=NULL WHERE IDUsuario=4");
    Application::Instance().UseScreen(&screen_);
    zendria::RegisterHostComponents();
    UseScreens(zendria::PendingScreens());
  }
  ~HostTest() override {
    FormInstances::DropAll();
    Application::Instance().Objects().Reset();
    Application::Instance().UseScreen(nullptr);
  }
  HostTest(HostTest&&) = delete;

  [[nodiscard]] QString SchoolFile() const { return QString::fromStdString(school_.Path()); }
  /// A file of that name and content in a folder of the test's own.
  [[nodiscard]] QString MakeFile(const QString& name, const QByteArray& content) const {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return file.fileName();
  }
  /// Reads the host's next message into `text`, and accepts it.
  void ReadNotice(QString& text) {
    robot_.OnDialog("aviso", [&text](QWidget& dialog) {
      auto& box = dynamic_cast<QMessageBox&>(dialog);
      text = box.text() + u'\n' + box.informativeText();
      box.accept();
    });
  }
  /// The next sign-in is that of the user whose name is typed so.
  void SignIn(const QString& typed) {
    robot_.OnDialog("entrada", [typed](QWidget& dialog) {
      auto& field = dynamic_cast<zendria::SignInDialog&>(dialog).List().Field();
      QTest::keyClicks(&field, typed);
      QTest::keyClick(&field, Qt::Key_Return);
    });
  }
  /// Gives up the host's next dialog of that name.
  void GiveUp(const std::string& dialog) {
    robot_.OnDialog(dialog, [](QWidget& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
  }
  /// The next form of that name is closed at once.
  void CloseNext(const std::string& form) {
    robot_.On(form, [](qt::FormWindow& window) { window.close(); });
  }
  /// Opens that screen, on which all happens that was laid out.
  void Play(std::uint8_t node) {
    window_->OpenNode(node);
    EXPECT_TRUE(robot_.Done());
  }
  /// The message that opening that screen ends in.
  QString NoticeOf(std::uint8_t node) {
    QString text;
    ReadNotice(text);
    window_->OpenNode(node);
    return text;
  }
  /// Opens a file that can't be opened, and gives the message that says why.
  QString Refusal(const QString& file) {
    QString text;
    ReadNotice(text);
    EXPECT_FALSE(window_->OpenSchool(file, 1));
    return text;
  }
  /// Another window in the place of the one that stands.
  void UseScreens(zendria::ScreenCatalogue screens) {
    window_ = std::make_unique<zendria::MainWindow>(screen_, preferences_, std::move(screens));
    screen_.HostWindow(window_.get());
    window_->show();
  }
  /// The text of that label on the school's page.
  [[nodiscard]] QString LabelText(const char* name) const {
    const auto* const label = window_->findChild<QLabel*>(name);
    return label == nullptr ? QString("no label ") + name : label->text();
  }

  /// Answers the next question for a printer with a PDF of that path, after what is to be done
  /// then.
  void PrintInto(
      const QString& path, const std::function<void()>& before = [] {}) {
    robot_.OnDialog("imprimir", [path, before](QWidget& shown) {
      shown.findChild<QLineEdit*>("filename")->setText(path);
      before();
      dynamic_cast<QPrintDialog&>(shown).accept();
    });
  }
  /// All that the host has written of itself, which is something.
  [[nodiscard]] QByteArray Kept() const {
    const auto path = folder_.filePath("zendria.ini");
    QSettings(path, QSettings::IniFormat).sync();
    EXPECT_TRUE(QFile::exists(path));
    return FileBytes(path);
  }

  QTemporaryDir folder_;
  SmallSchool school_;
  zendria::Preferences preferences_{folder_.filePath("zendria.ini")};
  qt::QtFrontEnd screen_;
  Robot robot_{screen_};
  std::unique_ptr<zendria::MainWindow> window_;
};

}  // namespace quorvane::test

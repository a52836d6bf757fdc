#pragma once

#include <QAction>
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
#include <string>
#include <type_traits>
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
  /// All that the user was told to do has been done, and no other window has come up.
  void TearDown() override {
    EXPECT_TRUE(robot_.Done());
    EXPECT_THAT(robot_.unexpected, IsEmpty());
  }

  [[nodiscard]] QString SchoolFile() const { return QString::fromStdString(school_.Path()); }
  /// A file of that name and content in a folder of the test's own.
  [[nodiscard]] QString MakeFile(const QString& name, const QByteArray& content) const {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return file.fileName();
  }
  /// Reads the host's next message into `text`, and accepts it.
  void ReadNotice(std::string& text) {
    robot_.OnDialog<QMessageBox>("aviso", [&text](auto& box) {
      text = (box.text() + u'\n' + box.informativeText()).toStdString();
      box.accept();
    });
  }
  /// The next message of that name is answered by the button of that caption; its text goes to
  /// `text`.
  void Answer(const std::string& dialog, const QString& caption, std::string* text = nullptr) {
    robot_.OnDialog<QMessageBox>(dialog, [caption, text](auto& box) {
      if (text != nullptr) *text = (box.text() + u'\n' + box.informativeText()).toStdString();
      Button(box, caption).click();
    });
  }
  /// Chooses that entry of the menu.
  void Trigger(const QString& action) { window_->findChild<QAction*>(action)->trigger(); }
  /// Chooses it, and does that in the dialog of that name.
  template <class Dialog = QWidget>
  void InDialog(const QString& action, const std::string& dialog,
                std::type_identity_t<std::function<void(Dialog&)>> step) {
    robot_.OnDialog<Dialog>(dialog, std::move(step));
    Trigger(action);
    EXPECT_TRUE(robot_.Done()) << dialog;
  }
  /// The next sign-in is that of the user whose name is typed so, or who is marked.
  void SignIn(const QString& typed = {}) {
    robot_.OnDialog<zendria::SignInDialog>("entrada", [typed](auto& dialog) {
      auto& field = dialog.List().Field();
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
  /// The message that this ends in.
  std::string NoticeOf(const std::function<void()>& act) {
    std::string text;
    ReadNotice(text);
    act();
    return text;
  }
  /// The message that opening that screen ends in.
  std::string NoticeOf(std::uint8_t node) {
    return NoticeOf([&] { window_->OpenNode(node); });
  }
  /// Opens a school that can't be opened, and gives the message that says why.
  std::string Refusal(const QString& school, std::int32_t user = 1) {
    return NoticeOf([&] { EXPECT_FALSE(window_->OpenSchool(school, user)); });
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
      const QString& path, const std::function<void(const QPrintDialog&)>& before = [](auto&) {}) {
    robot_.OnDialog<QPrintDialog>("imprimir", [path, before](auto& dialog) {
      dialog.template findChild<QLineEdit*>("filename")->setText(path);
      before(dialog);
      dialog.accept();
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

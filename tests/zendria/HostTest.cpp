#include "tests/zendria/HostTest.h"

#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <utility>

#include "apps/zendria/HostComponents.h"
#include "apps/zendria/SignInDialog.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"

namespace quorvane::test {

HostTest::HostTest() {
  school_.Sql(
      "UPDATE Usuario SET Nombre='Dirección', CodPerfil=0 WHERE IDUsuario=1;"
      "UPDATE Usuario SET Nombre='Ana Ruiz', CodPerfil=3 WHERE IDUsuario=2;"
      "UPDATE Usuario SET Nombre='Luis Gil', CodPerfil=3 WHERE IDUsuario=3;"
      "UPDATE Usuario SET Nombre='Sin perfil', CodPerfil=NULL WHERE IDUsuario=4");
  Application::Instance().UseScreen(&screen_);
  zendria::RegisterHostComponents();
  UseScreens(zendria::PendingScreens());
}

HostTest::~HostTest() {
  FormInstances::DropAll();
  Application::Instance().Objects().Reset();
  Application::Instance().UseScreen(nullptr);
}

QString HostTest::SchoolFile() const { return QString::fromStdString(school_.Path()); }

QString HostTest::MakeFile(const QString& name, const QByteArray& content) const {
  QFile file(folder_.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_EQ(file.write(content), content.size());
  return file.fileName();
}

void HostTest::ReadNotice(QString& text) {
  robot_.OnDialog("aviso", [&text](QWidget& dialog) {
    auto& box = dynamic_cast<QMessageBox&>(dialog);
    text = box.text() + u'\n' + box.informativeText();
    box.accept();
  });
}

void HostTest::SignIn(const QString& typed) {
  robot_.OnDialog("entrada", [typed](QWidget& dialog) {
    auto& field = dynamic_cast<zendria::SignInDialog&>(dialog).List().Field();
    QTest::keyClicks(&field, typed);
    QTest::keyClick(&field, Qt::Key_Return);
  });
}

void HostTest::GiveUp(const std::string& dialog) {
  robot_.OnDialog(dialog, [](QWidget& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
}

void HostTest::Play(std::uint8_t node) {
  window_->OpenNode(node);
  EXPECT_TRUE(robot_.Done());
}

QString HostTest::NoticeOf(std::uint8_t node) {
  QString text;
  ReadNotice(text);
  window_->OpenNode(node);
  return text;
}

QString HostTest::Refusal(const QString& file) {
  QString text;
  ReadNotice(text);
  EXPECT_FALSE(window_->OpenSchool(file, 1));
  return text;
}

void HostTest::UseScreens(zendria::ScreenCatalogue screens) {
  window_ = std::make_unique<zendria::MainWindow>(screen_, preferences_, std::move(screens));
  screen_.HostWindow(window_.get());
  window_->show();
}

QString HostTest::LabelText(const char* name) const {
  const auto* const label = window_->findChild<QLabel*>(name);
  return label == nullptr ? QString("no label ") + name : label->text();
}

}  // namespace quorvane::test

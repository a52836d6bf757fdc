#include "tests/qt/ScreenTest.h"

#include <QMessageBox>

#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"

namespace quorvane::test {

ScreenTest::ScreenTest() {
  Application::Instance().UseScreen(&screen);
  screen.WindowShown = [this](qt::FormWindow& window) {
    if (steps_.empty()) throw std::logic_error("nobody expects " + window.Model().Name());
    const auto step = std::move(steps_.front());
    steps_.pop_front();
    step(window);
  };
  screen.MessageShown = [this](QMessageBox& box) {
    messages.push_back(box.text().toStdString());
    box.accept();
  };
  QObject::connect(&patience_, &QTimer::timeout, [] { qFatal("a window was left open"); });
  Patience(std::chrono::seconds(30));
}

ScreenTest::~ScreenTest() {
  FormInstances::DropAll();
  Application::Instance().UseScreen(nullptr);
}

void ScreenTest::Show(Form& form) {
  form.ShowModal();
  ExpectDone();
}

void ScreenTest::ExpectDone() const {
  EXPECT_TRUE(steps_.empty()) << steps_.size() << " steps were not taken";
  EXPECT_EQ(screen.ActiveWindow(), nullptr);
}

}  // namespace quorvane::test

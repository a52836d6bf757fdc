#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

namespace quorvane::test {
namespace {

struct Ending {
  int status = -1;
  QString out;
  QString err;
};

Ending RunZendria(const QStringList& arguments, bool display = true) {
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const auto* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    environment.remove(variable);
  if (display) environment.insert("QT_QPA_PLATFORM", "offscreen");
  QProcess program;
  program.setProcessEnvironment(environment);
  program.start(ZENDRIA, arguments);
  EXPECT_TRUE(program.waitForFinished());
  return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

TEST(ProgramTest, TellsHowItIsUsedWithoutADisplay) {
  const auto ending = RunZendria({"--help"}, false);
  EXPECT_EQ(ending.status, 0);
  EXPECT_TRUE(ending.out.contains("--usuario N"));
}

TEST(ProgramTest, RefusesBadArguments) {
  const auto ending = RunZendria({"--nada"});
  EXPECT_EQ(ending.status, 2);
  EXPECT_TRUE(ending.err.contains("--nada"));
}

TEST(ProgramTest, TellsThatThereIsNoDisplay) {
  const auto ending = RunZendria({}, false);
  EXPECT_EQ(ending.status, 3);
  EXPECT_TRUE(ending.err.contains("no hay pantalla"));
}

}  // namespace
}  // namespace quorvane::test

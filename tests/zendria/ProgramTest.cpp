#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

namespace quorvane::test {
namespace {

TEST(ProgramTest, TellsHowItIsUsedWhatIsBadAndThatThereIsNoDisplay) {
  struct Run {
    QStringList arguments;
    bool display;
    int status;
    const char* out;
    const char* err;
  };
  for (const auto& run :
       {Run{{"--help"}, false, 0, "--usuario N", ""}, Run{{"--nada"}, true, 2, "", "--nada"},
        Run{{}, false, 3, "", "no hay pantalla"}}) {
    SCOPED_TRACE(run.arguments.join(u' ').toStdString());
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const auto* const variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
      environment.remove(variable);
    if (run.display) environment.insert("QT_QPA_PLATFORM", "offscreen");
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(ZENDRIA, run.arguments);
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), run.status);
    EXPECT_TRUE(program.readAllStandardOutput().contains(run.out));
    EXPECT_TRUE(program.readAllStandardError().contains(run.err));
  }
}

}  // namespace
}  // namespace quorvane::test

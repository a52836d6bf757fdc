#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/StatementWindow.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

constexpr QSize kChosen(758, 640);

class FormSizesTest : public HostTest {
 protected:
  FormSizesTest() {
    school_.Registra(321, 1);
    school_.Evalua(school_.Pendiente(1, 3111, 1), 1);
    school_.Evalua(1, 4);
  }

  /// Enters the grades of 2º ESO A in that evaluation as the tutor, does `act` in the second step
  /// and cancels. Gives the size that the second step came up with.
  QSize Grade(
      const std::string& form, const char* evaluation,
      const std::function<void(qt::FormWindow&)>& act = [](qt::FormWindow&) {}) {
    QSize came;
    robot_.On("frmNotaManual1", {{"cboCursos", "2"},
                                 {"cboSecciones", "A"},
                                 {"cboEvaluaciones", evaluation},
                                 "cmdNotaManual1(0)"});
    robot_.On(form, [&came, &act](qt::FormWindow& window) {
      came = window.size();
      act(window);
      Robot::Click(window, "cmdCancelar");
    });
    robot_.On("frmNotaManual1", {"cmdNotaManual1(1)"});
    Play(124);
    return came;
  }
  static void Enlarge(qt::FormWindow& window) { window.resize(kChosen); }

  /// The statements since the last call, as the trace has them.
  QStringList Statements() {
    auto& window = window_->ShowStatements();
    auto lines = window.Text().split(u'\n');
    for (auto& line : lines) line = line.section("  ", 1);
    QTest::mouseClick(window.findChild<QPushButton*>("vaciar"), Qt::LeftButton);
    return lines;
  }
};

class OpenFormSizesTest : public FormSizesTest {
 protected:
  OpenFormSizesTest() { EXPECT_TRUE(window_->OpenSchool(SchoolFile(), 2)); }
};

TEST_F(OpenFormSizesTest, AFormComesBackWithTheSizeOfItsUser) {
  EXPECT_NE(Grade("frmNotaManual", "1", Enlarge), kChosen);
  EXPECT_EQ(Grade("frmNotaManual", "1"), kChosen);
  EXPECT_NE(Grade("frmNotaManualFinal", "F"), kChosen) << "each form has a size of its own";
  UseScreens(zendria::PendingScreens());
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  EXPECT_EQ(Grade("frmNotaManual", "1"), kChosen) << "in another run too";
}

TEST_F(OpenFormSizesTest, ARememberedSizeChangesNoStatement) {
  for (const auto& [form, evaluation] :
       {std::pair("frmNotaManual", "1"), std::pair("frmNotaManualFinal", "F")}) {
    Statements();
    Grade(form, evaluation);
    const auto plain = Statements();
    Grade(form, evaluation, Enlarge);
    EXPECT_EQ(Statements(), plain) << "resized by the user";
    EXPECT_EQ(Grade(form, evaluation), kChosen);
    EXPECT_EQ(Statements(), plain) << "with the remembered size";
    EXPECT_GT(plain.size(), 30);
  }
}

TEST_F(OpenFormSizesTest, AllSizesAreForgottenOnDemand) {
  const auto first = Grade("frmNotaManual", "1", Enlarge);
  const auto home = window_->size();
  window_->resize(640, 480);
  Trigger("restablecer");
  EXPECT_EQ(window_->size(), home);
  EXPECT_EQ(Grade("frmNotaManual", "1"), first);
}

TEST_F(OpenFormSizesTest, NonsenseInTheSettingsIsNoSize) {
  const auto first = Grade("frmNotaManual", "1");
  const auto screen = window_->screen()->size();
  for (const auto* const value :
       {"hola", "@Size(-5 300)", "@Size(0 0)", "@Size(2147483647 2147483647)", "@ByteArray(\\x1)",
        "@Variant(\\0\\0\\0\\x7f\\xff\\xff)", "@Rect(1 2 3 4)"}) {
    const auto file =
        MakeFile("malo.ini", QStringLiteral("[formularios]\n%1x%2\\frmNotaManual=%3\n")
                                 .arg(screen.width())
                                 .arg(screen.height())
                                 .arg(value)
                                 .toUtf8());
    zendria::Preferences preferences(file);
    EXPECT_FALSE(preferences.FormSize("frmNotaManual", *window_->screen())) << value;
  }
  // The smallest that can be read is set back by the form itself.
  preferences_.KeepFormSize("frmNotaManual", *window_->screen(), {1, 1});
  EXPECT_EQ(Grade("frmNotaManual", "1"), first);
}

TEST_F(FormSizesTest, AFileOfGarbageHoldsNothingAndIsWrittenAnew) {
  QByteArray garbage;
  for (int i = 0; i < 4000; ++i) garbage.append(static_cast<char>((i * 7919 + i / 251) % 256));
  const auto file = MakeFile("basura.ini", garbage);
  {
    zendria::Preferences preferences(file);
    zendria::MainWindow window(screen_, preferences, zendria::PendingScreens());
    window.show();
    EXPECT_TRUE(preferences.RecentSchools().isEmpty());
    EXPECT_FALSE(preferences.Centre(SchoolFile()));
    EXPECT_TRUE(window.OpenSchool(SchoolFile(), 1));
    EXPECT_TRUE(window.close());
  }
  const zendria::Preferences preferences(file);
  EXPECT_EQ(preferences.RecentSchools(), QStringList(SchoolFile()));
}

TEST_F(FormSizesTest, SettingsThatCannotBeWrittenStopNothing) {
  zendria::Preferences preferences(folder_.path());
  zendria::MainWindow window(screen_, preferences, zendria::PendingScreens());
  window.show();
  EXPECT_TRUE(window.OpenSchool(SchoolFile(), 1));
  EXPECT_TRUE(window.close());
}

}  // namespace
}  // namespace quorvane::test

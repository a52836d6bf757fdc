#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include "apps/zendria/Preferences.h"

namespace quorvane::zendria {
namespace {

class PreferencesTest : public testing::Test {
 protected:
  QString Make(const QString& name) {
    QFile file(folder_.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    return file.fileName();
  }
  [[nodiscard]] QString Settings() const { return folder_.filePath("zendria.ini"); }

  QTemporaryDir folder_;
};

TEST_F(PreferencesTest, OtherFilesOfTheUserGoBesideThem) {
  EXPECT_EQ(Preferences(Settings()).DataFolder(), QFileInfo(Settings()).absolutePath());
}

TEST_F(PreferencesTest, AreTheirOwnersAlone) {
  const auto alone = [this] {
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    return QFile::exists(Settings()) && !(QFile::permissions(Settings()) & others);
  };
  Preferences(Settings()).KeepCentre("una", 1);
  EXPECT_TRUE(alone());
  // One that an older version has made for everybody.
  QFile::setPermissions(Settings(), QFile::permissions(Settings()) | QFile::ReadOther);
  Preferences(Settings()).KeepCentre("otra", 2);
  EXPECT_TRUE(alone());
}

TEST_F(PreferencesTest, TheNewestSchoolComesFirstAndOnce) {
  const auto one = Make("una.sqlite");
  const auto other = Make("otra.sqlite");
  Preferences preferences(Settings());
  preferences.AddRecentSchool(one);
  preferences.AddRecentSchool(other);
  preferences.AddRecentSchool(one);
  EXPECT_EQ(preferences.RecentSchools(), QStringList({one, other}));
}

TEST_F(PreferencesTest, SchoolsThatAreGoneAreLeftOut) {
  const auto file = Make("una.sqlite");
  Preferences preferences(Settings());
  preferences.AddRecentSchool(file);
  QFile::remove(file);
  EXPECT_TRUE(preferences.RecentSchools().isEmpty());
}

TEST_F(PreferencesTest, OnlyEightAreKept) {
  Preferences preferences(Settings());
  for (int i = 0; i < 10; ++i) preferences.AddRecentSchool(Make(QString::number(i)));
  EXPECT_EQ(preferences.RecentSchools().size(), 8);
  EXPECT_EQ(preferences.RecentSchools().front(), folder_.filePath("9"));
}

TEST_F(PreferencesTest, WindowSizesOutliveTheRun) {
  {
    Preferences preferences(Settings());
    QWidget window;
    window.resize(433, 311);
    preferences.Remember("principal", window);
  }
  const Preferences preferences(Settings());
  QWidget window;
  EXPECT_TRUE(preferences.Restore("principal", window));
  EXPECT_EQ(window.size(), QSize(433, 311));
  EXPECT_FALSE(preferences.Restore("otra", window));
}

}  // namespace
}  // namespace quorvane::zendria

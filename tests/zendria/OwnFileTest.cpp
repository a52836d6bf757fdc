#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "apps/zendria/OwnFile.h"
#include "tests/device/Device.h"
#include "tests/zendria/FileBytes.h"

namespace quorvane::test {
namespace {

using zendria::WriteOwnFile;

mode_t Mode(const QString& path) {
  struct stat status {};
  return stat(path.toUtf8().constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

QStringList Entries(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                QDir::NoDotAndDotDot);
}

class OwnFileTest : public testing::Test {
 protected:
  QTemporaryDir disk_;
  QString folder_ = disk_.filePath("a/b/notas");
};

TEST_F(OwnFileTest, MakesTheFolderAndTheFileForThisUserAlone) {
  EXPECT_EQ(WriteOwnFile(folder_, "x.txt", "uno"), folder_ + "/x.txt");
  EXPECT_EQ(FileBytes(folder_ + "/x.txt"), "uno");
  EXPECT_EQ(Mode(folder_ + "/x.txt"), 0600U);
  EXPECT_EQ(Mode(folder_), 0700U);
  EXPECT_EQ(Entries(folder_), QStringList("x.txt"));
}

TEST_F(OwnFileTest, TakesNoOthersPlace) {
  EXPECT_EQ(WriteOwnFile(folder_, "x.txt", "uno"), folder_ + "/x.txt");
  EXPECT_EQ(WriteOwnFile(folder_, "x.txt", "dos"), folder_ + "/x-2.txt");
  ASSERT_TRUE(QDir(folder_).mkdir("x-3.txt"));
  ASSERT_TRUE(QFile::link(disk_.filePath("nada"), folder_ + "/x-4.txt"));
  EXPECT_EQ(WriteOwnFile(folder_, "x.txt", "tres"), folder_ + "/x-5.txt");
  EXPECT_EQ(FileBytes(folder_ + "/x.txt"), "uno");
  EXPECT_EQ(FileBytes(folder_ + "/x-2.txt"), "dos");
  EXPECT_FALSE(QFile::exists(disk_.filePath("nada"))) << "a link isn't followed";
}

TEST_F(OwnFileTest, AFolderThatOthersCouldEnterIsClosedToThem) {
  ASSERT_TRUE(QDir().mkpath(folder_));
  ASSERT_EQ(chmod(folder_.toUtf8().constData(), 0777), 0);
  EXPECT_TRUE(WriteOwnFile(folder_, "x.txt", "uno"));
  EXPECT_EQ(Mode(folder_), 0700U);
}

TEST_F(OwnFileTest, AFolderThatIsNotHisOwnIsLeftAlone) {
  ASSERT_TRUE(QDir().mkpath(disk_.filePath("a/b/otra")));
  ASSERT_TRUE(QFile::link(disk_.filePath("a/b/otra"), folder_));
  EXPECT_FALSE(WriteOwnFile(folder_, "x.txt", "uno")) << "somebody else may move the link";
  EXPECT_TRUE(Entries(disk_.filePath("a/b/otra")).isEmpty());
  const auto others = disk_.filePath("a/b/otra");
  if (chown(others.toUtf8().constData(), 65534, 65534) != 0) GTEST_SKIP() << "needs rights";
  EXPECT_FALSE(WriteOwnFile(others, "x.txt", "uno"));
  EXPECT_TRUE(Entries(others).isEmpty());
}

TEST_F(OwnFileTest, WithoutPermissionNothingIsWritten) {
  const TinyDisk disk("64k");
  if (disk.Mounted()) {
    const auto folder = QString::fromStdString(disk.Path()) + "notas";
    ASSERT_TRUE(WriteOwnFile(folder, "x.txt", "uno"));
    disk.ReadOnly(true);
    EXPECT_FALSE(WriteOwnFile(folder, "y.txt", "dos"));
    EXPECT_FALSE(WriteOwnFile(folder + "-2", "y.txt", "dos"));
    EXPECT_EQ(Entries(folder), QStringList("x.txt"));
    return;
  }
  ASSERT_TRUE(QDir().mkpath(disk_.filePath("a")));
  ASSERT_EQ(chmod(disk_.filePath("a").toUtf8().constData(), 0500), 0);
  EXPECT_FALSE(WriteOwnFile(disk_.filePath("a/notas"), "x.txt", "uno"));
}

TEST_F(OwnFileTest, OnAFullDiskNothingIsLeft) {
  const TinyDisk disk("64k");
  if (!disk.Mounted()) GTEST_SKIP() << "needs rights";
  const auto folder = QString::fromStdString(disk.Path()) + "notas";
  ASSERT_TRUE(WriteOwnFile(folder, "x.txt", "uno"));
  disk.FillUp();
  EXPECT_FALSE(WriteOwnFile(folder, "y.txt", QByteArray(10'000, 'x')));
  EXPECT_EQ(Entries(folder), QStringList("x.txt"));
  disk.MakeRoom();
  EXPECT_TRUE(WriteOwnFile(folder, "y.txt", QByteArray(10'000, 'x')));
}

TEST_F(OwnFileTest, WhatAKilledProgramLeftUnfinishedIsSweptWhenItIsOld) {
  ASSERT_TRUE(WriteOwnFile(folder_, "x.txt", "uno"));
  const auto leave = [this](const QString& name, bool old) {
    QFile file(folder_ + '/' + name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const auto before = QDateTime::currentDateTime().addSecs(old ? -3700 : -3500);
    ASSERT_TRUE(file.setFileTime(before, QFileDevice::FileModificationTime));
  };
  leave(".notas-aB3xyz", true);
  leave(".notas-aB3xy2", false);
  leave(".notas-mias-de-ayer", true);
  leave("notas-aB3xyz", true);
  zendria::SweepUnfinishedFiles(folder_);
  EXPECT_EQ(Entries(folder_),
            QStringList({".notas-aB3xy2", ".notas-mias-de-ayer", "notas-aB3xyz", "x.txt"}));
  zendria::SweepUnfinishedFiles(disk_.filePath("no está"));
}

// Half a file is worse than none: it would be taken for the whole.
TEST_F(OwnFileTest, AFileThatFitsInPartIsNotWrittenAtAll) {
  ASSERT_TRUE(WriteOwnFile(folder_, "x.txt", "uno"));
  const LongestFile limit(4096);
  EXPECT_FALSE(WriteOwnFile(folder_, "y.txt", QByteArray(10'000, 'x')));
  EXPECT_EQ(Entries(folder_), QStringList("x.txt"));
}

}  // namespace
}  // namespace quorvane::test

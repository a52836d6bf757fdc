#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/zendria/OwnFile.h"
#include "tests/device/Device.h"
#include "tests/zendria/FileBytes.h"

namespace quorvane::test {
namespace {

using zendria::WriteOwnFile;

/// What `act` says in a process whose file systems know no renaming that takes nobody's place, and
/// refuse it so.
bool WithoutCarefulRenaming(unsigned why, const std::function<bool()>& act) {
  const auto child = fork();
  if (child == 0) {
    auto rules = std::to_array<sock_filter>({
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | why),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    });
    const sock_fprog program{static_cast<unsigned short>(rules.size()), rules.data()};
    const auto set = prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
                     prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
    _exit(set && act() ? 0 : 1);
  }
  int status = 1;
  return waitpid(child, &status, 0) == child && status == 0;
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

TEST_F(OwnFileTest, WhatIsSetAsideTakesNoOthersPlaceWhateverItIsAndTheFileSystemCan) {
  if (!WithoutCarefulRenaming(EINVAL, [] { return true; }))
    GTEST_SKIP() << "Here no process may bind itself";
  const auto put = [this](const QString& name) {
    return WriteOwnFile(folder_, name, name.toUtf8()).has_value();
  };
  const auto aside = [this] { return zendria::SetOwnFileAside(folder_, "x.json", "apartado"); };
  ASSERT_TRUE(put("x.apartado"));
  ASSERT_TRUE(put("x.json"));
  EXPECT_EQ(aside(), folder_ + "/x-2.apartado");
  EXPECT_EQ(FileBytes(folder_ + "/x-2.apartado"), "x.json");
  auto number = 2;
  for (const auto why : {EINVAL, ENOSYS}) {
    for (const auto& make : std::initializer_list<std::function<bool()>>{
             [&] { return put("x.json"); }, [&] { return QDir(folder_).mkpath("x.json/dentro"); },
             [&] { return QFile::link("nada", folder_ + "/x.json"); },
             [&] { return mkfifo((folder_ + "/x.json").toUtf8().constData(), 0600) == 0; }}) {
      ASSERT_TRUE(make());
      struct stat before {};
      ASSERT_EQ(lstat((folder_ + "/x.json").toUtf8().constData(), &before), 0);
      const auto path = folder_ + QStringLiteral("/x-%1.apartado").arg(++number);
      EXPECT_TRUE(
          WithoutCarefulRenaming(static_cast<unsigned>(why), [&] { return aside() == path; }));
      struct stat after {};
      ASSERT_EQ(lstat(path.toUtf8().constData(), &after), 0);
      EXPECT_EQ(after.st_ino, before.st_ino) << "the thing itself";
      EXPECT_FALSE(Entries(folder_).contains("x.json"));
    }
    // Nothing is made where there is nothing to set aside.
    const auto entries = Entries(folder_);
    EXPECT_TRUE(WithoutCarefulRenaming(static_cast<unsigned>(why), [&] { return !aside(); }));
    EXPECT_EQ(Entries(folder_), entries);
    EXPECT_TRUE(WithoutCarefulRenaming(static_cast<unsigned>(why), [&] {
      return WriteOwnFile(folder_, "x.apartado", "otro") ==
             folder_ + QStringLiteral("/x-%1.apartado").arg(number + 1);
    }));
    ++number;
  }
  EXPECT_EQ(FileBytes(folder_ + "/x.apartado"), "x.apartado");
  EXPECT_EQ(FileBytes(folder_ + "/x-2.apartado"), "x.json");
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

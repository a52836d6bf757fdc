#pragma once

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// While it lives no file of this process or of those that it starts gets longer.
class LongestFile {
 public:
  explicit LongestFile(rlim_t bytes) {
    // The signal would kill where a full disk only refuses.
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~LongestFile() { setrlimit(RLIMIT_FSIZE, &before_); }
  LongestFile(LongestFile&&) = delete;

 private:
  rlimit before_{};
};

/// A disk of its own, of that size, that goes with the object. Only an administrator has it.
class TinyDisk {
 public:
  explicit TinyDisk(const std::string& size)
      : mounted_(mount("tmpfs", Path().c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0) {}
  ~TinyDisk() {
    if (mounted_) umount(Path().c_str());
  }
  TinyDisk(TinyDisk&&) = delete;

  [[nodiscard]] bool Mounted() const noexcept { return mounted_; }
  [[nodiscard]] std::string Path() const { return folder_ / ""; }

  /// Takes all the room that is left.
  void FillUp() const {
    std::ofstream filling(Path() + "relleno", std::ios::binary);
    const std::string page(4096, 'x');
    while (filling.write(page.data(), static_cast<std::streamsize>(page.size())).flush()) {
    }
  }
  void MakeRoom() const { std::filesystem::remove(Path() + "relleno"); }
  /// Takes the disk away from its folder, although it is in use.
  void PullOut() {
    umount2(Path().c_str(), MNT_DETACH);
    mounted_ = false;
  }
  void ReadOnly(bool readOnly) const {
    mount(nullptr, Path().c_str(), nullptr, MS_REMOUNT | (readOnly ? MS_RDONLY : 0), nullptr);
  }

 private:
  TempFolder folder_;
  bool mounted_;
};

}  // namespace quorvane::test

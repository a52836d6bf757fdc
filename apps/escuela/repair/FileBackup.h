#pragma once

#include <string>

namespace quorvane {

/// A copy of a school's file beside it, which goes again unless it is kept.
class FileBackup {
 public:
  FileBackup() = default;
  ~FileBackup();
  FileBackup(const FileBackup&) = delete;
  FileBackup& operator=(const FileBackup&) = delete;
  FileBackup(FileBackup&&) = delete;
  FileBackup& operator=(FileBackup&&) = delete;

  /// Copies what the file holds, also of its log beside it, into a new file that is named after it
  /// and the time. Another connection may hold the file for writing meanwhile. Error 0x80004005 in
  /// Spanish when the copy can't be made.
  void Make(const std::string& school);
  /// Its path; empty when none was made.
  [[nodiscard]] const std::string& Path() const noexcept { return path_; }
  void Keep() noexcept { kept_ = true; }

 private:
  std::string path_;
  bool kept_ = false;
};

}  // namespace quorvane

#pragma once

#include <filesystem>
#include <stdlib.h>
#include <string>
#include <system_error>

namespace quorvane::test {

/// A folder of its own for a test's files, that goes with the object.
class TempFolder {
 public:
  /// In the folder for temporary files unless told where.
  explicit TempFolder(const std::filesystem::path& in = {}) {
    auto name =
        ((in.empty() ? std::filesystem::temp_directory_path() : in) / "quorvane-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(TempFolder&&) = delete;

  [[nodiscard]] std::string operator/(const std::string& name) const {
    return (path_ / name).string();
  }
  /// How many files and folders lie in it.
  [[nodiscard]] std::size_t Files() const {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& file : std::filesystem::directory_iterator(path_)) ++count;
    return count;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace quorvane::test

#pragma once

#include <cstddef>
#include <string>

namespace quorvane {

/// The file that a database, or another that is to be whole, is written to before it takes its
/// name, beside where it is going to be. At its end it goes, with what the engine has left beside
/// it. One at a time.
class PartialFile {
 public:
  /// The longest path that the engine takes.
  static constexpr std::size_t kLongestPath = 511;

  /// Makes an empty one, its owner's alone (0600). Error 0x80004005 in Spanish, which names `path`.
  explicit PartialFile(const std::string& path);
  ~PartialFile();
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  PartialFile(PartialFile&&) = delete;
  PartialFile& operator=(PartialFile&&) = delete;

  [[nodiscard]] const std::string& Path() const noexcept { return path_; }

  /// Gives it its name. Error 0x80004005 in Spanish when it can't have it, or somebody has made a
  /// file of that name meanwhile.
  void Publish() const;

  /// Removes the one that there is, without telling who writes it: for the handler of a signal that
  /// is about to end the program.
  static void RemoveAny() noexcept;

 private:
  std::string goal_;
  std::string path_;
};

}  // namespace quorvane

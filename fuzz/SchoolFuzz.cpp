#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/FieldValues.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolFile.h"
#include "fuzz/Fail.h"
#include "platform/RuntimeError.h"
#include "tests/support/AllScreens.h"
#include "tests/support/TempFolder.h"

// The sample school with bytes of its file changed: each four bytes of an input are a place and
// what is written there. Whatever the file has become, its check and all its screens end, by a
// runtime error or none; and where the check finds neither damage nor a value that can't be read,
// nor anything strange hung on a table, no screen fails for one.
namespace {

using namespace quorvane;

constexpr std::size_t kChange = 4;
constexpr unsigned kLongestSeconds = 30;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Schools {
 public:
  Schools() {
    MakeSchoolFile(path_, [](Connection& school) { DemoSchool(school).Build(); });
    // All in one file.
    sqlite::SqliteConnection school(path_, "");
    school.Open();
    school.Execute("PRAGMA journal_mode=DELETE");
    school.Close();
    bytes_ = Content(path_);
  }

  const std::string& Changed(const std::uint8_t* data, std::size_t size) {
    auto bytes = bytes_;
    for (std::size_t at = 0; at + kChange <= size; at += kChange) {
      const auto place = (std::size_t{data[at]} << 16U | std::size_t{data[at + 1]} << 8U |
                          std::size_t{data[at + 2]}) %
                         bytes.size();
      bytes[place] = static_cast<char>(data[at + 3]);
    }
    for (const auto* const ending : {"-journal", "-wal", "-shm"})
      std::filesystem::remove(path_ + ending);
    std::ofstream(path_, std::ios::binary | std::ios::trunc) << bytes;
    return path_;
  }

 private:
  test::TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
  std::string bytes_;
};

/// Whether the check finds nothing that a screen could fail for.
bool Passes(const std::string& path) {
  try {
    sqlite::SqliteConnection school(path, "", sqlite::OpenMode::ReadOnly);
    school.Open();
    const SchoolCheck check(school);
    if (!check.Structure(SchoolCheck::For::Module).empty() || !check.Damage().empty()) return false;
    static_cast<void>(check.Rows());
    return BadValues(school).empty() && check.Strange().empty();
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Schools schools;
  alarm(kLongestSeconds);
  const auto& path = schools.Changed(data, size);
  const auto passes = Passes(path);
  const auto error = test::ScreenError(path);
  if (passes && (error.starts_with("error 6 ") || error.starts_with("error 13 ")))
    fuzz::Fail("passes and fails: " + error);
  alarm(0);
  return 0;
}

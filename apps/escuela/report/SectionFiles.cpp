#include "apps/escuela/report/SectionFiles.h"

#include <filesystem>
#include <set>
#include <system_error>
#include <vector>

#include "apps/escuela/report/NewFile.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

namespace fs = std::filesystem;

/// The files that have been written, which go again, with the folders that were made for them,
/// unless they are kept.
class WrittenFiles {
 public:
  explicit WrittenFiles(const fs::path& folder) {
    std::error_code error;
    for (auto missing = folder; !missing.empty() && !fs::exists(missing, error);
         missing = missing.parent_path())
      made_.push_back(missing);
    fs::create_directories(folder, error);
    if (!error) return;
    Remove();
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se puede escribir en " + folder.string() + ": " + error.message());
  }
  ~WrittenFiles() {
    if (!kept_) Remove();
  }
  WrittenFiles(const WrittenFiles&) = delete;
  WrittenFiles& operator=(const WrittenFiles&) = delete;
  WrittenFiles(WrittenFiles&&) = delete;
  WrittenFiles& operator=(WrittenFiles&&) = delete;

  void Add(const std::string& file) { files_.emplace_back(file); }
  void Keep() noexcept { kept_ = true; }

 private:
  void Remove() const {
    std::error_code ignored;
    for (const auto& file : files_) fs::remove(file, ignored);
    // From the innermost on; one that somebody else has put something in stays.
    for (const auto& folder : made_) fs::remove(folder, ignored);
  }

  std::vector<fs::path> files_;
  std::vector<fs::path> made_;
  bool kept_ = false;
};

SectionRun ForEach(const ReportReader& reader,
                   const std::function<void(std::int32_t id, const std::string& name)>& make,
                   const SectionProgress& progress) {
  const auto sections = reader.Sections();
  SectionRun run{sections.size(), {}};
  std::size_t done = 0;
  for (const auto& [id, name] : sections) {
    try {
      make(id, name);
    } catch (const RuntimeError& failure) {
      if (!reader.Reaches()) throw;
      run.failed.push_back({name, failure.Description()});
    }
    progress(++done, sections.size());
  }
  return run;
}

}  // namespace

SectionRun ReadSections(const ReportReader& reader, std::vector<SectionReport>& reports,
                        const SectionProgress& progress) {
  return ForEach(
      reader, [&](auto id, const auto&) { reports.push_back(reader.Section(id)); }, progress);
}

SectionRun WriteSections(
    const ReportReader& reader, const std::string& folder, const std::string& ending,
    const std::function<void(const std::string& file, const SectionReport& report)>& write,
    const SectionProgress& progress) {
  WrittenFiles files(folder);
  std::set<std::string> names;
  auto run = ForEach(
      reader,
      [&](auto id, const auto& name) {
        auto file = AsFileName(name);
        if (!names.insert(file).second) file += "-" + std::to_string(id);
        file = (fs::path(folder) / (file + ending)).string();
        write(file, reader.Section(id));
        files.Add(file);
      },
      progress);
  files.Keep();
  return run;
}

}  // namespace quorvane

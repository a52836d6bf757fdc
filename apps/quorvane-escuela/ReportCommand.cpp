#include "apps/quorvane-escuela/ReportCommand.h"

#include <filesystem>
#include <iostream>
#include <set>
#include <utility>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Today.h"
#include "apps/escuela/Told.h"
#include "apps/escuela/report/NewFile.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/report/ReportText.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "platform/RuntimeError.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

constexpr auto kPatience = std::chrono::seconds(2);

std::string NameOf(const SchoolAddress& address) {
  if (!address.IsOdbc()) return std::filesystem::path(address.Text()).stem().string();
  const odbc::ConnectionString given(address.Text());
  for (const auto* const keyword : {"Database", "DSN", "Server", "Servername"})
    if (auto name = given.Value(keyword); !name.empty()) return name;
  return "Escuela";
}

/// "03/03/2025" of "2025/03/03".
std::string Printed(const std::string& date) {
  return date.substr(8) + "/" + date.substr(5, 2) + "/" + date.substr(0, 4);
}

bool Ends(const std::string& text, const std::string& ending) { return text.ends_with(ending); }

std::string Text(const SectionReport& report, bool blank, bool csv) {
  if (csv) return blank ? BlankSheetCsv(report) : ReportCsv(report);
  return blank ? BlankSheetHtml(report) : ReportHtml(report);
}

std::string Counted(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " alumno" : " alumnos");
}

/// The files that have been written, which go again with the folders that were made for them unless
/// they are kept.
class WrittenFiles {
 public:
  /// Makes the folder where there is none.
  explicit WrittenFiles(const std::string& folder) : folder_(folder) {
    std::error_code error;
    for (auto missing = std::filesystem::absolute(folder_, error);
         !error && missing.has_relative_path() && !std::filesystem::exists(missing, error);
         missing = missing.parent_path())
      made_.push_back(missing);
    std::filesystem::create_directories(folder_, error);
    if (!error) return;
    RemoveFolders();
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se puede escribir en " + folder + ": " + error.message());
  }
  ~WrittenFiles() {
    if (kept_) return;
    std::error_code ignored;
    for (const auto& file : files_) std::filesystem::remove(file, ignored);
    RemoveFolders();
  }
  WrittenFiles(const WrittenFiles&) = delete;
  WrittenFiles& operator=(const WrittenFiles&) = delete;
  WrittenFiles(WrittenFiles&&) = delete;
  WrittenFiles& operator=(WrittenFiles&&) = delete;

  void Write(const std::string& name, const std::string& content) {
    const auto file = folder_ / name;
    WriteNewFile(file.string(), content, RequireGoing);
    files_.push_back(file);
  }
  [[nodiscard]] std::size_t Count() const noexcept { return files_.size(); }
  void Keep() noexcept { kept_ = true; }

 private:
  void RemoveFolders() const {
    std::error_code ignored;
    for (const auto& folder : made_) std::filesystem::remove(folder, ignored);
  }

  std::filesystem::path folder_;
  std::vector<std::filesystem::path> files_;
  std::vector<std::filesystem::path> made_;  // the innermost first
  bool kept_ = false;
};

int WriteAll(const ReportReader& reader, const ReportOptions& options) {
  const auto sections = reader.Sections();
  WrittenFiles files(options.output);
  const ProgressLine progress("Escribiendo", kPatience);
  std::set<std::string> names;
  std::size_t done = 0;
  for (const auto& [section, name] : sections) {
    auto file = AsFileName(name);
    if (!names.insert(file).second) file += "-" + std::to_string(section);
    file += options.csv ? ".csv" : ".html";
    try {
      files.Write(file, Text(reader.Section(section), options.blank, options.csv));
    } catch (const RuntimeError& failure) {
      std::cerr << "quorvane-escuela: " << VisibleText(name) << ": " << Told(failure.Description())
                << '\n';
    }
    progress.Percent(++done, sections.size());
  }
  files.Keep();
  const auto written = files.Count();
  std::cout << "Escritas " << written << " de " << sections.size() << " secciones en "
            << Told(options.output) << '\n';
  return written == sections.size() ? 0 : 1;
}

}  // namespace

std::string Complaint(const ReportOptions& options) {
  const auto ways =
      (options.section.empty() ? 0 : 1) + (options.subject.empty() ? 0 : 1) + (options.all ? 1 : 0);
  if (ways == 0) return "Falta --seccion, --materia o --todas";
  if (ways > 1) return "--seccion, --materia y --todas no van juntos";
  if (options.student != 0 && options.section.empty()) return "--alumno va con --seccion";
  if (options.output.empty()) return "Falta --salida";
  if (options.all) return {};
  if (options.csv) return "--csv va con --todas";
  if (!Ends(options.output, ".html") && !Ends(options.output, ".csv"))
    return "--salida ha de acabar en .html o en .csv";
  return {};
}

namespace {

int Write(const SchoolAddress& address, const ReportOptions& options) {
  const auto school = address.Open("", SchoolAddress::Access::ReadOnly);
  RequireSchool(*school, "No se puede leer " + address.Shown() + ": ");
  AskBeforeEach(*school, RequireGoing);
  const ReportReader reader(*school, options.name.empty() ? NameOf(address) : options.name,
                            Printed(Today(*school)));
  if (options.all) return WriteAll(reader, options);
  const auto report = options.subject.empty()
                          ? reader.Section(reader.FindSection(options.section), options.student)
                          : reader.Subject(reader.FindSubject(options.subject));
  WriteNewFile(options.output, Text(report, options.blank, Ends(options.output, ".csv")),
               RequireGoing);
  std::cout << "Escrito " << Told(options.output) << ": " << Counted(report.students.size())
            << " de " << VisibleText(report.title) << '\n';
  return 0;
}

}  // namespace

int Report(const SchoolAddress& address, const ReportOptions& options) {
  return UnlessStopped([&] { return Write(address, options); });
}

}  // namespace quorvane

#include "apps/quorvane-escuela/ReportCommand.h"

#include <filesystem>
#include <iostream>
#include <set>
#include <utility>
#include <vector>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/Today.h"
#include "apps/escuela/Told.h"
#include "apps/escuela/report/NewFile.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/report/ReportText.h"
#include "apps/quorvane-escuela/Counted.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "platform/RuntimeError.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

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

std::string DocumentText(const SectionReport& report, bool blank, bool csv) {
  if (csv) return blank ? BlankSheetCsv(report) : ReportCsv(report);
  return blank ? BlankSheetHtml(report) : ReportHtml(report);
}

/// The files that have been written, which go again, with the folders that were made for them,
/// unless they are kept.
class WrittenFiles {
 public:
  explicit WrittenFiles(std::filesystem::path folder) : folder_(std::move(folder)) {
    std::error_code ignored;
    for (auto missing = folder_; !missing.empty() && !std::filesystem::exists(missing, ignored);
         missing = missing.parent_path())
      made_.push_back(missing);
  }
  ~WrittenFiles() {
    if (kept_) return;
    std::error_code ignored;
    for (const auto& file : files_) std::filesystem::remove(file, ignored);
    // From the innermost on; one that somebody else has put something in stays.
    for (const auto& folder : made_) std::filesystem::remove(folder, ignored);
  }
  WrittenFiles(const WrittenFiles&) = delete;
  WrittenFiles& operator=(const WrittenFiles&) = delete;
  WrittenFiles(WrittenFiles&&) = delete;
  WrittenFiles& operator=(WrittenFiles&&) = delete;

  void Write(const std::string& name, const std::string& content) {
    const auto file = folder_ / name;
    WriteNewFile(file.string(), content);
    files_.push_back(file);
  }
  [[nodiscard]] std::size_t Count() const noexcept { return files_.size(); }
  void Keep() noexcept { kept_ = true; }

 private:
  std::filesystem::path folder_;
  std::vector<std::filesystem::path> files_;
  std::vector<std::filesystem::path> made_;
  bool kept_ = false;
};

int WriteAll(const ReportReader& reader, const ReportOptions& options) {
  const auto sections = reader.Sections();
  WrittenFiles files(options.output);
  std::error_code error;
  std::filesystem::create_directories(options.output, error);
  if (error)
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se puede escribir en " + options.output + ": " + error.message());
  const ProgressLine progress("Escribiendo", ProgressLine::kPatience);
  std::set<std::string> names;
  std::size_t done = 0;
  for (const auto& [section, name] : sections) {
    auto file = AsFileName(name);
    if (!names.insert(file).second) file += "-" + std::to_string(section);
    file += options.csv ? ".csv" : ".html";
    try {
      files.Write(file, DocumentText(reader.Section(section), options.blank, options.csv));
    } catch (const RuntimeError& failure) {
      std::cerr << "quorvane-escuela: " << VisibleText(name) << ": " << Told(failure.Description())
                << '\n';
    }
    RequireGoing();
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
  const ReportReader reader(*school, options.name.empty() ? NameOf(address) : options.name,
                            Printed(Today(*school)));
  if (options.all) return WriteAll(reader, options);
  const auto report = options.subject.empty()
                          ? reader.Section(reader.FindSection(options.section), options.student)
                          : reader.Subject(reader.FindSubject(options.subject));
  RequireGoing();
  WriteNewFile(options.output, DocumentText(report, options.blank, Ends(options.output, ".csv")));
  std::cout << "Escrito " << Told(options.output) << ": "
            << Counted(report.students.size(), "alumno", "alumnos") << " de "
            << VisibleText(report.title) << '\n';
  return 0;
}

}  // namespace

int Report(const SchoolAddress& address, const ReportOptions& options) {
  return UnlessStopped([&] { return Write(address, options); });
}

}  // namespace quorvane

#include "apps/quorvane-escuela/ReportCommand.h"

#include <filesystem>
#include <iostream>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/Counted.h"
#include "apps/escuela/PatientWork.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Today.h"
#include "apps/escuela/Told.h"
#include "apps/escuela/report/NewFile.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/report/ReportText.h"
#include "apps/escuela/report/SectionFiles.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
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

bool Ends(const std::string& text, const std::string& ending) { return text.ends_with(ending); }

std::string DocumentText(const SectionReport& report, bool blank, bool csv) {
  if (csv) return blank ? BlankSheetCsv(report) : ReportCsv(report);
  return blank ? BlankSheetHtml(report) : ReportHtml(report);
}

int WriteAll(const ReportReader& reader, const ReportOptions& options) {
  const ProgressLine progress("Escribiendo", ProgressLine::kPatience);
  const auto run = WriteSections(
      reader, options.output, options.csv ? ".csv" : ".html",
      [&](const auto& file, const auto& report) {
        WriteNewFile(file, DocumentText(report, options.blank, options.csv), RequireGoing);
      },
      [&](auto done, auto all) {
        RequireGoing();
        progress.Percent(done, all);
      });
  for (const auto& [name, reason] : run.failed)
    std::cerr << "quorvane-escuela: " << VisibleText(name) << ": " << Told(reason) << '\n';
  std::cout << "Escritas " << run.Made() << " de " << run.sections << " secciones en "
            << Told(options.output) << '\n';
  return run.failed.empty() ? 0 : 1;
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
  ProgressLine reading("Leyendo", ProgressLine::kPatience);
  const auto school = OpenForPiece(address, SchoolAddress::Access::ReadOnly);
  RequireSchool(*school, "No se puede leer " + address.Shown() + ": ");
  AskBeforeEach(*school, [&] {
    RequireGoing();
    // Of all sections it is known how far they are.
    if (!options.all) reading.Working();
  });
  const ReportReader reader(*school, options.name.empty() ? NameOf(address) : options.name,
                            PrintedToday(*school));
  if (options.all) return WriteAll(reader, options);
  const auto report = options.subject.empty()
                          ? reader.Section(reader.FindSection(options.section), options.student)
                          : reader.Subject(reader.FindSubject(options.subject));
  WriteNewFile(options.output, DocumentText(report, options.blank, Ends(options.output, ".csv")),
               RequireGoing);
  reading.End();
  std::cout << "Escrito " << Told(options.output) << ": "
            << Counted(report.students.size(), "alumno", "alumnos") << " de "
            << VisibleText(report.title) << '\n';
  return 0;
}

}  // namespace

int Report(const SchoolAddress& address, const ReportOptions& options) {
  return UnlessStopped([&] {
    auto status = 0;
    TellIfHeldOrLost([&] { status = Write(address, options); });
    return status;
  });
}

}  // namespace quorvane

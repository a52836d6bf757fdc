#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/report/SectionReport.h"

namespace quorvane {

/// A section that couldn't be made, and why in Spanish.
struct FailedSection {
  std::string name;
  std::string reason;
};

/// What became of all sections.
struct SectionRun {
  std::size_t sections = 0;
  std::vector<FailedSection> failed;
  [[nodiscard]] std::size_t Made() const noexcept { return sections - failed.size(); }
};

/// How many sections of how many are done. May throw: then nothing stays of what was made.
using SectionProgress = std::function<void(std::size_t done, std::size_t all)>;

/// Reads every section. One that can't be read is told, and the others come out; of a server that
/// goes away none do, which is an error as of its connection.
SectionRun ReadSections(const ReportReader& reader, std::vector<SectionReport>& reports,
                        const SectionProgress& progress);

/// Puts every section into a new file of its own, `write` being given its whole path and throwing
/// a RuntimeError where that fails. `folder` is made where there is none; error 0x80004005 in
/// Spanish when it can't be. The files bear the names of the sections with `ending` (".html").
SectionRun WriteSections(
    const ReportReader& reader, const std::string& folder, const std::string& ending,
    const std::function<void(const std::string& file, const SectionReport& report)>& write,
    const SectionProgress& progress);

}  // namespace quorvane

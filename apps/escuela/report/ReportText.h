#pragma once

#include <span>
#include <string>

#include "apps/escuela/report/SectionReport.h"

namespace quorvane {

/// A sheet for each student, on a page of its own: his subjects with their teachers, and what he
/// has in each evaluation. One HTML document that a browser and Qt's printing understand, without
/// anything outside it.
std::string ReportHtml(const SectionReport& report);
/// Those of several sections, one after the other.
std::string ReportHtml(std::span<const SectionReport> reports);

/// A sheet to be filled in by hand: students and subjects, by empty columns of grades.
std::string BlankSheetHtml(const SectionReport& report);
/// A sheet for each, on a page of its own.
std::string BlankSheetHtml(std::span<const SectionReport> reports);

/// A line for each student, subject and evaluation, for a spreadsheet.
std::string ReportCsv(const SectionReport& report);

/// The blank sheet for a spreadsheet.
std::string BlankSheetCsv(const SectionReport& report);

}  // namespace quorvane

#include "apps/escuela/report/ReportText.h"

#include <array>
#include <string_view>

#include "apps/escuela/CsvLine.h"

namespace quorvane {
namespace {

constexpr std::array kBlankColumns = {"Nota", "Concepto", "Procedimiento", "Actitud",
                                      "Observación"};

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const auto letter : text) {
    if (letter == '&')
      escaped += "&amp;";
    else if (letter == '<')
      escaped += "&lt;";
    else if (letter == '>')
      escaped += "&gt;";
    else if (letter == '"')
      escaped += "&quot;";
    else
      escaped += letter;
  }
  return escaped;
}

std::string Head(std::span<const SectionReport> reports, std::string_view what) {
  std::string html = "<!DOCTYPE html>\n<html lang=\"es\"><head><meta charset=\"utf-8\">\n<title>";
  if (reports.size() == 1) html.append(Escaped(reports.front().title)).append(": ");
  html.append(what).append("</title>\n<style>\n");
  html +=
      "body { font-family: sans-serif; font-size: 10pt; }\n"
      "h1 { font-size: 14pt; margin-bottom: 2px; }\nh2 { font-size: 12pt; margin-top: 4px; }\n"
      "p { margin: 2px; }\ntable { border-collapse: collapse; }\n"
      "th, td { border: 1px solid #808080; padding: 3px; vertical-align: top; text-align: left; "
      "overflow-wrap: anywhere; }\nth { background-color: #e8e8e8; color: #000000; }\n"
      "tr { page-break-inside: avoid; }\nthead { display: table-header-group; }\n"
      "</style></head>\n<body>\n";
  return html;
}

void AppendHeading(std::string& html, const SectionReport& report, std::string_view what,
                   bool newPage) {
  html += newPage ? "<h1 style=\"page-break-before: always;\">" : "<h1>";
  html.append(Escaped(report.school)).append("</h1>\n<p>").append(what).append(". ");
  html.append(Escaped(report.title)).append(". ").append(Escaped(report.date)).append("</p>\n");
}

void AppendCells(std::string& html, std::string_view tag, const std::vector<std::string>& cells) {
  html += "<tr>";
  for (const auto& cell : cells) {
    html.append("<").append(tag).append(">").append(cell.empty() ? "&nbsp;" : cell);
    html.append("</").append(tag).append(">");
  }
  html += "</tr>\n";
}

constexpr auto kTable = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\" width=\"100%\">\n";

/// All that a subject has in an evaluation: the grade, and the others below it with their names.
std::string GradeCell(const ReportGrade& grade) {
  std::string cell;
  if (!grade.grade.empty()) cell = "<b>" + Escaped(grade.grade) + "</b>";
  const auto add = [&cell](const char* name, const std::string& text) {
    if (text.empty()) return;
    if (!cell.empty()) cell += "<br>";
    cell += name + Escaped(text);
  };
  add("Concepto: ", grade.concepts);
  add("Procedimiento: ", grade.procedure);
  add("Actitud: ", grade.attitude);
  add("Observación: ", grade.observation);
  add("Medidas: ", grade.measure);
  return cell.empty() ? "—" : cell;
}

void AppendStudent(std::string& html, const SectionReport& report, const ReportStudent& student) {
  html.append("<h2>").append(Escaped(student.name)).append("</h2>\n").append(kTable);
  html += "<thead>";
  std::vector<std::string> cells = {"Materia pendiente", "Profesor"};
  for (const auto& evaluation : report.evaluations) cells.push_back(Escaped(evaluation.name));
  AppendCells(html, "th", cells);
  html += "</thead><tbody>\n";
  for (const auto& subject : student.subjects) {
    cells = {Escaped(subject.name), Escaped(subject.teacher)};
    for (const auto& evaluation : report.evaluations) {
      const auto grade = subject.grades.find(evaluation.id);
      cells.push_back(grade == subject.grades.end() ? std::string() : GradeCell(grade->second));
    }
    AppendCells(html, "td", cells);
  }
  // On every sheet: each goes to another family.
  html +=
      "</tbody></table>\n<p>— : sin calificar. En blanco: no se califica en esa evaluación.</p>\n";
}

constexpr std::string_view kReport = "Informe de materias pendientes";
constexpr std::string_view kBlankSheet = "Hoja de notas de materias pendientes";

void AppendReport(std::string& html, const SectionReport& report, bool newPage) {
  for (const auto& student : report.students) {
    AppendHeading(html, report, kReport, newPage);
    AppendStudent(html, report, student);
    newPage = true;
  }
  if (!report.students.empty()) return;
  AppendHeading(html, report, kReport, newPage);
  html += "<p>Ningún alumno tiene materias pendientes.</p>\n";
}

void AppendBlankSheet(std::string& html, const SectionReport& report, bool newPage) {
  AppendHeading(html, report, kBlankSheet, newPage);
  html += "<p>Evaluación: ____________________ Profesor: ______________________________</p>\n";
  html.append(kTable).append("<thead>");
  std::vector<std::string> cells = {"Alumno", "Materia"};
  cells.insert(cells.end(), kBlankColumns.begin(), kBlankColumns.end());
  AppendCells(html, "th", cells);
  html += "</thead><tbody>\n";
  for (const auto& student : report.students)
    for (const auto& subject : student.subjects) {
      cells = {Escaped(student.name), Escaped(subject.name)};
      cells.resize(cells.size() + kBlankColumns.size());
      AppendCells(html, "td", cells);
    }
  html += "</tbody></table>\n";
}

template <class Append>
std::string Document(std::span<const SectionReport> reports, std::string_view what,
                     const Append& append) {
  auto html = Head(reports, what);
  for (auto report = reports.begin(); report != reports.end(); ++report)
    append(html, *report, report != reports.begin());
  return html + "</body></html>\n";
}

}  // namespace

std::string ReportHtml(std::span<const SectionReport> reports) {
  return Document(reports, kReport, AppendReport);
}

std::string ReportHtml(const SectionReport& report) { return ReportHtml(std::span(&report, 1)); }

std::string BlankSheetHtml(std::span<const SectionReport> reports) {
  return Document(reports, kBlankSheet, AppendBlankSheet);
}

std::string BlankSheetHtml(const SectionReport& report) {
  return BlankSheetHtml(std::span(&report, 1));
}

std::string ReportCsv(const SectionReport& report) {
  auto csv = std::string(kByteOrderMark) +
             CsvLine({"alumno", "nombre", "grupo", "materia", "profesor", "evaluación", "nota",
                      "concepto", "procedimiento", "actitud", "observación", "medidas"});
  for (const auto& student : report.students)
    for (const auto& subject : student.subjects) {
      const std::vector<std::string> who = {std::to_string(student.id), student.name, report.title,
                                            subject.name, subject.teacher};
      auto any = false;
      for (const auto& evaluation : report.evaluations) {
        const auto found = subject.grades.find(evaluation.id);
        if (found == subject.grades.end()) continue;
        any = true;
        const auto& grade = found->second;
        auto line = who;
        for (const auto& cell : {evaluation.name, grade.grade, grade.concepts, grade.procedure,
                                 grade.attitude, grade.observation, grade.measure})
          line.push_back(cell);
        csv += CsvLine(line);
      }
      if (any) continue;
      // A subject that is in no evaluation is pending all the same.
      auto line = who;
      line.resize(line.size() + 7);
      csv += CsvLine(line);
    }
  return csv;
}

std::string BlankSheetCsv(const SectionReport& report) {
  std::vector<std::string> heading = {"Alumno", "Materia"};
  heading.insert(heading.end(), kBlankColumns.begin(), kBlankColumns.end());
  auto csv = std::string(kByteOrderMark) + CsvLine(heading);
  for (const auto& student : report.students)
    for (const auto& subject : student.subjects) {
      std::vector<std::string> line = {student.name, subject.name};
      line.resize(heading.size());
      csv += CsvLine(line);
    }
  return csv;
}

}  // namespace quorvane

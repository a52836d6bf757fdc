#include "apps/quorvane-escuela/HistoryCommand.h"

#include <chrono>
#include <iostream>
#include <regex>

#include "adapters/guion/player/JsonText.h"
#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/CsvLine.h"
#include "apps/escuela/PatientWork.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

using guion::JsonText;

/// A date as yyyy-mm-dd; false when it is none.
bool TakeDate(std::string& date) {
  static const std::regex spanish("([0-3][0-9])/([01][0-9])/([0-9]{4})");
  static const std::regex iso("([0-9]{4})-([01][0-9])-([0-3][0-9])");
  if (date.empty()) return true;
  if (std::smatch parts; std::regex_match(date, parts, spanish))
    date = parts[3].str() + "-" + parts[2].str() + "-" + parts[1].str();
  std::smatch parts;
  if (!std::regex_match(date, parts, iso)) return false;
  const auto number = [&parts](std::size_t at) {
    return static_cast<unsigned>(std::stoul(parts[at].str()));
  };
  return std::chrono::year_month_day(std::chrono::year(static_cast<int>(number(1))),
                                     std::chrono::month(number(2)), std::chrono::day(number(3)))
      .ok();
}

std::string Text(const GradeChange& change) {
  auto text = change.moment + " UTC  " + change.student + ", " + change.subject + ", " +
              change.evaluation + ", " + change.column;
  if (!change.before.empty() || !change.after.empty())
    text += ": " + (change.before.empty() ? "—" : change.before) + " → " +
            (change.after.empty() ? "—" : change.after);
  return text + (change.user.empty() ? "" : "  " + change.user);
}

void PrintCsv(const std::vector<GradeChange>& changes) {
  std::cout << CsvLine(
      {"momento UTC", "alumno", "materia", "evaluación", "columna", "antes", "después", "usuario"});
  for (const auto& change : changes)
    std::cout << CsvLine({change.moment, change.student, change.subject, change.evaluation,
                          change.column, change.before, change.after, change.user});
}

void PrintJson(const std::vector<GradeChange>& changes) {
  std::cout << '[';
  const auto* before = "\n";
  for (const auto& change : changes) {
    std::cout << before << "{\"momento\":" << JsonText(change.moment)
              << ",\"alumno\":" << JsonText(change.student)
              << ",\"materia\":" << JsonText(change.subject)
              << ",\"evaluacion\":" << JsonText(change.evaluation)
              << ",\"columna\":" << JsonText(change.column)
              << ",\"antes\":" << JsonText(change.before)
              << ",\"despues\":" << JsonText(change.after)
              << ",\"usuario\":" << JsonText(change.user) << '}';
    before = ",\n";
  }
  std::cout << "\n]\n";
}

void Show(const GradeHistory& history, const HistoryOptions& options, ProgressLine& progress) {
  const auto changes = history.Read(options.filter);
  progress.End();
  if (options.csv) return PrintCsv(changes);
  if (options.json) return PrintJson(changes);
  for (const auto& change : changes) std::cout << VisibleText(Text(change)) << '\n';
  if (!changes.empty()) return;
  std::cout << (history.Kept() ? "No hay ningún cambio\n"
                               : "El historial no se ha activado nunca: «quorvane-escuela "
                                 "historial … activar»\n");
}

/// An option that the order would pass over; empty when there is none.
std::string Superfluous(const HistoryOptions& options) {
  const auto& filter = options.filter;
  if (options.order != "purgar" && !options.before.empty()) return "--antes";
  if (options.order == "ver") return {};
  if (filter.student != 0) return "--alumno";
  if (filter.subject != 0) return "--materia";
  if (filter.evaluation != 0) return "--evaluacion";
  if (filter.user != 0) return "--usuario";
  if (!filter.from.empty()) return "--desde";
  if (!filter.to.empty()) return "--hasta";
  if (options.csv) return "--csv";
  return options.json ? "--json" : "";
}

void Do(const SchoolAddress& address, const HistoryOptions& options) {
  ProgressLine progress("Trabajando", ProgressLine::kPatience);
  const auto school =
      OpenForPiece(address, options.order == "ver" ? SchoolAddress::Access::ReadOnly
                                                   : SchoolAddress::Access::ReadWrite);
  RequireSchool(*school, "No se puede usar " + address.Shown() + ": ");
  AskBeforeEach(*school, [&] {
    if (options.order != "ver") RequireGoing();
    progress.Working();
  });
  GradeHistory history(*school);
  if (options.order == "ver") {
    Show(history, options, progress);
  } else if (options.order == "activar") {
    const auto active = history.Active();
    history.Activate();
    progress.End();
    std::cout << (active ? "El historial ya estaba activado\n" : "Historial activado\n");
  } else if (options.order == "desactivar") {
    history.Deactivate();
    progress.End();
    std::cout << "Historial desactivado. Lo guardado se puede seguir viendo\n";
  } else {
    const auto count = history.Purge(options.before);
    progress.End();
    std::cout << "Borrados " << count << " cambios anteriores a " << options.before << '\n';
  }
}

}  // namespace

std::string Complaint(HistoryOptions& options) {
  const auto& order = options.order;
  if (order.empty()) return "Falta activar, desactivar, ver o purgar";
  if (order != "activar" && order != "desactivar" && order != "ver" && order != "purgar")
    return odbc::ConnectionString::Looks(order) ? SchoolAddress::kMisplaced
                                                : "No se conoce «historial " + order + "»";
  if (const auto option = Superfluous(options); !option.empty())
    return "«" + order + "» no admite " + option;
  if (order == "purgar" && options.before.empty()) return "Falta --antes";
  for (auto* const date : {&options.before, &options.filter.from, &options.filter.to})
    if (!TakeDate(*date)) return "«" + *date + "» no es una fecha como 2025-03-03 o 03/03/2025";
  return {};
}

int History(const SchoolAddress& address, const HistoryOptions& options) {
  const auto work = [&] {
    TellIfHeldOrLost([&] { Do(address, options); });
    return 0;
  };
  // What only looks at it may end where it stands.
  return options.order == "ver" ? work() : UnlessStopped(work);
}

}  // namespace quorvane

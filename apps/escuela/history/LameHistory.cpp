#include "apps/escuela/history/LameHistory.h"

#include <algorithm>

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/history/HistoryTable.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {

LameHistory::LameHistory(Connection& school) : school_(school), engine_(EngineReached(school)) {}

std::vector<std::string> LameHistory::Triggers() const {
  std::vector<std::string> names;
  for (auto rows = school_.Execute(HistoryTriggersQuery(engine_)); !rows.Eof(); rows.MoveNext())
    names.push_back(AsciiLower(rows.Fields(0).Text()));
  if (!names.empty() && !school_.Execute(HistoryTableQuery(engine_)).Eof() &&
      MissingHistoryColumns(school_, engine_).empty())
    names.clear();
  return names;
}

std::vector<std::string> LameHistory::Findings() const {
  if (Triggers().empty()) return {};
  if (const auto missing = MissingHistoryColumns(school_, engine_); !missing.empty())
    return {"El historial de notas está activado y a su tabla HistorialNotas le falta la columna " +
            missing.front() + ": en un fichero no se puede guardar ninguna nota"};
  return {
      "El historial de notas está activado y le falta su tabla HistorialNotas: en un fichero no se "
      "puede guardar ninguna nota"};
}

void LameHistory::Remove(RepairJournal& journal) const {
  const auto names = Triggers();
  if (names.empty()) return;
  auto making = GradeHistory(school_).TriggersSql();
  for (const auto& statement : NoHistoryTriggersSql(engine_)) school_.Execute(statement);
  // What is told last is undone first.
  std::reverse(making.begin(), making.end());
  for (const auto& statement : making)
    if (const auto text = AsciiLower(statement);
        std::any_of(names.begin(), names.end(), [&text](const std::string& name) {
          return text.find(name) != std::string::npos;
        }))
      journal.Changed(statement,
                      "disparador de un historial sin su tabla o sin una columna de ella");
}

}  // namespace quorvane

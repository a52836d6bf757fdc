#include "apps/escuela/history/HistoryTable.h"

#include <algorithm>
#include <string_view>

#include "apps/escuela/JoinedText.h"
#include "apps/escuela/Refusal.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

constexpr std::string_view kHistoryKey = "IDHistorial";
constexpr std::string_view kHistoryColumns[] = {
    kHistoryKey, "Momento",   "Columna",          "Antes",     "Despues", "CodAlumnoPte_MatDet",
    "CodAlumno", "CodMatDet", "CodNumEvaluacion", "CodUsuario"};

std::string HistoryColumnsQuery(Engine engine) {
  if (engine == Engine::PostgreSql)
    return "SELECT attname FROM pg_attribute INNER JOIN pg_class ON pg_class.oid=attrelid WHERE "
           "relname='historialnotas' AND pg_table_is_visible(pg_class.oid) AND attnum>0 AND NOT "
           "attisdropped";
  if (engine == Engine::SqlServer)
    return "SELECT name FROM sys.columns WHERE object_id=OBJECT_ID('HistorialNotas')";
  return "SELECT name FROM pragma_table_info('HistorialNotas')";
}

bool IsHistoryText(std::string_view column) { return column == "Momento" || column == "Columna"; }

}  // namespace

std::vector<std::string> MissingHistoryColumns(Connection& school, Engine engine) {
  std::vector<std::string> missing;
  std::vector<std::string> there;
  for (auto rows = school.Execute(HistoryColumnsQuery(engine)); !rows.Eof(); rows.MoveNext())
    there.push_back(rows.Fields(0).Text());
  if (there.empty()) return missing;
  for (const auto column : kHistoryColumns)
    if (std::none_of(there.begin(), there.end(),
                     [column](const auto& name) { return EqualNoCase(name, column); }))
      missing.emplace_back(column);
  return missing;
}

std::vector<std::string> AddHistoryColumnsSql(const std::vector<std::string>& missing,
                                              Engine engine, const std::string& schema) {
  std::vector<std::string> statements;
  for (const auto& column : missing) {
    if (column == kHistoryKey)
      Refuse(
          "La tabla HistorialNotas no es la del historial: le falta su clave IDHistorial. Quite "
          "esa tabla de la base de datos, y repita «activar»");
    const auto* const text = engine == Engine::Sqlite ? "TEXT" : "varchar(32)";
    const auto* const number = engine == Engine::Sqlite ? "INTEGER" : "int";
    statements.push_back(Joined({"ALTER TABLE ", schema, schema.empty() ? "" : ".", kHistoryTable,
                                 " ADD ", column, " ", IsHistoryText(column) ? text : number}));
  }
  return statements;
}

}  // namespace quorvane

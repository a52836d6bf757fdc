#include "apps/escuela/SchoolCheck.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "apps/escuela/Counted.h"
#include "apps/escuela/FieldValues.h"
#include "apps/escuela/JoinedText.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/SchoolRules.h"
#include "apps/escuela/StrangeObjects.h"
#include "apps/escuela/TableKinds.h"
#include "apps/escuela/TableNames.h"
#include "apps/escuela/history/LameHistory.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

constexpr auto kNowhere = static_cast<std::size_t>(-1);

std::size_t PlaceOf(const FieldNames& names, const std::string& name) {
  const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& candidate) {
    return EqualNoCase(candidate, name);
  });
  return found == names.end() ? kNowhere : static_cast<std::size_t>(found - names.begin());
}

void CheckColumns(const SchemaTable& table, const FieldNames& names, SchoolCheck::For whom,
                  std::vector<std::string>& findings) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const auto& column = table.columns[i];
    if (column.mark == SchemaMark::FreeName) continue;
    if (column.mark == SchemaMark::Host && whom == SchoolCheck::For::Module) continue;
    const auto place = PlaceOf(names, column.name);
    if (place == kNowhere) {
      findings.push_back(Joined({"Falta la columna ", column.name, " en la tabla ", table.name}));
    } else if (table.byPosition && column.mark != SchemaMark::FreePlace && place != i) {
      findings.push_back(
          Joined({"La columna ", column.name, " de la tabla ", table.name, " está en el lugar ",
                  std::to_string(place + 1), " y debe estar en el ", std::to_string(i + 1)}));
    }
  }
  if (table.byPosition && names.size() != table.columns.size())
    findings.push_back(Joined({"La tabla ", table.name, " tiene ", std::to_string(names.size()),
                               " columnas y debe tener ", std::to_string(table.columns.size())}));
}

using Lines = std::vector<std::string>;

/// There a name without quotes is one of small letters, and the module's bear none.
std::string Misspelt(const std::string& what, const std::string& name) {
  return Joined({what, " «", name, "» se hizo con su nombre entre comillas, y en PostgreSQL ha de ",
                 "llamarse ", AsciiLower(name)});
}

void CheckLetters(const SchemaTable& table, const FieldNames& names, Lines& findings) {
  for (const auto& column : table.columns)
    for (const auto& name : names)
      if (EqualNoCase(name, column.name) && name != AsciiLower(name))
        findings.push_back(Misspelt("En la tabla " + table.name + " la columna", name));
}

Lines MisspeltFindings(const Lines& tables) {
  Lines findings;
  for (const auto& name : tables) findings.push_back(Misspelt("La tabla", name));
  return findings;
}

}  // namespace

std::vector<std::string> SchoolCheck::Structure(For whom) const {
  auto findings = ViewsAmongTables(connection_);
  // Not even its columns are asked for.
  if (!findings.empty()) return findings;
  findings = GeneratedColumns(connection_);
  auto anyTable = false;
  for (const auto& table : SchoolTables()) {
    if (const auto names = ColumnsOf(connection_, table.name)) {
      anyTable = true;
      if (EngineReached(connection_) == sqltext::Engine::PostgreSql)
        CheckLetters(table, *names, findings);
      CheckColumns(table, *names, whom, findings);
    } else {
      findings.push_back("Falta la tabla " + table.name);
    }
  }
  if (const auto misspelt = findings.empty() ? Lines() : MisspeltTables(connection_);
      !misspelt.empty())
    return MisspeltFindings(misspelt);
  if (!anyTable) return {"La base de datos no es una escuela: no tiene ninguna de sus tablas"};
  return findings;
}

std::vector<std::string> SchoolCheck::Damage() const {
  constexpr auto kWhole = "ok";
  std::vector<std::string> findings;
  if (EngineReached(connection_) != sqltext::Engine::Sqlite) return findings;
  for (auto rows = connection_.Execute("PRAGMA quick_check(20)"); !rows.Eof(); rows.MoveNext())
    if (const auto text = rows.Fields(0).Text(); text != kWhole)
      findings.push_back("El fichero está dañado: " + text);
  return findings;
}

std::int32_t SchoolCheck::Count(const std::string& select) const {
  return connection_.Execute(select).Fields(0).Long();
}

void SchoolCheck::FindOrphans(std::vector<std::string>& findings) const {
  for (const auto& reference : kReferences) {
    const auto count = Count(
        Joined({"SELECT COUNT(*) FROM ", reference.table, " WHERE ", OrphanCondition(reference)}));
    if (count > 0)
      findings.push_back(Joined({"Huérfanas en ", reference.table, ": ",
                                 CountedRows(static_cast<std::size_t>(count)), " cuyo ",
                                 reference.column, " no está en ", reference.target}));
  }
}

void SchoolCheck::FindDoubles(std::vector<std::string>& findings) const {
  const auto find = [&](std::string_view table, std::string_view columns) {
    const auto count = Count(Joined({"SELECT COUNT(*) FROM (SELECT COUNT(*) AS Veces FROM ", table,
                                     " GROUP BY ", columns, " HAVING COUNT(*)>1) Dobles"}));
    if (count > 0)
      findings.push_back(
          Joined({"Dobles en ", table, ": ", std::to_string(count),
                  count == 1 ? " valor repetido" : " valores repetidos", " de ", columns}));
  };
  for (const auto& unique : kUniques) find(unique.table, unique.columns);
  // A school from elsewhere may lack the primary keys.
  for (const auto& table : SchoolTables())
    for (const auto& column : table.columns)
      if (column.kind == SchemaKind::Key) find(table.name, column.name);
}

std::vector<std::string> SchoolCheck::Rows() const {
  auto findings = LameHistory(connection_).Findings();
  for (const auto& finding : BadValues(connection_)) findings.push_back(finding);
  FindOrphans(findings);
  const auto misplaced = [&](std::string_view table, std::string_view wrong,
                             std::string_view kind) {
    const auto count = Count(
        Joined({"SELECT COUNT(*) FROM ", table,
                " WHERE CodNumEvaluacion IN (SELECT IDNumEvaluacion FROM NumEvaluacion WHERE ",
                wrong, ")"}));
    if (count > 0)
      findings.push_back(
          Joined({"Fuera de lugar en ", table, ": ", CountedRows(static_cast<std::size_t>(count)),
                  " de una evaluación ", kind}));
  };
  misplaced("EvaluacionPte", "Final<>0", "final");
  misplaced("EvaluacionActaPte", "Final=0", "ordinaria");
  FindDoubles(findings);
  return findings;
}

std::vector<std::string> SchoolCheck::Strange() const { return StrangeObjects(connection_); }

void RequireSchool(Connection& school, const std::string& before) {
  const auto findings = SchoolCheck(school).Structure(SchoolCheck::For::Module);
  if (!findings.empty())
    throw RuntimeError(ErrorNumber::StatementFailed, before + findings.front());
}

}  // namespace quorvane

#include "apps/escuela/TableObjects.h"

#include <optional>
#include <utility>

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/TableClauses.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

/// In a file. Each query gives tables, their objects' names, and the details of those a row each.
std::string FileQuery(TableObjectKind kind) {
  switch (kind) {
    case TableObjectKind::View:
      return "SELECT name FROM pragma_table_list WHERE schema='main' AND type<>'table'";
    case TableObjectKind::GeneratedColumn:
      return "SELECT t.name, c.name FROM pragma_table_list t INNER JOIN pragma_table_xinfo(t.name) "
             "c WHERE t.schema='main' AND t.type='table' AND c.hidden IN (2,3)";
    case TableObjectKind::Trigger:
      return "SELECT tbl_name, name, sql FROM sqlite_master WHERE type='trigger' ORDER BY 1, 2";
    case TableObjectKind::Index:
      // A key that is the row's own number has no index. What sorts by an order that the engine
      // doesn't know can't be written.
      return "SELECT t.name, i.name, CASE WHEN i.partial=0 AND c.coll IN "
             "('BINARY','NOCASE','RTRIM') THEN c.name END FROM pragma_table_list t INNER JOIN "
             "pragma_index_list(t.name) i INNER JOIN pragma_index_xinfo(i.name) c WHERE "
             "t.schema='main' AND t.type='table' AND i.origin<>'pk' AND c.key=1 AND (i.[unique]=1 "
             "OR i.partial=1 OR c.name IS NULL OR c.coll NOT IN ('BINARY','NOCASE','RTRIM')) UNION "
             "ALL SELECT t.name, 'PRIMARY KEY', c.name FROM pragma_table_list t INNER JOIN "
             "pragma_table_xinfo(t.name) c WHERE t.schema='main' AND t.type='table' AND c.pk>0 "
             "ORDER BY 1, 2";
    case TableObjectKind::Condition:
      return "SELECT name, sql FROM sqlite_master WHERE type='table' ORDER BY 1";
    case TableObjectKind::NotNull:
      return "SELECT t.name, 'NOT NULL', c.name FROM pragma_table_list t INNER JOIN "
             "pragma_table_xinfo(t.name) c WHERE t.schema='main' AND t.type='table' AND "
             "c.[notnull]=1 ORDER BY 1";
    case TableObjectKind::Reference:
      return "SELECT t.name, t.name||'.'||f.[from] FROM pragma_table_list t INNER JOIN "
             "pragma_foreign_key_list(t.name) f WHERE t.schema='main' UNION SELECT f.[table], "
             "t.name||'.'||f.[from] FROM pragma_table_list t INNER JOIN "
             "pragma_foreign_key_list(t.name) f WHERE t.schema='main' ORDER BY 1, 2";
    case TableObjectKind::RewritingRule:
    case TableObjectKind::RowPolicy:
      break;
  }
  return {};
}

/// On PostgreSQL.
std::string ServerQuery(TableObjectKind kind) {
  switch (kind) {
    case TableObjectKind::View:
      return "SELECT CAST(relname AS text) FROM pg_class WHERE relkind IN ('v','m','f') AND "
             "pg_table_is_visible(oid)";
    case TableObjectKind::GeneratedColumn:
      return "SELECT CAST(relname AS text), CAST(attname AS text) FROM pg_attribute INNER JOIN "
             "pg_class ON pg_class.oid=attrelid WHERE (attgenerated<>'' OR attidentity='a') AND NOT "
             "attisdropped AND pg_table_is_visible(attrelid)";
    case TableObjectKind::Trigger:
      return "SELECT CAST(relname AS text), CAST(tgname AS text) FROM pg_trigger INNER JOIN "
             "pg_class ON pg_class.oid=tgrelid WHERE NOT tgisinternal AND "
             "pg_table_is_visible(pg_class.oid) ORDER BY 1, 2";
    case TableObjectKind::Index:
      // What an index only carries along it doesn't hold.
      return "SELECT CAST(t.relname AS text), CAST(i.relname AS text), CASE WHEN x.indpred IS NULL "
             "AND NOT x.indisexclusion THEN CAST(a.attname AS text) END FROM pg_index x INNER JOIN "
             "pg_class i ON i.oid=x.indexrelid INNER JOIN pg_class t ON t.oid=x.indrelid CROSS "
             "JOIN LATERAL unnest(x.indkey) WITH ORDINALITY AS k(number, place) LEFT JOIN "
             "pg_attribute a ON a.attrelid=t.oid AND a.attnum=k.number WHERE "
             "k.place<=x.indnkeyatts AND (x.indisunique OR x.indisexclusion OR x.indexprs IS NOT "
             "NULL OR x.indpred IS NOT NULL) AND pg_table_is_visible(t.oid) ORDER BY 1, 2";
    case TableObjectKind::Condition:
      // A type of the school's own may bear some, too.
      return "SELECT CAST(relname AS text), CAST(conname AS text) FROM pg_constraint INNER JOIN "
             "pg_class ON pg_class.oid=conrelid WHERE contype='c' AND "
             "pg_table_is_visible(pg_class.oid) UNION SELECT CAST(relname AS text), CAST(typname "
             "AS text) FROM pg_attribute INNER JOIN pg_class ON pg_class.oid=attrelid INNER JOIN "
             "pg_type ON pg_type.oid=atttypid WHERE typtype='d' AND attnum>0 AND NOT attisdropped "
             "AND pg_table_is_visible(pg_class.oid) ORDER BY 1, 2";
    case TableObjectKind::NotNull:
      return "SELECT CAST(relname AS text), 'NOT NULL', CAST(attname AS text) FROM pg_attribute "
             "INNER JOIN pg_class ON pg_class.oid=attrelid WHERE attnotnull AND attnum>0 AND NOT "
             "attisdropped AND relkind IN ('r','p') AND pg_table_is_visible(pg_class.oid) ORDER BY "
             "1, attnum";
    case TableObjectKind::Reference:
      return "SELECT CAST(relname AS text), CAST(conname AS text) FROM pg_constraint INNER JOIN "
             "pg_class ON pg_class.oid IN (conrelid,confrelid) WHERE contype='f' AND "
             "pg_table_is_visible(pg_class.oid) ORDER BY 1, 2";
    case TableObjectKind::RewritingRule:
      return "SELECT CAST(relname AS text), CAST(rulename AS text) FROM pg_rewrite INNER JOIN "
             "pg_class ON pg_class.oid=ev_class WHERE relkind IN ('r','p') AND "
             "pg_table_is_visible(pg_class.oid) ORDER BY 1, 2";
    case TableObjectKind::RowPolicy:
      // Without any policy nobody sees a row.
      return "SELECT CAST(relname AS text), COALESCE(CAST(polname AS text),'ROW LEVEL SECURITY') "
             "FROM pg_class LEFT JOIN pg_policy ON polrelid=pg_class.oid WHERE relrowsecurity AND "
             "pg_table_is_visible(pg_class.oid) ORDER BY 1, 2";
  }
  return {};
}

std::string QueryFor(Engine engine, TableObjectKind kind) {
  if (engine == Engine::PostgreSql) return ServerQuery(kind);
  if (engine != Engine::SqlServer) return FileQuery(kind);
  return kind != TableObjectKind::View
             ? std::string()
             : "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE='VIEW' AND "
               "TABLE_SCHEMA IN (SCHEMA_NAME(),'dbo') ORDER BY TABLE_NAME";
}

/// An object without a name on a table that a school must have, or on one of the host's own, which
/// it may have.
std::optional<TableObject> ObjectOn(const std::string& name) {
  TableObject object;
  object.written = true;
  if (const auto* const table = FindSchoolTable(name)) {
    object.table = table->name;
    object.written = table->byPosition;
    for (const auto& column : table->columns)
      if (column.kind == SchemaKind::Key) object.key = column.name;
    return object;
  }
  for (const auto& [own, key] : {std::pair(std::string(kHistoryTable), "IDHistorial"),
                                 std::pair(std::string(UserPasswords::kTable), "IDUsuario")})
    if (EqualNoCase(own, name)) {
      object.table = own;
      object.key = key;
      return object;
    }
  return std::nullopt;
}

}  // namespace

std::vector<TableObject> TableObjects(Connection& database, TableObjectKind kind) {
  std::vector<TableObject> objects;
  const auto engine = EngineReached(database);
  const auto query = QueryFor(engine, kind);
  if (query.empty()) return objects;
  const auto inText = engine == Engine::Sqlite && kind == TableObjectKind::Condition;
  for (auto rows = database.Execute(query); !rows.Eof(); rows.MoveNext()) {
    auto object = ObjectOn(rows.Fields(0).Text());
    if (!object) continue;
    const auto name = rows.Names().size() > 1 ? rows.Fields(1).Text() : std::string();
    if (inText) {
      for (auto& clause : TableClauses(name)) {
        object->name = std::move(clause);
        objects.push_back(*object);
      }
      continue;
    }
    if (objects.empty() || objects.back().table != object->table || objects.back().name != name) {
      object->name = name;
      objects.push_back(std::move(*object));
    }
    if (rows.Names().size() > 2)
      objects.back().details.push_back(rows.Fields(2).IsNull() ? std::string()
                                                               : rows.Fields(2).Text());
  }
  return objects;
}

}  // namespace quorvane

#include "apps/escuela/history/HistoryTriggers.h"

#include <iterator>

#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

enum class Event { Update, Insert, Delete };
constexpr Event kEvents[] = {Event::Update, Event::Insert, Event::Delete};

std::string_view EventName(Event event) {
  if (event == Event::Update) return "UPDATE";
  return event == Event::Insert ? "INSERT" : "DELETE";
}

std::string TriggerName(const WatchedTable& table, Event event) {
  return "Historial_" + std::string(table.name) + "_" + std::string(EventName(event));
}

std::string Now(Engine engine) {
  if (engine == Engine::PostgreSql)
    return "to_char(clock_timestamp() AT TIME ZONE 'UTC','YYYY-MM-DD HH24:MI:SS.MS')";
  if (engine == Engine::SqlServer) return "CONVERT(varchar(23),SYSUTCDATETIME(),121)";
  return "strftime('%Y-%m-%d %H:%M:%f','now')";
}

/// One value, should there be several. A file's subquery takes its first by itself, and costs less
/// so.
std::string One(Engine engine, const std::string& column) {
  return engine == Engine::Sqlite ? column : "MIN(" + column + ")";
}

/// A SELECT of what is kept of the changes in `changes`. `row` is what the engine calls the row
/// that tells which subject and evaluation it is; `from` gives it where it isn't there by itself.
std::string Kept(Engine engine, Event event, std::string_view row, const std::string& changes,
                 const std::string& userColumn, const std::string& from) {
  const auto subject = std::string(row) + ".CodAlumnoPte_MatDet";
  const auto evaluation = std::string(row) + ".CodNumEvaluacion";
  const auto pending = [&](const std::string& what) {
    auto now = "(SELECT " + One(engine, what) +
               " FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=" + subject + ")";
    if (event != Event::Delete) return now;
    // A program may remove the subject before its grades: whose they were is known from before.
    const auto history = std::string(kHistoryTable);
    return "COALESCE(" + now + ",(SELECT " + One(engine, "Previa." + what) + " FROM " + history +
           " Previa WHERE Previa.IDHistorial=(SELECT MAX(Ultima.IDHistorial) FROM " + history +
           " Ultima WHERE Ultima.CodAlumnoPte_MatDet=" + subject +
           " AND Ultima.CodAlumno IS NOT NULL)))";
  };
  return "SELECT " + Now(engine) + ",Cambio.Columna,Cambio.Antes,Cambio.Despues," + subject + "," +
         pending("CodAlumno") + "," + pending("CodMatDet") + "," + evaluation + ",(SELECT " +
         One(engine, userColumn) + " FROM BloqueoPte WHERE CodMatDet=" + pending("CodMatDet") +
         " AND CodNumEvaluacion=" + evaluation + ") FROM " + from + "(" + changes + ") Cambio";
}

/// Without its type all Nulls of a column would be taken for texts.
constexpr std::string_view kNothing = "CAST(NULL AS int)";

/// A row of `Cambio`.
std::string Change(std::string_view column, std::string_view before, std::string_view after) {
  std::string text = "SELECT '";
  text.append(column).append("' AS Columna,").append(before).append(" AS Antes,");
  return text.append(after).append(" AS Despues");
}

constexpr std::string_view kColumns =
    " (Momento,Columna,Antes,Despues,CodAlumnoPte_MatDet,CodAlumno,CodMatDet,CodNumEvaluacion,"
    "CodUsuario) ";

/// What an engine calls the row before and after, and unequal values of which either may be Null.
struct Rows {
  std::string_view before;
  std::string_view after;
};

std::string Unequal(Engine engine, const std::string& one, const std::string& other) {
  if (engine == Engine::Sqlite) return one + " IS NOT " + other;
  if (engine == Engine::PostgreSql) return one + " IS DISTINCT FROM " + other;
  return "COALESCE(" + one + ",0)<>COALESCE(" + other + ",0)";
}

/// The statement by which the history takes in one event on one table: one for all columns, as each
/// that is run has its price, whether it finds a change or not.
std::string Keeping(Engine engine, const WatchedTable& table, Event event,
                    const std::string& userColumn) {
  const Rows names = engine == Engine::SqlServer ? Rows{"deleted", "inserted"} : Rows{"OLD", "NEW"};
  const auto row = event == Event::Delete ? names.before : names.after;
  std::string from;
  if (engine == Engine::SqlServer) {
    from = row;
    if (event == Event::Update)
      from.append(" INNER JOIN deleted ON deleted.ID").append(table.name).append("=inserted.ID");
    if (event == Event::Update) from.append(table.name);
    from += " CROSS APPLY ";
  }
  std::string changes;
  if (event != Event::Update)
    changes = Change(event == Event::Insert ? kRowAdded : kRowRemoved, kNothing, kNothing);
  for (const auto column : table.columns) {
    const auto before = std::string(names.before).append(".").append(column);
    const auto after = std::string(names.after).append(".").append(column);
    if (!changes.empty()) changes += " UNION ALL ";
    changes += Change(column, event == Event::Insert ? kNothing : before,
                      event == Event::Delete ? kNothing : after);
    changes += " WHERE " + (event == Event::Update   ? Unequal(engine, before, after)
                            : event == Event::Insert ? after + "<>0"
                                                     : before + "<>0");
  }
  return std::string(engine == Engine::Sqlite ? "INSERT OR IGNORE INTO " : "INSERT INTO ")
      .append(kHistoryTable)
      .append(kColumns)
      .append(Kept(engine, event, row, changes, userColumn, from))
      .append("; ");
}

/// A save writes every row, whether it has changed or not. A file's engine translates the trigger
/// with each statement anew, which a condition more makes dearer than it saves.
std::string OnlyChanged(Engine engine, const WatchedTable& table, Event event) {
  if (engine == Engine::Sqlite || event != Event::Update) return {};
  std::string condition;
  for (const auto column : table.columns)
    condition += (condition.empty() ? "" : " OR ") +
                 Unequal(engine, "OLD." + std::string(column), "NEW." + std::string(column));
  return " WHEN (" + condition + ")";
}

/// What sets no column of grades, as the marks beside them, passes by. SQL Server has nothing of
/// the kind.
std::string EventOn(const WatchedTable& table, Event event) {
  std::string text(EventName(event));
  if (event == Event::Update)
    for (const auto column : table.columns)
      text.append(column == table.columns.front() ? " OF " : ",").append(column);
  return text.append(" ON ").append(table.name);
}

std::string Trigger(Engine engine, const WatchedTable& table, Event event,
                    const std::string& userColumn) {
  const auto name = TriggerName(table, event);
  const auto on = EventOn(table, event);
  const auto when = OnlyChanged(engine, table, event);
  const auto body = Keeping(engine, table, event, userColumn);
  if (engine == Engine::Sqlite)
    return "CREATE TRIGGER " + name + " AFTER " + on + when + " BEGIN " + body + "END";
  if (engine == Engine::SqlServer)
    return "CREATE TRIGGER " + name + " ON " + std::string(table.name) + " AFTER " +
           std::string(EventName(event)) + " AS BEGIN SET NOCOUNT ON; SET XACT_ABORT OFF; BEGIN " +
           "TRY " + body + "END TRY BEGIN CATCH END CATCH END";
  return "CREATE TRIGGER " + name + " AFTER " + on + " FOR EACH ROW" + when + " EXECUTE FUNCTION " +
         name + "()";
}

/// Whoever saves need have no right to the history; whatever fails here stays here. It runs with
/// the owner's rights, so that no table of the saver's own may stand in the place of the school's.
std::string Function(const WatchedTable& table, Event event, const std::string& userColumn,
                     const std::string& schema) {
  return "CREATE FUNCTION " + TriggerName(table, event) +
         "() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER SET search_path = " + schema +
         ", pg_temp AS $historial$ BEGIN " + Keeping(Engine::PostgreSql, table, event, userColumn) +
         "RETURN NULL; EXCEPTION WHEN OTHERS THEN RETURN NULL; END $historial$";
}

}  // namespace

const std::vector<WatchedTable>& WatchedTables() {
  static const std::vector<WatchedTable> tables = {
      {"EvaluacionPte",
       {"CodNota", "CodNotaActitud", "CodNotaObservacion", "CodNotaConcepto",
        "CodNotaProcedimiento"}},
      {"EvaluacionActaPte", {"CodNota", "CodNotaObservacion", "RE_AC_DIV"}},
  };
  return tables;
}

std::vector<std::string> HistoryTableSql(Engine engine, const std::string& schema) {
  const std::string text = engine == Engine::Sqlite ? "TEXT" : "varchar(32)";
  const std::string number = engine == Engine::Sqlite ? "INTEGER" : "int";
  std::string key = "INTEGER PRIMARY KEY";
  if (engine == Engine::PostgreSql) key = "bigserial PRIMARY KEY";
  if (engine == Engine::SqlServer) key = "bigint IDENTITY PRIMARY KEY";
  const auto table = (schema.empty() ? "" : schema + ".") + std::string(kHistoryTable);
  return {"CREATE TABLE " + table + " (IDHistorial " + key + ", Momento " + text + ", Columna " +
              text + ", Antes " + number + ", Despues " + number + ", CodAlumnoPte_MatDet " +
              number + ", CodAlumno " + number + ", CodMatDet " + number + ", CodNumEvaluacion " +
              number + ", CodUsuario " + number + ")",
          "CREATE INDEX HistorialNotas_Pte ON " + table + " (CodAlumnoPte_MatDet)"};
}

std::vector<std::string> HistoryTriggersSql(Engine engine, const std::string& userColumn,
                                            const std::string& schema) {
  std::vector<std::string> statements;
  for (const auto& table : WatchedTables())
    for (const auto event : kEvents) {
      if (engine == Engine::PostgreSql) {
        statements.push_back(Function(table, event, userColumn, schema));
        // Who may call it may hang it on a table of his own and write what he likes.
        statements.push_back("REVOKE ALL ON FUNCTION " + TriggerName(table, event) +
                             "() FROM PUBLIC");
      }
      statements.push_back(Trigger(engine, table, event, userColumn));
    }
  return statements;
}

std::vector<std::string> NoHistoryTriggersSql(Engine engine) {
  std::vector<std::string> statements;
  for (const auto& table : WatchedTables())
    for (const auto event : kEvents) {
      const auto name = TriggerName(table, event);
      if (engine == Engine::PostgreSql) {
        statements.push_back("DROP TRIGGER IF EXISTS " + name + " ON " + std::string(table.name));
        statements.push_back("DROP FUNCTION IF EXISTS " + name + "()");
      } else {
        statements.push_back("DROP TRIGGER IF EXISTS " + name);
      }
    }
  return statements;
}

bool IsHistoryTrigger(std::string_view name, std::string_view table) {
  for (const auto& watched : WatchedTables())
    for (const auto event : kEvents)
      if (EqualNoCase(watched.name, table) && EqualNoCase(TriggerName(watched, event), name))
        return true;
  return false;
}

std::string HistoryTriggersQuery(Engine engine) {
  if (engine == Engine::PostgreSql)
    return "SELECT tgname FROM pg_trigger INNER JOIN pg_class ON pg_class.oid=tgrelid INNER JOIN "
           "pg_proc ON pg_proc.oid=tgfoid WHERE NOT tgisinternal AND "
           "pg_table_is_visible(pg_class.oid) AND tgname LIKE 'historial\\_evaluacion%pte\\_%'";
  if (engine == Engine::SqlServer)
    return "SELECT name FROM sys.triggers WHERE name LIKE 'Historial[_]Evaluacion%Pte[_]%'";
  return "SELECT name, sql FROM sqlite_master WHERE type='trigger' AND name LIKE "
         "'Historial?_Evaluacion%Pte?_%' ESCAPE '?'";
}

std::string WorkingTriggersQuery(Engine engine) {
  auto query = HistoryTriggersQuery(engine);
  if (engine == Engine::PostgreSql)
    return query + " AND tgenabled IN ('O','A') AND prosecdef AND proconfig IS NOT NULL";
  if (engine == Engine::SqlServer) return query + " AND is_disabled=0";
  return query;
}

std::string HistoryTableQuery(Engine engine) {
  if (engine == Engine::PostgreSql)
    return "SELECT 1 FROM pg_class WHERE relname='historialnotas' AND pg_table_is_visible(oid)";
  if (engine == Engine::SqlServer) return "SELECT 1 FROM sys.tables WHERE name='HistorialNotas'";
  return "SELECT 1 FROM sqlite_master WHERE type='table' AND lower(name)='historialnotas'";
}

std::size_t HistoryTriggersCount() { return WatchedTables().size() * std::size(kEvents); }

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolAddress.h"
#include "frame/schema/SchoolSchema.h"

namespace quorvane::test {

/// What has been done to the tables that the module writes, row by row and in the one order in
/// which the database took it. The engine writes it along with each statement, in a file by
/// triggers that belong to the connection and bear the number of its process; the module sees none
/// of it.
///
/// On PostgreSQL the tables' own triggers write it, one statement after the other up to its end, so
/// that the numbers stand in the order in which others see what was written. Who wrote stands
/// behind each statement as a remark: behind a pooler a session of the server is everybody's.
class Diary {
 public:
  enum class Action { Insert, Update, Delete };

  /// A row that has come, changed or gone. Rows are their values with | between.
  struct Entry {
    std::int64_t number = 0;
    int process = 0;
    std::string table;
    Action action = Action::Insert;
    std::int64_t row = 0;  ///< the engine's own number of the row
    std::string before;    ///< empty for a row that has come
    std::string after;     ///< empty for a row that has gone
  };

  /// Rows by the engine's own number.
  using Table = std::map<std::int64_t, std::string>;

  /// Makes the diary's table in a school, as its owner. All may read it, and on a server nobody
  /// else writes it.
  static void Create(Connection& school) {
    if (OnServer(school)) return CreateOnServer(school);
    school.Execute(
        "CREATE TABLE Diario (Numero INTEGER PRIMARY KEY AUTOINCREMENT, Proceso INTEGER, "
        "Tabla TEXT, Accion TEXT, Fila INTEGER, Antes TEXT, Despues TEXT)");
  }

  /// From now on what this connection to a file does is in the diary.
  static void Keep(sqlite::SqliteConnection& connection, int process) {
    std::string triggers = "PRAGMA temp_store=MEMORY;";
    for (const auto& table : Tables()) {
      const auto columns = Columns(connection, table);
      const auto before = FileRow(columns, "OLD.");
      const auto after = FileRow(columns, "NEW.");
      const auto add = [&](const std::string& action, const std::string& values) {
        triggers += "CREATE TEMP TRIGGER Diario_" + table + "_" + action + " AFTER " + action +
                    " ON main." + table +
                    " BEGIN INSERT INTO Diario (Proceso,Tabla,Accion,Fila,Antes,Despues) VALUES (" +
                    std::to_string(process) + ",'" + table + "','" + action + "'," + values +
                    "); END;";
      };
      add("INSERT", "NEW.rowid,''," + after);
      add("UPDATE", "OLD.rowid," + before + "," + after);
      add("DELETE", "OLD.rowid," + before + ",''");
    }
    connection.ExecuteScript(triggers);
  }

  /// A statement that writes as that process executes it on a server: it gives a row for each that
  /// it wrote.
  static std::string Signed(const std::string& statement, int process) {
    return statement + " RETURNING 1 /*" + std::to_string(process) + "*/";
  }

  /// The number of the last entry, 0 for none.
  static std::int64_t Last(Connection& connection) {
    return connection.Execute("SELECT MAX(Numero) FROM Diario").Fields(0).Long();
  }

  static std::vector<Entry> Read(Connection& connection) {
    static const std::map<std::string, Action> kActions{
        {"INSERT", Action::Insert}, {"UPDATE", Action::Update}, {"DELETE", Action::Delete}};
    std::vector<Entry> entries;
    auto rows = connection.Execute("SELECT * FROM Diario ORDER BY Numero");
    for (; !rows.Eof(); rows.MoveNext())
      entries.push_back({rows.Fields("Numero").Long(), rows.Fields("Proceso").Long(),
                         rows.Fields("Tabla").Text(), kActions.at(rows.Fields("Accion").Text()),
                         rows.Fields("Fila").Long(), rows.Fields("Antes").Text(),
                         rows.Fields("Despues").Text()});
    return entries;
  }

  /// The tables that the module writes.
  static const std::vector<std::string>& Tables() {
    static const std::vector<std::string> tables{
        "PublicacionPte",   "BloqueoPte",        "EvaluacionPte", "EvaluacionActaPte",
        "AlumnoPte_MatDet", "Seccion_AlumnoPte", "Profesor_Pte"};
    return tables;
  }

  /// All tables of a school but the diary's own.
  static std::map<std::string, Table> ReadAll(Connection& connection) {
    std::map<std::string, Table> tables;
    for (const auto& schema : SchoolTables()) {
      auto& table = tables[schema.name];
      const auto row = OnServer(connection)
                           ? RowNumber(schema) + " AS Fila, " + ServerRow(schema, "")
                           : "rowid AS Fila, " + FileRow(Columns(connection, schema.name), "");
      auto rows = connection.Execute("SELECT " + row + " AS Valores FROM " + schema.name);
      for (; !rows.Eof(); rows.MoveNext())
        table.emplace(rows.Fields("Fila").Long(), rows.Fields("Valores").Text());
    }
    return tables;
  }

  static std::vector<std::string> Columns(Connection& connection, const std::string& table) {
    auto names = connection.Execute("SELECT * FROM " + table + " WHERE 0=1").Names();
    std::erase(names, kOwnColumn);
    return names;
  }

  /// The values of a row.
  static std::vector<std::string> Values(const std::string& row) {
    std::vector<std::string> values;
    std::size_t start = 0;
    for (auto bar = row.find('|'); bar != std::string::npos; bar = row.find('|', start)) {
      values.push_back(row.substr(start, bar - start));
      start = bar + 1;
    }
    values.push_back(row.substr(start));
    return values;
  }

  /// Removes all tables of a school on a server, and the diary.
  static void DropSchool(Connection& school) {
    for (const auto& table : SchoolTables()) school.Execute("DROP TABLE IF EXISTS " + table.name);
    school.Execute("DROP TABLE IF EXISTS Diario");
    for (const auto& table : Tables()) school.Execute("DROP FUNCTION IF EXISTS Diario_" + table);
  }

 private:
  /// The diary's own, with the numbers of the rows of a server's table without a key.
  static constexpr const char* kOwnColumn = "diario_fila";

  static bool OnServer(Connection& school) {
    return EngineReached(school) == sqltext::Engine::PostgreSql;
  }

  static void CreateOnServer(Connection& school) {
    school.Execute(
        "CREATE TABLE Diario (Numero bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY, Proceso "
        "integer, Tabla text, Accion text, Fila bigint, Antes text, Despues text)");
    school.Execute("GRANT SELECT ON Diario TO PUBLIC");
    for (const auto& table : SchoolTables())
      if (RowNumber(table) == kOwnColumn)
        school.Execute("ALTER TABLE " + table.name + " ADD COLUMN " + kOwnColumn +
                       " bigint GENERATED ALWAYS AS IDENTITY");
    for (const auto& table : Tables()) {
      school.Execute(Function(*FindSchoolTable(table)));
      school.Execute("CREATE TRIGGER Diario AFTER INSERT OR UPDATE OR DELETE ON " + table +
                     " FOR EACH ROW EXECUTE FUNCTION Diario_" + table + "()");
    }
  }

  /// What a server's trigger of the table does.
  static std::string Function(const SchemaTable& table) {
    return "CREATE FUNCTION Diario_" + table.name +
           "() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $cuerpo$ "
           "DECLARE numero bigint; antes text := ''; despues text := ''; BEGIN "
           // Until the end of the transaction, when others see what it has written.
           "PERFORM pg_advisory_xact_lock(1); "
           "IF TG_OP <> 'INSERT' THEN numero := OLD." +
           RowNumber(table) + "; antes := " + ServerRow(table, "OLD.") +
           "; END IF; IF TG_OP <> 'DELETE' THEN numero := NEW." + RowNumber(table) +
           "; despues := " + ServerRow(table, "NEW.") +
           "; END IF; INSERT INTO Diario (Proceso,Tabla,Accion,Fila,Antes,Despues) VALUES "
           "(CAST(substring(current_query() FROM '/\\*([0-9]+)\\*/$') AS integer),'" +
           table.name + "',TG_OP,numero,antes,despues); RETURN NULL; END $cuerpo$";
  }

  /// The number of a server's rows of the table, as an expression behind a point.
  static std::string RowNumber(const SchemaTable& table) {
    const auto& first = table.columns.front();
    return first.kind == SchemaKind::Key ? first.name : kOwnColumn;
  }

  /// A row's values with | between; `of` is a table's name with its point, or nothing.
  static std::string ServerRow(const SchemaTable& table, const std::string& of) {
    std::string text;
    for (const auto& column : table.columns)
      text += (text.empty() ? "" : "||'|'||") + ("coalesce(CAST(" + of + column.name) +
              " AS text),'NULL')";
    return text;
  }
  static std::string FileRow(const std::vector<std::string>& columns, const std::string& of) {
    std::string text;
    for (const auto& column : columns)
      text += (text.empty() ? "" : "||'|'||") + ("quote(" + of + column + ")");
    return text;
  }
};

}  // namespace quorvane::test

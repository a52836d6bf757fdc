#include "tests/crowd/Diary.h"

#include "apps/escuela/SchoolAddress.h"
#include "frame/schema/SchoolSchema.h"
#include "tests/crowd/ServerDiary.h"

namespace quorvane::test {
namespace {

/// The values of a row, as an expression of the engine.
std::string Row(const std::vector<std::string>& columns, const std::string& of) {
  std::string text;
  for (const auto& column : columns)
    text += (text.empty() ? "" : "||'|'||") + ("quote(" + of + column + ")");
  return text;
}

std::string Trigger(int process, const std::string& table, const std::string& action,
                    const std::string& number, const std::string& before,
                    const std::string& after) {
  return "CREATE TEMP TRIGGER Diario_" + table + "_" + action + " AFTER " + action + " ON main." +
         table + " BEGIN INSERT INTO Diario (Proceso,Tabla,Accion,Fila,Antes,Despues) VALUES (" +
         std::to_string(process) + ",'" + table + "','" + action + "'," + number + "," + before +
         "," + after + "); END;";
}

bool OnServer(Connection& school) { return EngineReached(school) == sqltext::Engine::PostgreSql; }

Diary::Action ActionOf(const std::string& name) {
  if (name == "INSERT") return Diary::Action::Insert;
  return name == "UPDATE" ? Diary::Action::Update : Diary::Action::Delete;
}

}  // namespace

const std::vector<std::string>& Diary::Tables() {
  static const std::vector<std::string> tables{
      "PublicacionPte",   "BloqueoPte",        "EvaluacionPte", "EvaluacionActaPte",
      "AlumnoPte_MatDet", "Seccion_AlumnoPte", "Profesor_Pte"};
  return tables;
}

std::vector<std::string> Diary::Columns(Connection& connection, const std::string& table) {
  auto names = connection.Execute("SELECT * FROM " + table + " WHERE 0=1").Names();
  std::erase(names, ServerDiary::kOwnColumn);
  return names;
}

void Diary::Create(Connection& school) {
  if (OnServer(school)) return ServerDiary::Create(school);
  school.Execute(
      "CREATE TABLE Diario (Numero INTEGER PRIMARY KEY AUTOINCREMENT, Proceso INTEGER, Tabla TEXT, "
      "Accion TEXT, Fila INTEGER, Antes TEXT, Despues TEXT)");
}

void Diary::Keep(sqlite::SqliteConnection& connection, int process) {
  std::string triggers = "PRAGMA temp_store=MEMORY;";
  for (const auto& table : Tables()) {
    const auto columns = Columns(connection, table);
    const auto before = Row(columns, "OLD.");
    const auto after = Row(columns, "NEW.");
    triggers += Trigger(process, table, "INSERT", "NEW.rowid", "''", after) +
                Trigger(process, table, "UPDATE", "OLD.rowid", before, after) +
                Trigger(process, table, "DELETE", "OLD.rowid", before, "''");
  }
  connection.ExecuteScript(triggers);
}

std::int64_t Diary::Last(Connection& connection) {
  return connection.Execute("SELECT MAX(Numero) FROM Diario").Fields(0).Long();
}

std::vector<Diary::Entry> Diary::Read(Connection& connection) {
  std::vector<Entry> entries;
  auto rows = connection.Execute("SELECT * FROM Diario ORDER BY Numero");
  for (; !rows.Eof(); rows.MoveNext())
    entries.push_back({rows.Fields("Numero").Long(), rows.Fields("Proceso").Long(),
                       rows.Fields("Tabla").Text(), ActionOf(rows.Fields("Accion").Text()),
                       rows.Fields("Fila").Long(), rows.Fields("Antes").Text(),
                       rows.Fields("Despues").Text()});
  return entries;
}

std::map<std::string, Diary::Table> Diary::ReadAll(Connection& connection) {
  std::map<std::string, Table> tables;
  for (const auto& schema : SchoolTables()) {
    const std::string name(schema.name);
    auto& table = tables[name];
    const auto row = OnServer(connection)
                         ? ServerDiary::RowNumber(name) + " AS Fila, " + ServerDiary::Row(name, "")
                         : "rowid AS Fila, " + Row(Columns(connection, name), "");
    auto rows = connection.Execute("SELECT " + row + " AS Valores FROM " + name);
    for (; !rows.Eof(); rows.MoveNext())
      table.emplace(rows.Fields("Fila").Long(), rows.Fields("Valores").Text());
  }
  return tables;
}

}  // namespace quorvane::test

#include "tests/crowd/ServerDiary.h"

#include <algorithm>
#include <stdexcept>

#include "frame/schema/SchoolSchema.h"
#include "tests/crowd/Diary.h"

namespace quorvane::test {
namespace {

const SchemaTable& Described(const std::string& table) {
  const auto& tables = SchoolTables();
  const auto found = std::find_if(tables.begin(), tables.end(),
                                  [&](const SchemaTable& one) { return one.name == table; });
  if (found == tables.end()) throw std::logic_error("no table " + table);
  return *found;
}

bool HasKey(const std::string& table) {
  return Described(table).columns.front().kind == SchemaKind::Key;
}

std::string Function(const std::string& table) {
  return "CREATE FUNCTION Diario_" + table +
         "() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $cuerpo$ "
         "DECLARE numero bigint; antes text := ''; despues text := ''; BEGIN "
         // Until the end of the transaction, when others see what it has written.
         "PERFORM pg_advisory_xact_lock(1); "
         "IF TG_OP <> 'INSERT' THEN numero := OLD." +
         ServerDiary::RowNumber(table) + "; antes := " + ServerDiary::Row(table, "OLD.") +
         "; END IF; IF TG_OP <> 'DELETE' THEN numero := NEW." + ServerDiary::RowNumber(table) +
         "; despues := " + ServerDiary::Row(table, "NEW.") +
         "; END IF; INSERT INTO Diario (Proceso,Tabla,Accion,Fila,Antes,Despues) VALUES "
         "(CAST(substring(current_query() FROM '/\\*([0-9]+)\\*/$') AS integer),'" +
         table + "',TG_OP,numero,antes,despues); RETURN NULL; END $cuerpo$";
}

}  // namespace

std::string ServerDiary::RowNumber(const std::string& table) {
  return HasKey(table) ? Described(table).columns.front().name : kOwnColumn;
}

std::string ServerDiary::Row(const std::string& table, const std::string& of) {
  std::string text;
  for (const auto& column : Described(table).columns)
    text += (text.empty() ? "" : "||'|'||") + ("coalesce(CAST(" + of + column.name) +
            " AS text),'NULL')";
  return text;
}

void ServerDiary::Create(Connection& school) {
  school.Execute(
      "CREATE TABLE Diario (Numero bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY, Proceso "
      "integer, Tabla text, Accion text, Fila bigint, Antes text, Despues text)");
  school.Execute("GRANT SELECT ON Diario TO PUBLIC");
  for (const auto& table : SchoolTables())
    if (!HasKey(table.name))
      school.Execute(std::string("ALTER TABLE ")
                         .append(table.name)
                         .append(" ADD COLUMN ")
                         .append(kOwnColumn)
                         .append(" bigint GENERATED ALWAYS AS IDENTITY"));
  for (const auto& table : Diary::Tables()) {
    school.Execute(Function(table));
    school.Execute(std::string("CREATE TRIGGER Diario AFTER INSERT OR UPDATE OR DELETE ON ")
                       .append(table)
                       .append(" FOR EACH ROW EXECUTE FUNCTION Diario_")
                       .append(table)
                       .append("()"));
  }
}

void ServerDiary::DropSchool(Connection& school) {
  for (const auto& table : SchoolTables()) school.Execute("DROP TABLE IF EXISTS " + table.name);
  school.Execute("DROP TABLE IF EXISTS Diario");
  for (const auto& table : Diary::Tables())
    school.Execute("DROP FUNCTION IF EXISTS Diario_" + table);
}

std::string ServerDiary::Signed(const std::string& statement, int process) {
  return statement + " RETURNING 1 /*" + std::to_string(process) + "*/";
}

}  // namespace quorvane::test

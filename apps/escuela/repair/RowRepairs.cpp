#include "apps/escuela/repair/RowRepairs.h"

#include <initializer_list>
#include <limits>

#include "apps/escuela/JoinedText.h"
#include "apps/escuela/Refusal.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/repair/DoubledRows.h"
#include "apps/escuela/repair/UndoLiteral.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

/// The column that is a table's primary key; empty for a table without one.
std::string KeyOf(std::string_view table) {
  if (const auto* const found = FindSchoolTable(table))
    for (const auto& column : found->columns)
      if (column.kind == SchemaKind::Key) return column.name;
  return {};
}

bool HoldsGrades(std::string_view table) {
  return table == "EvaluacionPte" || table == "EvaluacionActaPte";
}

/// Which of rows that stand twice is worth most.
std::string_view BestFirst(std::string_view table) {
  if (HoldsGrades(table)) return "CASE WHEN CodNota>0 THEN 0 ELSE 1 END";
  if (table == "Profesor_Pte") return "CASE WHEN CodProfesor=0 THEN 1 ELSE 0 END";
  if (table == "FechaNotas") return "FechaFin DESC";
  return {};
}

/// What is no number is somebody's to look at, in whichever table.
std::string NumberOrAsItStands(const Value& value, sqltext::Engine engine) {
  try {
    return std::to_string(value.Long());
  } catch (const RuntimeError&) {
    return UndoLiteral(value, engine);
  }
}

}  // namespace

void RowRepairs::Remove(std::string_view table, const std::string& condition,
                        const std::string& reason) {
  const auto columns = ColumnsOf(school_, std::string(table)).value_or(FieldNames());
  auto rows = school_.Execute(Joined({"SELECT ", table, ".*", BytesMarks(columns, engine_),
                                      " FROM ", table, " WHERE ", condition}));
  if (rows.Eof()) return;
  for (; !rows.Eof(); rows.MoveNext()) journal_.Removed(table, rows, reason);
  school_.Execute(Joined({"DELETE FROM ", table, " WHERE ", condition}));
}

void RowRepairs::Clear(const Reference& reference, const std::string& condition,
                       const std::string& reason) {
  const auto key = KeyOf(reference.table);
  // The one table without a key that has an optional reference tells its rows by the other column.
  const auto other = key.empty() ? std::string("CodMatDet") : key;
  auto rows = school_.Execute(Joined({"SELECT ", other, ", ", reference.column,
                                      BytesMarks({other, std::string(reference.column)}, engine_),
                                      " FROM ", reference.table, " WHERE ", condition}));
  if (rows.Eof()) return;
  const auto literal = [&](std::size_t column) {
    const auto bytes = rows.Names().size() > 2 && rows.Fields(2).Text()[column] == 'b';
    return UndoLiteral(rows.Fields(column), engine_, bytes);
  };
  for (; !rows.Eof(); rows.MoveNext())
    journal_.Changed(Joined({"UPDATE ", reference.table, " SET ", reference.column, "=", literal(1),
                             " WHERE ", other, "=", literal(0), " AND ", reference.column, "=0"}),
                     reason);
  school_.Execute(
      Joined({"UPDATE ", reference.table, " SET ", reference.column, "=0 WHERE ", condition}));
}

void RowRepairs::Orphans(const Reference& reference) {
  const auto condition = OrphanCondition(reference);
  const auto reason = Joined({"su ", reference.column, " no está en ", reference.target});
  if (reference.optional) return Clear(reference, condition, reason);
  if (reference.table == "AlumnoPte_MatDet") RemoveGrades(condition);
  Remove(reference.table, condition, reason);
}

void RowRepairs::RemoveGrades(const std::string& condition) {
  const std::string subjects = "(SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE ";
  for (const auto* const table : {"EvaluacionPte", "EvaluacionActaPte"})
    // Another row of the same key keeps them.
    Remove(table,
           Joined({"CodAlumnoPte_MatDet IN ", subjects, condition,
                   ") AND CodAlumnoPte_MatDet NOT IN ", subjects, "NOT (", condition, "))"}),
           "se va con su materia pendiente");
}

std::int32_t RowRepairs::NextKey(std::string_view table, std::string_view key) {
  // A text in a file's column is more than any number.
  const auto numbers = engine_ == sqltext::Engine::Sqlite
                           ? Joined({" WHERE typeof(", key, ") NOT IN ('text','blob')"})
                           : std::string();
  const auto last = school_.Execute(Joined({"SELECT MAX(", key, ") FROM ", table, numbers}));
  const auto greatest = last.Fields(0).IsNull() ? 0 : last.Fields(0).Long();
  if (greatest == std::numeric_limits<std::int32_t>::max())
    Refuse(Joined({"No se ha podido reparar: Última clave en ", table,
                   ": detrás no se puede añadir ninguna fila"}));
  return greatest + 1;
}

void RowRepairs::Misplaced(std::string_view table, std::string_view other,
                           std::string_view otherKind) {
  const auto condition = Joined(
      {"CodNumEvaluacion IN (SELECT IDNumEvaluacion FROM NumEvaluacion WHERE ", otherKind, ")"});
  auto rows = school_.Execute(Joined({"SELECT * FROM ", table, " WHERE ", condition}));
  if (rows.Eof()) return;
  const auto key = KeyOf(other);
  const std::string common =
      "CodAlumnoPte_MatDet, CodNumEvaluacion, Evaluado, CodNota, "
      "CodNotaObservacion, UltimaEvaluada";
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto subject = UndoLiteral(rows.Fields("CodAlumnoPte_MatDet"), engine_);
    const auto evaluation = UndoLiteral(rows.Fields("CodNumEvaluacion"), engine_);
    const auto there =
        school_.Execute(Joined({"SELECT 1 FROM ", other, " WHERE CodAlumnoPte_MatDet=", subject,
                                " AND CodNumEvaluacion=", evaluation}));
    if (!there.Eof()) continue;
    const auto id = std::to_string(NextKey(other, key));
    std::string values;
    for (const auto* const column : {"Evaluado", "CodNota", "CodNotaObservacion", "UltimaEvaluada"})
      values += "," + NumberOrAsItStands(rows.Fields(column), engine_);
    school_.Execute(Joined({"INSERT INTO ", other, " (", key, ", ", common, ") VALUES (", id, ",",
                            subject, ",", evaluation, values, ")"}));
    journal_.Changed(Joined({"DELETE FROM ", other, " WHERE ", key, "=", id}),
                     Joined({"llevada de ", table, ", donde no le toca"}));
  }
  Remove(table, condition, Joined({"su evaluación es de ", other}));
}

void RowRepairs::MoveGrades(std::string_view table) {
  const std::string first =
      "(SELECT MIN(Primera.IDAlumnoPte_MatDet) FROM AlumnoPte_MatDet Primera INNER JOIN "
      "AlumnoPte_MatDet Doble ON Doble.CodAlumno=Primera.CodAlumno AND "
      "Doble.CodMatDet=Primera.CodMatDet WHERE Doble.IDAlumnoPte_MatDet=";
  const auto key = KeyOf(table);
  auto rows = school_.Execute(Joined(
      {"SELECT ", key, ", CodAlumnoPte_MatDet FROM ", table,
       " WHERE CodAlumnoPte_MatDet IN (SELECT Doble.IDAlumnoPte_MatDet FROM AlumnoPte_MatDet "
       "Doble INNER JOIN AlumnoPte_MatDet Primera ON Doble.CodAlumno=Primera.CodAlumno AND "
       "Doble.CodMatDet=Primera.CodMatDet WHERE "
       "Doble.IDAlumnoPte_MatDet>Primera.IDAlumnoPte_MatDet)"}));
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto before = UndoLiteral(rows.Fields(1), engine_);
    const auto which = Joined({" WHERE ", key, "=", UndoLiteral(rows.Fields(0), engine_)});
    school_.Execute(Joined({"UPDATE ", table, " SET CodAlumnoPte_MatDet=", first, before, ")",
                            which, " AND CodAlumnoPte_MatDet=", before}));
    journal_.Changed(Joined({"UPDATE ", table, " SET CodAlumnoPte_MatDet=", before, which}),
                     "pasada a la fila que queda de su materia");
  }
}

void RowRepairs::Doubles(const Unique& unique) {
  const DoubledRows doubled(school_, unique.table, unique.columns, BestFirst(unique.table));
  if (!doubled.Any()) return;
  if (unique.table == "AlumnoPte_MatDet") {
    MoveGrades("EvaluacionPte");
    MoveGrades("EvaluacionActaPte");
  }
  for (auto rows = doubled.Read(); !rows.Eof(); rows.MoveNext())
    journal_.Removed(unique.table, rows, Joined({"repite ", unique.columns}));
  doubled.Remove();
}

void RowRepairs::DoubledKeys(std::string_view table, std::string_view key) {
  const DoubledRows doubled(school_, table, key);
  if (!doubled.Any()) return;
  if (!HoldsGrades(table)) return Doubles({table, key});
  for (auto rows = doubled.Read(); !rows.Eof(); rows.MoveNext()) {
    const auto id = NextKey(table, key);
    const auto before = Joined({key, "=", UndoLiteral(rows.Fields(key), engine_)});
    doubled.Set(key, id, before);
    journal_.Changed(
        Joined({"UPDATE ", table, " SET ", before, " WHERE ", key, "=", std::to_string(id)}),
        Joined({"repetía ", key}));
  }
}

}  // namespace quorvane

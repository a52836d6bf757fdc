#include "apps/escuela/history/GradeHistory.h"

#include <map>

#include "apps/escuela/LockList.h"
#include "apps/escuela/MeasureText.h"
#include "apps/escuela/PersonName.h"
#include "apps/escuela/QuotedText.h"
#include "apps/escuela/Refusal.h"
#include "apps/escuela/Transaction.h"
#include "apps/escuela/history/HistoryTable.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "apps/escuela/state/MayGrade.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

using sqltext::Engine;

/// Behind any moment of the day.
constexpr auto kEndOfDay = " 99";

std::string Quoted(const std::string& text, Engine engine) {
  std::string quoted;
  AppendQuoted(quoted, text, engine);
  return quoted;
}

std::string SchemaOf(Connection& school, Engine engine) {
  if (engine != Engine::PostgreSql) return {};
  return school.Execute(std::string(kSchemaQuery)).Fields(0).Text();
}

std::string ColumnTitle(const std::string& column) {
  static const std::map<std::string, std::string> titles = {
      {"CodNota", "Nota"},
      {"CodNotaActitud", "Actitud"},
      {"CodNotaObservacion", "Observación"},
      {"CodNotaConcepto", "Concepto"},
      {"CodNotaProcedimiento", "Procedimiento"},
      {"RE_AC_DIV", "Medidas"},
      {std::string(kRowAdded), "Alta"},
      {std::string(kRowRemoved), "Baja"},
  };
  const auto found = titles.find(column);
  return found == titles.end() ? column : found->second;
}

std::string Conditions(const HistoryFilter& filter, Engine engine) {
  std::string text;
  const auto add = [&text](const std::string& condition) {
    text += (text.empty() ? " WHERE " : " AND ") + condition;
  };
  const auto equal = [&add](const char* column, std::int32_t value) {
    if (value != 0) add(std::string(column) + "=" + std::to_string(value));
  };
  equal("HistorialNotas.CodAlumno", filter.student);
  equal("HistorialNotas.CodMatDet", filter.subject);
  equal("HistorialNotas.CodNumEvaluacion", filter.evaluation);
  equal("HistorialNotas.CodUsuario", filter.user);
  equal("HistorialNotas.CodAlumnoPte_MatDet", filter.pending);
  if (filter.either != 0) add(MayGrade(filter.either, "HistorialNotas.CodMatDet"));
  if (!filter.from.empty()) add("HistorialNotas.Momento>=" + Quoted(filter.from, engine));
  if (!filter.to.empty()) add("HistorialNotas.Momento<" + Quoted(filter.to + kEndOfDay, engine));
  return text;
}

class Names {
 public:
  explicit Names(Connection& school) {
    for (auto rows = school.Execute("SELECT IDNota, DescripcionCorta FROM Nota"); !rows.Eof();
         rows.MoveNext())
      grades_[rows.Fields(0).Long()] = rows.Fields(1).Text();
    // Whoever has no account bears 0, which says nothing about who it was.
    for (auto rows = school.Execute(
             "SELECT CodUsuario, Apellido1, Apellido2, Nombre FROM Personal WHERE CodUsuario<>0 "
             "ORDER BY IDPersonal");
         !rows.Eof(); rows.MoveNext()) {
      auto& users = users_[rows.Fields(0).Long()];
      users += (users.empty() ? "" : " / ") + FullName(rows, 1);
    }
  }

  [[nodiscard]] std::string Grade(const Value& value, const std::string& column) const {
    if (value.IsNull() || value.Long() == 0) return {};
    const auto id = value.Long();
    if (column == "RE_AC_DIV") {
      const auto measure = MeasureText(id);
      return measure.empty() ? std::to_string(id) : measure;
    }
    const auto found = grades_.find(id);
    return found == grades_.end() ? "nota " + std::to_string(id) : found->second;
  }

  [[nodiscard]] std::string User(const Value& value) const {
    if (value.IsNull()) return {};
    const auto found = users_.find(value.Long());
    const auto number = "usuario " + value.Text();
    return found == users_.end() ? number : number + " (" + found->second + ")";
  }

 private:
  std::map<std::int32_t, std::string> grades_;
  std::map<std::int32_t, std::string> users_;
};

}  // namespace

bool GradeHistory::Active() const {
  const auto file = engine_ == Engine::Sqlite;
  std::vector<std::string> texts;
  for (auto rows = school_.Execute(WorkingTriggersQuery(engine_)); !rows.Eof(); rows.MoveNext())
    texts.push_back(file ? rows.Fields(1).Text() : std::string());
  if (texts.size() != HistoryTriggersCount() || !Kept() ||
      !MissingHistoryColumns(school_, engine_).empty())
    return false;
  if (!file) return true;
  // One of another text may be an older program's, or somebody else's.
  const auto ours = TriggersSql();
  return std::all_of(texts.begin(), texts.end(), [&ours](const std::string& text) {
    return std::find(ours.begin(), ours.end(), text) != ours.end();
  });
}

bool GradeHistory::Kept() const { return HasTable(school_, std::string(kHistoryTable)); }

std::vector<std::string> GradeHistory::TriggersSql() const {
  const auto locks = ColumnsOf(school_, "BloqueoPte");
  if (!locks || locks->size() <= kLockUser)
    throw RuntimeError(ErrorNumber::StatementFailed, "Falta la tabla BloqueoPte");
  return HistoryTriggersSql(engine_, (*locks)[kLockUser], SchemaOf(school_, engine_));
}

void GradeHistory::Activate() {
  if (Active()) return;
  const auto triggers = TriggersSql();
  const auto there = Kept();
  const auto schema = SchemaOf(school_, engine_);
  const auto missing =
      AddHistoryColumnsSql(MissingHistoryColumns(school_, engine_), engine_, schema);
  Transaction transaction(school_);
  // What is left of one that somebody has taken pieces from.
  for (const auto& statement : NoHistoryTriggersSql(engine_)) school_.Execute(statement);
  if (!there)
    for (const auto& statement : HistoryTableSql(engine_, schema)) school_.Execute(statement);
  for (const auto& statement : missing) school_.Execute(statement);
  for (const auto& statement : triggers) school_.Execute(statement);
  if (!there && engine_ == Engine::PostgreSql) GrantReading();
  transaction.KeepOrTell();
}

void GradeHistory::GrantReading() {
  for (auto rows = school_.Execute(
           "SELECT DISTINCT CAST(quote_ident(grantee) AS text) FROM "
           "information_schema.role_table_grants WHERE table_name='evaluacionpte' AND "
           "privilege_type='SELECT' AND grantee<>CAST(current_user AS text) AND "
           "grantee<>'PUBLIC'");
       !rows.Eof(); rows.MoveNext())
    school_.Execute("GRANT SELECT ON HistorialNotas TO " + rows.Fields(0).Text());
}

void GradeHistory::Deactivate() {
  Transaction transaction(school_);
  for (const auto& statement : NoHistoryTriggersSql(engine_)) school_.Execute(statement);
  transaction.KeepOrTell();
}

std::int32_t GradeHistory::Purge(const std::string& before) {
  if (!Kept()) return 0;
  const auto condition = " FROM HistorialNotas WHERE Momento<" + Quoted(before, engine_);
  Transaction transaction(school_);
  const auto count = school_.Execute("SELECT COUNT(*)" + condition).Fields(0).Long();
  school_.Execute("DELETE" + condition);
  transaction.KeepOrTell();
  return count;
}

std::vector<GradeChange> GradeHistory::Read(const HistoryFilter& filter) const {
  std::vector<GradeChange> changes;
  if (!Kept()) return changes;
  if (const auto missing = MissingHistoryColumns(school_, engine_); !missing.empty())
    Refuse("Falta la columna " + missing.front() +
           " en la tabla HistorialNotas: la repone «quorvane-escuela historial … activar»");
  const Names names(school_);
  auto rows = school_.Execute(
      "SELECT HistorialNotas.Momento, HistorialNotas.Columna, HistorialNotas.Antes, "
      "HistorialNotas.Despues, HistorialNotas.CodUsuario, HistorialNotas.CodAlumno, "
      "Alumno.Apellido_1, Alumno.Apellido_2, Alumno.Nombre, HistorialNotas.CodMatDet, "
      "Materia.Nombre AS NombreMateria, Seccion.Descripcion AS NombreSeccion, "
      "HistorialNotas.CodNumEvaluacion, NumEvaluacion.Descripcion FROM ((((HistorialNotas LEFT "
      "JOIN Alumno ON Alumno.IDAlumno=HistorialNotas.CodAlumno) LEFT JOIN MateriaDetalles ON "
      "MateriaDetalles.IDMateriaDetalles=HistorialNotas.CodMatDet) LEFT JOIN Materia ON "
      "Materia.IDMateria=MateriaDetalles.CodMateria) LEFT JOIN Seccion ON "
      "Seccion.IDSeccion=MateriaDetalles.CodSeccion) LEFT JOIN NumEvaluacion ON "
      "NumEvaluacion.IDNumEvaluacion=HistorialNotas.CodNumEvaluacion" +
      Conditions(filter, engine_) + " ORDER BY HistorialNotas.IDHistorial");
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto column = rows.Fields(1).Text();
    GradeChange change;
    change.moment = rows.Fields(0).Text();
    change.column = ColumnTitle(column);
    change.before = names.Grade(rows.Fields(2), column);
    change.after = names.Grade(rows.Fields(3), column);
    change.user = names.User(rows.Fields(4));
    change.student = rows.Fields(6).IsNull() && rows.Fields(8).IsNull()
                         ? "alumno " + rows.Fields(5).Text()
                         : FullName(rows, 6);
    change.subject = rows.Fields(10).IsNull()
                         ? "materia " + rows.Fields(9).Text()
                         : rows.Fields(10).Text() + " (" + rows.Fields(11).Text() + ")";
    change.evaluation = rows.Fields(13).IsNull() ? rows.Fields(12).Text() : rows.Fields(13).Text();
    changes.push_back(change);
  }
  return changes;
}

}  // namespace quorvane

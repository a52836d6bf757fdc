#include "apps/escuela/CopyOrigin.h"

#include <algorithm>

#include "apps/escuela/SchoolCheck.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

/// The names of all tables that a statement without a schema's name reaches.
std::string NamesQuery(Engine engine) {
  switch (engine) {
    case Engine::PostgreSql:
      return "SELECT CAST(tablename AS text) FROM pg_tables WHERE schemaname=ANY(current_schemas("
             "false)) ORDER BY 1";
    case Engine::SqlServer:
      return "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE='BASE TABLE' "
             "ORDER BY TABLE_NAME";
    default:
      return "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite?_%' "
             "ESCAPE '?' ORDER BY name";
  }
}

bool IsOfSchool(const std::string& name) {
  const auto& tables = SchoolTables();
  return std::any_of(tables.begin(), tables.end(),
                     [&](const SchemaTable& table) { return EqualNoCase(table.name, name); });
}

bool AllowsSnapshot(Connection& school) {
  try {
    const auto state = school.Execute(
        "SELECT snapshot_isolation_state FROM sys.databases WHERE database_id=DB_ID()");
    return !state.Eof() && state.Fields(0).Long() == 1;
  } catch (const RuntimeError&) {
    // Who may not ask can't be sure of it.
    return false;
  }
}

}  // namespace

CopyOrigin::CopyOrigin(const SchoolAddress& address)
    : school_(address.Open("", SchoolAddress::Access::ReadOnly)), engine_(EngineReached(*school_)) {
  const auto findings = SchoolCheck(*school_).Structure(SchoolCheck::For::Module);
  if (!findings.empty())
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se puede copiar " + address.Shown() + ": " + findings.front());
  for (const auto& table : SchoolTables()) tables_.emplace_back(*school_, table);
  FindOthers();
  BeginSnapshot();
}

CopyOrigin::~CopyOrigin() {
  try {
    if (school_->IsOpen()) school_->Execute("ROLLBACK TRANSACTION");
  } catch (const RuntimeError&) {
    // It ends with its connection.
    school_->Close();
  }
}

void CopyOrigin::FindOthers() {
  for (auto rows = school_->Execute(NamesQuery(engine_)); !rows.Eof(); rows.MoveNext())
    if (const auto name = rows.Fields(0).Text(); !IsOfSchool(name)) others_.push_back(name);
  for (const auto& table : tables_)
    for (const auto& column : table.left) others_.push_back(table.name + "." + column);
}

void CopyOrigin::BeginSnapshot() {
  if (engine_ == Engine::PostgreSql) {
    school_->Execute("BEGIN TRANSACTION ISOLATION LEVEL REPEATABLE READ READ ONLY");
  } else {
    if (engine_ == Engine::SqlServer) {
      oneMoment_ = AllowsSnapshot(*school_);
      if (oneMoment_) school_->Execute("SET TRANSACTION ISOLATION LEVEL SNAPSHOT");
    }
    school_->Execute("BEGIN TRANSACTION");
  }
  // The moment is that of the first statement that reads.
  school_->Execute("SELECT COUNT(*) FROM Nota");
}

std::size_t CopyOrigin::CountRows(const CopiedTable& table) const {
  return static_cast<std::size_t>(
      school_->Execute("SELECT COUNT(*) FROM [" + table.name + "]").Fields(0).Long());
}

std::unique_ptr<TableReader> CopyOrigin::Read(const CopiedTable& table) const {
  return TableReader::Make(*school_, engine_, table);
}

}  // namespace quorvane

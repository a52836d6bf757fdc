#include "apps/escuela/CopyOrigin.h"

#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/TableNames.h"
#include "apps/escuela/UserPasswords.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

using sqltext::Engine;

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
  RequireSchool(*school_, "No se puede copiar " + address.Shown() + ": ");
  for (const auto& table : SchoolTables()) tables_.emplace_back(*school_, table);
  FindOthers();
  BeginSnapshot();
}

CopyOrigin::~CopyOrigin() = default;

void CopyOrigin::FindOthers() {
  others_ = TableNames(*school_);
  std::erase_if(others_, [](const auto& name) { return FindSchoolTable(name) != nullptr; });
  if (UserPasswords(*school_).Kept())
    std::erase_if(others_,
                  [](const auto& name) { return EqualNoCase(name, UserPasswords::kTable); });
  for (const auto& table : tables_)
    for (const auto& column : table.left) others_.push_back(table.name + "." + column);
}

void CopyOrigin::BeginSnapshot() {
  if (engine_ == Engine::SqlServer) {
    oneMoment_ = AllowsSnapshot(*school_);
    if (oneMoment_) school_->Execute("SET TRANSACTION ISOLATION LEVEL SNAPSHOT");
  }
  const std::string asOneMoment = " ISOLATION LEVEL REPEATABLE READ READ ONLY";
  moment_ = std::make_unique<Transaction>(
      *school_, "BEGIN TRANSACTION" + (engine_ == Engine::PostgreSql ? asOneMoment : ""));
  // The moment is that of the first statement that reads.
  school_->Execute("SELECT COUNT(*) FROM Nota");
}

std::map<std::int32_t, std::string> CopyOrigin::Passwords() const {
  return UserPasswords(*school_).Hashes();
}

std::size_t CopyOrigin::CountRows(const CopiedTable& table) const {
  return static_cast<std::size_t>(
      school_->Execute("SELECT COUNT(*) FROM [" + table.name + "]").Fields(0).Long());
}

std::unique_ptr<TableReader> CopyOrigin::Read(const CopiedTable& table) const {
  return TableReader::Make(*school_, engine_, table);
}

}  // namespace quorvane

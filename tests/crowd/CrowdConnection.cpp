#include "tests/crowd/CrowdConnection.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "apps/escuela/LockList.h"
#include "platform/RuntimeError.h"
#include "tests/crowd/Diary.h"
#include "tests/crowd/Grades.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {
namespace {

constexpr std::string_view kLeavesOutLocked = "NOT IN (SELECT CodMatDet FROM BloqueoPte";
constexpr std::string_view kTakes = "INSERT INTO Publicacionpte  VALUES (";
/// The first statement of a form that gives back what it has taken.
constexpr std::string_view kGivesBack = "DELETE FROM PublicacionPte";
constexpr std::string_view kGivesLocksBack = "DELETE FROM BloqueoPte";

/// It begins or ends a transaction, and writes no row itself.
bool Frames(const std::string& statement) {
  return statement.starts_with("BEGIN") || statement.starts_with("COMMIT") ||
         statement.starts_with("ROLLBACK");
}

}  // namespace

CrowdConnection::CrowdConnection(const SchoolAddress& school, std::string name, int process,
                                 Fault fault, FaultCount& faults, Journal& journal,
                                 Figures& figures)
    : Connection(std::move(name)),
      onServer_(school.IsOdbc()),
      engine_(school.Connect("")),
      process_(process),
      fault_(fault),
      faults_(faults),
      journal_(journal),
      figures_(figures) {
  if (fault_ == Fault::Wait) File().BusyWait(std::chrono::milliseconds(0));
}

void CrowdConnection::Open() {
  if (IsOpen()) return;
  engine_->Open();
  if (!onServer_) Diary::Keep(File(), process_);
}

void CrowdConnection::BeginForm(const std::string& name, bool entersGrades) {
  saved_.clear();
  entersGrades_ = entersGrades;
  loads_ = true;
  hasSaved_ = false;
  journal_.Write(Journal::Kind::Form, Diary::Last(*engine_), name);
}

void CrowdConnection::RemoveLeftovers() {
  saved_.clear();
  if (publication_ == 0) return;
  journal_.Write(Journal::Kind::Technician, 0, "");
  if (LockList(*this).Remove(std::exchange(publication_, 0))) ++figures_[kRemoved];
}

Recordset CrowdConnection::Time(const std::string& statement) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  const auto count = [&] {
    const auto took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);
    ++figures_[kStatements];
    figures_[kLongest] = std::max(figures_[kLongest], std::int64_t{took.count()});
  };
  try {
    auto rows = engine_->Execute(statement);
    count();
    return rows;
  } catch (const RuntimeError&) {
    count();
    throw;
  }
}

bool CrowdConnection::Swallow(const std::string& statement) {
  if (fault_ == Fault::Lost && GradeUpdate::Gives(statement)) {
    journal_.Write(Journal::Kind::Written, 1, statement);
    faults_.Add();
    return true;
  }
  if (fault_ != Fault::Lock) return false;
  const auto givesLocksBack = statement.starts_with(kGivesLocksBack);
  // Not to be removed either by who mends what an error has left.
  if (givesLocksBack && std::exchange(publication_, 0) != 0) faults_.Add();
  return givesLocksBack || statement.starts_with(kGivesBack);
}

void CrowdConnection::NoteLoad(const std::string& statement) {
  if (!loads_ || statement.find(kLeavesOutLocked) == std::string::npos) return;
  loads_ = false;
  journal_.Write(Journal::Kind::Load, Diary::Last(*engine_), "");
}

void CrowdConnection::CompareSaved() {
  for (const auto& statement : saved_)
    if (engine_->Execute(GradeUpdate::Parse(statement)->DifferingRows()).Fields(0).Long() != 0)
      journal_.Write(Journal::Kind::Differs, Diary::Last(*engine_), statement);
  saved_.clear();
}

Recordset CrowdConnection::Run(const std::string& statement) {
  if (Reads(statement)) {
    NoteLoad(statement);
    return Time(statement);
  }
  if (Frames(statement)) return Time(statement);
  loads_ = false;
  if (statement.starts_with(kGivesBack)) CompareSaved();
  if (Swallow(statement)) return {};
  ++figures_[kWrites];
  journal_.Write(Journal::Kind::Written, Write(statement), statement);
  Note(statement);
  return {};
}

std::int64_t CrowdConnection::Write(const std::string& statement) {
  if (onServer_) {
    const auto rows = Time(Diary::Signed(statement, process_));
    return rows.IsOpen() ? static_cast<std::int64_t>(rows.RecordCount()) : 0;
  }
  Time(statement);
  return engine_->Execute("SELECT changes()").Fields(0).Long();
}

void CrowdConnection::Note(const std::string& statement) {
  if (statement.starts_with(kTakes)) {
    publication_ = std::stoi(statement.substr(kTakes.size()));
    ++figures_[kOpenings];
  }
  if (statement.starts_with(kGivesLocksBack)) publication_ = 0;
  const auto givesGrades = GradeUpdate::Gives(statement);
  if (givesGrades) saved_.push_back(statement);
  if (hasSaved_ || !(givesGrades || !entersGrades_)) return;
  hasSaved_ = true;
  ++figures_[kSaves];
}

}  // namespace quorvane::test

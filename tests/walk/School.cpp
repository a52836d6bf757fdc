#include "tests/walk/School.h"

#include <utility>

#include "apps/escuela/DemoSchool.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "tests/walk/Disturbance.h"
#include "tests/walk/RandomSchool.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {

School::School(Prng& random) : sqlServer_(random.Chance(30)) {
  Open();
  Script(RandomSchool(random, sqlServer_).Script());
}

School::School(Prng& random, const ServerPlace& place)
    : teacher_(place.teacher), owner_(place.owner), sqlServer_(random.Chance(30)) {
  Observe();
  std::string script;
  for (const auto& table : SchoolTables()) script += "DELETE FROM " + table.name + ";";
  Script(script + RandomSchool(random, sqlServer_).Script());
}

School::School(Sample /*which*/) {
  Open();
  DemoSchool(engine_).Build();
}

void School::Open() {
  engine_.Open();
  engine_.ExecuteScript(std::string(SqliteSchema()));
  Observe();
}

void School::Observe() {
  for (auto* connection : {&centro_, &borrado_, &entrada_})
    connection->Observe(
        [this](const Connection& /*watched*/, const std::string& statement) { Watch(statement); });
}

void School::Watch(const std::string& statement) {
  if (untilFailure_ > 0 && --untilFailure_ == 0) {
    failed_ = true;
    throw RuntimeError(ErrorNumber::StatementFailed, "fallo");
  }
  if (!Reads(statement)) written_ = true;
  if (Executing) Executing(statement);
}

void School::Script(const std::string& statements) {
  // A driver takes several at once; a file's connection only where it is told.
  if (engine_.IsOpen())
    engine_.ExecuteScript(statements);
  else
    owner_.Execute(statements);
}

void School::OrderRows() noexcept {
  for (auto* connection : {&centro_, &borrado_, &entrada_}) connection->OrderRows();
}

std::string School::Disturb(Prng& random) {
  auto statements = RandomDisturbance(random);
  Script(statements);
  return statements;
}

void School::FailStatement(int number) noexcept {
  untilFailure_ = number;
  failed_ = false;
}

bool School::TakeWritten() noexcept { return std::exchange(written_, false); }

}  // namespace quorvane::test

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
  engine_.ExecuteScript(RandomSchool(random, sqlServer_).Script());
}

School::School(Sample /*which*/) {
  Open();
  DemoSchool(engine_).Build();
}

void School::Open() {
  engine_.Open();
  engine_.ExecuteScript(std::string(SqliteSchema()));
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

void School::Disturb(Prng& random) { engine_.ExecuteScript(RandomDisturbance(random)); }

void School::FailStatement(int number) noexcept {
  untilFailure_ = number;
  failed_ = false;
}

bool School::TakeWritten() noexcept { return std::exchange(written_, false); }

}  // namespace quorvane::test

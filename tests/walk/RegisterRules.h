#pragma once

#include "platform/data/Connection.h"
#include "tests/walk/Tables.h"

namespace quorvane::test {

/// What opening the register may do to the tables: purge what has lost its student or its subject,
/// and heal a student who has a subject twice. `whole` when it opened without an error: then
/// nothing of that kind remains. `Violation` when the tables went another way.
void CheckRegisterLoad(Connection& connection, const Tables& before, const Tables& after,
                       bool whole);

}  // namespace quorvane::test

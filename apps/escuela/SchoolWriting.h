#pragma once

#include <functional>
#include <string_view>

#include "platform/data/Connection.h"

namespace quorvane {

/// Has `goOn`, unless empty, be called before each statement from here on, until it throws or the
/// work is kept: what undoes it, or comes after, is let by.
void AskBeforeEach(Connection& school, const std::function<void()>& goOn);

/// Makes the tables of a schema in an open database, has `fill` write their rows, and makes the
/// indexes, which takes less time over rows that are there. `goOn` as above.
void WriteSchool(Connection& school, std::string_view schema,
                 const std::function<void(Connection& school)>& fill,
                 const std::function<void()>& goOn);

}  // namespace quorvane

#pragma once

#include <functional>
#include <string_view>

#include "platform/data/Connection.h"

namespace quorvane {

/// Makes the tables of a schema in an open database, has `fill` write their rows, and makes the
/// indexes, which takes less time over rows that are there. `goOn`, unless empty, is called before
/// each statement from here on, until it throws: what undoes the work is let by.
void WriteSchool(Connection& school, std::string_view schema,
                 const std::function<void(Connection& school)>& fill,
                 const std::function<void()>& goOn);

}  // namespace quorvane

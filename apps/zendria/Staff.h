#pragma once

#include <vector>

#include "apps/zendria/FilteredList.h"

namespace quorvane {
class Connection;
}

namespace quorvane::zendria {

/// The school's members of staff, "Surname Surname, Name", in Spanish order. Fails as the
/// statement does.
std::vector<FilteredList::Entry> ReadStaff(Connection& school);

}  // namespace quorvane::zendria

#pragma once

#include <cstdint>

#include "platform/data/Collection.h"
#include "register/cMatProf.h"

namespace quorvane {

class Connection;

/// Adds to the collection every subject detail of the kind of teaching in a course before `curso`,
/// with its teacher, in the order of courses, sections and names. True when a grade form of one of
/// the teachers is open, or `locked` was; after the first such teacher no further one is looked at.
/// Error 3021 for a course that is gone, 457 for a subject detail with two teachers.
bool LoadTeachers(Connection& centro, std::int32_t tipoEnsenanza, std::int32_t curso, bool locked,
                  Collection<cMatProf>& colMatProf);

}  // namespace quorvane

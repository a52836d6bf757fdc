#pragma once

#include <string>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// What somebody has hung on a fit school's tables, and on those that the programs keep beside
/// them, and may keep who works from writing them, a finding each, in Spanish: triggers that aren't
/// the history's, indexes and keys that let nothing stand twice, conditions, NOT NULLs and foreign
/// keys that a school has none of, and a server's rules and policies of rows. What only a table
/// that is read bears counts where it harms who reads.
///
/// In a file a trigger that bears a name of the history's must be the history's to the letter. SQL
/// Server isn't asked: its catalogue shows none to who has no rights on them.
std::vector<std::string> StrangeObjects(Connection& database);

}  // namespace quorvane

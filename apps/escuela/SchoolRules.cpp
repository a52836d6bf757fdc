#include "apps/escuela/SchoolRules.h"

#include "apps/escuela/JoinedText.h"

namespace quorvane {

std::string OrphanCondition(const Reference& reference) {
  // One row without a key would be equal, perhaps, to any other, and hide all orphans.
  const auto nowhere = Joined({reference.column, " NOT IN (SELECT ", reference.key, " FROM ",
                               reference.target, " WHERE ", reference.key, " IS NOT NULL)"});
  return reference.optional ? Joined({"(", reference.column, "<>0 AND ", nowhere, ")"})
                            : Joined({"(", reference.column, " IS NULL OR ", nowhere, ")"});
}

}  // namespace quorvane

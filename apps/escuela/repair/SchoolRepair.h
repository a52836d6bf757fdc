#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

struct RepairOptions {
  bool simulate = false;         ///< undone at the end
  bool backedUp = false;         ///< somebody answers for a copy; a server's school needs it
  bool publicationsToo = false;  ///< also while somebody has, or seems to have, a form open
};

/// What a repair has done, or would do.
struct RepairReport {
  std::size_t removed = 0;
  std::size_t changed = 0;
  std::string copy;               ///< the file that the school was copied to; empty for none
  std::vector<std::string> undo;  ///< statements, one a row, each with its reason as a comment
  std::vector<std::string>
      left;  ///< what `SchoolCheck` still finds: nobody knows what it was to be
};

/// Mends what `SchoolCheck` finds in a school's rows, and nothing else, in one transaction; what
/// can't be mended, as a value beyond its field, stays and is told. A file
/// is first copied to one beside it, as it is at that moment, while nobody else writes. Errors are
/// 0x80004005 in Spanish, after which the school is as it was: no fit school; a server's without
/// `backedUp`; publications without `publicationsToo`; whatever the engine refuses. `tell` is told
/// what is about to be kept, in case that it can't be put down anywhere: what comes out of it
/// undoes the repair. It isn't called where there is nothing to mend. `goOn` is
/// called before each statement: what it throws, as `WritingStopped`, undoes the repair too.
RepairReport RepairSchool(
    const SchoolAddress& address, const RepairOptions& options,
    const std::function<void(const RepairReport&)>& tell = [](const RepairReport&) {},
    const std::function<void()>& goOn = {});

}  // namespace quorvane

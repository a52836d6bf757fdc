#pragma once

#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/state/SchoolState.h"

namespace quorvane {

struct StateOptions {
  StateFilter filter;
  bool detail = false;     ///< the subjects of each section too
  bool byTeacher = false;  ///< teachers in the place of sections
  bool csv = false;
  bool json = false;
};

/// Prints how far the evaluations of a school have come. 0, or 1 where the evaluation asked for
/// isn't there.
int State(const SchoolAddress& address, const StateOptions& options);

}  // namespace quorvane

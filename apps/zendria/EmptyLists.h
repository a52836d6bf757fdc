#pragma once

#include <QString>
#include <cstdint>

#include "apps/zendria/StepOneLists.h"

namespace quorvane::zendria {

/// Who looks at the lists.
struct Viewer {
  std::int32_t profile = 0;  ///< 0 sees everything
  QString name;
  bool onStaff = false;  ///< has a row among the staff
};

/// Why the list offers this user nothing, as he reads it; empty when none is empty.
QString WhyEmpty(const StepOneLists& lists, const Viewer& viewer);

}  // namespace quorvane::zendria

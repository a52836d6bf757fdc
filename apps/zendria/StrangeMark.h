#pragma once

#include <QString>

#include "apps/zendria/School.h"

namespace quorvane::zendria {

/// What stands in the window's heading behind the name of a school in a file on whose tables
/// somebody has hung what a school has none of: it may come from anywhere. Empty for any other, and
/// where it can't be read for the moment. On a server that is its keeper's affair.
QString StrangeMark(School& school);

}  // namespace quorvane::zendria

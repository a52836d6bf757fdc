#pragma once

#include <QString>
#include <vector>

#include "apps/escuela/Leftovers.h"

class QWidget;

namespace quorvane::zendria {

/// What stands open in this user's name, a line a publication, and since which program; empty for
/// none.
QString LeftoversText(const std::vector<Leftovers::Left>& left);

/// Offers to remove what programs that are gone have left open. False when the user leaves it, and
/// without a question where there is no such thing.
bool OffersToRemove(QWidget* parent, const std::vector<Leftovers::Left>& left);

}  // namespace quorvane::zendria

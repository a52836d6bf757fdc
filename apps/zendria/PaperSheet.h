#pragma once

#include <QString>
#include <optional>

#include "apps/zendria/Sheet.h"

namespace quorvane::zendria {

/// A grid or list of a form of the module as it goes onto paper or into a file: with the form's
/// title, and below it the class, the evaluation and what else says which it is. `place` is what
/// stands over the form, and is taken for all that where there is something. None for a control of
/// another kind.
std::optional<Sheet> PaperSheet(const Control& control, const QString& place);

}  // namespace quorvane::zendria

#pragma once

#include <functional>

#include "adapters/qt/window/QtFrontEnd.h"

namespace quorvane::zendria {

/// "Guardar como CSV…" and "Imprimir…" in the menu of each grid and list of the module, and what
/// they do.
class PaperMenu {
 public:
  /// Adds to the menus of the forms that `screen` shows. `heading` tells what stands over a form;
  /// what it tells of the place goes onto the paper.
  PaperMenu(qt::QtFrontEnd& screen, std::function<qt::FormHeading(const Form&)> heading);
};

}  // namespace quorvane::zendria

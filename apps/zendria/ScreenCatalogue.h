#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace quorvane::zendria {

/// A screen of the module, as the host's tree offers it.
struct ScreenEntry {
  std::uint8_t node = 0;
  QString group;  ///< the branch of the tree that it hangs from
  QString title;
  QString description;
  bool available = true;  ///< False for one that this installation can't open: shown disabled
};

using ScreenCatalogue = std::vector<ScreenEntry>;

/// The screens of the pending subjects, in the order of the tree.
ScreenCatalogue PendingScreens();

}  // namespace quorvane::zendria

#pragma once

#include "platform/controls/ListBox.h"

namespace quorvane {

/// Moves the selected entry to the end of the other list; without one nothing happens.
void MoveSelected(ListBox& from, ListBox& to);

/// Moves all entries, in their order, to the end of the other list.
void MoveAll(ListBox& from, ListBox& to);

}  // namespace quorvane

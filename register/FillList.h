#pragma once

#include "platform/controls/ItemList.h"
#include "platform/data/Recordset.h"

namespace quorvane {

/// Adds an entry a row of the recordset: the text of one column, with the number in another as
/// item data. The recordset ends behind its last row.
void FillList(ItemList& list, Recordset& rows, const char* text, const char* itemData);

}  // namespace quorvane

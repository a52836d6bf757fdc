#include "register/FillList.h"

namespace quorvane {

void FillList(ItemList& list, Recordset& rows, const char* text, const char* itemData) {
  for (; !rows.Eof(); rows.MoveNext())
    list.AddItem(rows.Fields(text).Text(), rows.Fields(itemData).Long());
}

}  // namespace quorvane

#pragma once

#include <string>

#include "platform/controls/Retivo.h"
#include "platform/data/Recordset.h"

namespace quorvane::guion {

/// The text as a JSON string. Letters beyond ASCII stay; bytes that are no UTF-8 become U+FFFD.
std::string JsonText(const std::string& text);

/// The current row as a JSON array of its values.
std::string JsonRow(const Recordset& rows);

/// What a list offers, as [["text",data],...].
std::string JsonList(const std::vector<Retivo::ListEntry>& list);

}  // namespace quorvane::guion

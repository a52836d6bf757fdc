#pragma once

#include "apps/zendria/Sheet.h"

class QPrinter;

namespace quorvane::zendria {

/// Puts the sheet onto the printer's pages, or those that it was asked for: on each the title, the
/// lines below it and the headings of the columns, and at its foot the date, the page's number and
/// how many there are. A row is never parted. False when the printer can't be begun or breaks off.
bool PrintSheet(const Sheet& sheet, QPrinter& printer);

/// How many pages that takes.
int PagesOf(const Sheet& sheet, QPrinter& printer);

}  // namespace quorvane::zendria

#pragma once

#include <QByteArray>
#include <QChar>
#include <QLocale>

#include "apps/zendria/Sheet.h"

namespace quorvane::zendria {

/// What parts the cells for the spreadsheets of that country: a semicolon where the comma stands in
/// numbers.
QChar CsvSeparator(const QLocale& locale);

/// Headings and rows, a line each that ends in CR and LF, in UTF-8 with a mark of that at the
/// begin, without which spreadsheets take it for something else. A cell with a separator, a
/// quotation mark, a line break or a blank at an end stands in quotation marks, doubled inside.
QByteArray CsvOf(const Sheet& sheet, QChar separator);

}  // namespace quorvane::zendria

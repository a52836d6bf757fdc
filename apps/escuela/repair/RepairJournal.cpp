#include "apps/escuela/repair/RepairJournal.h"

#include <algorithm>

#include "apps/escuela/repair/DoubledRows.h"
#include "apps/escuela/repair/UndoLiteral.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

const std::string kRank = kDoubleRank;

}  // namespace

void RepairJournal::Removed(std::string_view table, const Recordset& rows,
                            const std::string& reason) {
  std::string names;
  std::string values;
  const auto& all = rows.Names();
  const auto own = static_cast<std::size_t>(std::find_if(all.begin(), all.end(),
                                                         [](const auto& name) {
                                                           return name == kBytesMarks ||
                                                                  EqualNoCase(name, kRank);
                                                         }) -
                                            all.begin());
  const auto marks =
      own < all.size() && all[own] == kBytesMarks ? rows.Fields(own).Text() : std::string();
  for (std::size_t i = 0; i < own; ++i) {
    if (i > 0) {
      names += ',';
      values += ',';
    }
    names += UndoName(all[i]);
    values += UndoLiteral(rows.Fields(i), engine_, i < marks.size() && marks[i] == 'b');
  }
  std::string statement = "INSERT INTO ";
  statement.append(table).append(" (").append(names).append(") VALUES (").append(values);
  undo_.push_back(statement + "); -- " + reason);
  ++removed_;
}

void RepairJournal::Changed(const std::string& undo, const std::string& reason) {
  undo_.push_back(undo + "; -- " + reason);
  ++changed_;
}

}  // namespace quorvane

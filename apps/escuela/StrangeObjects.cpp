#include "apps/escuela/StrangeObjects.h"

#include <algorithm>
#include <string_view>

#include "apps/escuela/JoinedText.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/TableClauses.h"
#include "apps/escuela/TableObjects.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

/// What the findings call a kind of objects.
struct Called {
  TableObjectKind kind;
  std::string_view by;
};

constexpr Called kStrange[] = {
    {TableObjectKind::Trigger, "el disparador"},
    {TableObjectKind::Index, "el índice"},
    {TableObjectKind::Condition, "la condición"},
    {TableObjectKind::NotNull, "la condición"},
    {TableObjectKind::Reference, "la clave ajena"},
    {TableObjectKind::RewritingRule, "la regla"},
    {TableObjectKind::RowPolicy, "la política de filas"},
};

bool Holds(const std::vector<std::string>& columns, std::string_view column) {
  return std::any_of(columns.begin(), columns.end(),
                     [&](const std::string& one) { return EqualNoCase(one, column); });
}

/// Tells the objects that do no harm, or are the school's own.
class Own {
 public:
  explicit Own(Connection& database) : file_(EngineReached(database) == sqltext::Engine::Sqlite) {
    // Who makes a file to harm its reader may give his own the names of ours.
    if (file_) history_ = GradeHistory(database).TriggersSql();
  }

  /// Takes the school's own columns out of the object.
  bool Is(TableObjectKind kind, TableObject& object) const {
    switch (kind) {
      case TableObjectKind::Trigger:
        return IsHistoryTrigger(object.name, object.table) &&
               (!file_ || std::find(history_.begin(), history_.end(), object.details.front()) !=
                              history_.end());
      case TableObjectKind::Index:
        // No two rows have the same key, and so none has all else besides.
        return !object.written || (!object.key.empty() && Holds(object.details, object.key) &&
                                   !Holds(object.details, ""));
      case TableObjectKind::Condition:
        return !object.written && !(file_ && HarmsReaders(object.name));
      case TableObjectKind::NotNull:
        std::erase_if(object.details, [&](const std::string& column) {
          return EqualNoCase(column, object.key) ||
                 (object.table == UserPasswords::kTable && EqualNoCase(column, "Clave"));
        });
        return !object.written || object.details.empty();
      case TableObjectKind::Reference:
        return !object.written;
      default:
        return false;
    }
  }

 private:
  bool file_;
  std::vector<std::string> history_;
};

std::string Columns(TableObjectKind kind, const TableObject& object) {
  std::string text;
  if (kind == TableObjectKind::Trigger) return text;
  for (const auto& column : object.details)
    if (!column.empty()) text += (text.empty() ? " de " : ", ") + column;
  return text;
}

}  // namespace

std::vector<std::string> StrangeObjects(Connection& database) {
  std::vector<std::string> findings;
  const Own own(database);
  for (const auto& [kind, by] : kStrange)
    for (auto& object : TableObjects(database, kind)) {
      if (own.Is(kind, object)) continue;
      findings.push_back(Joined(
          {"La tabla ", object.table, " tiene ", by, " «", object.name, "»", Columns(kind, object),
           ", que no es de estos programas y puede impedir que se escriba en ella"}));
    }
  return findings;
}

}  // namespace quorvane

#include "apps/zendria/Staff.h"

#include <algorithm>
#include <string>
#include <utility>

#include "apps/escuela/PersonName.h"
#include "platform/data/Connection.h"
#include "platform/data/StatementTrace.h"
#include "platform/text/SpanishOrder.h"

namespace quorvane::zendria {

std::vector<FilteredList::Entry> ReadStaff(Connection& school) {
  const StatementTrace::Silence silence;
  std::vector<std::pair<std::string, std::int32_t>> people;
  auto rows = school.Execute("SELECT IDPersonal, Apellido1, Apellido2, Nombre FROM Personal");
  for (; !rows.Eof(); rows.MoveNext())
    people.emplace_back(FullName(rows, 1), rows.Fields("IDPersonal").Long());
  std::stable_sort(people.begin(), people.end(), [](const auto& one, const auto& other) {
    return SpanishLess(one.first, other.first);
  });

  std::vector<FilteredList::Entry> entries;
  entries.reserve(people.size());
  for (const auto& [name, id] : people) entries.push_back({id, QString::fromStdString(name), {}});
  return entries;
}

}  // namespace quorvane::zendria

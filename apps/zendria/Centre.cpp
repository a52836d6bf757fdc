#include "apps/zendria/Centre.h"

#include <algorithm>

#include "platform/data/Connection.h"

namespace quorvane::zendria {

QString Centre::Text() const {
  const auto name = QStringLiteral("Centro %1").arg(id);
  return teaching.isEmpty() ? name : name + QStringLiteral("  ·  ") + teaching;
}

std::vector<Centre> ReadCentres(Connection& school) {
  // The kinds 1 and 2 are reserved and never taught.
  auto rows = school.Execute(
      "SELECT C.CodCentro, T.IDTipoEnsenanza, T.Nombre FROM Centro_TipoEnsenanza C "
      "LEFT JOIN TipoEnsenanza T ON T.IDTipoEnsenanza=C.CodTipoEnsenanza "
      "WHERE C.CodCentro IS NOT NULL ORDER BY C.CodCentro, T.Orden, T.IDTipoEnsenanza");
  std::vector<Centre> centres;
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields("CodCentro").Long();
    if (centres.empty() || centres.back().id != id) centres.push_back({id, {}});
    const auto kind = rows.Fields("IDTipoEnsenanza").Long();
    const auto name = QString::fromStdString(rows.Fields("Nombre").Text());
    if (kind <= 2 || name.isEmpty()) continue;
    auto& teaching = centres.back().teaching;
    teaching += (teaching.isEmpty() ? QString() : QStringLiteral(", ")) + name;
  }
  return centres;
}

std::optional<Centre> CentreOrFirst(const std::vector<Centre>& centres,
                                    std::optional<std::int32_t> id) {
  if (centres.empty()) return std::nullopt;
  const auto found = std::find_if(centres.begin(), centres.end(),
                                  [id](const Centre& centre) { return centre.id == id; });
  return found == centres.end() ? centres.front() : *found;
}

}  // namespace quorvane::zendria

#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane {
class Connection;
}

namespace quorvane::zendria {

/// A centre of the school. The database names its kinds of teaching, but not the centre itself.
struct Centre {
  std::int32_t id = 0;
  QString teaching;  ///< the kinds, parted by commas; may be empty

  [[nodiscard]] QString Text() const;
};

/// The school's centres by their ids. Fails as the statement does.
std::vector<Centre> ReadCentres(Connection& school);

/// The one with that id, else the first; none when there is none at all.
std::optional<Centre> CentreOrFirst(const std::vector<Centre>& centres,
                                    std::optional<std::int32_t> id);

}  // namespace quorvane::zendria

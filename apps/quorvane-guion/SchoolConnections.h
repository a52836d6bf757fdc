#pragma once

#include <memory>

#include "adapters/guion/HostConnections.h"
#include "apps/quorvane-guion/PlayOptions.h"
#include "platform/Connection.h"

namespace quorvane::guion {

/// A host's connections to a school: open from its making to its end.
class SchoolConnections {
 public:
  /// A runtime error with a text for the user when the school, or the database with `Usuario`,
  /// can't be opened or isn't one.
  explicit SchoolConnections(const PlayOptions& options);

  [[nodiscard]] HostConnections Connections() const {
    return {*centro_, *borrado_, *entrada_, *otra_};
  }

 private:
  std::unique_ptr<Connection> centro_;
  std::unique_ptr<Connection> borrado_;
  std::unique_ptr<Connection> entrada_;
  std::unique_ptr<Connection> otra_;
};

}  // namespace quorvane::guion

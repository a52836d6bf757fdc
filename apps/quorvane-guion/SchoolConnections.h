#pragma once

#include <memory>
#include <string>

#include "adapters/guion/host/HostConnections.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/quorvane-guion/PlayOptions.h"
#include "platform/data/Connection.h"

namespace quorvane::guion {

/// A host's connections to a school: open from its making to its end, but on a server those that
/// the module doesn't need, which are made when used. Forty programs would hold too many there.
class SchoolConnections {
 public:
  /// A runtime error with a text for the user when the school, or the database with `Usuario`,
  /// can't be opened or isn't one.
  explicit SchoolConnections(const PlayOptions& options);

  [[nodiscard]] HostConnections Connections() const {
    return {*centro_, *borrado_, *entrada_, *otra_};
  }
  /// What the driver says of the school's engine.
  [[nodiscard]] bool SqlServer() const noexcept { return sqlServer_; }
  /// See `ServerDate`.
  [[nodiscard]] std::string Today() const { return ServerDate(*centro_); }
  /// The school's file, or its connection string without any password.
  [[nodiscard]] const std::string& Place() const noexcept { return place_; }

 private:
  std::unique_ptr<Connection> centro_;
  std::unique_ptr<Connection> borrado_;
  std::unique_ptr<Connection> entrada_;
  std::unique_ptr<Connection> otra_;
  bool sqlServer_ = false;
  std::string place_;
};

}  // namespace quorvane::guion

#pragma once

#include <QString>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>

namespace quorvane {
class SessionObject;
}

namespace quorvane::zendria {

/// What ended a screen of the module.
struct Failure {
  std::optional<std::int32_t> number;  ///< the runtime's; none for a failure of another kind
  QString text;
};

/// Hands the session to the module, opens the screen of that node, and returns when it has gone.
/// After a failure none of the module's forms is left and the pointer is back to normal, so that
/// the next screen starts afresh.
std::optional<Failure> OpenNode(std::uint8_t node,
                                const std::shared_ptr<const SessionObject>& session);

/// What an exception of the module, or of another kind, tells.
Failure FailureOf(const std::exception_ptr& thrown);

/// Whether the school's file has been deleted, moved or replaced while it was open.
bool LostFile(const Failure& failure);

/// What the user can do about a failure.
QString Advice(const Failure& failure);

}  // namespace quorvane::zendria

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/RuntimeError.h"
#include "platform/host/HostObject.h"

namespace quorvane {

/// Creates the host's components by ProgID, which is matched without regard to case. The two that
/// the module knows are there from the start, doing nothing; a host puts its own in their place.
class ObjectFactory {
 public:
  using Maker = std::function<std::unique_ptr<HostObject>()>;

  ObjectFactory();

  void Register(std::string_view progId, Maker maker);
  /// Back to the components that do nothing.
  void Reset();

  /// Error 429 for a ProgID that nobody registered.
  [[nodiscard]] std::unique_ptr<HostObject> Create(std::string_view progId) const;

  /// The same, as a component of that class; error 13 when it is of another.
  template <class T>
  [[nodiscard]] std::unique_ptr<T> Create(std::string_view progId) const {
    auto object = Create(progId);
    auto* const typed = dynamic_cast<T*>(object.get());
    if (typed == nullptr) throw RuntimeError(ErrorNumber::TypeMismatch);
    static_cast<void>(object.release());
    return std::unique_ptr<T>(typed);
  }

 private:
  std::map<std::string, Maker> makers_;
};

}  // namespace quorvane

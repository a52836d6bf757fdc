#pragma once

namespace quorvane {

/// A component of the host, created by its ProgID when it is needed and released at once.
class HostObject {
 public:
  HostObject() = default;
  virtual ~HostObject() = default;
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;
  HostObject(HostObject&&) = delete;
  HostObject& operator=(HostObject&&) = delete;
};

}  // namespace quorvane

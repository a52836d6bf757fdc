#pragma once

#include <string>

#include "platform/host/ObjectFactory.h"

namespace quorvane {

class FrontEnd;

/// The version of the module, as "6.00.0009" names it.
struct ModuleVersion {
  int major = 0;
  int minor = 0;
  int revision = 0;
};

/// What surrounds the module in its process: the screen, the host's components, its own version
/// and help file.
class Application {
 public:
  static Application& Instance();

  /// Error 91 when no front end is in use.
  [[nodiscard]] FrontEnd& Screen() const;
  /// Not owned; null for none.
  void UseScreen(FrontEnd* screen) noexcept { screen_ = screen; }

  [[nodiscard]] ObjectFactory& Objects() noexcept { return objects_; }

  [[nodiscard]] const ModuleVersion& Version() const noexcept { return version_; }
  /// Another version than the one that was built: for a host that runs the module as an older one.
  void Version(const ModuleVersion& version) noexcept { version_ = version; }
  static ModuleVersion BuiltVersion();

  [[nodiscard]] const std::string& HelpFile() const noexcept { return helpFile_; }
  void HelpFile(const std::string& path) { helpFile_ = path; }

 private:
  Application();

  FrontEnd* screen_ = nullptr;
  ObjectFactory objects_;
  ModuleVersion version_;
  std::string helpFile_;
};

}  // namespace quorvane

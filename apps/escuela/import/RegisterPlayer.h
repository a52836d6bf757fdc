#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "adapters/guion/host/HostConnections.h"
#include "apps/escuela/import/ImportPlan.h"

namespace quorvane {

/// Puts pending subjects on the register of one section as a user would, through the module's own
/// dialogs: what is written is theirs to say. For its time it is the application's front end; one
/// that was in use before is again afterwards.
class RegisterPlayer {
 public:
  enum class End {
    Done,
    InUse,  ///< somebody enters grades: the dialog saves nothing, and nothing was changed
  };

  /// The connections are open and outlive it. `sqlServer` as in the session.
  RegisterPlayer(guion::HostConnections connections, bool sqlServer)
      : connections_(connections), sqlServer_(sqlServer) {}

  /// `subjects` are all of `section`; `teachers` by subject. `step` is called between gestures.
  /// Error 0x80004005 in Spanish when a dialog refuses what no user could do either, and the
  /// engine's.
  End Play(const RegisterLookup::Section& section, const std::vector<ImportedSubject>& subjects,
           const std::map<std::int32_t, std::int32_t>& teachers, const RegisterLookup& school,
           const std::function<void()>& step);

 private:
  guion::HostConnections connections_;
  bool sqlServer_;
};

}  // namespace quorvane

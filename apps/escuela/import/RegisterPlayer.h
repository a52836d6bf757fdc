#pragma once

#include <cstddef>
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

  /// Told between gestures how many have been made of how many.
  using Step = std::function<void(std::size_t made, std::size_t all)>;

  /// `subjects` are all of `section`; `teachers` by subject. What `step` throws comes out.
  /// Error 0x80004005 in Spanish when a dialog refuses what no user could do either, and the
  /// engine's.
  End Play(const RegisterLookup::Section& section, const std::vector<ImportedSubject>& subjects,
           const std::map<std::int32_t, std::int32_t>& teachers, const RegisterLookup& school,
           const Step& step);

 private:
  guion::HostConnections connections_;
  bool sqlServer_;
};

}  // namespace quorvane

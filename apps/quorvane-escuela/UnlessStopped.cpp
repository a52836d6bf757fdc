#include "apps/quorvane-escuela/UnlessStopped.h"

#include <iostream>

#include "apps/escuela/NewSchool.h"
#include "apps/escuela/OutcomeUnknown.h"
#include "apps/quorvane-escuela/StopSignals.h"
#include "platform/RuntimeError.h"

namespace quorvane {

void RequireGoing() {
  if (StopSignals::Came()) throw WritingStopped();
}

int UnlessStopped(const std::function<int()>& work) {
  StopSignals::Catch();
  try {
    return work();
  } catch (const OutcomeUnknown&) {
    throw;
  } catch (const WritingStopped&) {
  } catch (const RuntimeError&) {
    if (!StopSignals::Came()) throw;
  }
  std::cerr << "quorvane-escuela: Orden interrumpida: no ha quedado nada escrito\n";
  StopSignals::End();
}

}  // namespace quorvane

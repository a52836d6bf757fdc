#include "tests/servidor/faults/FaultFigures.h"

#include <algorithm>

namespace quorvane::test {

void FaultFigures::Add(const FaultFigures& other) {
  longestError = std::max(longestError, other.longestError);
  longestOpening = std::max(longestOpening, other.longestOpening);
  shortestError = faults == 0 ? other.shortestError : std::min(shortestError, other.shortestError);
  faults += other.faults;
  unseen += other.unseen;
  returned += other.returned;
  written += other.written;
  inFlight += other.inFlight;
  inside += other.inside;
  outside += other.outside;
  publications += other.publications;
  locks += other.locks;
  reopened += other.reopened;
}

void FaultFigures::Print(std::ostream& out, const char* what) const {
  out << faults << " faltas: " << what << "\n  de la sentencia al error: de " << shortestError
      << " a " << longestError << " ms"
      << "\n  sentencias que habían vuelto: " << returned << ", de ellas escrituras: " << written
      << ", perdidas: 0"
      << "\n  escrituras en vuelo: " << inFlight << "; han quedado dentro: " << inside
      << ", fuera: " << outside << ", sin efecto: " << inFlight - inside - outside
      << "\n  publicaciones que nombra «bloqueos»: " << publications << ", con bloqueos: " << locks
      << "\n  pantallas abiertas de nuevo: " << reopened
      << ", la que más ha tardado: " << longestOpening
      << " ms\n  faltas en reposo que nadie ha visto: " << unseen << '\n';
}

}  // namespace quorvane::test

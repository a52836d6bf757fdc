#pragma once

namespace quorvane::guion {

class Guion;
struct Command;

// The user's gestures on a control that is no grid. Each is refused when he could not make it.

void Elegir(Guion& guion, const Command& command);
void Marcar(Guion& guion, const Command& command);
void Pulsar(Guion& guion, const Command& command);
void Pestana(Guion& guion, const Command& command);
void Escribir(Guion& guion, const Command& command);
/// Also on a grid.
void Doble(Guion& guion, const Command& command);

}  // namespace quorvane::guion

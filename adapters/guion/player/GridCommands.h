#pragma once

namespace quorvane::guion {

class Guion;
struct Command;

// The user's gestures on a grid. Each is refused when he could not make it.

void Fila(Guion& guion, const Command& command);
void Editar(Guion& guion, const Command& command);
void Lista(Guion& guion, const Command& command);

}  // namespace quorvane::guion

#pragma once

namespace quorvane::guion {

class Guion;
struct Command;

// The user's gestures on the active form as a whole, refused when no form is open.

void Tecla(Guion& guion, const Command& command);
void Tamano(Guion& guion, const Command& command);
void Cerrar(Guion& guion, const Command& command);
/// Prints the form.
void Ver(Guion& guion, const Command& command);

}  // namespace quorvane::guion

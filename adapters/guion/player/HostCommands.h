#pragma once

namespace quorvane::guion {

class Guion;
struct Command;

// What the host does and answers, and what other users do meanwhile.

/// Opens a screen. Refused while a form is open.
void Nodo(Guion& guion, const Command& command);
void Docente(Guion& guion, const Command& command);
void NotasActivas(Guion& guion, const Command& command);
void Hoy(Guion& guion, const Command& command);
void Sesion(Guion& guion, const Command& command);
void Fallo(Guion& guion, const Command& command);
/// Executes another user's statement; refused when it fails.
void Sql(Guion& guion, const Command& command);

/// Hands the session in; an error of the module's is told.
void HandSessionIn(Guion& guion);

}  // namespace quorvane::guion

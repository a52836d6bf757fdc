#pragma once

namespace quorvane {
class Form;
}

namespace quorvane::qt {

/// The form keeps what is done in it until its "Aceptar" saves all of that at once: an afternoon's
/// work is at stake. There no key but on a button itself saves or drops anything, and the window
/// shows that there is something to save.
bool HoldsWork(const Form& form);

}  // namespace quorvane::qt

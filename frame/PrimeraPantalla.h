#pragma once

namespace quorvane {

// The first screens. Each shows its form modally and, when it has gone, drops the form's global
// instance. The layer that owns the form defines it, so that the frame need not know the forms.

void MostrarFrmPendientes();
void MostrarFrmNotaManual1();
void MostrarFrmNotaMateria1();
void MostrarFrmNotaSeccionAlumno1();
void MostrarFrmNotaSeccionMateria1();

}  // namespace quorvane

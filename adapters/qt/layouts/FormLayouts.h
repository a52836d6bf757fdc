#pragma once

namespace quorvane::qt {

class Stage;

// One for each form that has a layout. Each names the controls of its form.

void LayOutFrmPendientes(Stage& stage);
void LayOutFrmAlumnoPendiente(Stage& stage);
void LayOutFrmAlumnos(Stage& stage);
void LayOutFrmAlumnoMateria(Stage& stage);
void LayOutFrmMateriaPend(Stage& stage);
void LayOutFrmMateriaEv(Stage& stage);
void LayOutFrmPropMatProf(Stage& stage);
void LayOutFrmNotaManual1(Stage& stage);
void LayOutFrmNotaMateria1(Stage& stage);
void LayOutFrmNotaSeccionAlumno1(Stage& stage);
void LayOutFrmNotaSeccionMateria1(Stage& stage);

}  // namespace quorvane::qt

#include "apps/zendria/ScreenCatalogue.h"

#include "frame/cNombreNodo.h"

namespace quorvane::zendria {

ScreenCatalogue PendingScreens() {
  const cNombreNodo nodes;
  const QString registered = "Registro";
  const QString wholeSection = "Notas de toda la sección";
  const QString single = "Notas de una materia o de un alumno";
  return {
      {nodes.Pendientes, registered, "Alumnos con materias pendientes",
       "Qué alumnos de una sección tienen materias pendientes, en qué evaluaciones se califican y "
       "qué docente las califica."},
      {nodes.NotaPendientesAlumno, wholeSection, "Por alumno",
       "Se elige sección y evaluación, y se recorren los alumnos: de cada uno, todas sus materias "
       "pendientes."},
      {nodes.NotaPendientesMateria, wholeSection, "Por materia",
       "Se elige sección y evaluación, y se recorren las materias: de cada una, todos los alumnos "
       "que la tienen pendiente."},
      // The names of these two nodes cross with the screens that they open.
      {nodes.NotaPendientesSeccionAlumno, single, "De un alumno, por materia",
       "Se elige sección, evaluación y un alumno, y se recorren las materias que tiene "
       "pendientes."},
      {nodes.NotaPendientesSeccionMateria, single, "De una materia, por alumno",
       "Se elige sección, evaluación y una materia, y se recorren los alumnos que la tienen "
       "pendiente."},
  };
}

}  // namespace quorvane::zendria

#include "apps/zendria/EmptyLists.h"

namespace quorvane::zendria {
namespace {

QString NothingForHim(const Viewer& viewer) {
  if (!viewer.onStaff)
    return QStringLiteral(
               "No hay nada que elegir: el usuario «%1» no está entre el personal de la escuela, y "
               "por eso no es tutor ni profesor de nadie. Lo arregla quien lleva el personal.")
        .arg(viewer.name);
  return QStringLiteral(
             "No hay nada que elegir: «%1» no es tutor de ninguna sección ni profesor de ninguna "
             "materia pendiente. El profesor de una materia se pone en «Alumnos con materias "
             "pendientes».")
      .arg(viewer.name);
}

}  // namespace

QString WhyEmpty(const StepOneLists& lists, const Viewer& viewer) {
  using Empty = StepOneLists::Empty;
  const auto all = viewer.profile == 0;
  switch (lists.empty) {
    case Empty::None:
      return {};
    case Empty::Kinds:
      return all ? "No hay nada que elegir: el centro no da ningún tipo de enseñanza."
                 : NothingForHim(viewer);
    case Empty::Courses:
      return all ? "Este tipo de enseñanza no tiene cursos." : NothingForHim(viewer);
    case Empty::Sections:
      return all ? "Este curso no tiene secciones." : NothingForHim(viewer);
    case Empty::Evaluations:
      return "En esta sección nadie tiene materias pendientes que se califiquen. Se apuntan en "
             "«Alumnos con materias pendientes», con las evaluaciones de cada una.";
    case Empty::Subjects:
      return all ? "En esta sección y evaluación no queda ninguna materia libre que calificar."
                 : "En esta sección y evaluación no queda ninguna materia libre que usted "
                   "califique.";
    case Empty::Students:
      return all ? "En esta sección y evaluación no hay ningún alumno con materias pendientes."
                 : "En esta sección y evaluación no hay ningún alumno con materias pendientes que "
                   "usted califique.";
  }
  return {};
}

}  // namespace quorvane::zendria

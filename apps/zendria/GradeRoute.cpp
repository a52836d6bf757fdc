#include "apps/zendria/GradeRoute.h"

#include <string>
#include <vector>

#include "apps/escuela/state/MayGrade.h"
#include "apps/escuela/state/StrayStudents.h"
#include "frame/cNombreNodo.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {
namespace {

/// Asks the school what its screens would offer.
class Offers {
 public:
  Offers(Connection& school, const GradeTarget& target, std::int32_t staff)
      : school_(school), target_(target), staff_(staff) {
    const auto row = school.Execute("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion=" +
                                    std::to_string(target.evaluation));
    final_ = !row.Eof() && row.Fields(0).Flag();
  }

  /// Whether the section's register has the evaluation, of that subject or (0) of any.
  [[nodiscard]] bool Evaluation(std::int32_t subject) const {
    const std::string table = final_ ? "EvaluacionActaPte" : "EvaluacionPte";
    return Any("(" + table +
               " INNER JOIN AlumnoPte_MatDet ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=" + table +
               ".CodAlumnoPte_MatDet) INNER JOIN Seccion_AlumnoPte ON "
               "Seccion_AlumnoPte.CodAlumno=AlumnoPte_MatDet.CodAlumno WHERE "
               "Seccion_AlumnoPte.CodSeccion=" +
               std::to_string(target_.section) +
               " AND CodNumEvaluacion=" + std::to_string(target_.evaluation) +
               (subject == 0 ? "" : " AND CodMatDet=" + std::to_string(subject)));
  }

  /// Whether he may choose the section: as its tutor, or as a teacher of its register.
  [[nodiscard]] bool Section() const {
    return staff_ == 0 || Tutor(target_.section) ||
           Any("Seccion_AlumnoPte INNER JOIN AlumnoPte_MatDet ON "
               "AlumnoPte_MatDet.CodAlumno=Seccion_AlumnoPte.CodAlumno WHERE CodSeccion=" +
               std::to_string(target_.section) + " AND " + TeacherOf(staff_, "CodMatDet"));
  }

  /// Whether he may choose the student where that one's register is.
  [[nodiscard]] bool Student(const StrayStudent& stray) const {
    return stray.registered != 0 &&
           (staff_ == 0 || Tutor(stray.registered) ||
            Any("Profesor_Pte WHERE CodProfesor=" + std::to_string(staff_) +
                " AND CodMatDet=" + std::to_string(stray.subject)));
  }

  [[nodiscard]] std::vector<StrayStudent> Strays() const {
    StrayFilter filter;
    filter.evaluation = target_.evaluation;
    filter.section = target_.section;
    filter.subject = target_.subject;
    filter.either = staff_;
    return StrayStudents(school_, final_, filter);
  }

 private:
  [[nodiscard]] bool Any(const std::string& from) const {
    return school_.Execute("SELECT COUNT(*) FROM " + from).Fields(0).Long() > 0;
  }
  [[nodiscard]] bool Tutor(std::int32_t section) const {
    return Any("Seccion WHERE IDSeccion=" + std::to_string(section) +
               " AND CodTutor=" + std::to_string(staff_));
  }

  Connection& school_;
  const GradeTarget& target_;
  std::int32_t staff_;
  bool final_ = false;
};

}  // namespace

std::optional<GradeRoute> RouteTo(Connection& school, const GradeTarget& target,
                                  std::int32_t staff) {
  const Offers offers(school, target, staff);
  GradeRoute route{0, target.section, target.evaluation, 0, 0};
  if (target.subject != 0 && offers.Evaluation(target.subject)) {
    route.node = cNombreNodo().NotaPendientesSeccionMateria;
    route.subject = target.subject;
    return route;
  }
  const auto inSection = offers.Section() && offers.Evaluation(0);
  if (inSection) route.node = cNombreNodo().NotaPendientesAlumno;
  if (inSection && target.subject == 0) return route;
  for (const auto& stray : offers.Strays()) {
    if (!inSection && !offers.Student(stray)) continue;
    route.student = stray.student;
    if (inSection) return route;
    route.node = cNombreNodo().NotaPendientesSeccionAlumno;
    route.section = stray.registered;
    return route;
  }
  return std::nullopt;
}

}  // namespace quorvane::zendria

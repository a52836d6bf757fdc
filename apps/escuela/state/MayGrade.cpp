#include "apps/escuela/state/MayGrade.h"

#include "platform/data/Connection.h"

namespace quorvane {

std::int32_t StaffOf(Connection& school, std::int32_t user) {
  const auto rows =
      school.Execute("SELECT IDPersonal FROM Personal WHERE CodUsuario=" + std::to_string(user));
  return rows.Eof() ? 0 : rows.Fields("IDPersonal").Long();
}

std::string TutorOf(std::int32_t staff) {
  return "Alumno.CodSeccion IN (SELECT IDSeccion FROM Seccion WHERE CodTutor=" +
         std::to_string(staff) + ")";
}

std::string TeacherOf(std::int32_t staff, const std::string& subject) {
  return subject +
         " IN (SELECT CodMatDet FROM Profesor_Pte WHERE CodProfesor=" + std::to_string(staff) + ")";
}

std::string MayGrade(std::int32_t staff, const std::string& subject) {
  return "(" + TutorOf(staff) + " OR " + TeacherOf(staff, subject) + ")";
}

}  // namespace quorvane

#include "apps/escuela/state/StrayStudents.h"

#include "apps/escuela/PersonName.h"
#include "apps/escuela/state/MayGrade.h"
#include "platform/data/Connection.h"

namespace quorvane {

std::vector<StrayStudent> StrayStudents(Connection& school, bool final, const StrayFilter& filter) {
  const std::string table = final ? "EvaluacionActaPte" : "EvaluacionPte";
  auto statement =
      "SELECT " + table +
      ".CodNumEvaluacion, Alumno.CodSeccion, AlumnoPte_MatDet.CodMatDet, Alumno.IDAlumno, "
      "Alumno.Apellido_1, Alumno.Apellido_2, Alumno.Nombre, (SELECT MIN(Otra.CodSeccion) FROM "
      "Seccion_AlumnoPte Otra WHERE Otra.CodAlumno=Alumno.IDAlumno) AS Registro FROM ((" +
      table + " INNER JOIN AlumnoPte_MatDet ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=" + table +
      ".CodAlumnoPte_MatDet) INNER JOIN Alumno ON Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno) LEFT "
      "JOIN Seccion_AlumnoPte ON Seccion_AlumnoPte.CodAlumno=Alumno.IDAlumno AND "
      "Seccion_AlumnoPte.CodSeccion=Alumno.CodSeccion WHERE Seccion_AlumnoPte.CodAlumno IS NULL "
      "AND Alumno.Anticipado=0 AND " +
      kActiveStudent;
  const auto only = [&statement](const std::string& column, std::int32_t number) {
    if (number != 0) statement += " AND " + column + "=" + std::to_string(number);
  };
  only(table + ".CodNumEvaluacion", filter.evaluation);
  only("Alumno.CodSeccion", filter.section);
  only("AlumnoPte_MatDet.CodMatDet", filter.subject);
  if (filter.either != 0)
    statement += " AND " + MayGrade(filter.either, "AlumnoPte_MatDet.CodMatDet");
  statement += " ORDER BY CASE WHEN " + table +
               ".CodNota>0 THEN 1 ELSE 0 END, Alumno.OrdenSeccion, Alumno.IDAlumno";
  std::vector<StrayStudent> all;
  for (auto rows = school.Execute(statement); !rows.Eof(); rows.MoveNext())
    all.push_back({rows.Fields(0).Long(), rows.Fields(1).Long(), rows.Fields(2).Long(),
                   rows.Fields(3).Long(), FullName(rows, 4), rows.Fields(7).Long()});
  return all;
}

}  // namespace quorvane

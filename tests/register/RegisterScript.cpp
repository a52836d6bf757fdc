#include "tests/register/RegisterScript.h"

#include <stdexcept>

#include "platform/host/Application.h"

namespace quorvane::test {
namespace {

/// The JSON value that begins at that place.
std::string ValueAt(const std::string& json, std::size_t begin) {
  int depth = 0;
  bool quoted = false;
  for (auto i = begin; i < json.size(); ++i) {
    const auto c = json[i];
    if (quoted) {
      if (c == '\\')
        ++i;
      else if (c == '"')
        quoted = false;
    } else if (c == '"') {
      quoted = true;
    } else if (c == '{' || c == '[') {
      ++depth;
    } else if (c == '}' || c == ']' || c == ',') {
      if (depth == 0) return json.substr(begin, i - begin);
      if (c != ',' && --depth == 0) return json.substr(begin, i + 1 - begin);
    }
  }
  return json.substr(begin);
}

std::string Member(const std::string& json, const std::string& name) {
  const auto key = '"' + name + "\":";
  const auto found = json.find(key);
  if (found == std::string::npos) throw std::runtime_error("no member " + name + " in " + json);
  return ValueAt(json, found + key.size());
}

}  // namespace

std::string View(const ScriptResult& result, const std::string& control,
                 const std::string& member) {
  const auto views = result.Of("ver");
  if (views.empty()) throw std::runtime_error("nothing to see in\n" + result.Text());
  const auto whole = control.empty() ? views.back() : Member(views.back(), control);
  return member.empty() ? whole : Member(whole, member);
}

void GiveRowsToAllMaterias(const SmallSchool& school) {
  for (const auto matDet : {3111, 3112, 3113, 3114, 3115, 3116, 3121, 3122, 3123})
    school.Profesor(0, matDet);
}

AsRevision::AsRevision(int revision) {
  auto version = Application::BuiltVersion();
  version.revision = revision;
  Application::Instance().Version(version);
}

AsRevision::~AsRevision() { Application::Instance().Version(Application::BuiltVersion()); }

std::vector<std::string> AfterFirst(const ScriptResult& result, const std::string& command) {
  ScriptResult upTo;
  for (const auto& line : result.lines) {
    if (line.starts_with("> ") && !upTo.lines.empty() && upTo.lines.front() == "> " + command)
      break;
    if (line == "> " + command || !upTo.lines.empty()) upTo.lines.push_back(line);
  }
  return upTo.After(command);
}

std::vector<std::string> Join(const std::vector<std::vector<std::string>>& lists) {
  std::vector<std::string> all;
  for (const auto& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

std::string RegisterStatement(int section) {
  const std::string columns =
      "SELECT Seccion.Descripcion AS SDescripcion, Alumno.Apellido_2, Alumno.Apellido_1, "
      "Alumno.Nombre, Alumno.IDAlumno, AlumnoPte_MatDet.IDAlumnoPte_MatDet, "
      "AlumnoPte_MatDet.codMatDet, AlumnoPte_MatDet.Orden, NumEvaluacion.IDNumEvaluacion, "
      "NumEvaluacion.Descripcion, NumEvaluacion.Final, Materia.Nombre AS MNombre, "
      "Materia.Optativa, seccion.codcurso ";
  const auto s = std::to_string(section);
  return columns +
         "FROM (Seccion_AlumnoPte LEFT JOIN (Alumno LEFT JOIN Seccion ON "
         "Seccion.IDSeccion=Alumno.codSeccion) ON Seccion_AlumnoPte.codAlumno=alumno.idalumno) "
         "LEFT JOIN ((AlumnoPte_MatDet LEFT JOIN (EvaluacionPte LEFT JOIN NumEvaluacion ON "
         "NumEvaluacion.IDNumEvaluacion=EvaluacionPte.codNumEvaluacion) ON "
         "EvaluacionPte.codAlumnoPte_Matdet=AlumnoPte_Matdet.IDAlumnoPte_Matdet) LEFT JOIN "
         "(MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.codMateria) ON "
         "MateriaDetalles.IDMateriaDetalles=AlumnoPte_Matdet.codMatdet) ON "
         "AlumnoPte_Matdet.codAlumno=Seccion_AlumnoPte.codAlumno "
         "WHERE Seccion_AlumnoPte.codSeccion = " +
         s + " Union " + columns +
         "FROM (Seccion_AlumnoPte LEFT JOIN (Alumno LEFT JOIN Seccion ON "
         "Seccion.IDSeccion=Alumno.codSeccion) ON Seccion_AlumnoPte.codAlumno=alumno.idalumno) "
         "LEFT JOIN ((AlumnoPte_MatDet LEFT JOIN (EvaluacionActaPte LEFT JOIN NumEvaluacion ON "
         "NumEvaluacion.IDNumEvaluacion=EvaluacionActaPte.codNumEvaluacion) ON "
         "EvaluacionActaPte.codAlumnoPte_Matdet=AlumnoPte_Matdet.IDAlumnoPte_Matdet) LEFT JOIN "
         "(MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.codMateria) ON "
         "MateriaDetalles.IDMateriaDetalles=AlumnoPte_Matdet.codMatdet) ON "
         "AlumnoPte_Matdet.codAlumno=Seccion_AlumnoPte.codAlumno "
         "Where Seccion_AlumnoPte.codSeccion = " +
         s + " ORDER BY Alumno.IDAlumno, AlumnoPte_Matdet.Orden";
}

std::vector<std::string> OpeningStatements(const std::vector<int>& lockTests) {
  std::vector<std::string> statements{
      "SELECT DISTINCT codAlumno FROM Alumnopte_matdet WHERE codalumno not in (SELECT IDAlumno "
      "FROM Alumno)",
      "SELECT DISTINCT codmatdet FROM Alumnopte_matdet WHERE codmatdet not in (SELECT "
      "IDMateriaDetalles FROM MateriaDetalles)",
      RegisterStatement()};
  for (const auto matDet : lockTests)
    statements.push_back("SELECT codmatdet FROM BloqueoPte where codmatdet=" +
                         std::to_string(matDet));
  statements.emplace_back("SELECT Orden FROM Curso WHERE IDCurso=32");
  statements.emplace_back(
      "SELECT Seccion.Descripcion AS SDescripcion, Curso.Descripcion AS CDescripcion, "
      "MateriaDetalles.IDMateriaDetalles, Materia.Nombre AS MNombre, Personal.IDPersonal, "
      "Personal.Apellido1, Personal.Apellido2, Personal.Nombre AS PNombre, "
      "Profesor_pte.codMatDet FROM ((MateriaDetalles INNER JOIN (Seccion INNER JOIN Curso ON "
      "Curso.IDCurso=Seccion.codCurso) ON Seccion.IDSeccion=Materiadetalles.codSeccion) INNER "
      "JOIN Materia ON Materia.IDMateria=Materiadetalles.codMateria) LEFT JOIN (Profesor_pte LEFT "
      "JOIN Personal ON Personal.IDPersonal=Profesor_pte.codProfesor) ON "
      "Profesor_pte.codMatDet=Materiadetalles.IDMateriaDetalles WHERE "
      "Materia.CodTipoEnsenanza=3 AND curso.Orden<2 ORDER BY curso.Orden, Seccion.Descripcion, "
      "Materia.Nombre");
  return statements;
}

}  // namespace quorvane::test

#include "tests/grades/OrdinaryStatements.h"

#include <algorithm>

namespace quorvane::test {
namespace {

const std::string kApellidos =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM "
    "Alumno ";

std::string Start(int node, int evaluacion) {
  return "nodo " + std::to_string(node) +
         "\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
         std::to_string(evaluacion) + "\n";
}

/// What step one of a section asks more than that by student: whether the user is the tutor, and
/// its list in place of the kind of evaluation.
Lines StepOneOfSection(const Role& role, int evaluacion, const std::string& list) {
  auto lines = StepOne(role, evaluacion);
  const auto chosen = lines.end() - 3;
  *chosen = lines.back();
  lines.insert(chosen + 1, list);
  lines.insert(lines.end() - 5, FormLoad(role, evaluacion).at(1));
  return lines;
}

std::string SubjectsOfSection(const Role& role, int evaluacion) {
  const std::string courses =
      " AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion";
  const std::string systems =
      " AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
      "SistemaCalificacion.CodTipoEnsenanza=3";
  const auto scope = role.section ? courses + systems
                                  : systems + courses +
                                        " AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT "
                                        "codMatdet FROM Profesor_Pte WHERE CodProfesor=" +
                                        std::to_string(role.gIDPersonal) + ")";
  return Sql("SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
             "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
             "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
             "SistemaCalificacion,EvaluacionPte  WHERE "
             "Materia.IDMateria=MateriaDetalles.CodMateria "
             "AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND "
             "Seccion_AlumnoPte.CodSeccion = 321 AND "
             "TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
             "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
             "TipoMateria.CodEspecificarTipoMateria IN(1)") +
         scope + " AND EvaluacionPte.codnumEvaluacion=" + std::to_string(evaluacion) +
         " AND EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
         "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
         "CodNumEvaluacion=" +
         std::to_string(evaluacion) + ")";
}

std::string StudentsOfSection(const Role& role, int evaluacion, const std::string& table) {
  const auto pending = "(AlumnoPte_MatDet INNER JOIN " + table + " ON " + table +
                       ".codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet)";
  return kApellidos + "INNER JOIN (Seccion_AlumnoPte INNER JOIN " +
         (role.section ? pending
                       : "(" + pending +
                             " INNER JOIN MateriaDetalles ON "
                             "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet)") +
         " ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON "
         "Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR "
         "FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion=321" +
         (role.section ? ""
                       : " AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM "
                         "profesor_Pte WHERE CodProfesor=" +
                             std::to_string(role.gIDPersonal) + ")") +
         " AND codNumEvaluacion=" + std::to_string(evaluacion);
}

std::string UpdateGraded(int evaluacion, int pending, int nota) {
  return Sql(
      "UPDATE EvaluacionPte SET Evaluado=-1,CodNota={},CodNotaActitud=0, CodNotaObservacion=0,"
      "CodNotaConcepto=0,CodNotaProcedimiento=0 WHERE CodNumEvaluacion={} AND "
      "CodAlumnoPte_MatDet = {}",
      {nota, evaluacion, pending});
}

}  // namespace

std::string OpenBySubject(int evaluacion, const std::string& before) {
  return Start(125, evaluacion) + before + "pulsar cmdNotaManual1(0)\n";
}

std::string OpenSectionByStudent(int evaluacion, int matDet, const std::string& before) {
  return Start(127, evaluacion) + "elegir cboMateria =" + std::to_string(matDet) + "\n" + before +
         "pulsar cmdNotaManual1(0)\n";
}

std::string OpenSectionBySubject(int evaluacion, int student, const std::string& before) {
  return Start(126, evaluacion) + "elegir cboAlumno =" + std::to_string(student) + "\n" + before +
         "pulsar cmdNotaManual1(0)\n";
}

Lines StepOneBySubject(const Role& role, int evaluacion) {
  auto lines = StepOne(role, evaluacion);
  std::erase(lines, Sql("SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza=3"));
  return lines;
}

Lines StepOneSectionByStudent(const Role& role, int evaluacion) {
  return StepOneOfSection(role, evaluacion, SubjectsOfSection(role, evaluacion));
}

Lines StepOneSectionBySubject(const Role& role, int evaluacion) {
  return StepOneOfSection(role, evaluacion,
                          Sql(StudentsOfSection(role, evaluacion, "EvaluacionPte") + " UNION " +
                              StudentsOfSection(role, evaluacion, "EvaluacionActaPte")));
}

Lines FormLoadBySubject(const Role& role, int evaluacion, int students) {
  auto lines = FormLoad(role, evaluacion);
  lines.insert(lines.end() - 1, static_cast<std::size_t>(students),
               Sql("SELECT Seguimiento, AcumularObjetivos FROM Seccion WHERE IDSeccion=321"));
  return lines;
}

Lines FormLoadSectionByStudent(const Role& role, int evaluacion) {
  auto lines = FormLoad(role, evaluacion);
  lines.pop_back();
  return lines;
}

Lines FormLoadSectionBySubject(const Role& role, int evaluacion, int student) {
  auto lines = FormLoad(role, evaluacion);
  lines.resize(2);
  return lines + Lines{Sql(kApellidos + "WHERE IDAlumno={}", {student}),
                       Sql("SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=5 AND "
                           "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM "
                           "SistemaCalificacion WHERE CodTipoEnsenanza=3)")};
}

Lines LoadChosen(const Role& role, int evaluacion, int student, int matDet,
                 const std::vector<Subject>& subjects) {
  const std::string where = " WHERE codNumEvaluacion=";
  auto lines = Load(role, evaluacion, student, subjects);
  auto& rows = lines.front();
  rows.replace(rows.find(where), where.size(),
               " WHERE CodMatDet=" + std::to_string(matDet) + " AND codNumEvaluacion=");
  return lines;
}

Lines SubjectGrid(const Role& role, bool first, const std::vector<StudentRow>& rows) {
  Lines lines;
  if (first)
    lines.push_back(
        Sql("SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND CodTipoMateria "
            "IN (SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza=3) ORDER BY Orden",
            {role.True()}));
  for (const auto& row : rows) {
    lines = lines + StudentNames({row.student});
    for (const auto grade : row.grades)
      lines.push_back(Sql("SELECT DescripcionCorta FROM Nota WHERE IDNota={}", {grade}));
  }
  return lines;
}

Lines TutorPane(const Role& role, int evaluacion) {
  if (!role.section) return {};
  auto lines = Grids(role, evaluacion, false, {});
  lines.erase(lines.begin());  // the heading of the other grid
  return lines;
}

Lines LocksUnasked(const Role& role, int evaluacion, std::initializer_list<long> matDets) {
  auto lines = Locks(role, evaluacion, matDets);
  lines.pop_back();
  return lines;
}

std::string LaterMark(const Role& role, int evaluacion, int pending) {
  return Sql(
      "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE UltimaEvaluada={} AND CodNumEvaluacion > "
      "{} AND CodAlumnoPte_MatDet = {}",
      {role.True(), evaluacion, pending});
}

std::string EarlierGrade(const Role& role, int evaluacion, int pending) {
  return Sql(
      "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE Evaluado={} AND CodNumEvaluacion < {} AND "
      "CodAlumnoPte_MatDet = {}",
      {role.True(), evaluacion, pending});
}

Lines SaveBehindTheMark(const Role& role, int evaluacion, int pending, int nota) {
  return {Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", {nota}),
          UpdateGraded(evaluacion, pending, nota), LaterMark(role, evaluacion, pending)};
}

Lines SaveMarked(const Role& role, int evaluacion, int pending, int nota,
                 const std::string& equals) {
  return SaveBehindTheMark(role, evaluacion, pending, nota) +
         Lines{Sql("UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion={} AND "
                   "CodAlumnoPte_MatDet" +
                       equals + "{}",
                   {evaluacion, pending}),
               Sql("UPDATE EvaluacionPte SET UltimaEvaluada=0 WHERE CodNumEvaluacion<>{} AND "
                   "CodAlumnoPte_MatDet = {}",
                   {evaluacion, pending})};
}

Lines SaveNothing(const Role& role, int evaluacion, int pending) {
  return {SaveUngraded(evaluacion, pending), LaterMark(role, evaluacion, pending),
          EarlierGrade(role, evaluacion, pending)};
}

}  // namespace quorvane::test

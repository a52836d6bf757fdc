#include "tests/grades/Statements.h"

namespace quorvane::test {
namespace {

const std::string kSystems =
    "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
    "CodTipoEnsenanza=3)";

const std::string kStudentName =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre";

const std::string kStudentsOfSection =
    kStudentName +
    " FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion=321";

const std::string kTeacherSections =
    "CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN "
    "Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet "
    "IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))";

const std::string kUnlocked =
    " AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  "
    "CodNumEvaluacion={}) ";

std::string EvaluationsOf(const std::string& table) {
  return "SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM "
         "NumEvaluacion INNER JOIN (" +
         table +
         " INNER JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON "
         "Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON "
         "AlumnoPte_MatDet.idAlumnoPte_MatDet=" +
         table + ".codAlumnoPte_MatDet) ON " + table +
         ".codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE Seccion_AlumnoPte.codSeccion=321";
}

Lines StepOneLists(const Role& role) {
  const long person = role.gIDPersonal;
  const Lines evaluations = {
      Sql("SELECT Descripcion, IDNumEvaluacion FROM NumEvaluacion WHERE Final=0 ORDER BY "
          "NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden")};
  const Lines ofSection = {Sql(EvaluationsOf("EvaluacionPte") + " UNION " +
                               EvaluationsOf("EvaluacionActaPte") +
                               " ORDER BY NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria "
                               "DESC, NumEvaluacion.Orden")};
  const auto recoveries =
      Sql("SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza=3");
  const std::string types =
      "SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM "
      "Centro_TipoEnsenanza) AND IDTipoEnsenanza ";
  const std::string courses = "SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza=3";
  const std::string sections = "SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso=32";
  if (role.unrestricted)
    return Lines{Sql(types + "NOT IN (1,2) ORDER BY Orden"), recoveries,
                 Sql(courses + " ORDER BY Orden")} +
           evaluations + Lines{Sql(sections + " ORDER BY Descripcion")} + ofSection;
  return Lines{Sql("SELECT IDPersonal FROM Personal WHERE CodUsuario={}", {role.user}),
               Sql(types +
                       "IN (SELECT CodTipoEnsenanza FROM SistemaCalificacion WHERE "
                       "IDSistemaCalificacion IN (SELECT CodSistemaCalificacion FROM Modelo WHERE "
                       "IDModelo IN (SELECT CodModelo FROM Seccion WHERE " +
                       kTeacherSections + "))) ORDER BY Orden",
                   {person, person}),
               recoveries,
               Sql(courses + " AND IDCurso IN (SELECT CodCurso FROM Seccion WHERE " +
                       kTeacherSections + ") ORDER BY Orden",
                   {person, person})} +
         evaluations +
         Lines{Sql(sections + " AND (" + kTeacherSections + ") ORDER BY Descripcion",
                   {person, person})} +
         ofSection;
}

}  // namespace

Lines Traffic(const std::vector<std::string>& lines) {
  Lines traffic;
  for (const auto& line : lines)
    if (line.starts_with("sql ") || line.starts_with("host ")) traffic.push_back(line);
  return traffic;
}

Lines Traffic(const ScriptResult& result) { return Traffic(result.lines); }

Lines operator+(Lines left, const Lines& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

std::string Sql(const std::string& text, std::initializer_list<long> numbers) {
  auto filled = "sql centro " + text;
  for (const auto number : numbers) filled.replace(filled.find("{}"), 2, std::to_string(number));
  return filled;
}

Lines StepOne(const Role& role, int evaluacion) {
  return StepOneLists(role) +
         Lines{Sql("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion = {}", {evaluacion}),
               "sql entrada  SELECT codpadre,idUsuario,adminsistema FROM Usuario WHERE  IDUsuario "
               "= " +
                   std::to_string(role.user),
               Sql("SELECT Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion = {}",
                   {evaluacion})};
}

Lines FormLoad(const Role& role, int evaluacion) {
  Lines lines = {Sql("SELECT IDPublicacionPte FROM PublicacionPte WHERE codPropietario={} AND "
                     "CodSeccion=321 AND CodNumEvaluacion={}",
                     {role.user, evaluacion}),
                 Sql("SELECT IDPersonal FROM Personal WHERE CodUsuario={} AND IDPersonal IN "
                     "(SELECT CodTutor FROM Seccion WHERE IDSeccion=321)",
                     {role.user})};
  if (role.section)
    lines.push_back(Sql(kStudentsOfSection + " ORDER BY OrdenSeccion"));
  else if (role.gIDPersonal > 0)
    lines.push_back(
        Sql(kStudentsOfSection +
                " AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN "
                "EvaluacionPte ON "
                "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet WHERE "
                "codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE "
                "CodProfesor={})) ORDER BY OrdenSeccion",
            {evaluacion, role.gIDPersonal}));
  lines.push_back(
      Sql("SELECT TipoNota.Nombre FROM TipoNota INNER JOIN TipoMateria ON "
          "TipoNota.CodTipoMateria=TipoMateria.IDTipoMateria WHERE "
          "TipoMateria.CodEspecificarTipoMateria=5 AND TipoMateria." +
          kSystems));
  return lines;
}

Lines Load(const Role& role, int evaluacion, int student, const std::vector<Subject>& subjects) {
  Lines lines;
  if (role.section)
    lines.push_back(
        Sql("SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON "
            "EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE "
            "codNumEvaluacion={} AND CodAlumno={}" +
                kUnlocked + " ORDER BY Orden",
            {evaluacion, student, evaluacion}));
  else
    lines.push_back(Sql(
        "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionPte ON "
        "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) INNER JOIN "
        "Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND "
        "CodNumEvaluacion={} AND Profesor_Pte.codProfesor={}" +
            kUnlocked + "ORDER BY Orden",
        {student, evaluacion, role.gIDPersonal, evaluacion}));
  for (const auto& subject : subjects) {
    lines.push_back(
        Sql("SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN "
            "(SELECT CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles={})",
            {subject.matDet}));
    lines.push_back(
        Sql("SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, "
            "CodNotaProcedimiento FROM EvaluacionPte WHERE CodNumEvaluacion={} AND "
            "CodAlumnoPte_MatDet={}",
            {evaluacion, subject.pending}));
    if (subject.nota > 0)
      lines.push_back(Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", {subject.nota}));
    lines.push_back(
        Sql("SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM "
            "MateriaDetalles WHERE IDMateriaDetalles={}",
            {subject.matDet}));
    lines.push_back(Sql("SELECT Nombre FROM Materia WHERE IDMateria={}", {subject.materia}));
    lines.push_back(
        Sql("SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
            "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=311"));
  }
  return lines;
}

Lines StudentNames(std::initializer_list<int> students) {
  Lines lines;
  for (const auto student : students)
    lines.push_back(Sql(kStudentName + ", OrdenSeccion FROM Alumno WHERE IDAlumno={}", {student}));
  return lines;
}

Lines Grids(const Role& role, int evaluacion, bool first, std::initializer_list<long> grades) {
  Lines lines = {
      Sql("SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=1 AND " + kSystems)};
  if (first)
    lines.push_back(
        Sql("SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND "
            "CodTipoMateria IN (SELECT CodTipoMateria FROM Materia WHERE "
            "CodTipoEnsenanza=3) ORDER BY Orden",
            {role.True()}));
  for (const auto grade : grades)
    lines.push_back(Sql("SELECT DescripcionCorta FROM Nota WHERE IDNota={}", {grade}));
  lines.push_back(
      Sql("SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=3 AND " + kSystems));
  lines.push_back(
      Sql("SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura=0 AND "
          "CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
          kSystems + ") ORDER BY Orden"));
  for (const long kind : {31, 51, 41}) {
    lines.push_back(
        Sql("SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN "
            "(SELECT CodTipoMateria FROM TipoNota WHERE IDTipoNota={})",
            {kind}));
    if (kind == 51)
      lines.push_back(
          Sql("SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN "
              "(SELECT CodModelo FROM Seccion WHERE IDSeccion=321)) AND (CodCurso=0 OR "
              "CodCurso=32) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND CodTipoNota IN "
              "(SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND Materia=0 AND Observacion=0 AND "
              "Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
                  kSystems + ")) ORDER BY DescripcionCorta",
              {evaluacion, role.True()}));
  }
  return lines;
}

Lines TakenLocks(const Role& role, int evaluacion, std::initializer_list<long> matDets) {
  Lines lines = {Sql("SELECT MAX(idpublicacionpte) FROM [publicacionpte]"),
                 Sql("INSERT INTO Publicacionpte  VALUES (1,{},{},4,{})",
                     {role.gIDPersonal, role.user, evaluacion})};
  for (const auto matDet : matDets) {
    lines.push_back(
        Sql("SELECT codProfesor FROM BloqueoPte WHERE CodMatDet={} AND CodNumEvaluacion={}",
            {matDet, evaluacion}));
    lines.push_back(Sql("INSERT INTO BloqueoPte  VALUES ({},{},{},{},1)",
                        {role.gIDPersonal, evaluacion, matDet, role.user}));
  }
  lines.push_back(Sql("SELECT IDPersonal FROM Personal WHERE CodUsuario={}", {role.user}));
  return lines;
}

Lines Locks(const Role& role, int evaluacion, std::initializer_list<long> matDets) {
  auto lines = TakenLocks(role, evaluacion, matDets);
  lines.push_back("host ZendriaApi.cCentroApi.notasactivas");
  return lines;
}

std::string CellList(const Role& role, int evaluacion, int pending, int teacher, int column) {
  return Sql(
      "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR "
      "CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion=321)) AND (CodCurso=0 OR "
      "CodCurso=32) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR "
      "CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal=0) AND CodTipoNota IN "
      "(SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND "
      "Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
          kSystems + ")) ORDER BY DescripcionCorta",
      {evaluacion, pending, teacher, column, role.True(), role.True()});
}

std::string SaveUngraded(int evaluacion, int pending, std::initializer_list<long> others) {
  auto text =
      Sql("UPDATE EvaluacionPte SET CodNota=0,CodNotaActitud={}, CodNotaObservacion={},"
          "CodNotaConcepto={},CodNotaProcedimiento={}",
          others);
  return text + " WHERE CodNumEvaluacion=" + std::to_string(evaluacion) +
         " AND CodAlumnoPte_MatDet = " + std::to_string(pending);
}

Lines Leave(const Role& role, int publication) {
  return {Sql("SELECT IDPersonal FROM Personal WHERE codUsuario={}", {role.user}),
          "host ZendriaApi.cCentroApi.DesbloquearNotas",
          Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte={}", {publication}),
          Sql("DELETE FROM BloqueoPte WHERE codPublicacion={}", {publication}),
          Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte={}", {publication})};
}

}  // namespace quorvane::test

#include "tests/grades/FinalStatements.h"

namespace quorvane::test {
namespace {

const std::string kSystems =
    "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
    "CodTipoEnsenanza=3)";

const std::string kStudents =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM "
    "Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion=321";

const std::string kUnlocked =
    " AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  "
    "CodNumEvaluacion={}) ";

std::string LaterMark(const Role& role, int evaluacion, int pending) {
  return Sql(
      "SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE UltimaEvaluada={} AND "
      "CodNumEvaluacion > {} AND CodAlumnoPte_MatDet ={}",
      {role.True(), evaluacion, pending});
}

std::string Scale(const Role& role) {
  return Sql(
      "SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE abreviatura={} AND CodTipoMateria IN "
      "(SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza=3) ORDER BY Orden",
      {role.True()});
}

std::string GradeText(long grade) {
  return Sql("SELECT DescripcionCorta FROM Nota WHERE IDNota={}", {grade});
}

const std::string kNoExceptional = "NotaExcepcional=0 AND ";

}  // namespace

Lines FirstFinal(const Role& role) {
  return {
      Sql("SELECT IdNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1", {role.True()})};
}

Lines FinalFormLoad(const Role& role, int evaluacion) {
  Lines lines = {Sql("SELECT IDPublicacionPte FROM PublicacionPte WHERE codPropietario={} AND "
                     "CodSeccion=321 AND CodNumEvaluacion={}",
                     {role.user, evaluacion}),
                 Sql("SELECT IDPersonal FROM Personal WHERE CodUsuario={} AND IDPersonal IN "
                     "(SELECT CodTutor FROM Seccion WHERE IDSeccion=321)",
                     {role.user})};
  if (role.section)
    lines.push_back(Sql(kStudents + " ORDER BY OrdenSeccion"));
  else if (role.gIDPersonal > 0)
    lines.push_back(
        Sql(kStudents +
                " AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN "
                "EvaluacionActaPte ON "
                "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet WHERE "
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

Lines FinalFormLoadOf(const Role& role, int evaluacion, int student) {
  const auto whole = FinalFormLoad(role, evaluacion);
  return {whole[0], whole[1],
          Sql("SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS "
              "Nombre FROM Alumno WHERE IDAlumno={}",
              {student}),
          whole.back()};
}

std::string FinalCourse() { return Sql("SELECT Promocion, RE_AC FROM Curso WHERE IDCurso=32"); }

std::string FinalRows(const Role& role, int evaluacion, int student, int matDet) {
  if (!role.section)
    return Sql(
        "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
        "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) INNER JOIN "
        "Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND "
        "CodNumEvaluacion={} AND Profesor_Pte.codProfesor={}" +
            kUnlocked + "ORDER BY Orden",
        {student, evaluacion, role.gIDPersonal, evaluacion});
  return Sql(
      "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
      "EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE " +
          (matDet == 0 ? "" : "codmatdet=" + std::to_string(matDet) + " AND ") +
          "codNumEvaluacion={} AND CodAlumno={}" + kUnlocked + " ORDER BY Orden",
      {evaluacion, student, evaluacion});
}

std::string KindOf(int matDet) {
  return Sql(
      "SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
      "CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles={})",
      {matDet});
}

std::string PassedFirst(int pending) {
  return Sql(
      "SELECT Aprobado FROM Nota WHERE IdNota =(SELECT CodNota FROM EvaluacionActaPte WHERE "
      "CodNumEvaluacion=4 AND CodAlumnoPte_MatDet={})",
      {pending});
}

Lines FinalGrades(int evaluacion, const FinalSubject& subject) {
  Lines lines = {
      Sql("SELECT Evaluado, CodNota, CodNotaObservacion, RE_AC_DIV FROM EvaluacionActaPte WHERE "
          "CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}",
          {evaluacion, subject.pending})};
  if (subject.nota > 0)
    lines.push_back(Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", {subject.nota}));
  return lines + Lines{Sql("SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM "
                           "MateriaDetalles WHERE IDMateriaDetalles={}",
                           {subject.matDet}),
                       Sql("SELECT Nombre FROM Materia WHERE IDMateria={}", {subject.materia}),
                       Sql("SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
                           "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=311")};
}

Lines FinalLoad(const Role& role, int evaluacion, int student,
                const std::vector<FinalSubject>& subjects, int matDet) {
  Lines lines = {FinalRows(role, evaluacion, student, matDet)};
  for (const auto& subject : subjects)
    lines = lines + Lines{KindOf(subject.matDet)} + FinalGrades(evaluacion, subject);
  return lines;
}

Lines FinalGrid(const Role& role, bool first, std::initializer_list<long> grades) {
  Lines lines = {
      Sql("SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=1 AND " + kSystems)};
  if (first) lines.push_back(Scale(role));
  for (const auto grade : grades) lines.push_back(GradeText(grade));
  return lines;
}

Lines FinalSubjectGrid(const Role& role, bool first, const std::vector<FinalStudentRow>& rows) {
  Lines lines;
  if (first) lines.push_back(Scale(role));
  for (const auto& row : rows) {
    lines = lines + StudentNames({row.student});
    for (const auto grade : row.grades) lines.push_back(GradeText(grade));
  }
  return lines;
}

Lines FinalObservation(const Role& role, int evaluacion, bool exceptional) {
  Lines lines = {
      Sql("SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND CodTipoMateria "
          "IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
              kSystems + ") ORDER BY Orden",
          {role.True()})};
  for (const long kind : {11, 51, 12}) {
    lines.push_back(
        Sql("SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
            "CodTipoMateria FROM TipoNota WHERE IDTipoNota={})",
            {kind}));
    if (kind == 51)
      lines.push_back(Sql(
          "SELECT IDNota, DescripcionCorta FROM Nota WHERE " + (exceptional ? "" : kNoExceptional) +
              "(CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE "
              "IDSeccion=321)) AND (CodCurso=0 OR CodCurso=32) AND (CodNumevaluacion=0 OR "
              "CodNumEvaluacion={}) AND CodTipoNota IN "
              "(SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND Materia=0 AND Observacion=0 AND "
              "Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE " +
              kSystems + ")) ORDER BY DescripcionCorta",
          {evaluacion, role.True()}));
  }
  return lines;
}

std::string FinalCellList(const Role& role, int evaluacion, int codMateria, int teacher, int column,
                          int kind) {
  return Sql(
      "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR "
      "CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion=321)) AND (CodCurso=0 OR "
      "CodCurso=32) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR "
      "CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal=0) AND CodTipoNota IN "
      "(SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND "
      "CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE "
      "CodEspecificarTipoMateria={} AND " +
          kSystems + ")) ORDER BY DescripcionCorta",
      {evaluacion, codMateria, teacher, column, role.True(), kind});
}

std::string FinalCellListOfSubject(const Role& role, int evaluacion, int matDet, int teacher,
                                   int column, int kind) {
  auto text = FinalCellList(role, evaluacion, matDet, teacher, column, kind);
  return text.erase(text.find(kNoExceptional), kNoExceptional.size());
}

Lines SaveFinalGraded(const Role& role, int evaluacion, int pending, int nota, int observacion,
                      int medida) {
  return {LaterMark(role, evaluacion, pending),
          Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1, CodNota={}, CodNotaObservacion={}, "
              "RE_AC_DIV={}, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
              {nota, observacion, medida, evaluacion, pending}),
          Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion <> {} AND "
              "CodAlumnoPte_MatDet ={}",
              {evaluacion, pending})};
}

Lines SaveFinalUngraded(const Role& role, int evaluacion, int pending, int observacion,
                        int medida) {
  return {Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota=0, CodNotaObservacion={}, "
              "RE_AC_DIV={}, Evaluado=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
              {observacion, medida, evaluacion, pending}),
          LaterMark(role, evaluacion, pending),
          Sql("SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE CodNota > 0 AND "
              "CodNumEvaluacion < {} AND CodAlumnoPte_MatDet ={}",
              {evaluacion, pending})};
}

}  // namespace quorvane::test

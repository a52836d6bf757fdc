#include "tests/grades/FinalStatements.h"

#include "tests/grades/OrdinaryStatements.h"

namespace quorvane::test {
namespace {

const std::string kSystems =
    "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE "
    "CodTipoEnsenanza=3)";

const std::string kStudentNames =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM "
    "Alumno";
const std::string kStudents =
    kStudentNames +
    " WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion=321";

const std::string kUnlocked =
    " AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  "
    "CodNumEvaluacion={}) ";

/// The question for the first final, which is asked in two spellings.
Lines FirstFinalNumber(const std::string& column, const Role& role) {
  return {
      Sql("SELECT " + column + " FROM NumEvaluacion WHERE Final={} AND Orden=1", {role.True()})};
}

std::string TutorOfSection(const Role& role) { return FormLoad(role, 4).at(1); }

std::string FinalLaterMark(const Role& role, int evaluacion, int pending) {
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

/// The subjects that step one by section and subject offers in a final evaluation.
std::string SubjectsOfStepOne(const Role& role, int evaluacion) {
  const std::string joins =
      " AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion";
  const std::string systems =
      " AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND "
      "SistemaCalificacion.CodTipoEnsenanza=3";
  const auto scope = role.section ? joins + systems
                                  : systems + joins +
                                        " AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT "
                                        "codMatdet FROM Profesor_Pte WHERE CodProfesor=" +
                                        std::to_string(role.gIDPersonal) + ")";
  return Sql(
      "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, "
      "TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, "
      "Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, "
      "SistemaCalificacion,EvaluacionActaPte  WHERE "
      "Materia.IDMateria=MateriaDetalles.CodMateria AND "
      "Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND "
      "Seccion_AlumnoPte.CodSeccion = 321 AND "
      "TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND "
      "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND "
      "TipoMateria.CodEspecificarTipoMateria IN(1,4)" +
          scope +
          " AND EvaluacionActaPte.codnumEvaluacion={} AND "
          "EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND "
          "MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE "
          "CodNumEvaluacion={})",
      {evaluacion, evaluacion});
}

}  // namespace

Lines StepOneFinalOfSubject(const Role& role, int evaluacion) {
  auto lines = StepOne(role, evaluacion);
  const auto chosen = lines.end() - 3;
  *chosen = lines.back();
  lines.insert(chosen + 1, SubjectsOfStepOne(role, evaluacion));
  lines.insert(lines.end() - 5, TutorOfSection(role));
  return lines;
}

Lines StepOneSecondFinalOfStudent(const Role& role, const std::string& pendings) {
  const std::string active = "Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL)";
  const auto failed =
      "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS "
      "Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN "
      "(Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON "
      "Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON "
      "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON "
      "Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion=4 AND "
      "CodAlumnoPte_MatDet IN (" +
      pendings + ") AND Nota.Aprobado=0 AND " + active + " AND Seccion_AlumnoPte.codSeccion=321 ";
  const std::string own =
      role.section ? ""
                   : " AND AlumnoPte_MatDet.codMatDet IN (SELECT codmatdet FROM profesor_Pte WHERE "
                     "CodProfesor=" +
                         std::to_string(role.gIDPersonal) + ")";
  const auto lists =
      FirstFinalNumber("IDNumEvaluacion", role) +
      Lines{
          Sql("SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN "
              "(AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON "
              "AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON "
              "Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON "
              "Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE " +
              active + " AND Seccion_AlumnoPte.codSeccion=321" + own + " AND codNumEvaluacion=5 "),
          Sql("SELECT codAlumno FROM TipoMateria INNER JOIN (MateriaDetalles INNER JOIN "
              "Alumno_MateriaDetalles ON MateriaDetalles.IDMateriaDetalles = "
              "Alumno_MateriaDetalles.codMateriaDetalles) ON "
              "MateriaDetalles.codTipoMateria=TipoMateria.IDTipoMateria WHERE "
              "IDAlumno_MateriaDetalles in(" +
              pendings + ") AND codEspecificarTipoMateria=4"),
          Sql(failed + " UNION " + failed)};
  auto lines = StepOneSectionBySubject(role, 5);
  lines.insert(lines.erase(lines.end() - 3), lists.begin(), lists.end());
  return lines;
}

Lines FirstFinal(const Role& role) { return FirstFinalNumber("IdNumEvaluacion", role); }

Lines FinalFormLoad(const Role& role, int evaluacion) {
  auto lines = FormLoad(role, evaluacion);
  // Who teaches a pending subject, the teacher's list asks another table.
  if (!role.section && role.gIDPersonal > 0)
    lines[2] = Sql(kStudents +
                       " AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER "
                       "JOIN EvaluacionActaPte ON "
                       "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet "
                       "WHERE codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM "
                       "profesor_pte WHERE CodProfesor={})) ORDER BY OrdenSeccion",
                   {evaluacion, role.gIDPersonal});
  return lines;
}

Lines FinalFormLoadOf(const Role& role, int evaluacion, int student) {
  const auto whole = FinalFormLoad(role, evaluacion);
  return {whole[0], whole[1], Sql(kStudentNames + " WHERE IDAlumno={}", {student}), whole.back()};
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

std::string Passes(int nota) { return Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", {nota}); }

Lines FinalNames(int matDet, int materia) {
  return {Sql("SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM "
              "MateriaDetalles WHERE IDMateriaDetalles={}",
              {matDet}),
          Sql("SELECT Nombre FROM Materia WHERE IDMateria={}", {materia}),
          Sql("SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
              "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=311")};
}

std::string OtherKindByStudent(int evaluacion, int pending) {
  return Sql(
      "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE "
      "CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}",
      {evaluacion, pending});
}

std::string OtherKindBySubject(int evaluacion, int hostRow) {
  return Sql(
      "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActa WHERE CodNumEvaluacion={} "
      "AND CodAlumno_MateriaDetalles={}",
      {evaluacion, hostRow});
}

std::string OtherKindOfSection(int evaluacion, int pending) {
  return Sql(
      "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE "
      "CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}",
      {evaluacion, pending});
}

Lines FinalPurge(int pending) {
  return {Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}", {pending}),
          Sql("DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}", {pending}),
          Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}", {pending})};
}

Lines FinalGrades(int evaluacion, const FinalSubject& subject) {
  Lines lines = {
      Sql("SELECT Evaluado, CodNota, CodNotaObservacion, RE_AC_DIV FROM EvaluacionActaPte WHERE "
          "CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}",
          {evaluacion, subject.pending})};
  if (subject.nota > 0) lines.push_back(Passes(subject.nota));
  return lines + FinalNames(subject.matDet, subject.materia);
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
  return {FinalLaterMark(role, evaluacion, pending),
          Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1, CodNota={}, CodNotaObservacion={}, "
              "RE_AC_DIV={}, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
              {nota, observacion, medida, evaluacion, pending}),
          Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion <> {} AND "
              "CodAlumnoPte_MatDet ={}",
              {evaluacion, pending})};
}

Lines SaveFinalBehindTheMark(const Role& role, int evaluacion, int pending, int nota) {
  return {FinalLaterMark(role, evaluacion, pending),
          Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota={}, CodNotaObservacion=0, "
              "RE_AC_DIV=0, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
              {nota, evaluacion, pending})};
}

Lines SaveFinalUngraded(const Role& role, int evaluacion, int pending, int observacion,
                        int medida) {
  return {Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota=0, CodNotaObservacion={}, "
              "RE_AC_DIV={}, Evaluado=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}",
              {observacion, medida, evaluacion, pending}),
          FinalLaterMark(role, evaluacion, pending),
          Sql("SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE CodNota > 0 AND "
              "CodNumEvaluacion < {} AND CodAlumnoPte_MatDet ={}",
              {evaluacion, pending})};
}

std::string FinalMarkGivenBack(int row) {
  return Sql("UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE IDEvaluacionActaPte={}", {row});
}

}  // namespace quorvane::test

#include "tests/grades/FinalStatements.h"

#include "tests/support/ExpectedStatements.h"

namespace quorvane::test {
namespace {

// The statements of the final forms alone, each once and whole, so that a search finds it.
namespace finals {

// Opening.

constexpr const char* kTaughtStudents =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE CodProfesor={})) ORDER BY OrdenSeccion";
constexpr const char* kCourse = "SELECT Promocion, RE_AC FROM Curso WHERE IDCurso={}";
constexpr const char* kRows =
    "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden";
constexpr const char* kRowsOfSubject =
    "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codmatdet={} AND codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden";
constexpr const char* kTaughtRows =
    "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND CodNumEvaluacion={} AND Profesor_Pte.codProfesor={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={}) ORDER BY Orden";
constexpr const char* kPassedFirst =
    "SELECT Aprobado FROM Nota WHERE IdNota =(SELECT CodNota FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={})";
constexpr const char* kGrades =
    "SELECT Evaluado, CodNota, CodNotaObservacion, RE_AC_DIV FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}";
constexpr const char* kOtherKindByStudent =
    "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}";
constexpr const char* kOtherKindBySubject =
    "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActa WHERE CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}";
constexpr const char* kOtherKindOfSection =
    "SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}";

// The grid, its lists and that of the observation.

constexpr const char* kScale =
    "SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE abreviatura={} AND CodTipoMateria IN (SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza={}) ORDER BY Orden";
constexpr const char* kKindsOfObservation =
    "SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})) ORDER BY Orden";
constexpr const char* kCellListByStudent =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria={} AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";
constexpr const char* kCellListBySubject =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria={} AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";

// Saving.

constexpr const char* kLaterMark =
    "SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE UltimaEvaluada={} AND CodNumEvaluacion > {} AND CodAlumnoPte_MatDet ={}";
constexpr const char* kEarlierGrade =
    "SELECT IDEvaluacionActaPte FROM EvaluacionActaPte WHERE CodNota > 0 AND CodNumEvaluacion < {} AND CodAlumnoPte_MatDet ={}";
constexpr const char* kSaveMarked =
    "UPDATE EvaluacionActaPte SET UltimaEvaluada=-1, CodNota={}, CodNotaObservacion={}, RE_AC_DIV={}, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}";
constexpr const char* kSaveUnmarked =
    "UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota={}, CodNotaObservacion={}, RE_AC_DIV={}, Evaluado=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}";
constexpr const char* kSaveUngraded =
    "UPDATE EvaluacionActaPte SET UltimaEvaluada=0, CodNota={}, CodNotaObservacion={}, RE_AC_DIV={}, Evaluado=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}";
constexpr const char* kUnmark =
    "UPDATE EvaluacionActaPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion <> {} AND CodAlumnoPte_MatDet ={}";
constexpr const char* kMarkRow =
    "UPDATE EvaluacionActaPte SET UltimaEvaluada=-1 WHERE IDEvaluacionActaPte={}";

}  // namespace finals

std::string LaterMarkInFinals(const Role& role, int evaluacion, int pending) {
  return Sql(finals::kLaterMark, {role.True(), evaluacion, pending});
}

}  // namespace

Lines StepOneFinalOfSubject(const Role& role, int evaluacion) {
  auto lines = StepOneSectionByStudent(role, evaluacion);
  *(lines.end() - 3) =
      role.section
          ? Sql(expected::kFinalSubjects, {321, 3, evaluacion, evaluacion})
          : Sql(expected::kTaughtFinalSubjects, {321, 3, role.gIDPersonal, evaluacion, evaluacion});
  return lines;
}

Lines StepOneSecondFinalOfStudent(const Role& role, const std::string& pendings) {
  const Lines lists = {Sql(expected::kFirstFinalOfList, {role.True()}),
                       role.section
                           ? Sql(expected::kPendingOfFinal, {321, 5})
                           : Sql(expected::kTaughtPendingOfFinal, {321, role.gIDPersonal, 5}),
                       Sql(expected::kWithPlacement, {pendings}),
                       Sql(expected::kFailed, {4, pendings, 321, 4, pendings, 321})};
  auto lines = StepOneSectionBySubject(role, 5);
  lines.insert(lines.erase(lines.end() - 3), lists.begin(), lists.end());
  return lines;
}

Lines FirstFinal(const Role& role) { return {Sql(expected::kFirstFinal, {role.True()})}; }

Lines FinalFormLoad(const Role& role, int evaluacion) {
  auto lines = FormLoad(role, evaluacion);
  // Only who teaches a pending subject asks another table.
  if (!role.section && role.gIDPersonal > 0)
    lines[2] = Sql(finals::kTaughtStudents, {321, evaluacion, role.gIDPersonal});
  return lines;
}

Lines FinalFormLoadOf(const Role& role, int evaluacion, int student) {
  const auto whole = FinalFormLoad(role, evaluacion);
  return {whole[0], whole[1], Sql(expected::kChosenStudent, {student}), whole.back()};
}

std::string FinalCourse() { return Sql(finals::kCourse, {32}); }

std::string FinalRows(const Role& role, int evaluacion, int student, int matDet) {
  if (!role.section)
    return Sql(finals::kTaughtRows, {student, evaluacion, role.gIDPersonal, evaluacion});
  if (matDet == 0) return Sql(finals::kRows, {evaluacion, student, evaluacion});
  return Sql(finals::kRowsOfSubject, {matDet, evaluacion, student, evaluacion});
}

std::string KindOf(int matDet) { return Sql(expected::kKindOfSubject, {matDet}); }

std::string PassedFirst(int pending) { return Sql(finals::kPassedFirst, {4, pending}); }

std::string Passes(int nota) { return Sql(expected::kPasses, {nota}); }

Lines FinalNames(int matDet, int materia) {
  return {Sql(expected::kTeachers, {matDet}), Sql(expected::kSubjectName, {materia}),
          Sql(expected::kCourseName, {311})};
}

std::string OtherKindByStudent(int evaluacion, int pending) {
  return Sql(finals::kOtherKindByStudent, {evaluacion, pending});
}

std::string OtherKindBySubject(int evaluacion, int hostRow) {
  return Sql(finals::kOtherKindBySubject, {evaluacion, hostRow});
}

std::string OtherKindOfSection(int evaluacion, int pending) {
  return Sql(finals::kOtherKindOfSection, {evaluacion, pending});
}

Lines FinalGrades(int evaluacion, const Subject& subject) {
  Lines lines = {Sql(finals::kGrades, {evaluacion, subject.pending})};
  if (subject.nota > 0) lines.push_back(Passes(subject.nota));
  return lines + FinalNames(subject.matDet, subject.materia);
}

Lines FinalLoad(const Role& role, int evaluacion, int student, const std::vector<Subject>& subjects,
                int matDet) {
  Lines lines = {FinalRows(role, evaluacion, student, matDet)};
  for (const auto& subject : subjects)
    lines = lines + Lines{KindOf(subject.matDet)} + FinalGrades(evaluacion, subject);
  return lines;
}

Lines FinalGrid(const Role& role, bool first, std::size_t subjects) {
  Lines lines = {Sql(expected::kKindName, {1, 3})};
  if (first) lines.push_back(Sql(finals::kScale, {role.True(), 3}));
  return lines + NoGrades(3 * subjects);
}

Lines FinalSubjectGrid(const Role& role, bool first, std::initializer_list<int> students) {
  Lines lines;
  if (first) lines.push_back(Sql(finals::kScale, {role.True(), 3}));
  for (const auto student : students) lines = lines + StudentNames({student}) + NoGrades(3);
  return lines;
}

Lines FinalObservation(const Role& role, int evaluacion, bool exceptional) {
  const auto* const list = exceptional ? expected::kObservations : expected::kPlainObservations;
  return {Sql(finals::kKindsOfObservation, {role.True(), 3}), Sql(expected::kKindOfTutorKind, {11}),
          Sql(expected::kKindOfTutorKind, {51}), Sql(list, {321, 32, evaluacion, role.True(), 3}),
          Sql(expected::kKindOfTutorKind, {12})};
}

std::string FinalCellList(const Role& role, int evaluacion, int codMateria, int teacher, int column,
                          int kind) {
  return Sql(finals::kCellListByStudent,
             {321, 32, evaluacion, codMateria, teacher, 0, column, role.True(), kind, 3});
}

std::string FinalCellListOfSubject(const Role& role, int evaluacion, int matDet, int teacher,
                                   int column, int kind) {
  return Sql(finals::kCellListBySubject,
             {321, 32, evaluacion, matDet, teacher, 0, column, role.True(), kind, 3});
}

Lines SaveFinalGraded(const Role& role, int evaluacion, int pending, int nota, int observacion,
                      int medida) {
  return {LaterMarkInFinals(role, evaluacion, pending),
          Sql(finals::kSaveMarked, {nota, observacion, medida, evaluacion, pending}),
          Sql(finals::kUnmark, {evaluacion, pending})};
}

Lines SaveFinalBehindTheMark(const Role& role, int evaluacion, int pending, int nota) {
  return {LaterMarkInFinals(role, evaluacion, pending),
          Sql(finals::kSaveUnmarked, {nota, 0, 0, evaluacion, pending})};
}

Lines SaveFinalUngraded(const Role& role, int evaluacion, int pending, int observacion,
                        int medida) {
  return {Sql(finals::kSaveUngraded, {0, observacion, medida, evaluacion, pending}),
          LaterMarkInFinals(role, evaluacion, pending),
          Sql(finals::kEarlierGrade, {evaluacion, pending})};
}

std::string FinalMarkGivenBack(int row) { return Sql(finals::kMarkRow, {row}); }

}  // namespace quorvane::test

#pragma once

// The statements as they have to reach the database, to the letter and the blank. Numbers, flags
// and lists of numbers stand as "{}". Each stands once, whole, so that a search finds it.

namespace quorvane::test::expected {

// Step one: who opens it, and what he may choose.

inline constexpr const char* kStaff = "SELECT IDPersonal FROM Personal WHERE CodUsuario={}";
inline constexpr const char* kTutor =
    "SELECT IDPersonal FROM Personal WHERE CodUsuario={} AND IDPersonal IN (SELECT CodTutor FROM Seccion WHERE IDSeccion={})";
inline constexpr const char* kAllTypes =
    "SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM Centro_TipoEnsenanza) AND IDTipoEnsenanza NOT IN (1,2) ORDER BY Orden";
inline constexpr const char* kTypes =
    "SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM Centro_TipoEnsenanza) AND IDTipoEnsenanza IN (SELECT CodTipoEnsenanza FROM SistemaCalificacion WHERE IDSistemaCalificacion IN (SELECT CodSistemaCalificacion FROM Modelo WHERE IDModelo IN (SELECT CodModelo FROM Seccion WHERE CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))))) ORDER BY Orden";
inline constexpr const char* kRecoveries =
    "SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza={}";
inline constexpr const char* kAllCourses =
    "SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza={} ORDER BY Orden";
inline constexpr const char* kCourses =
    "SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza={} AND IDCurso IN (SELECT CodCurso FROM Seccion WHERE CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))) ORDER BY Orden";
inline constexpr const char* kAllSections =
    "SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso={} ORDER BY Descripcion";
inline constexpr const char* kSections =
    "SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso={} AND (CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet FROM profesor_pte WHERE CodProfesor={}))) ORDER BY Descripcion";
inline constexpr const char* kOrdinaryEvaluations =
    "SELECT Descripcion, IDNumEvaluacion FROM NumEvaluacion WHERE Final=0 ORDER BY NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden";
inline constexpr const char* kEvaluations =
    "SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM NumEvaluacion INNER JOIN (EvaluacionPte INNER JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) ON EvaluacionPte.codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE Seccion_AlumnoPte.codSeccion={} UNION SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM NumEvaluacion INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON EvaluacionActaPte.codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE Seccion_AlumnoPte.codSeccion={} ORDER BY NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden";
inline constexpr const char* kFinalOfFormer =
    "SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion={}";
inline constexpr const char* kFinalOfChosen =
    "SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion = {}";
inline constexpr const char* kFinalAndOrder =
    "SELECT Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion = {}";
inline constexpr const char* kFollowUp = "SELECT Seguimiento FROM Seccion WHERE IDSeccion={}";
inline constexpr const char* kFirstFinalOfList =
    "SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1";

// Its list of subjects, and of that in the second final the parts of its narrowing.

inline constexpr const char* kSubjects =
    "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1) AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND EvaluacionPte.codnumEvaluacion={} AND EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})";
inline constexpr const char* kFinalSubjects =
    "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1,4) AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND EvaluacionActaPte.codnumEvaluacion={} AND EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})";
inline constexpr const char* kTaughtSubjects =
    "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT codMatdet FROM Profesor_Pte WHERE CodProfesor={}) AND EvaluacionPte.codnumEvaluacion={} AND EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})";
inline constexpr const char* kTaughtFinalSubjects =
    "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, TipoMateria.CodEspecificarTipoMateria, curso.Descripcion FROM curso, seccion, Seccion_AlumnoPte, AlumnoPte_MatDet, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion,EvaluacionActaPte  WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND Seccion_AlumnoPte.codAlumno=AlumnoPte_MatDet.codalumno AND Seccion_AlumnoPte.CodSeccion = {} AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet AND TipoMateria.CodEspecificarTipoMateria IN(1,4) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza={} AND curso.IDCurso=Seccion.codcurso AND seccion.idseccion=MateriaDetalles.codseccion AND  MateriaDetalles.IDMateriaDEtalles IN (SELECT codMatdet FROM Profesor_Pte WHERE CodProfesor={}) AND EvaluacionActaPte.codnumEvaluacion={} AND EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet  AND MateriaDetalles.IDMateriaDetalles NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE CodNumEvaluacion={})";
inline constexpr const char* kSubjectsPassed =
    "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Nota.Aprobado, curso.Descripcion  FROM Materia INNER JOIN ((MateriaDetalles INNER JOIN (AlumnoPte_MatDet INNER JOIN (EvaluacionActaPte INNER JOIN Nota ON EvaluacionActaPte.codNota=Nota.IDNota) ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) INNER JOIN (Seccion INNER JOIN Curso ON Curso.IDCurso=Seccion.codcurso) ON Seccion.IDseccion=MateriaDetalles.codSeccion) ON Materia.IDMateria = MateriaDetalles.codMateria WHERE MateriaDetalles.IDMateriaDetalles IN({}) ORDER BY IDMateriaDetalles";
inline constexpr const char* kSubjectsShown =
    "SELECT DISTINCT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, curso.Descripcion  FROM curso, Seccion, MateriaDetalles, Materia, TipoMateria, SistemaCalificacion WHERE Materia.IDMateria=MateriaDetalles.CodMateria AND TipoMateria.IDTipoMateria=Materia.CodTipoMateria AND TipoMateria.CodEspecificarTipoMateria IN(1,4) AND TipoMateria.CodSistemaCalificacion=SistemaCalificacion.IDSistemacalificacion AND SistemaCalificacion.CodTipoEnsenanza=3 AND Curso.IDCurso=seccion.codcurso AND Seccion.IDSeccion=MateriaDetalles.codseccion  AND MateriaDetalles.IDMateriaDetalles IN ({})";

// Its list of students, likewise.

inline constexpr const char* kRegistered =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={} UNION SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={}";
inline constexpr const char* kTaughtRegistered =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN ((AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) INNER JOIN MateriaDetalles ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={} UNION SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN ((AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON EvaluacionActaPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet) INNER JOIN MateriaDetalles ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.codMatDet) ON AlumnoPte_MatDet.codAlumno=Seccion_AlumnoPte.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND MateriaDetalles.IDMateriaDetalles IN (SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={}";
inline constexpr const char* kPendingOfFinal =
    "SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND codNumEvaluacion={} ";
inline constexpr const char* kTaughtPendingOfFinal =
    "SELECT IDAlumnoPte_MatDet FROM Alumno INNER JOIN (Seccion_AlumnoPte INNER JOIN (AlumnoPte_MatDet INNER JOIN EvaluacionActaPte ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON Seccion_AlumnoPte.codalumno = AlumnoPte_MatDet.codAlumno) ON Seccion_AlumnoPte.codAlumno=Alumno.IDAlumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} AND AlumnoPte_MatDet.codMatDet IN (SELECT codmatdet FROM profesor_Pte WHERE CodProfesor={}) AND codNumEvaluacion={} ";
inline constexpr const char* kWithPlacement =
    "SELECT codAlumno FROM TipoMateria INNER JOIN (MateriaDetalles INNER JOIN Alumno_MateriaDetalles ON MateriaDetalles.IDMateriaDetalles = Alumno_MateriaDetalles.codMateriaDetalles) ON MateriaDetalles.codTipoMateria=TipoMateria.IDTipoMateria WHERE IDAlumno_MateriaDetalles in({}) AND codEspecificarTipoMateria=4";
inline constexpr const char* kFailed =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN (Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion={} AND CodAlumnoPte_MatDet IN ({}) AND Nota.Aprobado=0 AND Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={}  UNION SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS Nombre FROM Nota INNER JOIN (EvaluacionActaPte INNER JOIN (AlumnoPte_MatDet INNER JOIN (Alumno INNER JOIN Seccion_AlumnoPte ON Alumno.IDAlumno=Seccion_AlumnoPte.codalumno) ON Alumno.IDAlumno=AlumnoPte_MatDet.codAlumno) ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=EvaluacionActaPte.CodAlumnoPte_MatDet) ON Nota.IDNota=EvaluacionActaPte.codNota WHERE EvaluacionActaPte.CodNumEvaluacion={} AND CodAlumnoPte_MatDet IN ({}) AND Nota.Aprobado=0 AND Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND Seccion_AlumnoPte.codSeccion={} ";
inline constexpr const char* kStudentsShown =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Alumno.Nombre AS Nombre FROM Alumno WHERE IDAlumno IN({})";

// The way to step two. The user stands in the other database.

inline constexpr const char* kUser =
    " SELECT codpadre,idUsuario,adminsistema FROM Usuario WHERE  IDUsuario = {}";
inline constexpr const char* kDates =
    " SELECT fechaInicio,fechaFin,codseccion  FROM FechaNotas WHERE  codseccion={}  AND codNumEvaluacion= {} ";
inline constexpr const char* kFirstFinal =
    "SELECT IdNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1";

// The load of an ordinary form.

inline constexpr const char* kOwnPublication =
    "SELECT IDPublicacionPte FROM PublicacionPte WHERE codPropietario={} AND CodSeccion={} AND CodNumEvaluacion={}";
inline constexpr const char* kStudents =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} ORDER BY OrdenSeccion";
inline constexpr const char* kTaughtStudents =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE Anticipado = 0 AND (FechaBaja='' OR FechaBaja IS NULL) AND codSeccion={} AND IDAlumno IN (SELECT DISTINCT CodAlumno FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodMatDet IN (SELECT codMatdet FROM profesor_pte WHERE CodProfesor={})) ORDER BY OrdenSeccion";
inline constexpr const char* kChosenStudent =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre FROM Alumno WHERE IDAlumno={}";
inline constexpr const char* kSectionFlags =
    "SELECT Seguimiento, AcumularObjetivos FROM Seccion WHERE IDSeccion={}";
inline constexpr const char* kObservationByGrade =
    "SELECT TipoNota.Nombre FROM TipoNota INNER JOIN TipoMateria ON TipoNota.CodTipoMateria=TipoMateria.IDTipoMateria WHERE TipoMateria.CodEspecificarTipoMateria=5 AND TipoMateria.CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})";
inline constexpr const char* kKindName =
    "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria={} AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})";
inline constexpr const char* kRows =
    "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden";
inline constexpr const char* kRowsOfSubject =
    "SELECT AlumnoPte_MatDet.* FROM AlumnoPte_MatDet INNER JOIN EvaluacionPte ON EvaluacionPte.codAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet WHERE CodMatDet={} AND codNumEvaluacion={} AND CodAlumno={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={})  ORDER BY Orden";
inline constexpr const char* kTaughtRows =
    "SELECT AlumnoPte_MatDet.* FROM (AlumnoPte_MatDet INNER JOIN EvaluacionPte ON AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) INNER JOIN Profesor_Pte ON Profesor_Pte.codMatdet=AlumnoPte_MatDet.codmatdet WHERE CodAlumno={} AND CodNumEvaluacion={} AND Profesor_Pte.codProfesor={} AND AlumnoPte_MatDet.CodMatDet NOT IN (SELECT CodMatDet FROM BloqueoPte WHERE  CodNumEvaluacion={}) ORDER BY Orden";
inline constexpr const char* kKindOfSubject =
    "SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles={})";
inline constexpr const char* kGrades =
    "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento FROM EvaluacionPte WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet={}";
inline constexpr const char* kPasses = "SELECT Aprobado FROM Nota WHERE IDNota={}";
inline constexpr const char* kTeachers =
    "SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM MateriaDetalles WHERE IDMateriaDetalles={}";
inline constexpr const char* kSubjectName = "SELECT Nombre FROM Materia WHERE IDMateria={}";
inline constexpr const char* kCourseName =
    "SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON Seccion.codCurso=Curso.IDCurso WHERE IDSeccion={}";
inline constexpr const char* kPurgeGrades =
    "DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet={}";
inline constexpr const char* kPurgeFinalGrades =
    "DELETE FROM EvaluacionActaPte WHERE CodAlumnoPte_MatDet={}";
inline constexpr const char* kPurgeRow = "DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet={}";
inline constexpr const char* kPurgeElsewhere =
    "DELETE FROM AlumnoPte_MateriaDetalles WHERE IDAlumnoPte_MatDet={}";

// Its grids and lists.

inline constexpr const char* kStudentName =
    "SELECT IDAlumno, Ltrim(Rtrim(Apellido_1 + ' ' + Apellido_2)) + ', ' + Nombre AS Nombre, OrdenSeccion FROM Alumno WHERE IDAlumno={}";
inline constexpr const char* kScale =
    "SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND CodTipoMateria IN (SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza={}) ORDER BY Orden";
inline constexpr const char* kGradeText = "SELECT DescripcionCorta FROM Nota WHERE IDNota={}";
inline constexpr const char* kTutorKinds =
    "SELECT IDTipoNota, Nombre, Orden FROM TipoNota WHERE Abreviatura=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})) ORDER BY Orden";
inline constexpr const char* kKindOfTutorKind =
    "SELECT CodEspecificartipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT CodTipoMateria FROM TipoNota WHERE IDTipoNota={})";
inline constexpr const char* kObservations =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND Materia=0 AND Observacion=0 AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";
inline constexpr const char* kPlainObservations =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden=1 AND Materia=0 AND Observacion=0 AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";
inline constexpr const char* kCellList =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion={} AND Evaluacion={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";
inline constexpr const char* kCellListOfKind =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria={} AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";
inline constexpr const char* kTutorCellList =
    "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria=3 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta";

// Publication and locks, as they are taken and given back.

inline constexpr const char* kLastPublication =
    "SELECT MAX(idpublicacionpte) FROM [publicacionpte]";
inline constexpr const char* kPublish = "INSERT INTO Publicacionpte  VALUES ({},{},{},4,{})";
inline constexpr const char* kHolder =
    "SELECT codProfesor FROM BloqueoPte WHERE CodMatDet={} AND CodNumEvaluacion={}";
inline constexpr const char* kLock = "INSERT INTO BloqueoPte  VALUES ({},{},{},{},{})";
inline constexpr const char* kStaffOnLeaving =
    "SELECT IDPersonal FROM Personal WHERE codUsuario={}";
inline constexpr const char* kUnpublish = "DELETE FROM PublicacionPte WHERE IDPublicacionPte={}";
inline constexpr const char* kUnlock = "DELETE FROM BloqueoPte WHERE codPublicacion={}";

// Saving. By student a grade takes the mark in its own statement; the blanks tell whether it
// passes.

inline constexpr const char* kSavePassed =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1 ,Evaluado=-1,CodNota={},CodNotaActitud=0, CodNotaObservacion=0,CodNotaConcepto=0,CodNotaProcedimiento=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kSaveFailed =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1, Evaluado=-1,CodNota={},CodNotaActitud=0, CodNotaObservacion=0,CodNotaConcepto=0,CodNotaProcedimiento=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kUnmarkByStudent =
    "UPDATE EvaluacionPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion<>{} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kSaveGraded =
    "UPDATE EvaluacionPte SET Evaluado=-1,CodNota={},CodNotaActitud=0, CodNotaObservacion=0,CodNotaConcepto=0,CodNotaProcedimiento=0 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kSaveUngraded =
    "UPDATE EvaluacionPte SET CodNota=0,CodNotaActitud={}, CodNotaObservacion={},CodNotaConcepto={},CodNotaProcedimiento={} WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kLaterMark =
    "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE UltimaEvaluada={} AND CodNumEvaluacion > {} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kEarlierGrade =
    "SELECT IDEvaluacionPte FROM EvaluacionPte WHERE Evaluado={} AND CodNumEvaluacion < {} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kMarkBySubject =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet= {}";
inline constexpr const char* kMarkBySection =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}";
inline constexpr const char* kUnmark =
    "UPDATE EvaluacionPte SET UltimaEvaluada=0 WHERE CodNumEvaluacion<>{} AND CodAlumnoPte_MatDet = {}";
inline constexpr const char* kMarkRow =
    "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE IDEvaluacionPte={}";

// The routines without a caller, on objectives in the host's grade book. Some forms name a new key.

inline constexpr const char* kObjectives =
    "SELECT * FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion={} AND CodAlumno={} AND CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={})) ORDER BY CodAlumno, CodMateriaDetallesAsociada, Orden";
inline constexpr const char* kNamedObjectives =
    "SELECT IDAlumno_MateriaDetalles, CodMateriaDetalles, CodMateriaDetallesAsociada, Orden FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion={} AND CodAlumno={} AND CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={})) ORDER BY CodAlumno, CodMateriaDetallesAsociada, Orden";
inline constexpr const char* kObjectiveGrades =
    "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion={} AND CodAlumno_MateriaDetalles={}";
inline constexpr const char* kObjectiveRecovery =
    "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion={} AND (Recuperacion=2 OR Recuperacion=3) AND CodAlumno_MateriaDetalles={}";
inline constexpr const char* kLaterToAdd =
    "SELECT IDNumEvaluacion, Orden FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE IDNumEvaluacion={}) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM Seccion_NumEvaluacion WHERE CodSeccion={}) ORDER BY Orden";
inline constexpr const char* kLaterToRemove =
    "SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE IDNumEvaluacion={}) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM Seccion_NumEvaluacion WHERE CodSeccion={}) ORDER BY Orden";
inline constexpr const char* kStudentInEvaluation =
    "SELECT CodAlumno FROM Alumno_NumEvaluacion WHERE CodAlumno={} AND CodNumEvaluacion={}";
inline constexpr const char* kLastInEvaluation =
    "SELECT MAX(IDAlumno_NumEvaluacion){} FROM [Alumno_NumEvaluacion]";
inline constexpr const char* kInsertInEvaluation =
    "INSERT INTO Alumno_NumEvaluacion  VALUES ({},{},{},0,0,0,0,0,0)";
inline constexpr const char* kDetailOfSubject =
    "SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={} AND CodSeccion={}";
inline constexpr const char* kObjectiveOrder =
    "SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}";
inline constexpr const char* kObjectiveKeyAndOrder =
    "SELECT IDAlumno_MateriaDetalles, Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}";
inline constexpr const char* kLastObjective =
    "SELECT MAX(IDAlumno_MateriaDetalles){} FROM [Alumno_MateriaDetalles]";
inline constexpr const char* kInsertObjective =
    "INSERT INTO Alumno_MateriaDetalles  VALUES ({},{},{},{},{},{},-1,0)";
inline constexpr const char* kLastGrades = "SELECT MAX(IDEvaluacion){} FROM [Evaluacion]";
inline constexpr const char* kInsertGrades =
    "INSERT INTO Evaluacion  VALUES ({},{},{},0,0,0,0,0,0,0,0,0,0,0,0,0)";
inline constexpr const char* kInsertPendingGrades =
    "INSERT INTO EvaluacionPte  VALUES ({},{},{},0,0,0,0,0,0,0,0,0,0,0,0,0)";
inline constexpr const char* kObjectiveKey =
    "SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetallesAsociada={} AND CodMateriaDetalles={}";
inline constexpr const char* kDeleteObjectiveGrades =
    "DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}";
inline constexpr const char* kDeletePendingGrades =
    "DELETE FROM EvaluacionPte WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}";
inline constexpr const char* kDeleteObjective =
    "DELETE FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetallesAsociada={} AND CodMateriaDetalles={}";

}  // namespace quorvane::test::expected

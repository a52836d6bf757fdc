#pragma once

#include <string>

// The statements of step one as they have to reach the database, to the letter and the blank, each
// behind the connection that it runs on. Numbers stand as "{}".

namespace quorvane::test {

inline const std::string kPersonal = "centro SELECT IDPersonal FROM Personal WHERE CodUsuario={}";

inline const std::string kTypesUnrestricted =
    "centro SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM "
    "Centro_TipoEnsenanza) AND IDTipoEnsenanza NOT IN (1,2) ORDER BY Orden";
inline const std::string kTypes =
    "centro SELECT * FROM TipoEnsenanza WHERE IDTipoEnsenanza IN (SELECT codTipoEnsenanza FROM "
    "Centro_TipoEnsenanza) AND IDTipoEnsenanza IN (SELECT CodTipoEnsenanza FROM "
    "SistemaCalificacion WHERE IDSistemaCalificacion IN (SELECT CodSistemaCalificacion FROM Modelo "
    "WHERE IDModelo IN (SELECT CodModelo FROM Seccion WHERE CodTutor= {} OR IDSeccion IN (SELECT "
    "CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON "
    "AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet "
    "FROM profesor_pte WHERE CodProfesor={}))))) ORDER BY Orden";

inline const std::string kRecoveries =
    "centro SELECT Recuperaciones FROM SistemaCalificacion WHERE CodTipoEnsenanza={}";

inline const std::string kCoursesUnrestricted =
    "centro SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza={} ORDER BY Orden";
inline const std::string kCourses =
    "centro SELECT Descripcion, IDCurso FROM Curso WHERE codTipoEnsenanza={} AND IDCurso IN "
    "(SELECT CodCurso FROM Seccion WHERE CodTutor= {} OR IDSeccion IN (SELECT CodSeccion FROM "
    "AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON "
    "AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet "
    "FROM profesor_pte WHERE CodProfesor={}))) ORDER BY Orden";

inline const std::string kSectionsUnrestricted =
    "centro SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso={} ORDER BY Descripcion";
inline const std::string kSections =
    "centro SELECT Descripcion, IDSeccion FROM Seccion WHERE codCurso={} AND (CodTutor= {} OR "
    "IDSeccion IN (SELECT CodSeccion FROM AlumnoPte_matDet INNER JOIN Seccion_AlumnoPte ON "
    "AlumnoPte_matDet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE codMatDet IN (SELECT codmatdet "
    "FROM profesor_pte WHERE CodProfesor={}))) ORDER BY Descripcion";

inline const std::string kOrdinaryEvaluations =
    "centro SELECT Descripcion, IDNumEvaluacion FROM NumEvaluacion WHERE Final=0 ORDER BY "
    "NumEvaluacion.Final DESC, NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden";
inline const std::string kEvaluations =
    "centro SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria, NumEvaluacion.Orden FROM "
    "NumEvaluacion INNER JOIN (EvaluacionPte INNER JOIN (AlumnoPte_MatDet INNER JOIN "
    "Seccion_AlumnoPte ON Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON "
    "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionPte.codAlumnoPte_MatDet) ON "
    "EvaluacionPte.codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE "
    "Seccion_AlumnoPte.codSeccion={} UNION SELECT IDNumEvaluacion, Descripcion, Final, "
    "Extraordinaria, NumEvaluacion.Orden FROM NumEvaluacion INNER JOIN (EvaluacionActaPte INNER "
    "JOIN (AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON "
    "Seccion_AlumnoPte.codalumno=AlumnoPte_MatDet.codAlumno) ON "
    "AlumnoPte_MatDet.idAlumnoPte_MatDet=EvaluacionActaPte.codAlumnoPte_MatDet) ON "
    "EvaluacionActaPte.codNumEvaluacion=NumEvaluacion.IDNumEvaluacion WHERE "
    "Seccion_AlumnoPte.codSeccion={} ORDER BY NumEvaluacion.Final DESC, "
    "NumEvaluacion.Extraordinaria DESC, NumEvaluacion.Orden";

inline const std::string kFinalOfFormer =
    "centro SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion={}";
inline const std::string kFinalOfChosen =
    "centro SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion = {}";
inline const std::string kFinalAndOrder =
    "centro SELECT Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion = {}";
inline const std::string kFollowUp = "centro SELECT Seguimiento FROM Seccion WHERE IDSeccion={}";
inline const std::string kTutor =
    "centro SELECT IDPersonal FROM Personal WHERE CodUsuario={} AND IDPersonal IN (SELECT CodTutor "
    "FROM Seccion WHERE IDSeccion={})";

inline const std::string kUser =
    "entrada  SELECT codpadre,idUsuario,adminsistema FROM Usuario WHERE  IDUsuario = {}";
inline const std::string kDates =
    "centro  SELECT fechaInicio,fechaFin,codseccion  FROM FechaNotas WHERE  codseccion={}  AND "
    "codNumEvaluacion= {} ";
/// In step one's list of a section flow, then when step two opens.
inline const std::string kFirstFinalOfList =
    "centro SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1";
inline const std::string kFirstFinalOfStepTwo =
    "centro SELECT IdNumEvaluacion FROM NumEvaluacion WHERE Final={} AND Orden=1";

}  // namespace quorvane::test

#pragma once

#include <string>
#include <vector>

#include "platform/data/Sql.h"

namespace quorvane::test {
using Lines = std::vector<std::string>;
}

// What the register executes, each statement under its name.
namespace quorvane::test::statement {

// A line a statement.
// clang-format off

// The screen before it.

inline std::string Kinds(int centre) { return Sql("SELECT DISTINCT IDTipoEnsenanza, Nombre, orden FROM TipoEnsenanza INNER JOIN Centro_tipoensenanza ON Centro_tipoensenanza.CodTipoEnsenanza=TipoEnsenanza.IDTipoEnsenanza WHERE codtipoensenanza not in (1,2) AND codCentro={} ORDER BY Orden", centre); }
inline std::string Courses(int kind) { return Sql("SELECT IDCurso, Descripcion FROM Curso WHERE codTipoEnsenanza={} ORDER BY Orden", kind); }
inline std::string Sections(int course) { return Sql("SELECT IDSeccion, Descripcion FROM Seccion WHERE codCurso={} ORDER BY Descripcion", course); }

// Opening.

inline const std::string kGoneStudents = "SELECT DISTINCT codAlumno FROM Alumnopte_matdet WHERE codalumno not in (SELECT IDAlumno FROM Alumno)";
inline const std::string kGoneSubjects = "SELECT DISTINCT codmatdet FROM Alumnopte_matdet WHERE codmatdet not in (SELECT IDMateriaDetalles FROM MateriaDetalles)";

inline Lines PurgeStudent(int student) {
  return {
      Sql("Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codalumno={})", student),
      Sql("Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codalumno={})", student),
      Sql("Delete From Seccion_AlumnoPte where codalumno={}", student),
      Sql("Delete From Alumnopte_matdet where codalumno={}", student)};
}
inline Lines PurgeSubject(int matDet) {
  return {
      Sql("Delete From Evaluacionactapte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codmatdet={})", matDet),
      Sql("Delete From Evaluacionpte WHERE codAlumnopte_matdet IN (SELECT idAlumnopte_matdet FROM Alumnopte_matdet WHERE codmatdet={})", matDet),
      Sql("Delete From Alumnopte_matdet where codmatdet={}", matDet)};
}
inline std::string Register(int section) { return Sql("SELECT Seccion.Descripcion AS SDescripcion, Alumno.Apellido_2, Alumno.Apellido_1, Alumno.Nombre, Alumno.IDAlumno, AlumnoPte_MatDet.IDAlumnoPte_MatDet, AlumnoPte_MatDet.codMatDet, AlumnoPte_MatDet.Orden, NumEvaluacion.IDNumEvaluacion, NumEvaluacion.Descripcion, NumEvaluacion.Final, Materia.Nombre AS MNombre, Materia.Optativa, seccion.codcurso FROM (Seccion_AlumnoPte LEFT JOIN (Alumno LEFT JOIN Seccion ON Seccion.IDSeccion=Alumno.codSeccion) ON Seccion_AlumnoPte.codAlumno=alumno.idalumno) LEFT JOIN ((AlumnoPte_MatDet LEFT JOIN (EvaluacionPte LEFT JOIN NumEvaluacion ON NumEvaluacion.IDNumEvaluacion=EvaluacionPte.codNumEvaluacion) ON EvaluacionPte.codAlumnoPte_Matdet=AlumnoPte_Matdet.IDAlumnoPte_Matdet) LEFT JOIN (MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.codMateria) ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_Matdet.codMatdet) ON AlumnoPte_Matdet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE Seccion_AlumnoPte.codSeccion = {} Union SELECT Seccion.Descripcion AS SDescripcion, Alumno.Apellido_2, Alumno.Apellido_1, Alumno.Nombre, Alumno.IDAlumno, AlumnoPte_MatDet.IDAlumnoPte_MatDet, AlumnoPte_MatDet.codMatDet, AlumnoPte_MatDet.Orden, NumEvaluacion.IDNumEvaluacion, NumEvaluacion.Descripcion, NumEvaluacion.Final, Materia.Nombre AS MNombre, Materia.Optativa, seccion.codcurso FROM (Seccion_AlumnoPte LEFT JOIN (Alumno LEFT JOIN Seccion ON Seccion.IDSeccion=Alumno.codSeccion) ON Seccion_AlumnoPte.codAlumno=alumno.idalumno) LEFT JOIN ((AlumnoPte_MatDet LEFT JOIN (EvaluacionActaPte LEFT JOIN NumEvaluacion ON NumEvaluacion.IDNumEvaluacion=EvaluacionActaPte.codNumEvaluacion) ON EvaluacionActaPte.codAlumnoPte_Matdet=AlumnoPte_Matdet.IDAlumnoPte_Matdet) LEFT JOIN (MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.codMateria) ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_Matdet.codMatdet) ON AlumnoPte_Matdet.codAlumno=Seccion_AlumnoPte.codAlumno Where Seccion_AlumnoPte.codSeccion = {} ORDER BY Alumno.IDAlumno, AlumnoPte_Matdet.Orden", section, section); }
inline Lines DropDoubled(int pending) {
  return {Sql("delete from evaluacionpte where codAlumnoPte_MatDet={}", pending),
          Sql("delete from evaluacionactapte where codAlumnoPte_MatDet={}", pending),
          Sql("delete from alumnopte_matdet where idAlumnoPte_MatDet={}", pending)};
}
inline std::string LockOfSubject(int matDet) { return Sql("SELECT codmatdet FROM BloqueoPte where codmatdet={}", matDet); }
inline std::string LockOfTeacher(int personal) { return Sql("SELECT codprofesor FROM BloqueoPte where codprofesor={}", personal); }
inline std::string OrderOfCourse(int course) { return Sql("SELECT Orden FROM Curso WHERE IDCurso={}", course); }
inline std::string Teachers(int kind, int order) { return Sql("SELECT Seccion.Descripcion AS SDescripcion, Curso.Descripcion AS CDescripcion, MateriaDetalles.IDMateriaDetalles, Materia.Nombre AS MNombre, Personal.IDPersonal, Personal.Apellido1, Personal.Apellido2, Personal.Nombre AS PNombre, Profesor_pte.codMatDet FROM ((MateriaDetalles INNER JOIN (Seccion INNER JOIN Curso ON Curso.IDCurso=Seccion.codCurso) ON Seccion.IDSeccion=Materiadetalles.codSeccion) INNER JOIN Materia ON Materia.IDMateria=Materiadetalles.codMateria) LEFT JOIN (Profesor_pte LEFT JOIN Personal ON Personal.IDPersonal=Profesor_pte.codProfesor) ON Profesor_pte.codMatDet=Materiadetalles.IDMateriaDetalles WHERE Materia.CodTipoEnsenanza={} AND curso.Orden<{} ORDER BY curso.Orden, Seccion.Descripcion, Materia.Nombre", kind, order); }

/// What opening the register of section 321 executes when its tables are in order: purges, the
/// register, a lock test for each of the subjects, the teachers.
inline Lines Opening(const std::vector<int>& lockTests = {}) {
  Lines all{kGoneStudents, kGoneSubjects, Register(321)};
  for (const auto matDet : lockTests) all.push_back(LockOfSubject(matDet));
  all.push_back(OrderOfCourse(32));
  all.push_back(Teachers(3, 2));
  return all;
}

// The dialogs.

inline std::string Picker(const std::string& ids) { return "SELECT alumno.IDAlumno, Alumno.Apellido_1, Alumno.Apellido_2, Alumno.nombre FROM Alumno INNER JOIN Seccion_Alumno ON Alumno.IDAlumno=Seccion_Alumno.codAlumno WHERE idalumno not in (" + ids + ") AND (FechaBaja='' OR FechaBaja IS NULL) AND alumno.codSeccion=321"; }
inline const std::string kColumns = "SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion ORDER BY Final, Extraordinaria, Orden";
inline const std::string kEvaluations = "SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion  WHERE idnumevaluacion<>11  ORDER BY Final, Extraordinaria,Orden";
inline std::string CourseOf(int matDet) { return Sql("SELECT Curso.Descripcion AS CDescripcion, Seccion.Descripcion AS SDescripcion FROM MateriaDetalles INNER JOIN (Seccion INNER JOIN Curso ON Seccion.CodCurso=Curso.IDCurso) ON MateriaDetalles.codSeccion=Seccion.IDSeccion WHERE IDMateriaDetalles={}", matDet); }
inline std::string Validation(int evaluation) { return Sql("SELECT Extraordinaria, Final FROM NumEvaluacion WHERE IDNumEvaluacion={}", evaluation); }
inline std::string Creation(int evaluation) { return Sql("SELECT Extraordinaria, Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion={}", evaluation); }
inline std::string CoursesToChoose(int kind) { return Sql("SELECT DISTINCT IDCurso, Descripcion, Curso.Orden FROM Curso WHERE codTipoEnsenanza={} ORDER BY Curso.Orden", kind); }
inline std::string SectionsToChoose(int course) { return Sql("SELECT Seccion.IDSeccion, Seccion.Descripcion FROM Seccion WHERE codCurso={} ORDER BY Descripcion", course); }
inline std::string SubjectsToChoose(const std::string& ids) { return "SELECT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Materia.Optativa FROM MateriaDetalles INNER JOIN Materia ON MAteria.IDMateria=MateriaDetalles.codMAteria WHERE MateriaDetalles.codSeccion=311 AND MateriaDetalles.IDMateriaDetalles NOT IN (" + ids + ") AND Materia.codMateriaAsociada=0 ORDER BY Materia.Nombre"; }
inline std::string Person(int personal) { return Sql("SELECT IDPersonal,Apellido1,Apellido2,Nombre FROM Personal WHERE IDPersonal={}", personal); }

// Saving.

inline std::string InsertTeacher(int personal, int matDet) { return Sql("INSERT INTO Profesor_Pte VALUES ({},{})", personal, matDet); }
inline std::string UpdateTeacher(int personal, int matDet) { return Sql("UPDATE Profesor_Pte SET codProfesor={} WHERE codMatDet={}", personal, matDet); }
inline std::string DeleteTeacher(int matDet) { return Sql("DELETE FROM Profesor_Pte WHERE codMatDet={}", matDet); }
inline Lines InsertStudent(int student) {
  return {Sql("DELETE FROM Seccion_AlumnoPte WHERE codSeccion = 321 AND codAlumno = {}", student),
          Sql("INSERT INTO Seccion_AlumnoPte VALUES (321,{},0,0)", student)};
}
inline Lines DeleteStudent(int student) {
  return {
      Sql("DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno={})", student),
      Sql("DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno={})", student),
      Sql("DELETE FROM AlumnoPte_MatDet WHERE CodAlumno={}", student),
      Sql("DELETE FROM Seccion_AlumnoPte WHERE CodAlumno={}", student)};
}
/// Of student 1, as all that follow.
inline Lines InsertSubject(int pending, int matDet, int order) {
  return {"SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
          Sql("INSERT INTO Alumnopte_MatDet VALUES ({},1,{},{},0)", pending, matDet, order)};
}
inline std::string FindSubject(int matDet) { return Sql("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno=1", matDet); }
inline std::string OrderSubject(int pending, int order) { return Sql("UPDATE AlumnoPte_MatDet SET Orden={} WHERE IDAlumnoPte_MatDet={}", order, pending); }
inline Lines UpdateSubject(int matDet, int pending, int order) {
  return {FindSubject(matDet), OrderSubject(pending, order)};
}
inline Lines DeleteSubject(int matDet) {
  return {
      Sql("DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno=1)", matDet),
      Sql("DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno=1)", matDet),
      Sql("DELETE FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno=1", matDet)};
}
inline Lines InsertOrdinary(int id, int pending, int evaluation) {
  return {
      "SELECT MAX(IDEvaluacionPte) FROM [EvaluacionPte]",
      Sql("INSERT INTO EvaluacionPte VALUES ({},{},{},0,0,0,0,0,0,0)", id, pending, evaluation)};
}
inline Lines InsertFinal(int id, int pending, int evaluation) {
  return {
      "SELECT MAX(IDEvaluacionActaPte) FROM [EvaluacionActaPte]",
      Sql("INSERT INTO EvaluacionActaPte VALUES ({},{},{},0,0,0,0,0)", id, pending, evaluation)};
}
inline Lines DeleteEvaluation(int evaluation, int pending) {
  return {Sql("DELETE FROM EvaluacionActaPte WHERE codnumevaluacion={} AND codAlumnoPte_MatDet={}", evaluation, pending),
          Sql("DELETE FROM EvaluacionPte WHERE codnumevaluacion={} AND codAlumnoPte_MatDet={}", evaluation, pending)};
}

// clang-format on

}  // namespace quorvane::test::statement

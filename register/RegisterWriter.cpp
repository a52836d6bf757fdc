#include "register/RegisterWriter.h"

#include "frame/modGeneral.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

RegisterWriter::RegisterWriter(Connection& centro, std::int32_t section)
    : centro_(centro), section_(section) {}

void RegisterWriter::SaveTeachers(const Collection<cMatProf>& colMatProf) {
  for (const auto& matProf : colMatProf) SaveTeacher(*matProf);
}

void RegisterWriter::SaveTeacher(const cMatProf& matProf) {
  const auto materia = matProf.IDMatDetalle;
  if (matProf.Estado == estados_.Eliminado)
    centro_.Execute(Sql("DELETE FROM Profesor_Pte WHERE codMatDet={}", materia));
  else if (matProf.Estado == estados_.Modificado)
    centro_.Execute(Sql("UPDATE Profesor_Pte SET codProfesor={} WHERE codMatDet={}",
                        matProf.IDPersonal, materia));
  else if (matProf.Estado == estados_.NUEVO)
    centro_.Execute(Sql("INSERT INTO Profesor_Pte VALUES ({},{})", matProf.IDPersonal, materia));
}

void RegisterWriter::SaveStudents(const Collection<cAlumno>& colAlumnos) {
  for (const auto& alumno : colAlumnos) {
    if (alumno->Estado == estados_.Eliminado)
      DeleteStudent(*alumno);
    else if (alumno->Estado == estados_.NUEVO)
      InsertStudent(*alumno);
    else if (alumno->Estado == estados_.Modificado)
      UpdateStudent(*alumno);
  }
}

void RegisterWriter::DeleteStudent(const cAlumno& alumno) {
  const auto id = alumno.IDAlumno;
  centro_.Execute(Sql(
      "DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno={})",
      id));
  centro_.Execute(Sql(
      "DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno={})",
      id));
  centro_.Execute(Sql("DELETE FROM AlumnoPte_MatDet WHERE CodAlumno={}", id));
  // His places on the registers of other sections too: he leaves them all.
  centro_.Execute(Sql("DELETE FROM Seccion_AlumnoPte WHERE CodAlumno={}", id));
}

void RegisterWriter::InsertStudent(const cAlumno& alumno) {
  // A row left over must not be doubled.
  centro_.Execute(Sql("DELETE FROM Seccion_AlumnoPte WHERE codSeccion = {} AND codAlumno = {}",
                      section_, alumno.IDAlumno));
  centro_.Execute(
      Sql("INSERT INTO Seccion_AlumnoPte VALUES ({},{},0,0)", section_, alumno.IDAlumno));
  for (const auto& materia : alumno.colMateria) InsertSubject(alumno, *materia);
}

void RegisterWriter::UpdateStudent(const cAlumno& alumno) {
  for (const auto& materia : alumno.colMateria) {
    if (materia->Estado == estados_.NUEVO)
      InsertSubject(alumno, *materia);
    else if (materia->Estado == estados_.Modificado)
      UpdateSubject(alumno, *materia);
    else if (materia->Estado == estados_.Eliminado)
      DeleteSubject(alumno, *materia);
  }
}

std::int32_t RegisterWriter::SiguienteId(const std::string& maximo) {
  return ObtenerSiguienteId(centro_, nullptr, maximo);
}

void RegisterWriter::InsertSubject(const cAlumno& alumno, const cMateria& materia) {
  const auto id = SiguienteId(Sql("SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]"));
  centro_.Execute(Sql("INSERT INTO Alumnopte_MatDet VALUES ({},{},{},{},{})", id, alumno.IDAlumno,
                      materia.IDMatDetalle, materia.Orden, materia.codCurso));
  for (const auto& evaluacion : materia.colEvaluaciones) InsertEvaluation(id, *evaluacion);
}

void RegisterWriter::UpdateSubject(const cAlumno& alumno, const cMateria& materia) {
  const auto id =
      centro_
          .Execute(Sql(
              "SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno={}",
              materia.IDMatDetalle, alumno.IDAlumno))
          .Fields(0)
          .Long();
  centro_.Execute(
      Sql("UPDATE AlumnoPte_MatDet SET Orden={} WHERE IDAlumnoPte_MatDet={}", materia.Orden, id));
  for (const auto& evaluacion : materia.colEvaluaciones) {
    if (evaluacion->Estado == estados_.NUEVO)
      InsertEvaluation(id, *evaluacion);
    else if (evaluacion->Estado == estados_.Eliminado)
      DeleteEvaluation(id, *evaluacion);
  }
}

void RegisterWriter::DeleteSubject(const cAlumno& alumno, const cMateria& materia) {
  centro_.Execute(Sql(
      "DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno={})",
      materia.IDMatDetalle, alumno.IDAlumno));
  centro_.Execute(Sql(
      "DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN (SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno={})",
      materia.IDMatDetalle, alumno.IDAlumno));
  centro_.Execute(Sql("DELETE FROM AlumnoPte_MatDet WHERE CodMatDet={} AND CodAlumno={}",
                      materia.IDMatDetalle, alumno.IDAlumno));
}

void RegisterWriter::InsertEvaluation(std::int32_t pending, const cEvaluacion& evaluacion) {
  if (evaluacion.Final) {
    const auto id = SiguienteId(Sql("SELECT MAX(IDEvaluacionActaPte) FROM [EvaluacionActaPte]"));
    centro_.Execute(Sql("INSERT INTO EvaluacionActaPte VALUES ({},{},{},0,0,0,0,0)", id, pending,
                        evaluacion.IDEvaluacion));
  } else {
    const auto id = SiguienteId(Sql("SELECT MAX(IDEvaluacionPte) FROM [EvaluacionPte]"));
    centro_.Execute(Sql("INSERT INTO EvaluacionPte VALUES ({},{},{},0,0,0,0,0,0,0)", id, pending,
                        evaluacion.IDEvaluacion));
  }
}

void RegisterWriter::DeleteEvaluation(std::int32_t pending, const cEvaluacion& evaluacion) {
  centro_.Execute(
      Sql("DELETE FROM EvaluacionActaPte WHERE codnumevaluacion={} AND codAlumnoPte_MatDet={}",
          evaluacion.IDEvaluacion, pending));
  centro_.Execute(
      Sql("DELETE FROM EvaluacionPte WHERE codnumevaluacion={} AND codAlumnoPte_MatDet={}",
          evaluacion.IDEvaluacion, pending));
}

}  // namespace quorvane

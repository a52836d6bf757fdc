#include "register/RegisterWriter.h"

#include "frame/modGeneral.h"
#include "platform/data/Connection.h"

namespace quorvane {

RegisterWriter::RegisterWriter(Connection& centro, std::int32_t section)
    : centro_(centro), section_(Key(section)) {}

std::string RegisterWriter::SiguienteId(const std::string& tabla, const std::string& campo) {
  return Key(ObtenerSiguienteId(centro_, nullptr, tabla, campo));
}

void RegisterWriter::SaveTeachers(const Collection<cMatProf>& colMatProf) {
  for (const auto& matProf : colMatProf) SaveTeacher(*matProf);
}

void RegisterWriter::SaveTeacher(const cMatProf& matProf) {
  const auto matDet = Key(matProf.IDMatDetalle);
  const auto profesor = Key(matProf.IDPersonal);
  if (matProf.Estado == estados_.Eliminado)
    centro_.Execute("DELETE FROM Profesor_Pte WHERE codMatDet=" + matDet);
  else if (matProf.Estado == estados_.Modificado)
    centro_.Execute("UPDATE Profesor_Pte SET codProfesor=" + profesor +
                    " WHERE codMatDet=" + matDet);
  else if (matProf.Estado == estados_.NUEVO)
    centro_.Execute("INSERT INTO Profesor_Pte VALUES (" + profesor + "," + matDet + ")");
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
  const auto a = Key(alumno.IDAlumno);
  const auto subjects =
      "(SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodAlumno=" + a + ")";
  centro_.Execute("DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN " + subjects);
  centro_.Execute("DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN " + subjects);
  centro_.Execute("DELETE FROM AlumnoPte_MatDet WHERE CodAlumno=" + a);
  // His places on the registers of other sections too: he leaves them all.
  centro_.Execute("DELETE FROM Seccion_AlumnoPte WHERE CodAlumno=" + a);
}

void RegisterWriter::InsertStudent(const cAlumno& alumno) {
  const auto a = Key(alumno.IDAlumno);
  // A row left over must not be doubled.
  centro_.Execute("DELETE FROM Seccion_AlumnoPte WHERE codSeccion = " + section_ +
                  " AND codAlumno = " + a);
  centro_.Execute("INSERT INTO Seccion_AlumnoPte VALUES (" + section_ + "," + a + ",0,0)");
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

void RegisterWriter::InsertSubject(const cAlumno& alumno, const cMateria& materia) {
  const auto id = SiguienteId("Alumnopte_matdet", "IDAlumnopte_matdet");
  centro_.Execute("INSERT INTO Alumnopte_MatDet VALUES (" + id + "," + Key(alumno.IDAlumno) + "," +
                  Key(materia.IDMatDetalle) + "," + Key(materia.Orden) + "," +
                  Key(materia.codCurso) + ")");
  for (const auto& evaluacion : materia.colEvaluaciones) InsertEvaluation(id, *evaluacion);
}

void RegisterWriter::UpdateSubject(const cAlumno& alumno, const cMateria& materia) {
  const auto id =
      Key(centro_
              .Execute("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE CodMatDet=" +
                       Key(materia.IDMatDetalle) + " AND CodAlumno=" + Key(alumno.IDAlumno))
              .Fields(0)
              .Long());
  centro_.Execute("UPDATE AlumnoPte_MatDet SET Orden=" + Key(materia.Orden) +
                  " WHERE IDAlumnoPte_MatDet=" + id);
  for (const auto& evaluacion : materia.colEvaluaciones) {
    if (evaluacion->Estado == estados_.NUEVO)
      InsertEvaluation(id, *evaluacion);
    else if (evaluacion->Estado == estados_.Eliminado)
      DeleteEvaluation(id, *evaluacion);
  }
}

void RegisterWriter::DeleteSubject(const cAlumno& alumno, const cMateria& materia) {
  const auto which =
      "WHERE CodMatDet=" + Key(materia.IDMatDetalle) + " AND CodAlumno=" + Key(alumno.IDAlumno);
  const auto subjects = "(SELECT idAlumnoPte_MatDet FROM AlumnoPte_MatDet " + which + ")";
  centro_.Execute("DELETE FROM EvaluacionActaPte WHERE codAlumnoPte_MatDet IN " + subjects);
  centro_.Execute("DELETE FROM EvaluacionPte WHERE codAlumnoPte_MatDet IN " + subjects);
  centro_.Execute("DELETE FROM AlumnoPte_MatDet " + which);
}

void RegisterWriter::InsertEvaluation(const std::string& pending, const cEvaluacion& evaluacion) {
  const std::string tabla = evaluacion.Final ? "EvaluacionActaPte" : "EvaluacionPte";
  const auto n = SiguienteId(tabla, "ID" + tabla);
  centro_.Execute("INSERT INTO " + tabla + " VALUES (" + n + "," + pending + "," +
                  Key(evaluacion.IDEvaluacion) +
                  (evaluacion.Final ? ",0,0,0,0,0)" : ",0,0,0,0,0,0,0)"));
}

void RegisterWriter::DeleteEvaluation(const std::string& pending, const cEvaluacion& evaluacion) {
  const auto which = " WHERE codnumevaluacion=" + Key(evaluacion.IDEvaluacion) +
                     " AND codAlumnoPte_MatDet=" + pending;
  centro_.Execute("DELETE FROM EvaluacionActaPte" + which);
  centro_.Execute("DELETE FROM EvaluacionPte" + which);
}

}  // namespace quorvane

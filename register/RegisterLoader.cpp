#include "register/RegisterLoader.h"

#include <cmath>
#include <memory>
#include <string>

#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "register/PersonName.h"
#include "register/RegisterPurge.h"

namespace quorvane {
namespace {

/// Rounds as reading the id did: what gave the id always is it, or the walk would not move on.
bool Is(const Value& column, std::int32_t id) {
  return !column.IsNull() && std::nearbyint(column.Number()) == id;
}

/// Adds the item; false when its key is there already.
template <class T>
bool AddNew(Collection<T>& collection, const std::shared_ptr<T>& item, const std::string& key) {
  try {
    collection.Add(item, key);
  } catch (const RuntimeError& failure) {
    return !failure.Is(ErrorNumber::DuplicateKey);
  }
  return true;
}

}  // namespace

RegisterLoader::RegisterLoader(Connection& centro, Collection<cAlumno>& colAlumnos)
    : centro_(centro), colAlumnos_(colAlumnos) {}

bool RegisterLoader::Load(std::int32_t section) {
  rows_ = centro_.Execute(Sql(
      "SELECT Seccion.Descripcion AS SDescripcion, Alumno.Apellido_2, Alumno.Apellido_1, Alumno.Nombre, Alumno.IDAlumno, AlumnoPte_MatDet.IDAlumnoPte_MatDet, AlumnoPte_MatDet.codMatDet, AlumnoPte_MatDet.Orden, NumEvaluacion.IDNumEvaluacion, NumEvaluacion.Descripcion, NumEvaluacion.Final, Materia.Nombre AS MNombre, Materia.Optativa, seccion.codcurso FROM (Seccion_AlumnoPte LEFT JOIN (Alumno LEFT JOIN Seccion ON Seccion.IDSeccion=Alumno.codSeccion) ON Seccion_AlumnoPte.codAlumno=alumno.idalumno) LEFT JOIN ((AlumnoPte_MatDet LEFT JOIN (EvaluacionPte LEFT JOIN NumEvaluacion ON NumEvaluacion.IDNumEvaluacion=EvaluacionPte.codNumEvaluacion) ON EvaluacionPte.codAlumnoPte_Matdet=AlumnoPte_Matdet.IDAlumnoPte_Matdet) LEFT JOIN (MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.codMateria) ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_Matdet.codMatdet) ON AlumnoPte_Matdet.codAlumno=Seccion_AlumnoPte.codAlumno WHERE Seccion_AlumnoPte.codSeccion = {} Union SELECT Seccion.Descripcion AS SDescripcion, Alumno.Apellido_2, Alumno.Apellido_1, Alumno.Nombre, Alumno.IDAlumno, AlumnoPte_MatDet.IDAlumnoPte_MatDet, AlumnoPte_MatDet.codMatDet, AlumnoPte_MatDet.Orden, NumEvaluacion.IDNumEvaluacion, NumEvaluacion.Descripcion, NumEvaluacion.Final, Materia.Nombre AS MNombre, Materia.Optativa, seccion.codcurso FROM (Seccion_AlumnoPte LEFT JOIN (Alumno LEFT JOIN Seccion ON Seccion.IDSeccion=Alumno.codSeccion) ON Seccion_AlumnoPte.codAlumno=alumno.idalumno) LEFT JOIN ((AlumnoPte_MatDet LEFT JOIN (EvaluacionActaPte LEFT JOIN NumEvaluacion ON NumEvaluacion.IDNumEvaluacion=EvaluacionActaPte.codNumEvaluacion) ON EvaluacionActaPte.codAlumnoPte_Matdet=AlumnoPte_Matdet.IDAlumnoPte_Matdet) LEFT JOIN (MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.codMateria) ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_Matdet.codMatdet) ON AlumnoPte_Matdet.codAlumno=Seccion_AlumnoPte.codAlumno Where Seccion_AlumnoPte.codSeccion = {} ORDER BY Alumno.IDAlumno, AlumnoPte_Matdet.Orden", section, section));
  while (!rows_.Eof()) {
    if (!rows_.Fields("IDAlumno").IsNull()) {
      ReadStudent();
      // The reading stopped on the row after the student's last.
      rows_.MovePrevious();
    }
    if (!rows_.Eof()) rows_.MoveNext();
  }
  return locked_;
}

bool RegisterLoader::Of(const cAlumno& alumno) const {
  return Is(rows_.Fields("IDAlumno"), alumno.IDAlumno);
}

void RegisterLoader::ReadStudent() {
  const auto alumno = std::make_shared<cAlumno>();
  alumno->REACDIV = 0;
  alumno->Diversificacion = 0;
  alumno->Estado = estados_.NoModificado;
  alumno->EstadoAnterior = estados_.Modificado;
  alumno->IDAlumno = rows_.Fields("IDAlumno").Long();
  alumno->Nombre =
      PersonName(rows_.Fields("Apellido_1"), rows_.Fields("Apellido_2"), rows_.Fields("Nombre"));
  while (Of(*alumno)) {
    if (rows_.Fields("codMatDet").IsNull())
      rows_.MoveNext();
    else
      ReadSubject(*alumno);
    if (rows_.Eof()) break;
  }
  colAlumnos_.Add(alumno, Key(alumno->IDAlumno));
}

void RegisterLoader::ReadSubject(cAlumno& alumno) {
  const auto materia = std::make_shared<cMateria>();
  materia->Estado = estados_.NoModificado;
  materia->EstadoAnterior = estados_.Modificado;
  materia->IDMatDetalle = rows_.Fields("codMatDet").Long();
  materia->codCurso = rows_.Fields("codcurso").AfterZero().Byte();
  materia->IDPersonal = 0;
  materia->Nombre = rows_.Fields("MNombre").Text();
  materia->Orden = rows_.Fields("Orden").Byte();
  if (!locked_)
    locked_ = !centro_
                   .Execute(Sql("SELECT codmatdet FROM BloqueoPte where codmatdet={}",
                                materia->IDMatDetalle))
                   .Eof();

  std::int32_t lastSeen = 0;
  while (Is(rows_.Fields("codMatDet"), materia->IDMatDetalle)) {
    if (!rows_.Fields("IDNumEvaluacion").IsNull()) ReadEvaluation(*materia);
    lastSeen = rows_.Fields("IDAlumnoPte_MatDet").Long();
    rows_.MoveNext();
    if (rows_.Eof() || !Of(alumno)) break;
  }
  if (!AddNew(alumno.colMateria, materia, Key(materia->IDMatDetalle)))
    DeletePendingSubject(centro_, lastSeen);
}

void RegisterLoader::ReadEvaluation(cMateria& materia) {
  const auto evaluacion = std::make_shared<cEvaluacion>();
  evaluacion->Estado = estados_.NoModificado;
  evaluacion->EstadoAnterior = estados_.Modificado;
  evaluacion->Extraordinaria = false;
  evaluacion->Final = rows_.Fields("Final").Flag();
  evaluacion->IDEvaluacion = rows_.Fields("IDNumEvaluacion").Byte();
  evaluacion->Nombre = rows_.Fields("Descripcion").Text();
  evaluacion->Orden = 0;
  // A key that is there already: the student has the same subject twice.
  if (!AddNew(materia.colEvaluaciones, evaluacion, Key(evaluacion->IDEvaluacion)))
    DeletePendingSubject(centro_, rows_.Fields("IDAlumnoPte_MatDet").Long());
}

}  // namespace quorvane

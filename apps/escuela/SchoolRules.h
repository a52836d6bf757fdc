#pragma once

#include <string>
#include <string_view>

namespace quorvane {

/// A column whose value, unless it is 0 or `optional` false, is the key of a row elsewhere.
struct Reference {
  std::string_view table;
  std::string_view column;
  std::string_view target;
  std::string_view key;
  bool optional;  ///< 0 is none
};

inline constexpr Reference kReferences[] = {
    {"AlumnoPte_MatDet", "CodAlumno", "Alumno", "IDAlumno", false},
    {"AlumnoPte_MatDet", "CodMatDet", "MateriaDetalles", "IDMateriaDetalles", false},
    {"EvaluacionPte", "CodAlumnoPte_MatDet", "AlumnoPte_MatDet", "IDAlumnoPte_MatDet", false},
    {"EvaluacionPte", "CodNumEvaluacion", "NumEvaluacion", "IDNumEvaluacion", false},
    {"EvaluacionPte", "CodNota", "Nota", "IDNota", true},
    {"EvaluacionActaPte", "CodAlumnoPte_MatDet", "AlumnoPte_MatDet", "IDAlumnoPte_MatDet", false},
    {"EvaluacionActaPte", "CodNumEvaluacion", "NumEvaluacion", "IDNumEvaluacion", false},
    {"EvaluacionActaPte", "CodNota", "Nota", "IDNota", true},
    {"Seccion_AlumnoPte", "CodSeccion", "Seccion", "IDSeccion", false},
    {"Seccion_AlumnoPte", "CodAlumno", "Alumno", "IDAlumno", false},
    {"Profesor_Pte", "CodMatDet", "MateriaDetalles", "IDMateriaDetalles", false},
    {"Profesor_Pte", "CodProfesor", "Personal", "IDPersonal", true},
    {"BloqueoPte", "CodPublicacion", "PublicacionPte", "IDPublicacionPte", false},
    {"BloqueoPte", "CodMatDet", "MateriaDetalles", "IDMateriaDetalles", false},
    {"Alumno", "CodSeccion", "Seccion", "IDSeccion", true},
    {"Seccion", "CodCurso", "Curso", "IDCurso", false},
    {"Seccion", "CodTutor", "Personal", "IDPersonal", true},
    {"Curso", "CodTipoEnsenanza", "TipoEnsenanza", "IDTipoEnsenanza", false},
    {"MateriaDetalles", "CodMateria", "Materia", "IDMateria", false},
    {"MateriaDetalles", "CodSeccion", "Seccion", "IDSeccion", false},
    {"MateriaDetalles", "CodTipoMateria", "TipoMateria", "IDTipoMateria", true},
    {"Personal", "CodUsuario", "Usuario", "IDUsuario", true},
    {"Nota", "CodTipoNota", "TipoNota", "IDTipoNota", false},
    {"TipoNota", "CodTipoMateria", "TipoMateria", "IDTipoMateria", false},
};

/// The condition, of SQL, that a row of its table meets whose reference leads nowhere: nothing that
/// must refer refers to nothing, and targets without a key are nobody's.
std::string OrphanCondition(const Reference& reference);

/// Columns that together should stand once in their table.
struct Unique {
  std::string_view table;
  std::string_view columns;
};

inline constexpr Unique kUniques[] = {
    {"AlumnoPte_MatDet", "CodAlumno, CodMatDet"},
    {"EvaluacionPte", "CodAlumnoPte_MatDet, CodNumEvaluacion"},
    {"EvaluacionActaPte", "CodAlumnoPte_MatDet, CodNumEvaluacion"},
    {"Seccion_AlumnoPte", "CodSeccion, CodAlumno"},
    {"Profesor_Pte", "CodMatDet"},
    {"BloqueoPte", "CodMatDet, CodNumEvaluacion"},
    {"FechaNotas", "CodSeccion, CodNumEvaluacion"},
};

}  // namespace quorvane

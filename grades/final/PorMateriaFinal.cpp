#include "grades/final/PorMateriaFinal.h"

#include <cstdint>
#include <string>

#include "frame/cConfiguracion.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/loading/Alumnos.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {
namespace {

cMateria& MateriaDeAlumno(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                          const MateriaDeCombo& entrada) {
  return *AlumnoDeFila(rejilla, colAlumnos).colMateria[Key(entrada.IDMatDet)];
}

/// What the grades of a cell are read with, those of the subject's kind.
std::string SentenciaDeMateria(const DatosPasoUno& seleccion, int columna, const cMateria& materia,
                               std::int32_t idMatDet) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  if (materia.Fct)
    return Sql(
        "SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria=4 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
        seleccion.seccion, seleccion.curso, seleccion.evaluacion, idMatDet, materia.IDProfesor,
        materia.IDProfesorAsociado, columna, verdadero, seleccion.tipo);
  return Sql(
      "SELECT IDNota, DescripcionCorta FROM Nota WHERE (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria=1 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
      seleccion.seccion, seleccion.curso, seleccion.evaluacion, idMatDet, materia.IDProfesor,
      materia.IDProfesorAsociado, columna, verdadero, seleccion.tipo);
}

}  // namespace

Recordset FilaDeCurso(Connection& centro, std::int32_t curso) {
  return centro.Execute(Sql("SELECT Promocion, RE_AC FROM Curso WHERE IDCurso={}", curso));
}

void LlenarComboMaterias(ComboBox& cboMaterias, const std::vector<MateriaDeCombo>& materias) {
  if (materias.empty()) return;
  cboMaterias.Clear();
  std::int32_t numero = 0;
  for (const auto& materia : materias)
    cboMaterias.AddItem((materia.CodAsociada != 0 ? "     " : "") + materia.Nombre, ++numero);
  cboMaterias.ListIndex(0);
}

void ConfigurarRejillaDeMateria(Retivo& rejilla) {
  ConfigurarRejilla(rejilla, {{2000, "Materia"},
                              {1000, "Nota"},
                              {2000, "Concepto"},
                              {2000, "Procedimiento"},
                              {2000, "Actitud"},
                              {2000, "Observacion"},
                              {2000, "Medidas Adoptadas"},
                              {}});
}

void LlenarFilasFinales(Connection& centro, Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                        const MateriaDeCombo& entrada) {
  if (entrada.CodAsociada != 0) return;
  for (const auto& alumno : colAlumnos) {
    if (!alumno->colMateria.Contains(Key(entrada.IDMatDet))) continue;
    rejilla.AddItem(AlumnoConOrden(centro, alumno->IDAlumno));
    const auto fila = rejilla.Rows() - 1;
    rejilla.TextMatrix(fila, rejilla.Cols() - 1, Key(alumno->IDAlumno));
    EscribirNotasFinales(centro, rejilla, fila, *alumno->colMateria[Key(entrada.IDMatDet)]);
  }
}

void LlenarListaDeMateria(Connection& centro, Retivo& rejilla,
                          const Collection<cAlumno>& colAlumnos, const MateriaDeCombo& entrada,
                          const DatosPasoUno& seleccion, const Form& form) {
  const auto columna = rejilla.Col();
  rejilla.ListaLimpiar(columna);
  if (columna == kColumnaMedidas) {
    LlenarMedidas(rejilla, MateriaDeAlumno(rejilla, colAlumnos, entrada));
    return;
  }
  if (entrada.CodAsociada != 0) return;
  rejilla.ListaAnadir(columna, " ", 0);
  const auto& materia = MateriaDeAlumno(rejilla, colAlumnos, entrada);
  LlenarLista(centro, rejilla, columna,
              SentenciaDeMateria(seleccion, columna, materia, entrada.IDMatDet), form);
}

void TomarCeldaDeMateria(const Retivo& rejilla, const Collection<cAlumno>& colAlumnos,
                         const MateriaDeCombo& entrada) {
  if (entrada.CodAsociada != 0) return;
  AsignarNotaFinal(MateriaDeAlumno(rejilla, colAlumnos, entrada), rejilla.Col(),
                   DatoElegido(rejilla));
}

}  // namespace quorvane

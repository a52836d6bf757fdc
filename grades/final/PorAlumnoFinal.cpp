#include "grades/final/PorAlumnoFinal.h"

#include <string>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/final/RejillaFinal.h"
#include "grades/grid/CeldaNotas.h"
#include "grades/loading/Alumnos.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Sql.h"

namespace quorvane {
namespace {

const std::string& ClaveDeFila(const Retivo& rejilla) {
  return rejilla.TextMatrix(rejilla.Row(), rejilla.Cols() - 1);
}

bool FilaEditable(const Retivo& rejilla) {
  return rejilla.TextMatrix(rejilla.Row(), rejilla.Cols() - 2) == "0";
}

/// What the grades of a cell are read with, those of the subject's kind.
std::string SentenciaDeAlumno(const DatosPasoUno& seleccion, int columna, const cMateria& materia) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  if (materia.Fct)
    return Sql(
        "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria=4 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
        seleccion.seccion, seleccion.curso, seleccion.evaluacion, materia.IDMatDetalle,
        materia.IDProfesor, materia.IDProfesorAsociado, columna, verdadero, seleccion.tipo);
  return Sql(
      "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion={})) AND (CodCurso=0 OR CodCurso={}) AND (CodNumevaluacion=0 OR CodNumEvaluacion={}) AND (CodMateria=0 OR CodMateria={}) AND (CodPersonal=0 OR CodPersonal={} OR CodPersonal={}) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota WHERE Orden={} AND Materia={} AND Observacion=0 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE CodEspecificarTipoMateria=1 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={}))) ORDER BY DescripcionCorta",
      seleccion.seccion, seleccion.curso, seleccion.evaluacion, materia.IDMatDetalle,
      materia.IDProfesor, materia.IDProfesorAsociado, columna, verdadero, seleccion.tipo);
}

}  // namespace

void LlenarComboAlumnos(Connection& centro, ComboBox& cboAlumnos,
                        const Collection<cAlumno>& colAlumnos) {
  if (colAlumnos.Count() == 0) return;
  cboAlumnos.Clear();
  for (const auto& alumno : colAlumnos)
    cboAlumnos.AddItem(AlumnoConOrden(centro, alumno->IDAlumno), alumno->IDAlumno);
  cboAlumnos.ListIndex(0);
}

void ConfigurarRejillaDeAlumno(Retivo& rejilla) {
  ConfigurarRejilla(rejilla, {{2000, "Materia"},
                              {1000, "Nota"},
                              {2000, "Concepto"},
                              {2000, "Procedimiento"},
                              {2000, "Actitud"},
                              {2000, "Observacion"},
                              {2000, "Medidas Adoptadas"},
                              {},
                              {}});
}

void LlenarFilasDeAlumno(Connection& centro, Retivo& rejilla,
                         const Collection<cMateria>& materias) {
  for (const auto& materia : materias) rejilla.AddItem(materia->Nombre);
  int fila = 1;
  for (const auto& materia : materias) {
    EscribirNotasFinales(centro, rejilla, fila, *materia);
    rejilla.TextMatrix(fila, rejilla.Cols() - 1, Key(materia->IDMatDetalle));
    rejilla.TextMatrix(fila, rejilla.Cols() - 2, "0");
    ++fila;
  }
}

void LlenarCeldaDeAlumno(Connection& centro, Retivo& rejilla, const Collection<cMateria>& materias,
                         const DatosPasoUno& seleccion, const Form& form) {
  const auto columna = rejilla.Col();
  const auto& clave = ClaveDeFila(rejilla);
  rejilla.ListaLimpiar(columna);
  if (columna == kColumnaMedidas) {
    LlenarMedidas(rejilla, *materias[clave]);
    return;
  }
  if (!FilaEditable(rejilla)) return;
  rejilla.ListaAnadir(columna, " ", 0);
  const auto& materia = *materias[clave];
  LlenarLista(centro, rejilla, columna, SentenciaDeAlumno(seleccion, columna, materia), form);
}

void TomarCeldaDeAlumno(const Retivo& rejilla, const Collection<cMateria>& materias) {
  if (!FilaEditable(rejilla)) return;
  AsignarNotaFinal(*materias[ClaveDeFila(rejilla)], rejilla.Col(), DatoElegido(rejilla));
}

}  // namespace quorvane

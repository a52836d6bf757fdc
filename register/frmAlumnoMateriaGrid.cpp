// The matrix of frmAlumnoMateria: subjects against evaluations.
#include <algorithm>

#include "frame/Conexiones.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/data/Value.h"
#include "register/frmAlumnoMateria.h"

namespace quorvane {
namespace {

constexpr int kCentrado = 4;

}  // namespace

std::int32_t frmAlumnoMateria::AnchoPara(const std::string& texto) const {
  return TextWidth(texto + "   ");
}

void frmAlumnoMateria::CargarRejillaMaterias() {
  msgMaterias.Clear();
  msgMaterias.Cols(2);
  msgMaterias.Rows(2);
  msgMaterias.FixedRows(1);
  msgMaterias.Rows(1);
  const auto evaluaciones = CargarEvaluaciones();
  const auto columnaOrden = msgMaterias.Cols() - 1;

  msgMaterias.TextMatrix(0, 0, "Materia");
  auto ancho = AnchoPara("Materia");
  for (const auto& materia : objAlumno->colMateria) {
    if (materia->Estado == estados_.Eliminado) continue;
    AgregarFila(*materia, evaluaciones);
    ancho = std::max(ancho, AnchoPara(msgMaterias.TextMatrix(msgMaterias.Rows() - 1, 0)));
  }

  msgMaterias.ColWidth(columnaOrden, 0);
  msgMaterias.Col(columnaOrden);
  msgMaterias.SortAscending();
  for (int fila = 1; fila < msgMaterias.Rows(); ++fila) {
    auto& materia = Materia(fila);
    if (materia.Estado != estados_.Eliminado) materia.Orden = ToByte(fila);
  }
  AjustarAnchoColumnas(msgMaterias, 0);
  msgMaterias.ColWidth(0, ancho);
}

std::vector<std::uint8_t> frmAlumnoMateria::CargarEvaluaciones() {
  std::vector<std::uint8_t> evaluaciones;
  auto filas = Centro().Execute(Sql(
      "SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion ORDER BY Final, Extraordinaria, Orden"));
  if (!filas.Eof()) msgMaterias.Cols(static_cast<int>(filas.RecordCount()) + 2);
  for (int columna = 1; !filas.Eof(); filas.MoveNext(), ++columna) {
    msgMaterias.TextMatrix(0, columna, filas.Fields("Descripcion").Text());
    evaluaciones.push_back(filas.Fields("IDNumEvaluacion").Byte());
    msgMaterias.ColAlignment(columna, kCentrado);
  }
  return evaluaciones;
}

void frmAlumnoMateria::AgregarFila(const cMateria& materia,
                                   const std::vector<std::uint8_t>& evaluaciones) {
  const auto curso = Centro().Execute(Sql(
      "SELECT Curso.Descripcion AS CDescripcion, Seccion.Descripcion AS SDescripcion FROM MateriaDetalles INNER JOIN (Seccion INNER JOIN Curso ON Seccion.CodCurso=Curso.IDCurso) ON MateriaDetalles.codSeccion=Seccion.IDSeccion WHERE IDMateriaDetalles={}",
      materia.IDMatDetalle));
  auto nombre = materia.Nombre;
  if (!curso.Eof()) nombre += " (" + curso.Fields("CDescripcion").Text() + ")";
  // Set, not added with the row, which a tab in a name would part into cells.
  msgMaterias.AddItem("");
  const auto fila = msgMaterias.Rows() - 1;
  msgMaterias.TextMatrix(fila, 0, nombre);
  msgMaterias.RowData(fila, materia.IDMatDetalle);
  msgMaterias.TextMatrix(fila, msgMaterias.Cols() - 1, Key(materia.Orden));
  for (const auto& evaluacion : materia.colEvaluaciones) {
    if (evaluacion->Estado == estados_.Eliminado) continue;
    const auto columna =
        std::find(evaluaciones.begin(), evaluaciones.end(), evaluacion->IDEvaluacion);
    if (columna != evaluaciones.end())
      msgMaterias.TextMatrix(fila, static_cast<int>(columna - evaluaciones.begin()) + 1, "X");
  }
}

void frmAlumnoMateria::AjustarAnchoColumnas(MSFlexGrid& rejilla, int fila) {
  for (int columna = 0; columna < rejilla.Cols(); ++columna) {
    rejilla.Col(columna);
    const auto& texto = rejilla.TextMatrix(fila, columna);
    if (!texto.empty()) rejilla.ColWidth(columna, AnchoPara(texto));
  }
}

}  // namespace quorvane

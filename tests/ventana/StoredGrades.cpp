#include "tests/ventana/StoredGrades.h"

#include <utility>
#include <vector>

namespace quorvane::test {
namespace {

constexpr int kMeasureColumn = 6;

using Columns = std::vector<std::pair<int, std::string>>;

/// The columns of the grid with those of the table that hold their grades.
const Columns& GradeColumns(bool finals) {
  static const Columns ordinary{{1, "CodNota"},
                                {2, "CodNotaConcepto"},
                                {3, "CodNotaProcedimiento"},
                                {4, "CodNotaActitud"},
                                {5, "CodNotaObservacion"}};
  static const Columns final{{1, "CodNota"}, {5, "CodNotaObservacion"}};
  return finals ? final : ordinary;
}

std::string Select(bool finals, std::int32_t evaluation) {
  const std::string table = finals ? "EvaluacionActaPte" : "EvaluacionPte";
  auto select = "SELECT E.ID" + table +
                " AS Clave, A.IDAlumnoPte_MatDet, A.CodAlumno, A.CodMatDet, "
                "(SELECT T.CodEspecificarTipoMateria FROM MateriaDetalles M INNER JOIN TipoMateria "
                "T ON T.IDTipoMateria=M.CodTipoMateria WHERE M.IDMateriaDetalles=A.CodMatDet) "
                "AS Clase";
  for (const auto& [column, name] : GradeColumns(finals))
    select += ", (SELECT DescripcionCorta FROM Nota WHERE IDNota=E." + name + ") AS Texto" +
              std::to_string(column);
  if (finals) select += ", E.RE_AC_DIV";
  return select + " FROM " + table +
         " E INNER JOIN AlumnoPte_MatDet A ON A.IDAlumnoPte_MatDet=E.CodAlumnoPte_MatDet WHERE "
         "E.CodNumEvaluacion=" +
         std::to_string(evaluation);
}

std::string Text(const Recordset& row, const std::string& column) {
  const auto& value = row.Fields(column);
  return value.IsNull() ? "" : value.Text();
}

std::string Measure(const std::string& code) {
  if (code == "1") return "Refuerzo educativo";
  return code == "2" ? "Adaptacion curricular" : "";
}

}  // namespace

StoredGrades::StoredGrades(Connection& connection, bool finals, std::int32_t evaluation) {
  auto found = connection.Execute(Select(finals, evaluation));
  for (; !found.Eof(); found.MoveNext()) {
    Row row{Text(found, "IDAlumnoPte_MatDet"),
            Text(found, "CodAlumno") + "/" + Text(found, "CodMatDet"),
            Text(found, "Clase") == "1",
            {}};
    for (const auto& [column, name] : GradeColumns(finals))
      row.texts[column] = Plain(Text(found, "Texto" + std::to_string(column)));
    if (finals) row.texts[kMeasureColumn] = Measure(Text(found, "RE_AC_DIV"));
    rows.emplace(Text(found, "Clave"), std::move(row));
  }
}

}  // namespace quorvane::test

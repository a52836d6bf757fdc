#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Connection.h"
#include "tests/ventana/ShownGrades.h"

namespace quorvane::test {

/// The grades of one evaluation, final or ordinary, as the school holds them, with the texts that a
/// cell would show.
struct StoredGrades {
  struct Row {
    std::string pending;   ///< as the forms by student know it, by the key of the pending subject
    std::string student;   ///< as the others do: student/subject
    bool ordinary = true;  ///< of the kind whose grades every form reads
    GradeTexts texts;
  };

  /// Reads them on a connection that nobody watches.
  StoredGrades(Connection& connection, bool finals, std::int32_t evaluation) {
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

  std::map<std::string, Row> rows;  ///< by their key in the form's table

 private:
  static constexpr int kMeasureColumn = 6;

  using Columns = std::vector<std::pair<int, std::string>>;

  /// The columns of the grid with those of the table that hold their grades.
  static const Columns& GradeColumns(bool finals) {
    static const Columns ordinary{{1, "CodNota"},
                                  {2, "CodNotaConcepto"},
                                  {3, "CodNotaProcedimiento"},
                                  {4, "CodNotaActitud"},
                                  {5, "CodNotaObservacion"}};
    static const Columns final{{1, "CodNota"}, {5, "CodNotaObservacion"}};
    return finals ? final : ordinary;
  }

  static std::string Select(bool finals, std::int32_t evaluation) {
    const std::string table = finals ? "EvaluacionActaPte" : "EvaluacionPte";
    auto select =
        "SELECT E.ID" + table +
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

  static std::string Text(const Recordset& row, const std::string& column) {
    const auto& value = row.Fields(column);
    return value.IsNull() ? "" : value.Text();
  }

  static std::string Measure(const std::string& code) {
    if (code == "1") return "Refuerzo educativo";
    return code == "2" ? "Adaptacion curricular" : "";
  }
};

}  // namespace quorvane::test

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Connection.h"
#include "tests/ventana/ShownGrades.h"
#include "tests/walk/Violation.h"

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

/// What a grade form showed when it was saved, against what the school held before and holds then.
///
/// A student may have a subject twice, and a form that knows it by student and subject shows one of
/// the two: the second final leaves out what the first passed. So of twins one has to be as shown,
/// and the others as they were.
class SavedGrades {
 public:
  /// All three outlive this.
  SavedGrades(const ShownTexts& shown, const StoredGrades& before, const StoredGrades& after)
      : shown_(shown), before_(before), after_(after) {
    for (const auto& [key, row] : after.rows) pendings_[row.student].insert(row.pending);
  }

  /// `Violation` for what isn't as it was shown or, where that was not shown, as it was. Not
  /// `whole`, with an error on the way, each grade is as it was or as it was shown.
  void Check(bool whole) const {
    std::set<std::string> saved;
    std::map<std::string, std::string> changed;
    for (const auto& [key, row] : after_.rows) {
      const auto shown = ShownOf(row);
      if (shown == shown_.end()) {
        CheckNotShown(key, row);
        continue;
      }
      if (CheckRow(key, row, shown->second, whole)) saved.insert(shown->first);
      if (HasChanged(key, row) &&
          changed.emplace(shown->first, row.pending).first->second != row.pending)
        throw Violation("Lo que se mostraba de una materia se ha grabado en dos: " + row.student);
    }
    if (saved.size() < shown_.size())
      throw Violation(std::to_string(shown_.size() - saved.size()) +
                      " de las materias mostradas no están así en la base de datos");
  }

 private:
  using Row = StoredGrades::Row;

  [[nodiscard]] ShownTexts::const_iterator ShownOf(const Row& row) const {
    const auto shown = shown_.find(row.pending);
    return shown == shown_.end() ? shown_.find(row.student) : shown;
  }
  [[nodiscard]] const GradeTexts* Before(const std::string& key) const {
    const auto before = before_.rows.find(key);
    return before == before_.rows.end() ? nullptr : &before->second.texts;
  }
  [[nodiscard]] bool HasChanged(const std::string& key, const Row& row) const {
    const auto* before = Before(key);
    return before != nullptr && *before != row.texts;
  }
  /// The form may have shown its twin in its stead.
  [[nodiscard]] bool HasTwin(const Row& row) const {
    return shown_.contains(row.student) && pendings_.at(row.student).size() > 1;
  }

  /// Never on the screen. Some forms don't read the grades of other kinds, and store none.
  void CheckNotShown(const std::string& key, const Row& row) const {
    if (row.ordinary && HasChanged(key, row))
      throw Violation("Al grabar ha cambiado lo que no se mostraba: " + row.student +
                      Differences(*Before(key), row.texts));
  }

  /// Whether the row may be the one that was on the screen.
  [[nodiscard]] bool CheckRow(const std::string& key, const Row& row, const GradeTexts& shown,
                              bool whole) const {
    const auto* before = Before(key);
    for (const auto& [column, text] : shown) {
      const auto& stored = row.texts.at(column);
      if (stored == text) continue;
      if (whole && HasTwin(row) && !HasChanged(key, row)) return false;
      const auto untouched = !whole && before != nullptr && before->at(column) == stored;
      if (!untouched)
        throw Violation("Se mostraba «" + text + "» y se ha grabado «" + stored +
                        "»: " + row.student + " columna " + std::to_string(column));
    }
    return true;
  }

  const ShownTexts& shown_;
  const StoredGrades& before_;
  const StoredGrades& after_;
  std::map<std::string, std::set<std::string>> pendings_;  ///< by student and subject
};

}  // namespace quorvane::test

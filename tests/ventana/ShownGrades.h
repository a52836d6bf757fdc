#pragma once

#include <QTableView>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane::test {

/// The texts of the cells of one pending subject, by column.
using GradeTexts = std::map<int, std::string>;

/// Those of several, by what each is known by, see `StoredGrades`.
using ShownTexts = std::map<std::string, GradeTexts>;

/// What `other` has otherwise, for whoever reads of it.
inline std::string Differences(const GradeTexts& one, const GradeTexts& other) {
  std::string text;
  for (const auto& [column, grade] : one)
    if (other.at(column) != grade)
      text += " columna " + std::to_string(column) + ": «" + grade + "», ahora «" +
              other.at(column) + "»";
  return text;
}

/// One of the eight forms of step two. Those of step one bear the same names with a 1 behind.
inline bool EntersGrades(const Form& form) {
  return form.Name().starts_with("frmNota") && !form.Name().ends_with("1");
}

/// It enters the grades of a final evaluation.
inline bool EntersFinals(const Form& form) { return form.Name().ends_with("Final"); }

/// The combo box whose entry says what the form shows: the student, or the subject.
inline ComboBox& EntriesOf(const Form& form) {
  auto* students = form.Find("cboAlumnos");
  return dynamic_cast<ComboBox&>(*(students != nullptr ? students : form.Find("cboMaterias")));
}

/// The evaluation that step one has fixed for it.
inline std::int32_t EvaluationOf(const Form& form) {
  const auto& name = form.Name();
  if (name.starts_with("frmNotaSeccionAlumno"))
    return FormInstance<frmNotaSeccionAlumno1>::Get().cboEvaluaciones.SelectedData();
  if (name.starts_with("frmNotaSeccionMateria"))
    return FormInstance<frmNotaSeccionMateria1>::Get().cboEvaluaciones.SelectedData();
  if (name.starts_with("frmNotaMateria"))
    return FormInstance<frmNotaMateria1>::Get().cboEvaluaciones.SelectedData();
  return FormInstance<frmNotaManual1>::Get().cboEvaluaciones.SelectedData();
}

/// The columns of the grid that saving the form stores.
inline const std::vector<int>& StoredColumns(const Form& form) {
  static const std::vector<int> ordinary{1, 2, 3, 4, 5};
  // A final evaluation has no place for the others.
  static const std::vector<int> finals{1, 5, 6};
  return EntersFinals(form) ? finals : ordinary;
}

/// How a text is compared: a list may write a blank or an accent that a loaded cell doesn't.
inline std::string Plain(const std::string& text) {
  auto plain = QString::fromStdString(text).trimmed();
  return plain.replace("Adaptación", "Adaptacion").toStdString();
}

/// What a grade form shows on the screen at one moment: a subject's texts by what the subject is
/// known by, see `StoredGrades`.
struct ShownGrades {
  /// `window` is that of a grade form that has loaded; `entry` the item data of the student or
  /// subject whose rows it shows.
  ShownGrades(const qt::FormWindow& window, std::int32_t entry) {
    const auto* cells = dynamic_cast<const QTableView*>(window.Widget(kGrid))->model();
    const auto text = [cells](int row, int column) {
      return cells->index(row, column).data().toString().toStdString();
    };
    for (int row = 0; row < cells->rowCount(); ++row) {
      rows.push_back(NameOf(window.Model(), entry, text(row, cells->columnCount() - 1)));
      for (const auto column : StoredColumns(window.Model()))
        texts[rows.back()][column] = Plain(text(row, column));
    }
  }

  std::vector<std::string> rows;  ///< the subjects' names, as the grid's rows stand
  ShownTexts texts;

 private:
  static constexpr const char* kGrid = "rtvNotasAlumno";

  using Subjects = std::vector<MateriaDeCombo>;

  /// The subjects behind the entries of a form that walks subjects; null for the others.
  static const Subjects* SubjectsOf(const Form& form) {
    if (const auto* f = dynamic_cast<const frmNotaMateria*>(&form)) return &f->aryMaterias;
    if (const auto* f = dynamic_cast<const frmNotaSeccionMateria*>(&form)) return &f->aryMaterias;
    if (const auto* f = dynamic_cast<const frmNotaMateriaFinal*>(&form)) return &f->ListaMaterias;
    if (const auto* f = dynamic_cast<const frmNotaSeccionMateriaFinal*>(&form))
      return &f->ListaMaterias;
    return nullptr;
  }

  /// By what a row's subject is known, from the entry and the key in the row's last column.
  static std::string NameOf(const Form& form, std::int32_t entry, const std::string& key) {
    if (const auto* subjects = SubjectsOf(form)) {
      const auto place = static_cast<std::size_t>(entry - 1);
      return key + "/" + std::to_string(subjects->at(place).IDMatDet);
    }
    return form.Name().starts_with("frmNotaSeccion") ? std::to_string(entry) + "/" + key : key;
  }
};

}  // namespace quorvane::test

#include "tests/ventana/ShownGrades.h"

#include <QComboBox>
#include <QTableView>

#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

constexpr const char* kGrid = "rtvNotasAlumno";

/// The combo box of the form and the one on the screen stand on the same entry.
void RequireSameEntry(const qt::FormWindow& window, const ComboBox& combo) {
  const auto* box = dynamic_cast<const QComboBox*>(window.Widget(combo.Name()));
  if (box->currentIndex() != combo.ListIndex())
    throw Violation("La pantalla muestra otra entrada de " + combo.Name());
}

std::string ByStudent(const std::string& student, const std::string& subject) {
  return student + "/" + subject;
}

template <class F>
std::string OfStudent(const qt::FormWindow& window, const F& form, const std::string& key) {
  RequireSameEntry(window, form.cboAlumnos);
  return ByStudent(std::to_string(form.cboAlumnos.SelectedData()), key);
}

template <class F>
std::string OfSubject(const qt::FormWindow& window, const F& form,
                      const std::vector<MateriaDeCombo>& subjects, const std::string& key) {
  RequireSameEntry(window, form.cboMaterias);
  const auto entry = static_cast<std::size_t>(form.cboMaterias.SelectedData() - 1);
  return ByStudent(key, std::to_string(subjects.at(entry).IDMatDet));
}

/// By what a row's subject is known, from the key in the row's last column.
std::string NameOf(const qt::FormWindow& window, const std::string& key) {
  const auto& form = window.Model();
  if (const auto* f = dynamic_cast<const frmNotaSeccionAlumno*>(&form))
    return OfStudent(window, *f, key);
  if (const auto* f = dynamic_cast<const frmNotaSeccionAlumnoFinal*>(&form))
    return OfStudent(window, *f, key);
  if (const auto* f = dynamic_cast<const frmNotaMateria*>(&form))
    return OfSubject(window, *f, f->aryMaterias, key);
  if (const auto* f = dynamic_cast<const frmNotaSeccionMateria*>(&form))
    return OfSubject(window, *f, f->aryMaterias, key);
  if (const auto* f = dynamic_cast<const frmNotaMateriaFinal*>(&form))
    return OfSubject(window, *f, f->ListaMaterias, key);
  if (const auto* f = dynamic_cast<const frmNotaSeccionMateriaFinal*>(&form))
    return OfSubject(window, *f, f->ListaMaterias, key);
  return key;
}

}  // namespace

ShownGrades::ShownGrades(const qt::FormWindow& window) {
  const auto* cells = dynamic_cast<const QTableView*>(window.Widget(kGrid))->model();
  const auto text = [cells](int row, int column) {
    return cells->index(row, column).data().toString().toStdString();
  };
  for (int row = 0; row < cells->rowCount(); ++row) {
    rows.push_back(NameOf(window, text(row, cells->columnCount() - 1)));
    for (const auto column : StoredColumns(window.Model()))
      texts[rows.back()][column] = Plain(text(row, column));
  }
}

bool EntersGrades(const Form& form) {
  return form.Name().starts_with("frmNota") && !form.Name().ends_with("1");
}

bool EntersFinals(const Form& form) { return form.Name().ends_with("Final"); }

std::int32_t EvaluationOf(const Form& form) {
  const auto& name = form.Name();
  if (name.starts_with("frmNotaSeccionAlumno"))
    return FormInstance<frmNotaSeccionAlumno1>::Get().cboEvaluaciones.SelectedData();
  if (name.starts_with("frmNotaSeccionMateria"))
    return FormInstance<frmNotaSeccionMateria1>::Get().cboEvaluaciones.SelectedData();
  if (name.starts_with("frmNotaMateria"))
    return FormInstance<frmNotaMateria1>::Get().cboEvaluaciones.SelectedData();
  return FormInstance<frmNotaManual1>::Get().cboEvaluaciones.SelectedData();
}

const std::vector<int>& StoredColumns(const Form& form) {
  static const std::vector<int> ordinary{1, 2, 3, 4, 5};
  // A final evaluation has no place for the others.
  static const std::vector<int> finals{1, 5, 6};
  return EntersFinals(form) ? finals : ordinary;
}

std::string Plain(const std::string& text) {
  auto plain = QString::fromStdString(text).trimmed();
  return plain.replace("Adaptación", "Adaptacion").toStdString();
}

}  // namespace quorvane::test

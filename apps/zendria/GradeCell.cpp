#include "apps/zendria/GradeCell.h"

#include <algorithm>
#include <array>
#include <span>

#include "grades/final/frmNotaManualFinal.h"
#include "grades/final/frmNotaMateriaFinal.h"
#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "grades/final/frmNotaSeccionMateriaFinal.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/student/frmNotaManual.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane::zendria {
namespace {

/// What a column of the grid stands for in memory and in the table.
struct GradeField {
  int column;
  std::int32_t (*stored)(const cMateria&);
  const char* name;
};

constexpr auto kOrdinary = std::to_array<GradeField>({
    {1, [](const cMateria& m) { return m.Nota; }, "CodNota"},
    {2, [](const cMateria& m) { return m.Concepto; }, "CodNotaConcepto"},
    {3, [](const cMateria& m) { return m.Procedimiento; }, "CodNotaProcedimiento"},
    {4, [](const cMateria& m) { return m.Actitud; }, "CodNotaActitud"},
    {5, [](const cMateria& m) { return m.Observacion; }, "CodNotaObservacion"},
});

// A final evaluation's concept is held in memory, and no save writes it.
constexpr auto kFinal = std::to_array<GradeField>({
    {1, [](const cMateria& m) { return m.Nota; }, "CodNota"},
    {2, [](const cMateria& m) { return m.Concepto; }, ""},
    {5, [](const cMateria& m) { return m.Observacion; }, "CodNotaObservacion"},
    {6, [](const cMateria& m) { return std::int32_t{m.REACDIV}; }, "RE_AC_DIV"},
});

template <class F>
const MateriaDeCombo& ShownSubject(const F& form) {
  const auto position = static_cast<std::size_t>(form.cboMaterias.SelectedData()) - 1;
  if constexpr (requires { form.aryMaterias; })
    return form.aryMaterias.at(position);
  else
    return form.ListaMaterias.at(position);
}

/// Who and what: a form that walks students has the subjects in its rows, and the other way round.
template <class F>
void ReadPlace(const F& form, GradeCell& cell) {
  const auto& grid = form.rtvNotasAlumno;
  const auto& rowText = grid.TextMatrix(grid.Row(), 0);
  const auto& rowKey = grid.TextMatrix(grid.Row(), grid.Cols() - 1);
  if constexpr (requires { form.cboAlumnos; }) {
    cell.student = Key(form.cboAlumnos.SelectedData());
    cell.studentText = form.cboAlumnos.Text();
    cell.subject = rowKey;
    cell.subjectText = rowText;
  } else {
    cell.student = rowKey;
    cell.studentText = rowText;
    cell.subject = Key(ShownSubject(form).IDMatDet);
    cell.subjectText = form.cboMaterias.Text();
  }
}

template <class StepOne>
std::vector<StepChoice> ReadChoices(const StepOne& step) {
  std::vector<StepChoice> choices;
  const auto add = [&choices](const ComboBox& combo, const char* label) {
    choices.push_back({combo.Name(), label, combo.Text(), combo.SelectedData()});
  };
  add(step.cboTipoEnsenanza, "Tipo de enseñanza");
  add(step.cboCursos, "Curso");
  add(step.cboSecciones, "Sección");
  add(step.cboEvaluaciones, "Evaluación");
  if constexpr (requires { step.cboMateria; }) add(step.cboMateria, "Materia");
  if constexpr (requires { step.cboAlumno; }) add(step.cboAlumno, "Alumno");
  return choices;
}

void ReadEntry(const Retivo& grid, int entry, GradeCell& cell) {
  const auto& list = grid.Lista(grid.Col());
  const auto index = static_cast<std::size_t>(entry);
  if (entry < 0 || index >= list.size()) return;
  cell.text = list[index].text;
  cell.data = list[index].data;
}

template <class StepTwo, class StepOne>
std::optional<GradeEdit> Read(const Form& any, const Retivo& grid, int entry, const char* table,
                              std::span<const GradeField> fields) {
  const auto* const form = dynamic_cast<const StepTwo*>(&any);
  if (form == nullptr || &grid != &form->rtvNotasAlumno) return std::nullopt;
  const auto& step = FormInstance<StepOne>::Get();
  GradeEdit edit;
  edit.sheet = {form->Name(), ReadChoices(step), table, step.cboEvaluaciones.SelectedData()};
  auto& cell = edit.cell;
  ReadPlace(*form, cell);
  cell.column = grid.Col();
  cell.columnText = grid.TextMatrix(0, grid.Col());
  cell.formerText = grid.TextMatrix(grid.Row(), grid.Col());
  ReadEntry(grid, entry, cell);
  const auto& subject = *form->colAlumnos[cell.student]->colMateria[cell.subject];
  cell.pending = subject.CodAlumno_MateriaDetalles;
  const auto field = std::find_if(fields.begin(), fields.end(), [&cell](const GradeField& one) {
    return one.column == cell.column;
  });
  // A recovery shows no grades, and none of its own is ever saved.
  if (field != fields.end() && !step.blnRecuperar) {
    cell.field = field->name;
    cell.formerData = field->stored(subject);
  }
  return edit;
}

template <class StepTwo, class StepOne>
std::optional<GradeEdit> Ordinary(const Form& form, const Retivo& grid, int entry) {
  return Read<StepTwo, StepOne>(form, grid, entry, "EvaluacionPte", kOrdinary);
}

template <class StepTwo, class StepOne>
std::optional<GradeEdit> Final(const Form& form, const Retivo& grid, int entry) {
  return Read<StepTwo, StepOne>(form, grid, entry, "EvaluacionActaPte", kFinal);
}

constexpr std::array kReaders = {Ordinary<frmNotaManual, frmNotaManual1>,
                                 Ordinary<frmNotaMateria, frmNotaMateria1>,
                                 Ordinary<frmNotaSeccionAlumno, frmNotaSeccionAlumno1>,
                                 Ordinary<frmNotaSeccionMateria, frmNotaSeccionMateria1>,
                                 Final<frmNotaManualFinal, frmNotaManual1>,
                                 Final<frmNotaMateriaFinal, frmNotaMateria1>,
                                 Final<frmNotaSeccionAlumnoFinal, frmNotaSeccionAlumno1>,
                                 Final<frmNotaSeccionMateriaFinal, frmNotaSeccionMateria1>};

}  // namespace

std::optional<GradeEdit> ReadGradeEdit(const Form& form, const Retivo& grid, int entry) {
  for (auto* const read : kReaders)
    if (auto edit = read(form, grid, entry)) return edit;
  return std::nullopt;
}

}  // namespace quorvane::zendria

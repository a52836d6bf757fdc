#include "apps/zendria/GradeForm.h"

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

/// The table that a save of these forms writes, and what its columns are called.
struct Stored {
  const char* table;
  std::span<const GradeField> fields;
};

constexpr Stored kInEvaluation{"EvaluacionPte", kOrdinary};
constexpr Stored kInFinal{"EvaluacionActaPte", kFinal};

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

template <class StepTwo, class StepOne>
class Known final : public GradeForm {
 public:
  Known(const StepTwo& form, Stored stored) : form_(form), stored_(stored) {}

  [[nodiscard]] GradeSheet Sheet() const override {
    const auto& step = FormInstance<StepOne>::Get();
    return {form_.Name(), ReadChoices(step), stored_.table, step.cboEvaluaciones.SelectedData(),
            step.blnRecuperar};
  }
  [[nodiscard]] const Retivo& Grid() const override { return form_.rtvNotasAlumno; }
  [[nodiscard]] const ComboBox& Walk() const override {
    if constexpr (kStudents)
      return form_.cboAlumnos;
    else
      return form_.cboMaterias;
  }
  [[nodiscard]] bool WalksStudents() const override { return kStudents; }
  [[nodiscard]] bool AtWork() const override { return form_.fraAniCarga.Visible(); }
  [[nodiscard]] bool Saves() const override { return form_.cmdAceptar.Usable(); }
  [[nodiscard]] std::int32_t Publication() const override {
    return form_.publicacion.IDPublicacion;
  }

  /// A form that walks students has the subjects in its rows, and the other way round.
  void ReadRow(GradeCell& cell, int row) const override {
    const auto& grid = form_.rtvNotasAlumno;
    const auto& rowText = grid.TextMatrix(row, 0);
    const auto& rowKey = grid.TextMatrix(row, grid.Cols() - 1);
    if constexpr (kStudents) {
      cell.student = Key(form_.cboAlumnos.SelectedData());
      cell.studentText = form_.cboAlumnos.Text();
      cell.subject = rowKey;
      cell.subjectText = rowText;
    } else {
      cell.student = rowKey;
      cell.studentText = rowText;
      cell.subject = SubjectKey(form_.cboMaterias.SelectedData());
      cell.subjectText = form_.cboMaterias.Text();
    }
  }

  [[nodiscard]] const cMateria* Subject(const GradeCell& cell) const override {
    if (!form_.colAlumnos.Contains(cell.student)) return nullptr;
    const auto& subjects = form_.colAlumnos[cell.student]->colMateria;
    return subjects.Contains(cell.subject) ? subjects[cell.subject].get() : nullptr;
  }

  [[nodiscard]] int WalkEntry(const GradeCell& cell) const override {
    const auto& walk = Walk();
    for (int entry = 0; entry < walk.ListCount(); ++entry)
      if (KeyOf(walk.ItemData(entry)) == (kStudents ? cell.student : cell.subject)) return entry;
    return -1;
  }

  [[nodiscard]] const GradeField* Field(int column) const override {
    const auto found = std::find_if(stored_.fields.begin(), stored_.fields.end(),
                                    [column](const auto& field) { return field.column == column; });
    const auto none = found == stored_.fields.end() || FormInstance<StepOne>::Get().blnRecuperar;
    return none ? nullptr : &*found;
  }

 private:
  static constexpr bool kStudents = requires(const StepTwo& form) { form.cboAlumnos; };

  [[nodiscard]] std::string SubjectKey(std::int32_t number) const {
    const auto position = static_cast<std::size_t>(number) - 1;
    if constexpr (requires { form_.aryMaterias; })
      return Key(form_.aryMaterias.at(position).IDMatDet);
    else
      return Key(form_.ListaMaterias.at(position).IDMatDet);
  }
  [[nodiscard]] std::string KeyOf(std::int32_t data) const {
    if constexpr (kStudents)
      return Key(data);
    else
      return SubjectKey(data);
  }

  const StepTwo& form_;
  Stored stored_;
};

template <class StepTwo, class StepOne, const Stored& stored>
std::unique_ptr<const GradeForm> Try(const Form& any) {
  const auto* const form = dynamic_cast<const StepTwo*>(&any);
  if (form == nullptr) return nullptr;
  return std::make_unique<Known<StepTwo, StepOne>>(*form, stored);
}

constexpr std::array kKinds = {Try<frmNotaManual, frmNotaManual1, kInEvaluation>,
                               Try<frmNotaMateria, frmNotaMateria1, kInEvaluation>,
                               Try<frmNotaSeccionAlumno, frmNotaSeccionAlumno1, kInEvaluation>,
                               Try<frmNotaSeccionMateria, frmNotaSeccionMateria1, kInEvaluation>,
                               Try<frmNotaManualFinal, frmNotaManual1, kInFinal>,
                               Try<frmNotaMateriaFinal, frmNotaMateria1, kInFinal>,
                               Try<frmNotaSeccionAlumnoFinal, frmNotaSeccionAlumno1, kInFinal>,
                               Try<frmNotaSeccionMateriaFinal, frmNotaSeccionMateria1, kInFinal>};

}  // namespace

void GradeForm::ReadPlace(GradeCell& cell) const { ReadRow(cell, Grid().Row()); }

std::unique_ptr<const GradeForm> AsGradeForm(const Form& form) {
  for (auto* const kind : kKinds)
    if (auto known = kind(form)) return known;
  return nullptr;
}

}  // namespace quorvane::zendria

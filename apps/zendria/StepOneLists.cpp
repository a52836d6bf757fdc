#include "apps/zendria/StepOneLists.h"

#include <array>
#include <string_view>
#include <utility>

#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"

namespace quorvane::zendria {
namespace {

using Empty = StepOneLists::Empty;

// The last two are never in one form.
constexpr std::array<std::pair<std::string_view, Empty>, 6> kLists{{
    {"cboTipoEnsenanza", Empty::Kinds},
    {"cboCursos", Empty::Courses},
    {"cboSecciones", Empty::Sections},
    {"cboEvaluaciones", Empty::Evaluations},
    {"cboMateria", Empty::Subjects},
    {"cboAlumno", Empty::Students},
}};

const ComboBox* ListOf(const Form& form, std::string_view name) {
  return dynamic_cast<const ComboBox*>(form.Find(name));
}

std::int32_t Chosen(const Form& form, std::string_view name) {
  const auto* const list = ListOf(form, name);
  return list == nullptr || list->ListIndex() < 0 ? 0 : list->SelectedData();
}

Empty FirstEmpty(const Form& form) {
  for (const auto& [name, empty] : kLists) {
    const auto* const list = ListOf(form, name);
    if (list == nullptr) continue;
    if (list->ListCount() == 0) return empty;
    // What hangs from it isn't filled before something is chosen.
    if (list->ListIndex() < 0) break;
  }
  return Empty::None;
}

}  // namespace

std::optional<StepOneLists> StepOneListsOf(const Form& form) {
  for (const auto* const name :
       {"cboTipoEnsenanza", "cboCursos", "cboSecciones", "cboEvaluaciones"})
    if (ListOf(form, name) == nullptr) return std::nullopt;
  return StepOneLists{FirstEmpty(form), Chosen(form, "cboSecciones"),
                      Chosen(form, "cboEvaluaciones"), Chosen(form, "cboAlumno")};
}

}  // namespace quorvane::zendria

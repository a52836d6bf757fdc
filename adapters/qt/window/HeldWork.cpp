#include "adapters/qt/window/HeldWork.h"

#include "adapters/qt/layouts/Layouts.h"
#include "platform/controls/Form.h"

namespace quorvane::qt {
namespace {

/// What all forms that enter grades call the grid of them, whose cells none saves one by one.
constexpr auto kGrades = "rtvNotasAlumno";

}  // namespace

bool HoldsWork(const Form& form) { return form.Find(kGrades) != nullptr || IsLaidOutForWork(form); }

}  // namespace quorvane::qt

#pragma once

#include <cstdint>
#include <optional>

namespace quorvane {
class Form;
}

namespace quorvane::zendria {

/// The lists of a step-one form: each hangs from the one before it.
struct StepOneLists {
  /// A list that the user has come to and that offers nothing.
  enum class Empty { None, Kinds, Courses, Sections, Evaluations, Subjects, Students };

  Empty empty = Empty::None;
  // What is chosen; 0 for nothing yet.
  std::int32_t section = 0;
  std::int32_t evaluation = 0;
  std::int32_t student = 0;
};

/// None for another form.
std::optional<StepOneLists> StepOneListsOf(const Form& form);

}  // namespace quorvane::zendria

#pragma once

#include <string>

namespace quorvane {
class Form;
}

namespace quorvane::guion {

/// The form with all its controls as one line of JSON, in the order of their declaration.
std::string FormJson(const Form& form);

}  // namespace quorvane::guion

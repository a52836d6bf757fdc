#pragma once

#include <string>
#include <string_view>

namespace quorvane::sqltext {

/// The module compares with a SELECT in brackets that schools with doubled rows answer with several
/// of them: a file takes the first, this engine refuses the statement. Writes LIMIT 1 at the end of
/// each such SELECT behind a comparison, but for one that limits itself.
std::string TakeFirstOfComparedSelects(std::string_view statement);

}  // namespace quorvane::sqltext

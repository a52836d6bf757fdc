#include "adapters/guion/language/Command.h"

#include "adapters/guion/language/Numbers.h"

namespace quorvane::guion {

std::int32_t Command::Number(std::size_t argument) const {
  std::int32_t number = 0;
  static_cast<void>(ParseInteger(Text(argument), number));
  return number;
}

}  // namespace quorvane::guion

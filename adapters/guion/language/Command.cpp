#include "adapters/guion/language/Command.h"

#include "platform/text/PlainNumber.h"

namespace quorvane::guion {

std::int32_t Command::Number(std::size_t argument) const {
  return PlainNumber<std::int32_t>(Text(argument)).value_or(0);
}

}  // namespace quorvane::guion

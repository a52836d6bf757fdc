#include "platform/host/LocalTime.h"

namespace quorvane {

std::tm LocalTime(std::time_t moment) {
  std::tm parts{};
#ifdef _WIN32
  localtime_s(&parts, &moment);
#else
  localtime_r(&moment, &parts);
#endif
  return parts;
}

}  // namespace quorvane

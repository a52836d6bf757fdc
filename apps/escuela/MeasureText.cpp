#include "apps/escuela/MeasureText.h"

namespace quorvane {

std::string MeasureText(std::int32_t measure) {
  if (measure == 1) return "Refuerzo educativo";
  return measure == 2 ? "Adaptación curricular" : std::string();
}

}  // namespace quorvane

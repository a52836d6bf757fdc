#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// A subject as taught in a section, with the teacher who grades it while it is pending.
class cMatProf {
 public:
  std::int32_t IDMatDetalle = 0;
  std::int32_t IDPersonal = 0;  ///< 0 for none
  std::uint8_t Estado = 0;      ///< row state; `NUEVO` while there is no row
  std::string NombreProf;
  std::string NombreMat;
};

}  // namespace quorvane

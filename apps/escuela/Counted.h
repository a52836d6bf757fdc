#pragma once

#include <cstddef>
#include <string>

namespace quorvane {

/// "1 alumno", "2 alumnos".
inline std::string Counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + " " + (count == 1 ? one : many);
}

inline std::string CountedRows(std::size_t count) { return Counted(count, "fila", "filas"); }

}  // namespace quorvane

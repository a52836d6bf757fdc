#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace quorvane::test {

/// What one process has done, in numbers. Waits are in microseconds.
struct Figures {
  std::map<std::string, std::int64_t> counts;
  std::map<std::string, std::int64_t> errors;  ///< by number and text

  std::int64_t& operator[](const std::string& name) { return counts[name]; }
};

inline constexpr const char* kGestures = "gestos";
inline constexpr const char* kOpenings = "aperturas";
inline constexpr const char* kSaves = "grabaciones";
inline constexpr const char* kPublished = "rechazos por publicación";
inline constexpr const char* kHidden = "rechazos por bloqueo";
inline constexpr const char* kReadOnly = "registros de solo lectura";
inline constexpr const char* kCollisions = "choques de clave";
inline constexpr const char* kStatements = "sentencias";
inline constexpr const char* kWrites = "escrituras";
inline constexpr const char* kLongest = "espera más larga";
inline constexpr const char* kRemoved = "publicaciones que dejó un error";
inline constexpr const char* kBusy = "otros errores de la base de datos";

/// A table: a column a process, where there is room for them, and one for all.
void PrintFigures(std::ostream& out, std::vector<Figures> processes, double seconds);

}  // namespace quorvane::test

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iomanip>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "platform/text/Utf8.h"

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
inline void PrintFigures(std::ostream& out, std::vector<Figures> processes, double seconds) {
  static const std::array<const char*, 12> kRows{kGestures, kOpenings, kSaves,      kPublished,
                                                 kHidden,   kReadOnly, kCollisions, kStatements,
                                                 kWrites,   kLongest,  kRemoved,    kBusy};
  // Counts add up, the longest wait of all is the longest of any.
  Figures total;
  for (auto& figures : processes) {
    for (const auto& [name, count] : figures.counts)
      total[name] = name == kLongest ? std::max(total[name], count) : total[name] + count;
    for (const auto& [error, times] : figures.errors) total.errors[error] += times;
  }
  // More columns than a line has room for tell nothing.
  constexpr std::size_t kColumns = 8;
  if (processes.size() > kColumns) processes.clear();
  const auto print = [&](const std::string& name, const auto& cell) {
    constexpr std::size_t kNameWidth = 34;
    constexpr int kWidth = 9;
    out << "  " << name << std::string(kNameWidth - std::min(Utf8Length(name), kNameWidth), ' ');
    for (auto& figures : processes) out << std::setw(kWidth) << cell(figures);
    out << std::setw(kWidth + 2) << cell(total) << '\n';
  };
  int process = 0;
  print("proceso", [&](const Figures& figures) {
    return &figures == &total ? "todos" : std::to_string(++process);
  });
  for (const std::string row : kRows) {
    const auto scale = row == kLongest ? 1000 : 1;
    print(row == kLongest ? row + " (ms)" : row,
          [&](Figures& figures) { return figures[row] / scale; });
  }
  print("sentencias por segundo", [&](Figures& figures) {
    return static_cast<std::int64_t>(static_cast<double>(figures[kStatements]) / seconds);
  });
  if (!total.errors.empty()) out << "Errores con número que han llegado al usuario:\n";
  for (const auto& [error, times] : total.errors)
    out << "  " << times << " veces " << error << '\n';
}

}  // namespace quorvane::test

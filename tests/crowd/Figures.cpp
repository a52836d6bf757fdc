#include "tests/crowd/Figures.h"

#include <algorithm>
#include <array>
#include <iomanip>

#include "platform/text/Utf8.h"

namespace quorvane::test {
namespace {

constexpr int kNameWidth = 34;
constexpr int kWidth = 9;

void PrintName(std::ostream& out, const std::string& name) {
  out << "  " << name
      << std::string(static_cast<std::size_t>(kNameWidth) -
                         std::min<std::size_t>(Utf8Length(name), kNameWidth),
                     ' ');
}

/// Counts add up, the longest wait of all is the longest of any.
std::int64_t Total(const std::vector<Figures>& processes, const std::string& name) {
  std::int64_t total = 0;
  for (auto figures : processes)
    total = name == kLongest ? std::max(total, figures[name]) : total + figures[name];
  return total;
}

}  // namespace

void PrintFigures(std::ostream& out, std::vector<Figures> processes, double seconds) {
  static const std::array<const char*, 12> kRows{kGestures, kOpenings, kSaves,      kPublished,
                                                 kHidden,   kReadOnly, kCollisions, kStatements,
                                                 kWrites,   kLongest,  kRemoved,    kBusy};
  // More columns than a line has room for tell nothing.
  constexpr std::size_t kColumns = 8;
  const auto all = processes;
  if (processes.size() > kColumns) processes.clear();
  PrintName(out, "proceso");
  for (std::size_t i = 1; i <= processes.size(); ++i) out << std::setw(kWidth) << i;
  out << std::setw(kWidth + 2) << "todos" << '\n';
  for (const std::string row : kRows) {
    const auto scale = row == kLongest ? 1000 : 1;
    PrintName(out, row == kLongest ? row + " (ms)" : row);
    for (auto& figures : processes) out << std::setw(kWidth) << figures[row] / scale;
    out << std::setw(kWidth + 2) << Total(all, row) / scale << '\n';
  }
  PrintName(out, "sentencias por segundo");
  const auto rate = [seconds](std::int64_t count) {
    return static_cast<std::int64_t>(static_cast<double>(count) / seconds);
  };
  for (auto& figures : processes) out << std::setw(kWidth) << rate(figures[kStatements]);
  out << std::setw(kWidth + 2) << rate(Total(all, kStatements)) << '\n';

  std::map<std::string, std::int64_t> errors;
  for (const auto& figures : all)
    for (const auto& [error, times] : figures.errors) errors[error] += times;
  if (!errors.empty()) out << "Errores con número que han llegado al usuario:\n";
  for (const auto& [error, times] : errors) out << "  " << times << " veces " << error << '\n';
}

}  // namespace quorvane::test

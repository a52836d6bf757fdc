#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "apps/escuela/Prng.h"
#include "tests/support/BusyCores.h"
#include "tests/ventana/KeyPass.h"
#include "tests/ventana/Keys.h"
#include "tests/ventana/WindowMain.h"
#include "tests/walk/History.h"
#include "tests/walk/Violation.h"
#include "tests/walk/WalkOptions.h"

namespace quorvane::test {
namespace {

constexpr const char* kOrdinary = "3ª Evaluación";
constexpr const char* kFinal = "Final Ordinaria";
constexpr std::array<GradeScreen, 8> kScreens{{
    {"frmNotaManual", 124, kOrdinary},
    {"frmNotaManualFinal", 124, kFinal},
    {"frmNotaMateria", 125, kOrdinary},
    {"frmNotaMateriaFinal", 125, kFinal},
    {"frmNotaSeccionMateria", 126, kOrdinary},
    {"frmNotaSeccionMateriaFinal", 126, kFinal},
    {"frmNotaSeccionAlumno", 127, kOrdinary},
    {"frmNotaSeccionAlumnoFinal", 127, kFinal},
}};

using Log = std::vector<std::string>;
using Keys = std::vector<const KeyPress*>;

/// What one has from where the two part on, for a message.
std::string From(const Log& log, std::size_t start) {
  constexpr std::size_t kEvents = 6;
  constexpr std::size_t kLetters = 100;
  std::string text;
  for (auto i = start; i < std::min(log.size(), start + kEvents); ++i)
    text += "\n    " + log[i].substr(0, kLetters);
  return text;
}

std::string Difference(const Log& slow, const Log& fast) {
  const auto parts = std::mismatch(slow.begin(), slow.end(), fast.begin(), fast.end()).first;
  const auto start = static_cast<std::size_t>(parts - slow.begin());
  return "\n  despacio:" + From(slow, start) + "\n  deprisa:" + From(fast, start);
}

/// Leaves keys out as long as the end still hangs on the speed.
Keys Fewest(const GradeScreen& which, Keys keys) {
  for (auto part = keys.size() / 2; part > 0; part /= 2)
    for (std::size_t from = 0; from < keys.size();) {
      Keys some(keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(from));
      const auto rest = std::min(keys.size(), from + part);
      some.insert(some.end(), keys.begin() + static_cast<std::ptrdiff_t>(rest), keys.end());
      if (KeyPass(which, some, Pace::Slow).Run() != KeyPass(which, some, Pace::Fast).Run())
        keys = std::move(some);
      else
        from += part;
    }
  return keys;
}

/// The same keys slowly and as fast as they can come, on an idle machine and on a busy one: the end
/// has to be the same. `Violation`, with the fewest keys that still show it, when speed made a
/// difference.
void Compare(const GradeScreen& which, const Keys& keys) {
  QElapsedTimer clock;
  clock.start();
  const auto slow = KeyPass(which, keys, Pace::Slow).Run();
  const auto fast = KeyPass(which, keys, Pace::Fast).Run();
  const auto busy = [&] {
    const BusyCores cores;
    return KeyPass(which, keys, Pace::Fast).Run();
  }();
  for (const auto& event : slow)
    if (event.starts_with("error"))
      throw Violation(std::string(which.form) + ": " + event + ", aun despacio");
  const auto& other = slow == fast ? busy : fast;
  if (slow != other) {
    auto text = std::string(which.form) + ": lo mismo deprisa acaba de otra manera" +
                Difference(slow, other) + "\n  y con las teclas";
    const auto fewest = Fewest(which, keys);
    for (const auto* key : fewest) text += std::string(" ") + key->name;
    text += Difference(KeyPass(which, fewest, Pace::Slow).Run(),
                       KeyPass(which, fewest, Pace::Fast).Run());
    throw Violation(text);
  }
  std::cout << which.form << ": " << keys.size() << " teclas, " << slow.size()
            << " sucesos iguales despacio, deprisa y con la máquina ocupada, " << clock.elapsed()
            << " ms\n";
}

const WalkOptions kDefaults{.gestures = 10'000, .seed = 1, .odbc = {}, .owner = {}};

constexpr const char* kUsage = R"(Uso: teclas [--gestos N] [--semilla S]

Teclea al azar en los formularios de notas, las mismas teclas una a una, todas
seguidas, y todas seguidas con la máquina ocupada. Comprueba que acaban igual:
las mismas sentencias y las mismas notas en las celdas.

  --gestos N    cuántas teclas, entre los ocho formularios (10000)
  --semilla S   con qué números al azar (1)
)";

void Run(const WalkOptions& options, History& /*history*/) {
  Prng random(options.seed);
  constexpr std::size_t kEscapes = 30;  // in a thousand
  for (const auto& which : kScreens) {
    Keys keys(options.gestures / kScreens.size());
    std::generate(keys.begin(), keys.end(), [&random] { return &AnyKey(random, kEscapes); });
    Compare(which, keys);
  }
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  return WindowMain({"teclas", kUsage, kDefaults, Run}, argc, argv);
}

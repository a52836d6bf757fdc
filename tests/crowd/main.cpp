#include <charconv>
#include <exception>
#include <iostream>
#include <map>
#include <optional>
#include <string_view>

#include "tests/crowd/Crowd.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage = R"(Uso: crowd [OPCIONES]

Varios procesos sobre una misma escuela: cada uno abre, califica, graba y sale al
azar. Después comprueba, apunte por apunte, que nadie ha perdido lo que grabó.

  --procesos N    cuántos (8)
  --segundos N    cuánto tiempo (60)
  --semilla S     con qué números al azar (1)
  --pausa N       hasta cuántos milisegundos piensa cada uno entre dos gestos (0)
  --escuela E     demo, un número de alumnos o una base de datos, que se copia (300)
  --diario M      journal_mode de la base de datos: wal o delete (wal)
  --carpeta D     dónde poner la escuela (la de los ficheros temporales)
  --falta F       el primero hace mal a propósito: nota, bloqueo, perdida o espera;
                  termina bien si se descubre
)";
constexpr std::size_t kShown = 10;

const std::map<std::string_view, Fault> kFaults{{"nota", Fault::Grade},
                                                {"bloqueo", Fault::Lock},
                                                {"perdida", Fault::Lost},
                                                {"espera", Fault::Wait}};

/// How each fault shows.
const std::map<Fault, std::string_view> kSigns{{Fault::Grade, "Ha dado notas"},
                                               {Fault::Lock, "Quedan "},
                                               {Fault::Lost, "dice haber escrito lo que no está"},
                                               {Fault::Wait, "errores de la base de datos"}};

template <typename Number>
bool Parse(std::string_view text, Number& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0;
}

bool Take(CrowdOptions& options, std::string_view name, std::string_view value) {
  if (name == "--procesos") return Parse(value, options.processes);
  if (name == "--segundos") return Parse(value, options.seconds);
  if (name == "--semilla") return Parse(value, options.seed);
  if (name == "--pausa") return Parse(value, options.pause);
  if (name == "--escuela") options.school = value;
  if (name == "--diario") options.journalMode = value;
  if (name == "--carpeta") options.folder = value;
  if (name == "--falta") {
    const auto fault = kFaults.find(value);
    if (fault == kFaults.end()) return false;
    options.fault = fault->second;
  }
  return name == "--escuela" || name == "--carpeta" || name == "--falta" ||
         (name == "--diario" && (value == "wal" || value == "delete"));
}

std::optional<CrowdOptions> ParseOptions(int argc, char** argv) {
  CrowdOptions options;
  for (int i = 1; i < argc; i += 2)
    if (i + 1 == argc || !Take(options, argv[i], argv[i + 1])) return std::nullopt;
  return options;
}

/// Whether what was done wrong on purpose has been found.
bool FoundFault(const CrowdOptions& options, const std::vector<std::string>& violations) {
  for (const auto& violation : violations)
    if (violation.find(kSigns.at(options.fault)) != std::string::npos) return true;
  return false;
}

int Main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--help") {
    std::cout << kUsage;
    return 0;
  }
  const auto options = ParseOptions(argc, argv);
  if (!options) {
    std::cerr << kUsage;
    return 2;
  }
  Crowd crowd(*options);
  const auto good = crowd.Run();
  crowd.Report(std::cout);
  std::size_t shown = 0;
  for (const auto& violation : crowd.Violations())
    if (++shown <= kShown) std::cout << "MAL: " << violation << '\n';
  if (shown > kShown) std::cout << "MAL: y " << shown - kShown << " más\n";
  if (options->fault == Fault::None) return good ? 0 : 1;
  return FoundFault(*options, crowd.Violations()) ? 0 : 1;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  try {
    return quorvane::test::Main(argc, argv);
  } catch (const std::exception& failure) {
    std::cerr << "crowd: " << failure.what() << '\n';
    return 1;
  }
}

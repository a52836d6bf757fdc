#include <iostream>
#include <map>
#include <string_view>

#include "tests/crowd/Crowd.h"
#include "tests/support/ProgramOptions.h"

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
  --odbc CADENA   la escuela, en una base de datos de PostgreSQL aún sin tablas; al
                  terminar se quitan
  --duena CADENA  lo mismo, como quien hace las tablas; sin ella, el de --odbc
  --carpeta D     dónde poner la escuela (la de los ficheros temporales)
  --falta F       el primero hace mal a propósito: nota, bloqueo, perdida o espera;
                  termina bien si se descubre. Sigue hasta que la haya hecho
                  tres veces, un minuto como mucho
)";
constexpr std::size_t kShown = 10;

/// How each fault shows.
const std::map<Fault, std::string_view> kSigns{{Fault::Grade, "Ha dado notas"},
                                               {Fault::Lock, "Quedan "},
                                               {Fault::Lost, "dice haber escrito lo que no está"},
                                               {Fault::Wait, "errores de la base de datos"}};

/// Whether what was done wrong on purpose has been found.
bool FoundFault(const CrowdOptions& options, const std::vector<std::string>& violations) {
  for (const auto& violation : violations)
    if (violation.find(kSigns.at(options.fault)) != std::string::npos) return true;
  return false;
}

int Play(const CrowdOptions& options) {
  Crowd crowd(options);
  const auto good = crowd.Run();
  crowd.Report(std::cout);
  std::size_t shown = 0;
  for (const auto& violation : crowd.Violations())
    if (++shown <= kShown) std::cout << "MAL: " << violation << '\n';
  if (shown > kShown) std::cout << "MAL: y " << shown - kShown << " más\n";
  if (options.fault == Fault::None) return good ? 0 : 1;
  return FoundFault(options, crowd.Violations()) ? 0 : 1;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  CrowdOptions options;
  return ProgramOptions("crowd", kUsage)
      .Positive("--procesos", options.processes)
      .Positive("--segundos", options.seconds)
      .Positive("--semilla", options.seed)
      .Positive("--pausa", options.pause)
      .Text("--escuela", options.school)
      .OneOf("--diario", options.journalMode, {{"wal", "wal"}, {"delete", "delete"}})
      .Text("--odbc", options.odbc)
      .Text("--duena", options.owner)
      .Text("--carpeta", options.folder)
      .OneOf("--falta", options.fault,
             {{"nota", Fault::Grade},
              {"bloqueo", Fault::Lock},
              {"perdida", Fault::Lost},
              {"espera", Fault::Wait}})
      .Run(argc, argv, [&options] { return Play(options); });
}

#include <cstdint>
#include <exception>
#include <fcntl.h>
#include <iostream>
#include <map>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/servidor/faults/Faults.h"
#include "tests/support/ProgramOptions.h"
#include "tests/support/ServerSchools.h"

namespace quorvane::test {
namespace {

constexpr const char* kUsage = R"(Uso: con_servidor.py faults --clase CLASE [OPCIONES]

Hace fallar al servidor de las pruebas, o a la red que lleva hasta él, en sentencias al azar
de sesiones al azar, y comprueba cada vez el error que ve el usuario, lo que había vuelto, lo
que nombra «quorvane-escuela bloqueos», y que la pantalla se abre de nuevo.

  --clase C      parada (el servidor se para de golpe y arranca de nuevo), proceso (acaba el
                 proceso de esa conexión), corte (la red la corta) o silencio (no lleva nada)
  --veces N      cuántas (50)
  --a-la-vez N   procesos que se las reparten, cada uno con su escuela (1)
  --semilla S    con qué números al azar (1)
)";

const std::map<ServerFault, const char*> kWhat = {
    {ServerFault::Stop, "el servidor se para de golpe y arranca de nuevo"},
    {ServerFault::Terminate, "el servidor acaba el proceso de la conexión"},
    {ServerFault::Reset, "la red corta la conexión"},
    {ServerFault::Silence, "la red calla"}};

/// One of those that share the faults, in a process of its own: the module is there once in each.
class Part {
 public:
  Part(const FaultOptions& options, int number, int times) {
    if (pipe2(ends_, O_CLOEXEC) != 0) throw std::runtime_error("No se puede crear una tubería");
    process_ = fork();
    if (process_ == 0) _exit(Play(options, number, times));
    close(ends_[1]);
  }

  /// Waits for its end, which failed unless it tells figures.
  [[nodiscard]] FaultFigures Figures() {
    FaultFigures figures;
    const auto size = read(ends_[0], &figures, sizeof figures);
    close(ends_[0]);
    int status = 0;
    waitpid(process_, &status, 0);
    if (size != sizeof figures) throw std::runtime_error("hay faltas que acaban mal");
    return figures;
  }

 private:
  [[nodiscard]] int Play(const FaultOptions& options, int number, int times) const {
    try {
      constexpr std::uint64_t kParts = 1000;
      Faults faults(options, options.seed * kParts + static_cast<std::uint64_t>(number));
      const auto figures = faults.Run(times);
      return write(ends_[1], &figures, sizeof figures) == sizeof figures ? 0 : 1;
    } catch (const std::exception& failure) {
      std::cerr << "faults: " << failure.what() << std::endl;
      return 1;
    }
  }

  int ends_[2]{-1, -1};
  pid_t process_ = 0;
};

int Play(const FaultOptions& options) {
  if (!OnServer()) throw std::runtime_error("hace falta un servidor: con_servidor.py faults ...");
  std::vector<Part> parts;
  for (auto number = 0; number < options.atOnce; ++number) {
    const auto times = (options.times + number) / options.atOnce;
    if (times > 0) parts.emplace_back(options, number, times);
  }
  FaultFigures all;
  auto failed = false;
  for (auto& part : parts) try {
      all.Add(part.Figures());
    } catch (const std::runtime_error&) {
      failed = true;
    }
  all.Print(std::cout, kWhat.at(options.fault));
  return failed ? 1 : 0;
}

}  // namespace
}  // namespace quorvane::test

int main(int argc, char** argv) {
  using namespace quorvane::test;
  FaultOptions options;
  return ProgramOptions("faults", kUsage)
      .OneOf<ServerFault>("--clase", options.fault,
                          {{"parada", ServerFault::Stop},
                           {"proceso", ServerFault::Terminate},
                           {"corte", ServerFault::Reset},
                           {"silencio", ServerFault::Silence}})
      .Positive("--veces", options.times)
      .Positive("--a-la-vez", options.atOnce)
      .Positive("--semilla", options.seed)
      .Run(argc, argv, [&options] { return Play(options); });
}

#include "adapters/guion/language/CommandKind.h"

#include <algorithm>

#include "adapters/guion/player/ControlCommands.h"
#include "adapters/guion/player/FormCommands.h"
#include "adapters/guion/player/GridCommands.h"
#include "adapters/guion/player/HostCommands.h"

namespace quorvane::guion {
namespace {

const std::vector<CommandKind>& Commands() {
  using enum Argument;
  static const std::vector<CommandKind> commands = {
      {"nodo", {Number}, 1, Nodo},
      {"elegir", {Name, Entry}, 2, Elegir},
      {"marcar", {Name, Flag}, 2, Marcar},
      {"pulsar", {Name}, 1, Pulsar},
      {"doble", {Name}, 1, Doble},
      {"fila", {Name, Number, Number}, 2, Fila},
      {"editar", {Name, Number, Number, Entry}, 4, Editar},
      {"lista", {Name, Number, Number}, 3, Lista},
      {"pestana", {Name, Number}, 2, Pestana},
      {"escribir", {Name, Text}, 2, Escribir},
      {"tecla", {Number}, 1, Tecla},
      {"tamano", {Number, Number}, 2, Tamano},
      {"cerrar", {}, 0, Cerrar},
      {"docente", {Number}, 1, Docente},
      {"notasactivas", {Flag}, 1, NotasActivas},
      {"hoy", {Text}, 1, Hoy},
      {"sesion", {Setting}, 1, Sesion},
      {"fallo", {Positive}, 1, Fallo},
      {"sql", {Text}, 1, Sql},
      {"ver", {}, 0, Ver},
  };
  return commands;
}

}  // namespace

const CommandKind* FindCommand(std::string_view name) {
  const auto& commands = Commands();
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [name](const CommandKind& kind) { return kind.name == name; });
  return found == commands.end() ? nullptr : &*found;
}

}  // namespace quorvane::guion

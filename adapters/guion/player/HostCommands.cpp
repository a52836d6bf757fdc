#include "adapters/guion/player/HostCommands.h"

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/SessionSetting.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/Guion.h"
#include "adapters/guion/player/JsonText.h"
#include "adapters/guion/player/Refusal.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "platform/data/Connection.h"

namespace quorvane::guion {
namespace {

Recordset Execute(Connection& connection, const std::string& statement) {
  try {
    return connection.Execute(statement);
  } catch (const RuntimeError& error) {
    throw Refusal(error.Description());
  }
}

}  // namespace

void Nodo(Guion& guion, const Command& command) {
  if (guion.Active() != nullptr) throw Refusal("ya hay un formulario abierto");
  try {
    guion.TheHost().Activate(command.Number(0));
    guion.Events().Print("vuelve", std::to_string(command.Number(0)));
  } catch (const RuntimeError& error) {
    FormInstances::DropAll();
    guion.Failed(error);
  }
}

void Docente(Guion& guion, const Command& command) { guion.TheHost().docente = command.Number(0); }

void NotasActivas(Guion& guion, const Command& command) {
  guion.TheHost().notasActivas = command.Number(0) == 1;
}

void Hoy(Guion& guion, const Command& command) {
  auto& options = guion.TheHost().Options();
  options.hoy = command.Text(0);
  options.hoyDelServidor = nullptr;
}

void Sesion(Guion& guion, const Command& command) {
  for (const auto& word : command.arguments) {
    const auto setting = ParseSetting(word.text);
    guion.TheHost().Options().*(setting->member) = setting->value;
  }
  HandSessionIn(guion);
}

void Fallo(Guion& guion, const Command& command) {
  guion.TheHost().FailStatement(command.Number(0));
}

void Sql(Guion& guion, const Command& command) {
  auto rows = Execute(guion.TheHost().OtherUser(), command.Text(0));
  if (!rows.IsOpen()) return;
  for (; !rows.Eof(); rows.MoveNext()) guion.Events().Print("fila", JsonRow(rows));
}

void HandSessionIn(Guion& guion) {
  try {
    guion.TheHost().HandSessionIn();
  } catch (const RuntimeError& error) {
    guion.Failed(error);
  }
}

}  // namespace quorvane::guion

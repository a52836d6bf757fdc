#include "apps/zendria/NodeRunner.h"

#include <exception>

#include "frame/cAsignarDatos.h"
#include "platform/Application.h"
#include "platform/FormInstances.h"
#include "platform/FrontEnd.h"
#include "platform/RuntimeError.h"

namespace quorvane::zendria {
namespace {

Failure CleanUp(Failure failure) {
  FormInstances::DropAll();
  Application::Instance().Screen().MousePointer(Pointer::Default);
  return failure;
}

/// Drivers put the state before their text; those of the class 08 tell of the connection.
// Not every driver gives a lost connection a state of that class.
bool TellsOfTheConnection(const QString& text) {
  return text.contains("[08") || text.startsWith("Se ha perdido la conexión");
}

}  // namespace

std::optional<Failure> OpenNode(std::uint8_t node,
                                const std::shared_ptr<const SessionObject>& session) {
  try {
    cAsignarDatos module;
    module.ObtenerDatos(session);
    module.ActivarFormulario(node);
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return CleanUp({error.Number(), QString::fromStdString(error.Description())});
  } catch (const std::exception& error) {
    return CleanUp({std::nullopt, QString::fromUtf8(error.what())});
  }
}

QString Advice(const Failure& failure) {
  const auto is = [&failure](ErrorNumber number) {
    return failure.number == static_cast<std::int32_t>(number);
  };
  const auto lost = is(ErrorNumber::StatementFailed) && TellsOfTheConnection(failure.text);
  if (lost || is(ErrorNumber::ObjectClosed))
    return "Se ha perdido la conexión con la base de datos. Compruebe la red y que el servidor "
           "está "
           "en marcha, y vuelva a abrir la escuela.";
  if (is(ErrorNumber::StatementFailed) && failure.text.contains("database is locked"))
    return "Otra persona u otro programa tenía ocupada la base de datos. Espere un momento, vuelva "
           "a abrir la pantalla y repita lo que falte.";
  if (is(ErrorNumber::StatementFailed))
    return "La base de datos ha rechazado una operación. Compruebe que el fichero de la escuela "
           "sigue en su sitio, que se puede escribir en él y que queda espacio en el disco.";
  if (is(ErrorNumber::Overflow) || is(ErrorNumber::TypeMismatch))
    return "La base de datos contiene un valor que esta pantalla no puede leer. Avise a quien "
           "mantiene la base de datos de la escuela.";
  if (is(ErrorNumber::NoCurrentRecord) || is(ErrorNumber::UnknownField) ||
      is(ErrorNumber::DuplicateKey))
    return "A la base de datos le falta un dato que esta pantalla necesita, o lo tiene repetido. "
           "Compruebe la escuela con «quorvane-escuela comprobar».";
  if (is(ErrorNumber::InvalidCall))
    return "La pantalla buscaba un alumno o una materia que ya no está; quizá otra persona lo "
           "quitó. "
           "Vuelva a abrir la pantalla y repita lo que falte.";
  if (is(ErrorNumber::MissingResource))
    return "A la aplicación le falta un texto. En el paso 1 de las notas quiere decir que hoy no "
           "está entre las fechas fijadas para poner notas: pregunte a la dirección.";
  return "Anote el número y el texto del error y avise a quien mantiene la aplicación.";
}

}  // namespace quorvane::zendria

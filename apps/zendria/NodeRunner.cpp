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
  return "Anote el número y el texto del error y avise a quien mantiene la aplicación.";
}

}  // namespace quorvane::zendria

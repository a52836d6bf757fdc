#include "apps/zendria/NodeRunner.h"

#include "apps/zendria/HoldsAny.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"

namespace quorvane::zendria {
namespace {

Failure CleanUp(Failure failure) {
  FormInstances::DropAll();
  Application::Instance().Screen().MousePointer(Pointer::Default);
  return failure;
}

constexpr auto kLost =
    "Se ha perdido la conexión con la base de datos. Compruebe la red y que el servidor está en "
    "marcha, y vuelva a abrir la pantalla.";
constexpr auto kFileLost =
    "Si el fichero se ha movido o ha cambiado de nombre, devuélvalo a su sitio y vuelva a abrir la "
    "pantalla. Si no, abra la escuela de nuevo (menú Escuela, «Abrir…»), mire qué falta y "
    "repítalo.";
constexpr auto kNotThere =
    "La pantalla ha pedido algo que la base de datos no tiene; quizá hay una materia que no se "
    "puede calificar aquí. Busque el número del error en el manual (F1), o compruebe la escuela "
    "con «quorvane-escuela comprobar».";

/// What an engine refused can only be told by its own text. Drivers put the state before theirs:
/// those of the class 08 tell of the connection, but not every driver gives a lost one such a
/// state.
QString AdviceOnStatement(const QString& text) {
  if (HoldsAny(text, {"[08", "Se ha perdido la conexión"})) return kLost;
  if (HoldsAny(text, {"database is locked", "[40001]", "tiene ocupada la base de datos"}))
    return "Otra persona u otro programa tenía ocupada la base de datos. Espere un momento, vuelva "
           "a abrir la pantalla y repita lo que falte.";
  if (HoldsAny(text, {"UNIQUE constraint failed", "(2627)", "[23505]"}))
    return "Otra persona ha guardado en el mismo instante. Vuelva a abrir la pantalla y repita lo "
           "que falte.";
  if (HoldsAny(text,
               {"no such table", "no such column", "[42S02]", "[42S22]", "[42P01]", "[42703]"}))
    return kNotThere;
  // A driver's text begins with its state, and what can be done about it stands behind.
  if (text.startsWith(u'['))
    return "El servidor ha rechazado una operación. Si el texto de arriba no dice qué puede hacer, "
           "avise a quien mantiene el servidor.";
  return "La base de datos ha rechazado una operación. Compruebe que el fichero de la escuela "
         "sigue en su sitio, que se puede escribir en él y que queda espacio en el disco.";
}

}  // namespace

std::optional<Failure> OpenNode(std::uint8_t node,
                                const std::shared_ptr<const SessionObject>& session) {
  try {
    cAsignarDatos module;
    module.ObtenerDatos(session);
    module.ActivarFormulario(node);
    return std::nullopt;
  } catch (const std::exception&) {
    return CleanUp(FailureOf(std::current_exception()));
  }
}

Failure FailureOf(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const RuntimeError& error) {
    return {error.Number(), QString::fromStdString(error.Description())};
  } catch (const std::exception& error) {
    return {std::nullopt, QString::fromUtf8(error.what())};
  }
}

bool LostFile(const Failure& failure) {
  return failure.number == static_cast<std::int32_t>(ErrorNumber::StatementFailed) &&
         failure.text.startsWith("Se ha perdido el archivo ");
}

QString Advice(const Failure& failure) {
  const auto is = [&failure](ErrorNumber number) {
    return failure.number == static_cast<std::int32_t>(number);
  };
  if (LostFile(failure)) return kFileLost;
  if (is(ErrorNumber::StatementFailed)) return AdviceOnStatement(failure.text);
  if (is(ErrorNumber::ObjectClosed)) return kLost;
  if (is(ErrorNumber::UnknownField)) return kNotThere;
  if (is(ErrorNumber::Overflow) || is(ErrorNumber::TypeMismatch))
    return "La base de datos contiene un valor que esta pantalla no puede leer. Avise a quien "
           "mantiene la base de datos de la escuela.";
  if (is(ErrorNumber::DuplicateKey))
    return "La base de datos tiene algo repetido, quizá la misma materia dos veces en un alumno. "
           "Abra el registro de su sección, que quita la repetida, y vuelva a abrir esta pantalla. "
           "Si se repite, compruebe la escuela con «quorvane-escuela comprobar».";
  if (is(ErrorNumber::NoCurrentRecord))
    return "A la base de datos le falta un dato que esta pantalla necesita; quizá otra persona lo "
           "ha "
           "borrado. Vuelva a abrir la pantalla y, si se repite, compruebe la escuela con "
           "«quorvane-escuela comprobar».";
  if (is(ErrorNumber::MissingMember))
    return "Lo que se ha elegido no se puede guardar. Si en el paso 1 marcó «Recuperación», vuelva "
           "a entrar sin marcarla.";
  if (is(ErrorNumber::InvalidCall))
    return "La pantalla buscaba un alumno o una materia que ya no está; quizá otra persona lo "
           "quitó. Vuelva a abrir la pantalla y repita lo que falte.";
  if (is(ErrorNumber::MissingResource))
    return "A la aplicación le falta un texto. En el paso 1 de las notas quiere decir que hoy no "
           "está entre las fechas fijadas para poner notas: pregunte a la dirección.";
  return "Anote el número y el texto del error y avise a quien mantiene la aplicación.";
}

}  // namespace quorvane::zendria

#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

const char* StandardText(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidCall:
      return "Argumento o llamada a procedimiento no válidos";
    case ErrorNumber::Overflow:
      return "Desbordamiento";
    case ErrorNumber::TypeMismatch:
      return "No coinciden los tipos";
    case ErrorNumber::ObjectNotSet:
      return "Variable de objeto no establecida";
    case ErrorNumber::MissingResource:
      return "No se encuentra el recurso";
    case ErrorNumber::InvalidProperty:
      return "El valor de la propiedad no es válido";
    case ErrorNumber::InvalidArrayIndex:
      return "El índice de la matriz de propiedades no es válido";
    case ErrorNumber::CantCreateObject:
      return "El componente no puede crear el objeto";
    case ErrorNumber::MissingMember:
      return "El objeto no admite esta propiedad o método";
    case ErrorNumber::DuplicateKey:
      return "La clave ya está asociada con un elemento de esta colección";
    case ErrorNumber::InvalidArgument:
      return "Los argumentos son incorrectos o están fuera del intervalo permitido";
    case ErrorNumber::NoCurrentRecord:
      return "La operación requiere un registro actual y no lo hay";
    case ErrorNumber::UnknownField:
      return "No se encuentra el campo en la colección";
    case ErrorNumber::ObjectClosed:
      return "La operación no está permitida si el objeto está cerrado";
    case ErrorNumber::StatementFailed:
      return "La base de datos ha rechazado la instrucción";
  }
  return "Error en tiempo de ejecución";
}

}  // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, StandardText(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

}  // namespace quorvane

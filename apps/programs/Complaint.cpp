#include "apps/programs/Complaint.h"

#include <CLI/CLI.hpp>

#include "apps/escuela/Told.h"

namespace quorvane {
namespace {

/// What is out of place may be a connection string, whose values nobody must read: what it begins
/// with tells which argument it is.
std::string WithoutValue(const std::string& argument) {
  const auto equals = argument.find('=');
  return equals == std::string::npos ? argument : argument.substr(0, equals + 1) + "…";
}

/// The library's own texts begin or end with the argument's name.
std::string InSpanish(const CLI::ParseError& error) {
  const std::string text = error.what();
  const auto is = [&error]<class Kind>(std::type_identity<Kind>) {
    return dynamic_cast<const Kind*>(&error) != nullptr;
  };
  if (is(std::type_identity<CLI::ExtrasError>()))
    return "No se esperaba " + WithoutValue(text.substr(text.rfind(": ") + 2));
  const auto name = text.substr(0, text.find_first_of(": "));
  if (is(std::type_identity<CLI::RequiredError>()))
    return name == "A" ? "Falta la orden" : "Falta " + name;
  if (is(std::type_identity<CLI::ArgumentMismatch>()))
    return text.find("received") == std::string::npos
               ? "A " + name + " le falta su valor"
               : "El número de valores de " + name + " no es el suyo: se da una vez y con uno";
  if (is(std::type_identity<CLI::ValidationError>())) {
    const auto reason = text.find(": ");
    if (reason != std::string::npos)
      return "El valor de " + name + " no es válido:" + text.substr(reason + 1);
  }
  return "El valor de " + name + " no es válido";
}

}  // namespace

std::string Complaint(const CLI::ParseError& error) { return Told(InSpanish(error)); }

}  // namespace quorvane

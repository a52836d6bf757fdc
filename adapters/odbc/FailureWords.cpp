#include "adapters/odbc/FailureWords.h"

#include <algorithm>

#include "adapters/odbc/Diagnostics.h"
#include "adapters/odbc/DriverSettings.h"

namespace quorvane::odbc {
namespace {

struct Meaning {
  std::vector<const char*> states;  ///< PostgreSQL's, or how they begin
  std::vector<SQLINTEGER> numbers;  ///< SQL Server's, which gives one state for many things
  const char* words;
};

const std::vector<Meaning>& Meanings() {
  static const std::vector<Meaning> meanings = {
      {{"42501"},
       {229},
       "El usuario con el que se conecta no tiene permiso para hacerlo: pida al técnico que se lo dé"},
      {{"25006"},
       {3906},
       "La base de datos o el usuario con el que se conecta son de solo lectura: así no se puede "
       "escribir en ella"},
      {{"53100"},
       {1105, 9002},
       "El disco del servidor está lleno: avise al técnico, y vuelva a intentarlo cuando haya sitio"},
      {{"53"}, {701}, "El servidor ha llegado a su límite de memoria, de espacio o de conexiones"},
      {{"57014"},
       {},
       "El servidor ha cancelado la sentencia: tardaba más de lo que permite (statement_timeout), o "
       "alguien lo ha pedido"},
      {{"55P03"}, {1222}, "Otro programa tiene retenidas esas filas: vuelva a intentarlo"},
      {{"40001", "40P01"}, {1205}, "Otro usuario cambiaba lo mismo a la vez: vuelva a intentarlo"},
  };
  return meanings;
}

bool Means(const Meaning& meaning, const Diagnostics& diagnostics) {
  return std::any_of(meaning.states.begin(), meaning.states.end(),
                     [&](const char* state) { return diagnostics.HasState(state); }) ||
         std::any_of(meaning.numbers.begin(), meaning.numbers.end(),
                     [&](SQLINTEGER number) { return diagnostics.HasNative(number); });
}

}  // namespace

const std::vector<const char*>& LoginSigns() {
  static const std::vector<const char*> signs = {"password authentication failed",
                                                 "autentificación password",
                                                 "no password supplied",
                                                 "FATAL:  role \"",
                                                 "FATAL: role \"",
                                                 "no existe el rol",
                                                 "(18456)"};
  return signs;
}

std::string WordsFor(const Diagnostics& diagnostics) {
  const auto& meanings = Meanings();
  const auto found = std::find_if(meanings.begin(), meanings.end(), [&](const Meaning& meaning) {
    return Means(meaning, diagnostics);
  });
  return found == meanings.end() ? std::string() : std::string(". ") + found->words;
}

std::string Advice(const Diagnostics& diagnostics, const std::string& connectionString) {
  if (diagnostics.HasState("IM") || diagnostics.HasState("01000")) {
    const auto others = NamesOtherDriver(connectionString);
    return (others ? std::string(". ") + kSupportedEngines : std::string()) +
           ". Compruebe que la cadena nombra un controlador instalado, con «odbcinst -q -d», o un "
           "origen de datos, con «odbcinst -q -s»";
  }
  // PostgreSQL's driver gives one state for whatever keeps a connection from being made.
  const auto text = diagnostics.Error().Description();
  const auto& signs = LoginSigns();
  if (diagnostics.HasState("28") || std::any_of(signs.begin(), signs.end(), [&](const char* sign) {
        return text.find(sign) != std::string::npos;
      }))
    return ". Compruebe el usuario y la contraseña (UID y PWD) y que ese usuario puede abrir la "
           "base de datos";
  return ". Compruebe en la cadena de conexión el servidor y la base de datos, y que este equipo "
         "llega hasta ellos";
}

}  // namespace quorvane::odbc

#pragma once

#include <string>

#include "platform/host/PersonSearch.h"

namespace quorvane::guion {

class EventPrinter;
class Host;

/// The host's person search in a script: prints each call, and finds whom the script has told.
class ScriptedPersonSearch : public PersonSearch {
 public:
  ScriptedPersonSearch(Host& host, EventPrinter& events) : host_(host), events_(events) {}

  void pasarconexiones(Connection* centro, Connection* borrado, Connection* otroCentro,
                       Connection* otroBorrado) override;
  void ObtenerDatos(bool activa, const std::string& rutaIcono) override;
  std::int32_t Buscar(const std::string& clase) override;

 private:
  void Called(const char* member);

  Host& host_;
  EventPrinter& events_;
};

}  // namespace quorvane::guion

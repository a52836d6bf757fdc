#pragma once

#include "platform/host/PersonSearch.h"

namespace quorvane::zendria {

/// The person search of this host: a dialog with the staff of the school that it was given.
class ZendriaPersonSearch : public PersonSearch {
 public:
  void pasarconexiones(Connection* centro, Connection* borrado, Connection* otroCentro,
                       Connection* otroBorrado) override;

  /// Reads `Personal` on the first of the connections; fails as the statement does, and with
  /// error 91 when no connection was given.
  std::int32_t Buscar(const std::string& clase) override;

 private:
  Connection* centro_ = nullptr;
};

}  // namespace quorvane::zendria

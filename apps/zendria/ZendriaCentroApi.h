#pragma once

#include "platform/host/CentroApi.h"

namespace quorvane::zendria {

/// What this host does for the module's forms. Locks on grades are the module's own affair here:
/// nothing is held elsewhere, so the members about them keep their defaults.
class ZendriaCentroApi : public CentroApi {
 public:
  void marcar_Obligatorios(Form& form) override;
  void acortartextolabel(Label& label) override;
  /// This machine's date, as "dd/mm/yyyy", also for a school on a server.
  std::string ObtenerHoraSistema(std::string& dataSource) override;
};

}  // namespace quorvane::zendria

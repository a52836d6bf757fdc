#pragma once

#include "platform/host/CentroApi.h"

namespace quorvane::zendria {

/// What this host does for the module's forms. Locks on grades are the module's own affair here:
/// nothing is held elsewhere, so the members about them keep their defaults.
class ZendriaCentroApi : public CentroApi {
 public:
  void marcar_Obligatorios(Form& form) override;
  void acortartextolabel(Label& label) override;
  /// The school is a file, and this machine's date counts, as "dd/mm/yyyy".
  std::string ObtenerHoraSistema(std::string& dataSource) override;
};

}  // namespace quorvane::zendria

#pragma once

#include "platform/host/CentroApi.h"

namespace quorvane::zendria {

/// What this host does for the module's forms. Locks on grades are the module's own affair here:
/// nothing is held elsewhere, so the members about them keep their defaults.
class ZendriaCentroApi : public CentroApi {
 public:
  void marcar_Obligatorios(Form& form) override;
  void acortartextolabel(Label& label) override;
  /// As "dd/mm/yyyy": the date of the server that the session's school is on, so that nobody's own
  /// clock lets him enter grades; this machine's for a school in a file. Error 0x80004005 when the
  /// server can't be asked.
  std::string ObtenerHoraSistema(std::string& dataSource) override;
};

}  // namespace quorvane::zendria

#pragma once

#include <cstdint>
#include <string>

#include "platform/host/HostObject.h"

namespace quorvane {

class Connection;
class Form;
class Label;

/// The host's `ZendriaApi.cCentroApi`. The defaults do nothing, as in a build without the host.
class CentroApi : public HostObject {
 public:
  static constexpr const char* kProgId = "ZendriaApi.cCentroApi";

  /// Marks the mandatory fields among the form's controls.
  virtual void marcar_Obligatorios(Form& /*form*/) {}

  /// Shortens the label's caption to fit its width.
  virtual void acortartextolabel(Label& /*label*/) {}

  /// The date on the machine that holds the database; empty when it can't be found.
  virtual std::string ObtenerHoraSistema(std::string& /*dataSource*/) { return {}; }

  /// Releases what this user holds on the grades of that section and evaluation.
  virtual void DesbloquearNotas(Connection& /*conexion*/, std::int16_t /*idUsuario*/,
                                std::int32_t& /*idPersonal*/, std::int16_t& /*idSeccion*/,
                                std::int16_t& /*idEvaluacion*/) {}

  /// True when the grades of that section and evaluation can't be saved from the calling form.
  virtual bool notasactivas(Connection& /*conexion*/, const std::string& /*texto*/,
                            std::int16_t /*idUsuario*/, std::int32_t& /*idPersonal*/,
                            std::int16_t& /*idSeccion*/, std::int16_t& /*idEvaluacion*/) {
    return false;
  }
};

}  // namespace quorvane

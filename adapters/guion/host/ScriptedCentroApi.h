#pragma once

#include <string>

#include "platform/host/CentroApi.h"

namespace quorvane::guion {

class EventPrinter;
class Host;

/// The host's component in a script: prints each call and answers what the script has told.
class ScriptedCentroApi : public CentroApi {
 public:
  ScriptedCentroApi(Host& host, EventPrinter& events) : host_(host), events_(events) {}

  void marcar_Obligatorios(Form& form) override;
  void acortartextolabel(Label& label) override;
  std::string ObtenerHoraSistema(std::string& dataSource) override;
  void DesbloquearNotas(Connection& conexion, std::int16_t idUsuario, std::int32_t& idPersonal,
                        std::int16_t& idSeccion, std::int16_t& idEvaluacion) override;
  bool notasactivas(Connection& conexion, const std::string& texto, std::int16_t idUsuario,
                    std::int32_t& idPersonal, std::int16_t& idSeccion,
                    std::int16_t& idEvaluacion) override;

 private:
  void Called(const char* member);

  Host& host_;
  EventPrinter& events_;
};

}  // namespace quorvane::guion

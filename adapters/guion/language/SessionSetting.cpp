#include "adapters/guion/language/SessionSetting.h"

#include "platform/text/PlainNumber.h"

namespace quorvane::guion {

std::optional<SessionSetting> ParseSetting(std::string_view text) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const auto key = text.substr(0, equals);
  SessionSetting setting;
  const auto value = PlainNumber<std::int32_t>(text.substr(equals + 1));
  if (!value) return std::nullopt;
  setting.value = *value;
  if (key == "usuario")
    setting.member = &HostOptions::usuario;
  else if (key == "perfil")
    setting.member = &HostOptions::perfil;
  else if (key == "centro")
    setting.member = &HostOptions::centro;
  else if (key == "activa" && (setting.value == 0 || setting.value == 1))
    setting.member = &HostOptions::activa;
  else
    return std::nullopt;
  return setting;
}

}  // namespace quorvane::guion

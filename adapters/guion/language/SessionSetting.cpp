#include "adapters/guion/language/SessionSetting.h"

#include "adapters/guion/language/Numbers.h"

namespace quorvane::guion {

std::optional<SessionSetting> ParseSetting(std::string_view text) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  const auto key = text.substr(0, equals);
  SessionSetting setting;
  if (!ParseInteger(text.substr(equals + 1), setting.value)) return std::nullopt;
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

#include "apps/zendria/User.h"

namespace quorvane::zendria {

QString User::ProfileText() const {
  auto text = profile == 0 ? QStringLiteral("perfil 0, sin restricciones")
                           : QStringLiteral("perfil %1, sus tutorías y materias").arg(profile);
  if (administrator) text += QStringLiteral(", administrador");
  return text;
}

}  // namespace quorvane::zendria

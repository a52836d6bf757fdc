#include "apps/zendria/User.h"

namespace quorvane::zendria {

QString User::ProfileText() const {
  auto text = profile == 0 ? QStringLiteral("0 (sin restricciones)")
                           : QStringLiteral("%1 (sus tutorías y materias)").arg(profile);
  if (administrator) text += QStringLiteral(", administrador");
  return text;
}

}  // namespace quorvane::zendria

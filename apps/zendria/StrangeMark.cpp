#include "apps/zendria/StrangeMark.h"

#include "apps/escuela/StrangeObjects.h"
#include "platform/RuntimeError.h"

namespace quorvane::zendria {

QString StrangeMark(School& school) {
  if (school.IsOnServer()) return {};
  try {
    return StrangeObjects(school.Own()).empty() ? QString()
                                                : QStringLiteral(" (con reglas ajenas)");
  } catch (const RuntimeError&) {
    return {};
  }
}

}  // namespace quorvane::zendria

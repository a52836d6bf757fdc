#include "apps/zendria/ClassName.h"

namespace quorvane::zendria {

QString ClassName(const QString& course, const QString& section) {
  const auto begin = course.simplified();
  const auto whole = section.simplified();
  return whole.startsWith(begin, Qt::CaseInsensitive) ? whole : (begin + ' ' + whole).trimmed();
}

}  // namespace quorvane::zendria

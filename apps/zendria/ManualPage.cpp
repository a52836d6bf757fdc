#include "apps/zendria/ManualPage.h"

#include <QFileInfo>

namespace quorvane::zendria {

QString FindManual(const QString& programs) {
  for (const auto* const place :
       {"/../share/doc/quorvane/docs/manual.html", "/../docs/manual.html"}) {
    const QFileInfo page(programs + place);
    if (page.isFile()) return page.canonicalFilePath();
  }
  return {};
}

}  // namespace quorvane::zendria

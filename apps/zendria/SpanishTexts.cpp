#include "apps/zendria/SpanishTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace quorvane::zendria {

bool UseSpanishTexts() {
  auto* const texts = new QTranslator(QCoreApplication::instance());
  return texts->load("qtbase_es", QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
         QCoreApplication::installTranslator(texts);
}

}  // namespace quorvane::zendria

#include "apps/zendria/TextFolding.h"

#include <QStringList>
#include <algorithm>

namespace quorvane::zendria {

QString Folded(const QString& text) {
  auto letters = text.normalized(QString::NormalizationForm_D);
  letters.removeIf([](QChar letter) { return letter.category() == QChar::Mark_NonSpacing; });
  return letters.toCaseFolded();
}

bool HoldsWords(const QString& text, const QString& wanted) {
  const auto words = wanted.split(u' ', Qt::SkipEmptyParts);
  return std::all_of(words.begin(), words.end(),
                     [&text](const QString& word) { return text.contains(word); });
}

}  // namespace quorvane::zendria

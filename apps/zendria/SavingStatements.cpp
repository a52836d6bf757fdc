#include "apps/zendria/SavingStatements.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace quorvane::zendria {

void SavingStatements::Told(const std::string& statement) {
  if (!last_.empty()) returned_.push_back(std::exchange(last_, {}));
  if (statement.starts_with("UPDATE Evaluacion")) last_ = statement;
}

void SavingStatements::Clear() {
  returned_.clear();
  last_.clear();
}

bool SavingStatements::Wrote(const GradeSheet& sheet, const GradeCell& cell) const {
  // Which blanks stand round the signs differs from form to form.
  const QRegularExpression statement(
      QStringLiteral("^UPDATE %1 SET (.*[ ,])?%2=%3[ ,].*WHERE "
                     "CodNumEvaluacion=%4 AND "
                     "CodAlumnoPte_MatDet *= *%5$")
          .arg(QString::fromStdString(sheet.table), QString::fromStdString(cell.field))
          .arg(cell.data)
          .arg(sheet.evaluacion)
          .arg(cell.pending));
  return !cell.field.empty() &&
         std::any_of(returned_.begin(), returned_.end(), [&statement](const std::string& text) {
           return statement.match(QString::fromStdString(text)).hasMatch();
         });
}

}  // namespace quorvane::zendria

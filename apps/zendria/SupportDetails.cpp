#include "apps/zendria/SupportDetails.h"

#include <QDateTime>
#include <QStringList>
#include <QSysInfo>
#include <algorithm>

#include "apps/zendria/AboutBox.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/GradeRescue.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/StatementLog.h"

namespace quorvane::zendria {
namespace {

constexpr std::ptrdiff_t kStatements = 12;

}  // namespace

QString SupportDetails(const Failure& failure, const QString& screen, const RescuedGrades* rescued,
                       const StatementLog& log) {
  QStringList lines{
      QStringLiteral("Zendria Escuela %1 (%2)").arg(VersionText(), QSysInfo::prettyProductName()),
      "Fecha: " + QDateTime::currentDateTime().toString("dd/MM/yyyy hh:mm:ss"),
      "Pantalla: " + screen, FailureHeading(failure)};
  if (rescued != nullptr)
    lines.append(
        QStringLiteral("Notas sin guardar: %1, %2")
            .arg(rescued->count)
            .arg(rescued->file.isEmpty() ? QStringLiteral("sin fichero") : "en " + rescued->file));
  const auto& statements = log.Lines();
  if (!statements.empty()) lines.append("Últimas sentencias:");
  const auto count = std::min(kStatements, std::ssize(statements));
  for (auto line = statements.end() - count; line != statements.end(); ++line)
    lines.append(line->when.toString("hh:mm:ss.zzz  ") + line->Text());
  return lines.join(u'\n') + u'\n';
}

}  // namespace quorvane::zendria

#include "apps/zendria/RescueText.h"

#include <QStringList>

#include "apps/zendria/OneLine.h"

namespace quorvane::zendria {
namespace {

constexpr qsizetype kLongestName = 60;

QString CellLine(const GradeCell& cell) {
  return QStringList{OneLine(cell.studentText), OneLine(cell.subjectText), OneLine(cell.columnText),
                     OneLineGrade(cell.text)}
      .join(u'\t');
}

}  // namespace

QString RescueText(const RescueHeading& heading, const GradeSheet& sheet,
                   const std::vector<GradeCell>& cells, bool certain) {
  QStringList lines{
      "Notas sin guardar", "Escuela: " + heading.school.simplified(),
      QStringLiteral("Pantalla: %1 (%2)").arg(heading.screen.simplified(), OneLine(sheet.form))};
  for (const auto& choice : sheet.choices)
    lines.append(QString::fromStdString(choice.label) + ": " + OneLine(choice.text));
  lines.append("Usuario: " + heading.user.simplified());
  lines.append("Fecha: " + heading.when.toString("dd/MM/yyyy hh:mm:ss"));
  lines.append(heading.failure.simplified());
  if (!certain)
    lines.append(
        "No se ha podido leer la base de datos para comprobarlo: alguna de estas notas puede "
        "estar guardada.");
  lines.append(QString());
  for (const auto& cell : cells) lines.append(CellLine(cell));
  return lines.join(u'\n') + u'\n';
}

QString RescueFileName(const QDateTime& when, const QString& schoolName) {
  QString safe;
  for (const auto letter : schoolName.left(kLongestName))
    safe += letter.isLetterOrNumber() || letter == u'-' || letter == u'_' ? letter : QChar(u'_');
  return when.toString("yyyy-MM-dd-hhmmss-") + safe + ".txt";
}

}  // namespace quorvane::zendria

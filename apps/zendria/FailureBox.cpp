#include "apps/zendria/FailureBox.h"

#include <QMessageBox>
#include <QPushButton>

#include "apps/zendria/CopyButton.h"
#include "apps/zendria/GradeRescue.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/RescuedGradesInBox.h"
#include "apps/zendria/SchoolError.h"

namespace quorvane::zendria {
namespace {

constexpr int kMissingShown = 12;

/// What the box says of the grades.
QString TextOf(const RescuedGrades& rescued) {
  const auto one = rescued.count == 1;
  const auto which =
      one ? QStringLiteral("La nota que había cambiado y no se ha guardado está")
          : QStringLiteral("Las %1 notas que había cambiado y no se han guardado están")
                .arg(rescued.count);
  if (rescued.file.isEmpty())
    return which +
           " debajo: no se ha podido escribir ningún fichero. Copie el texto antes de cerrar "
           "este aviso.\n\n";
  return which + " en este fichero:\n" + rescued.file + "\n\n";
}

void RunBox(QWidget* parent, QMessageBox::Icon icon, const QString& text, const QString& more,
            const QString& details = {}, const RescuedGrades* rescued = nullptr) {
  QMessageBox box(icon, "Zendria Escuela", text, QMessageBox::NoButton, parent);
  box.setObjectName("aviso");
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setInformativeText(more);
  if (!details.isEmpty()) AddCopyButton(box, details);
  if (rescued != nullptr) AddRescuedGrades(box, *rescued);
  auto* const accept = box.addButton("&Aceptar", QMessageBox::AcceptRole);
  box.setDefaultButton(accept);
  box.setEscapeButton(accept);
  box.exec();
}

}  // namespace

QString FailureHeading(const Failure& failure) {
  return failure.number ? QStringLiteral("Error %1: %2").arg(*failure.number).arg(failure.text)
                        : QStringLiteral("Error inesperado: %1").arg(failure.text);
}

void ShowProblem(QWidget* parent, const Failure& failure) {
  RunBox(parent, QMessageBox::Critical, FailureHeading(failure), Advice(failure));
}

void ShowFailure(QWidget* parent, const Failure& failure, const RescuedGrades* rescued,
                 const QString& details) {
  const QString kept =
      LostFile(failure)
          ? "La pantalla se ha cerrado. Lo que ya se había escrito está en el fichero que se abrió, "
            "no en el que pueda haber ahora en su sitio.\n\n"
          : "La pantalla se ha cerrado. Lo que ya se había escrito en la base de datos sigue en "
            "ella, y puede volver a abrir la pantalla.\n\n";
  const auto grades = rescued == nullptr ? QString() : TextOf(*rescued);
  const QString locks =
      "\n\nSi estaba introduciendo notas, sus materias pueden haber quedado bloqueadas: véalas en "
      "el menú Ver, Publicaciones y bloqueos.";
  RunBox(parent, QMessageBox::Critical, FailureHeading(failure),
         kept + grades + Advice(failure) + locks, details, rescued);
}

void ShowWarning(QWidget* parent, const QString& what, const QString& advice) {
  RunBox(parent, QMessageBox::Warning, what, advice);
}

void ShowSchoolError(QWidget* parent, const SchoolError& error) {
  auto missing = error.Missing();
  const auto more = missing.size() - kMissingShown;
  if (more > 0) {
    missing = missing.mid(0, kMissingShown);
    missing.append(QStringLiteral("… y %1 más.").arg(more));
  }
  ShowWarning(parent, error.Why(), missing.join(u'\n'));
}

}  // namespace quorvane::zendria

#include "apps/zendria/RescueWindow.h"

#include <QLabel>

#include "apps/zendria/GradeRescue.h"
#include "apps/zendria/GradesToCopy.h"

namespace quorvane::zendria {
namespace {

constexpr QSize kRescueSize(760, 460);

}  // namespace

RescueWindow::RescueWindow(const RescuedGrades& rescued, QWidget* parent) : QDialog(parent) {
  setObjectName("notasSinGuardar");
  setWindowTitle("Notas sin guardar");
  auto* const file = new QLabel(rescued.file);
  file->setObjectName("fichero");
  file->setTextFormat(Qt::PlainText);
  file->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  file->setWordWrap(true);
  file->setVisible(!rescued.file.isEmpty());
  LayOutGradesToCopy(*this, file, rescued.text, kRescueSize);
}

}  // namespace quorvane::zendria

#include "tests/ventana/RegisterMemory.h"

#include <QTableView>

#include "platform/controls/FormInstance.h"
#include "register/frmPendientes.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

std::vector<std::string> Students(const qt::FormWindow& window) {
  const auto* cells = dynamic_cast<const QTableView*>(window.Widget("msgAlumnos"))->model();
  std::vector<std::string> names;
  for (int row = 0; row < cells->rowCount(); ++row)
    names.push_back(cells->index(row, 0).data().toString().toStdString());
  return names;
}

}  // namespace

void RegisterMemory::Look(const qt::FormWindow& window) {
  if (looked_) return;
  looked_ = true;
  section_ = FormInstance<frmPendientes>::Get().cboSeccion.SelectedData();
  const auto saved = saved_.find(section_);
  if (saved == saved_.end()) return;
  ++reopened_;
  if (saved->second != Students(window))
    throw Violation("El registro de la sección " + std::to_string(section_) +
                    " no muestra al reabrirlo lo que se grabó");
}

void RegisterMemory::Accept(const qt::FormWindow& window) {
  Look(window);
  saved_[section_] = Students(window);
}

void RegisterMemory::Close(bool whole) {
  if (!whole) saved_.erase(section_);
  looked_ = false;
}

}  // namespace quorvane::test

#pragma once

#include <QTableView>
#include <map>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "platform/controls/FormInstance.h"
#include "register/frmPendientes.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// Remembers the list of students that a register showed when it was saved, to hold it against the
/// one that is shown when the register is opened again.
class RegisterMemory {
 public:
  /// The register has been opened, in a window that shows it, and nobody has touched it yet.
  void Look(const qt::FormWindow& window) {
    section_ = FormInstance<frmPendientes>::Get().cboSeccion.SelectedData();
    const auto saved = saved_.find(section_);
    if (saved == saved_.end()) return;
    ++reopened_;
    if (const auto shown = Students(window); saved->second != shown)
      throw Violation("El registro de la sección " + std::to_string(section_) +
                      " no muestra al reabrirlo lo que se grabó: [" + Joined(saved->second) +
                      "] y ahora [" + Joined(shown) + "]");
  }
  /// It is about to save what it shows.
  void Accept(const qt::FormWindow& window) { saved_[section_] = Students(window); }
  /// The form is gone; `whole` unless an error ended it.
  void Close(bool whole) {
    if (!whole) saved_.erase(section_);
  }
  /// Somebody else may have changed the registers.
  void Forget() { saved_.clear(); }
  /// How often a register has been opened again.
  [[nodiscard]] std::uint64_t Reopened() const noexcept { return reopened_; }

 private:
  static std::vector<std::string> Students(const qt::FormWindow& window) {
    const auto* cells = dynamic_cast<const QTableView*>(window.Widget("msgAlumnos"))->model();
    std::vector<std::string> names;
    for (int row = 0; row < cells->rowCount(); ++row)
      names.push_back(cells->index(row, 0).data().toString().toStdString());
    return names;
  }
  static std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const auto& name : names) text += text.empty() ? name : "; " + name;
    return text;
  }

  std::map<std::int32_t, std::vector<std::string>> saved_;  // by section
  std::int32_t section_ = 0;                                // of the register that is open
  std::uint64_t reopened_ = 0;
};

}  // namespace quorvane::test

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "frame/cConstCol.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/controls/MSFlexGrid.h"
#include "register/cAlumno.h"

namespace quorvane {

/// The pending subjects of the student selected on `frmAlumnoPendiente`, in a matrix against all
/// evaluations. Works on a copy of the student, which takes his place in the register on
/// `cmdAceptar_Click` and is forgotten otherwise.
class frmAlumnoMateria : public Form {
 public:
  /// The working copy; null while the form isn't loaded.
  std::shared_ptr<cAlumno> objAlumno;

  Label Label1{*this, "Label1"};
  Label Label2{*this, "Label2"};
  Label Label3{*this, "Label3"};
  /// Row data: `IDMatDetalle`. Columns: subject, an evaluation each, hidden the text of `Orden`.
  MSFlexGrid msgMaterias{*this, "msgMaterias"};
  CommandButton cmdSubir{*this, "cmdSubir"};
  CommandButton cmdBajar{*this, "cmdBajar"};
  CommandButton cmdAgregar{*this, "cmdAgregar"};
  CommandButton cmdEliminar{*this, "cmdEliminar"};
  CommandButton cmdPropiedades{*this, "cmdPropiedades"};
  CommandButton cmdAceptar{*this, "cmdAceptar"};
  CommandButton cmdCancelar{*this, "cmdCancelar"};

  frmAlumnoMateria();

  void cmdSubir_Click();
  void cmdBajar_Click();
  void cmdAgregar_Click();
  void cmdEliminar_Click();
  void cmdPropiedades_Click();
  void cmdAceptar_Click();
  void cmdCancelar_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void CargarRejillaMaterias();
  /// Shows a column for each evaluation; their ids, that of column 1 first.
  std::vector<std::uint8_t> CargarEvaluaciones();
  void AgregarFila(const cMateria& materia, const std::vector<std::uint8_t>& evaluaciones);
  void AjustarAnchoColumnas(MSFlexGrid& rejilla, int fila);
  /// The width of a column that shows the text.
  [[nodiscard]] std::int32_t AnchoPara(const std::string& texto) const;
  [[nodiscard]] cMateria& Materia(int fila) const;
  /// Swaps the subject of the row with that of the row beside it.
  void Mover(int fila, int destino);
  void MostrarFila();

  cConstCol estados_;
};

}  // namespace quorvane

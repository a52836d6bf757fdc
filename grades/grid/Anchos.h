#pragma once

#include <cstdint>
#include <vector>

namespace quorvane {

class Retivo;

/// The column widths that a grade form keeps for one of its grids while the user walks from one
/// student or subject to another: a setting of the form, read with the scale and changed by edits.
/// In twips, fields of 16 bits, for the columns from 0 to the highest that the scale names.
class Anchos {
 public:
  /// Makes room up to that column and keeps what is there. No effect when there is room already.
  void Crecer(std::int32_t columna);

  /// Takes the widths from the grid; nothing happens while the form is loading, unless `siempre`.
  /// A column that the grid doesn't have, or a width beyond 16 bits, quietly ends the copying.
  void Guardar(const Retivo& rejilla, bool cargando, bool siempre);

  /// Gives the widths back to the grid; nothing happens while the form is loading. Error 381 for
  /// a column that the grid doesn't have.
  void Restaurar(Retivo& rejilla, bool cargando) const;

 private:
  std::vector<std::int16_t> anchos_;
};

}  // namespace quorvane

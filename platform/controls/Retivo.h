#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Grid.h"

namespace quorvane {

/// A grid whose cells are edited through lists: each column offers one, which the form's code fills
/// when an edit begins. Nothing is typed into a cell.
class Retivo : public Grid {
 public:
  using Grid::Grid;
  [[nodiscard]] std::string_view Kind() const noexcept override { return "Retivo"; }

  struct ListEntry {
    std::string text;
    std::int32_t data = 0;
  };

  void ListaLimpiar(int col);  ///< error 381 off the grid
  void ListaAnadir(int col, const std::string& text, std::int32_t data);  ///< error 381, as above
  /// The entry chosen in the cell just edited, counted from 0; -1 for none.
  [[nodiscard]] int ListaIndice() const noexcept { return listaIndice_; }
  /// The data of an entry of the current column's list; error 381 for an entry that doesn't exist.
  [[nodiscard]] std::int32_t ListaDato(int index) const;
  /// What the column's cells offer.
  [[nodiscard]] const std::vector<ListEntry>& Lista(int col) const;

  /// Columns that edit through a list, as the grid was designed: the front end opens no other.
  void ListColumns(int first, int last);
  [[nodiscard]] bool EditsThroughList(int col) const noexcept;

  std::function<void()> InicioEdicion;  ///< a cell is about to be edited: fill its column's list
  std::function<void()> FinEdicion;     ///< the edit has ended: take `ListaIndice`
  std::function<void()> CambioAncho;    ///< the user has dragged a column's width
  std::function<void()> CambioAlto;     ///< the user has dragged a row's height

  /// The user begins to edit a cell: it becomes current, its column's list is emptied, and the
  /// handler fills that. A handler that stops before offers nothing, so that no entry of another
  /// cell can be chosen. Error 380 off the grid.
  void BeginEdit(int row, int col);
  /// The user ends the edit: a cell that edits through a list takes the entry's text, or none for
  /// -1. Error 381 for an entry that the column doesn't offer.
  void EndEdit(int index);
  /// The user has dragged the border of a column to this width.
  void DragColumn(int col, std::int32_t width);
  /// The user has dragged the border of a row. The height itself is the front end's affair.
  void DragRow();

 private:
  std::vector<ListEntry>& ListOf(int col);

  std::vector<std::vector<ListEntry>> lists_;
  int listaIndice_ = -1;
  int firstListColumn_ = 0;
  int lastListColumn_ = -1;
};

}  // namespace quorvane

#include "adapters/guion/player/GridCommands.h"

#include "adapters/guion/player/ActiveForm.h"
#include "adapters/guion/player/Entries.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/JsonText.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"

namespace quorvane::guion {
namespace {

void RequireRow(const Grid& grid, int row) {
  if (row < 0 || row >= grid.Rows()) throw Refusal("no hay ninguna fila " + std::to_string(row));
}

void RequireColumn(const Grid& grid, int col) {
  if (col < 0 || col >= grid.Cols()) throw Refusal("no hay ninguna columna " + std::to_string(col));
  if (grid.ColWidth(col) == 0) throw Refusal("la columna " + std::to_string(col) + " no se ve");
}

/// Begins the edit of the cell that the command names.
Retivo& BeginEdit(const Guion& guion, const Command& command) {
  auto& grid = UsableControl<Retivo>(guion, command.Text(0), "una rejilla de notas");
  RequireRow(grid, command.Number(1));
  RequireColumn(grid, command.Number(2));
  const auto& form = ActiveForm(guion);
  grid.BeginEdit(command.Number(1), command.Number(2));
  if (!form.Visible() || !grid.Usable()) throw Refusal("la celda ya no se puede editar");
  return grid;
}

int ChosenEntry(const Word& word, const std::vector<Retivo::ListEntry>& list) {
  if (!word.quoted && word.text == "nada") return -1;
  const auto at = [&list](int i) { return list[static_cast<std::size_t>(i)]; };
  return FindEntry(word, {static_cast<int>(list.size()), [&at](int i) { return at(i).text; },
                          [&at](int i) { return at(i).data; }});
}

}  // namespace

void Fila(Guion& guion, const Command& command) {
  auto& grid = UsableControl<Grid>(guion, command.Text(0), "una rejilla");
  const auto row = command.Number(1);
  RequireRow(grid, row);
  if (row < grid.FixedRows()) throw Refusal("la fila " + command.Text(1) + " es fija");
  const auto withColumn = command.arguments.size() > 2;
  if (withColumn) RequireColumn(grid, command.Number(2));
  grid.Row(row);
  if (withColumn) grid.Col(command.Number(2));
}

void Editar(Guion& guion, const Command& command) {
  auto& grid = BeginEdit(guion, command);
  grid.EndEdit(ChosenEntry(command.arguments[3], grid.Lista(grid.Col())));
}

void Lista(Guion& guion, const Command& command) {
  const auto& grid = BeginEdit(guion, command);
  guion.Events().Print("lista", JsonList(grid.Lista(grid.Col())));
}

}  // namespace quorvane::guion

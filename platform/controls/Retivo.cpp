#include "platform/controls/Retivo.h"

#include "platform/RuntimeError.h"

namespace quorvane {

std::vector<Retivo::ListEntry>& Retivo::ListOf(int col) {
  if (col < 0 || col >= Cols()) throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  const auto index = static_cast<std::size_t>(col);
  if (index >= lists_.size()) lists_.resize(index + 1);
  return lists_[index];
}

void Retivo::ListaLimpiar(int col) { ListOf(col).clear(); }

void Retivo::ListaAnadir(int col, const std::string& text, std::int32_t data) {
  ListOf(col).push_back({text, data});
}

std::int32_t Retivo::ListaDato(int index) const {
  const auto& list = Lista(Col());
  if (index < 0 || index >= static_cast<int>(list.size()))
    throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  return list[static_cast<std::size_t>(index)].data;
}

const std::vector<Retivo::ListEntry>& Retivo::Lista(int col) const {
  static const std::vector<ListEntry> none;
  const auto index = static_cast<std::size_t>(col);
  return col >= 0 && index < lists_.size() ? lists_[index] : none;
}

void Retivo::ListColumns(int first, int last) {
  firstListColumn_ = first;
  lastListColumn_ = last;
}

bool Retivo::EditsThroughList(int col) const noexcept {
  return col >= firstListColumn_ && col <= lastListColumn_;
}

void Retivo::BeginEdit(int row, int col) {
  Row(row);
  Col(col);
  ListOf(col).clear();
  if (InicioEdicion) InicioEdicion();
}

void Retivo::EndEdit(int index) {
  const auto& list = Lista(Col());
  if (index < -1 || index >= static_cast<int>(list.size()))
    throw RuntimeError(ErrorNumber::InvalidArrayIndex);
  listaIndice_ = index;
  if (EditsThroughList(Col()) && Row() >= FixedRows())
    TextMatrix(Row(), Col(), index < 0 ? "" : list[static_cast<std::size_t>(index)].text);
  if (FinEdicion) FinEdicion();
}

void Retivo::DragColumn(int col, std::int32_t width) {
  ColWidth(col, width);
  if (CambioAncho) CambioAncho();
}

void Retivo::DragRow() {
  if (CambioAlto) CambioAlto();
}

}  // namespace quorvane

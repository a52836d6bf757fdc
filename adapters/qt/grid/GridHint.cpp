#include "adapters/qt/grid/GridHint.h"

namespace quorvane::qt {
namespace {

constexpr int kLeastLines = 6;  // of the grid, so that its keys are worth a line
constexpr auto kKeys =
    "Escriba la nota: Intro baja, Tab sigue a la derecha. F2 abre la lista, Supr quita la nota. "
    "Ctrl+V pega una columna, Ctrl+D rellena hacia abajo.";

}  // namespace

GridHint::GridHint(QWidget* parent) : QLabel(parent) {
  setObjectName("pistaTeclas");
  setTextFormat(Qt::PlainText);
  setText(kKeys);
  setWordWrap(true);
  setMargin(1);
}

QRect GridHint::TakeFrom(QRect room) {
  const auto height = heightForWidth(room.width());
  const auto fits = room.height() - height >= kLeastLines * fontMetrics().height();
  setVisible(fits);
  if (!fits) return room;
  const QRect mine(room.left(), room.bottom() + 1 - height, room.width(), height);
  if (geometry() != mine) setGeometry(mine);
  room.setBottom(mine.top() - 1);
  return room;
}

}  // namespace quorvane::qt

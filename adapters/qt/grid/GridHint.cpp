#include "adapters/qt/grid/GridHint.h"

#include <QStringList>
#include <array>

namespace quorvane::qt {
namespace {

constexpr int kLeastLines = 6;  // of the grid, so that its keys are worth a line
constexpr std::array kHintKeys{
    "Intro: abajo",  "Tab: a la derecha", "con Mayús: al revés",     "F2 o Espacio: lista",
    "Esc: dejarla",  "Supr: quitar",      "Ctrl+↑, Ctrl+↓: moverse", "Ctrl+C: copiar",
    "Ctrl+V: pegar", "Ctrl+D: rellenar",  "Ctrl+Tab: salir"};

/// What belongs together stays in a line.
QString Text() {
  QStringList keys;
  for (const auto* key : kHintKeys) keys << QString(key).replace(' ', QChar::Nbsp);
  return keys.join(" · ");
}

}  // namespace

GridHint::GridHint(QWidget* parent) : QLabel(parent) {
  setObjectName("pistaTeclas");
  setTextFormat(Qt::PlainText);
  setText(Text());
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

#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QString>
#include <QWindow>
#include <array>
#include <string>

#include "apps/escuela/Prng.h"
#include "tests/ventana/InputQueue.h"

namespace quorvane::test {

/// What somebody does in a grid of grades who has a spreadsheet open beside it.
class SheetGestures {
 public:
  /// As how many gestures one of them counts: it changes several grades at once.
  static constexpr int kMany = 10;

  /// Draws one and puts it into the queue. Gives what the history tells of it.
  static std::string Put(Prng& random, InputQueue& queue, QWindow* window) {
    const auto rows = static_cast<int>(random.Below(6));
    for (int i = 0; i < rows && random.Chance(40); ++i)
      queue.Key(window, Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    switch (random.Below(8)) {
      case 0:
        queue.Key(window, Qt::Key_C, Qt::ControlModifier);
        return "copia";
      case 1:
        queue.Key(window, Qt::Key_Delete);
        return "quita lo elegido";
      case 2:
        queue.Key(window, Qt::Key_D, Qt::ControlModifier);
        return "rellena hacia abajo";
      default:
        break;
    }
    const auto text = Column(random);
    QGuiApplication::clipboard()->setText(text);
    queue.Key(window, Qt::Key_V, Qt::ControlModifier);
    return "pega " + QString(text).replace('\n', '/').replace('\t', '|').toStdString();
  }

 private:
  static QString Column(Prng& random) {
    static constexpr std::array kTexts{"7", "10", " 5 ", "4", "NOTABLE", "Pasiva", "", "11", "x"};
    const auto rows = 1 + random.Below(8);
    const auto columns = random.Chance(70) ? 1 : 1 + random.Below(3);
    QString text;
    for (std::size_t row = 0; row < rows; ++row)
      for (std::size_t column = 0; column < columns; ++column)
        text += QString(kTexts[random.Below(kTexts.size())]) + (column + 1 < columns ? '\t' : '\n');
    return text;
  }
};

}  // namespace quorvane::test

#pragma once

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPoint>
#include <QPushButton>
#include <QString>
#include <QTabBar>
#include <QTableView>
#include <QWidget>
#include <QWindow>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "apps/escuela/Prng.h"
#include "tests/ventana/InputQueue.h"
#include "tests/ventana/Keys.h"
#include "tests/ventana/OpenList.h"
#include "tests/ventana/ShownGrades.h"

namespace quorvane::test {

/// Draws what a user in a hurry does with what he sees, and puts it into the queue: he does not
/// look whether anything has happened yet.
class HastyHands {
 public:
  HastyHands(Prng& random, InputQueue& queue) : random_(random), queue_(queue) {}

  struct Deed {
    std::string text;  ///< for the history
    int gestures = 1;
    std::optional<QPoint> clicked = {};  ///< the place on the screen, of what begins with a click
  };

  /// Acts on the window of a form, or on what stands before it: a message, the list of a combo
  /// box, a menu. `window` is the form's.
  Deed Act(QWidget& front, const qt::FormWindow& window) {
    if (Chance(2)) {
      InputQueue::Close(window.windowHandle());
      return {"cierra " + window.Model().Name()};
    }
    const auto open = FindOpenList(window);
    if (open && !open->typed.isEmpty() && !open->marked && random_.Chance(50)) {
      queue_.Key(front.windowHandle(), Qt::Key_Escape);
      return {"tecla Esc"};
    }
    // A text that is being typed takes what is pasted for itself.
    if (EntersGrades(window.Model()) && &front == &window && (!open || open->typed.isEmpty()) &&
        Chance(15))
      return {WorkOnSheet(window.windowHandle()), kManyGrades};
    // Half of what is typed into a list is left there, for something else.
    if (open && !open->typed.isEmpty() && random_.Chance(50)) return ClickBeside(front);
    // Grades are typed; the other forms are filled in with the mouse.
    const std::size_t keys = open ? 750 : EntersGrades(window.Model()) ? 520 : 200;
    return Chance(keys) ? Type(front, window) : Click(front, window);
  }
  /// Only keys: what arrives while a handler runs.
  Deed Type(QWidget& front, const qt::FormWindow& window) {
    const auto leaves = &front == &window && !FindOpenList(window);
    const auto& press = AnyKey(random_, leaves ? 3 : 40);
    // As often to where the keyboard is by then as to the window that the user looks at.
    Put(queue_, random_.Chance(50) ? nullptr : front.window()->windowHandle(), press);
    return {std::string("tecla ") + press.name};
  }

 private:
  /// As how many gestures work on a sheet counts: it changes several grades at once.
  static constexpr int kManyGrades = 10;

  /// What somebody does in a grid of grades who has a spreadsheet open beside it.
  std::string WorkOnSheet(QWindow* window) {
    const auto rows = Below(6);
    for (int i = 0; i < rows && random_.Chance(40); ++i)
      queue_.Key(window, Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    switch (random_.Below(8)) {
      case 0:
        queue_.Key(window, Qt::Key_C, Qt::ControlModifier);
        return "copia";
      case 1:
        queue_.Key(window, Qt::Key_Delete);
        return "quita lo elegido";
      case 2:
        queue_.Key(window, Qt::Key_D, Qt::ControlModifier);
        return "rellena hacia abajo";
      default:
        break;
    }
    auto text = Column();
    QGuiApplication::clipboard()->setText(text);
    queue_.Key(window, Qt::Key_V, Qt::ControlModifier);
    return "pega " + text.replace('\n', '/').replace('\t', '|').toStdString();
  }
  /// As a spreadsheet copies one, or up to three.
  QString Column() {
    static constexpr std::array kTexts{"7", "10", " 5 ", "4", "NOTABLE", "Pasiva", "", "11", "x"};
    const auto rows = 1 + random_.Below(8);
    const auto columns = random_.Chance(70) ? 1 : 1 + random_.Below(3);
    QString text;
    for (std::size_t row = 0; row < rows; ++row)
      for (std::size_t column = 0; column < columns; ++column)
        text +=
            QString(kTexts[random_.Below(kTexts.size())]) + (column + 1 < columns ? '\t' : '\n');
    return text;
  }

  /// How often a user clicks it, against the others.
  static int WeightOf(const QWidget& widget) {
    if (const auto* box = dynamic_cast<const QComboBox*>(&widget))
      return box->currentIndex() < 0 && box->count() > 0 ? 80 : 3;
    if (dynamic_cast<const QTableView*>(&widget) != nullptr) return 50;
    if (dynamic_cast<const QAbstractItemView*>(&widget) != nullptr) return 25;
    if (dynamic_cast<const QTabBar*>(&widget) != nullptr) return 12;
    if (dynamic_cast<const QLineEdit*>(&widget) != nullptr) return 3;
    if (dynamic_cast<const QCheckBox*>(&widget) != nullptr) return 3;
    if (const auto* button = dynamic_cast<const QPushButton*>(&widget)) {
      const auto name = button->objectName();
      // What leaves a form: seldom, so that something is done in it.
      if (name == "cmdCancelar" || name == "cmdNotaManual1(1)") return 1;
      if (name == "cmdAceptar") return 5;
      return button->isDefault() ? 40 : 10;
    }
    return 0;
  }

  static std::vector<QWidget*> Reachable(QWidget& front) {
    std::vector<QWidget*> widgets;
    for (auto* widget : front.findChildren<QWidget*>())
      if (widget->isVisible() && widget->isEnabled() && widget->window() == &front &&
          WeightOf(*widget) > 0)
        widgets.push_back(widget);
    return widgets;
  }

  static std::string NameOf(const QWidget& widget) {
    const auto name = widget.objectName();
    return name.isEmpty() ? std::string(widget.metaObject()->className()) : name.toStdString();
  }

  Deed Click(QWidget& front, const qt::FormWindow& window) {
    if (const auto open = FindOpenList(window); open && random_.Chance(35))
      return ClickOn(*open->entries);
    if (Chance(40)) {
      const auto room = front.frameGeometry();
      const auto down = Below(room.height());
      return ClickAt(room.topLeft() + QPoint(Below(room.width()), down), "la ventana");
    }
    if (Chance(10)) return ClickAt({2, 2}, "la esquina de la pantalla");
    return ClickBeside(front);
  }
  Deed ClickBeside(QWidget& front) {
    const auto widgets = Reachable(front);
    if (widgets.empty()) return ClickAt(front.frameGeometry().center(), "la ventana");
    return ClickOn(
        *Weighted(random_, widgets, [](const auto* widget) { return WeightOf(*widget); }));
  }

  Deed ClickOn(QWidget& widget) {
    auto* box = dynamic_cast<QComboBox*>(&widget);
    if (box != nullptr && box->count() > 0 && random_.Chance(90)) return PickByKeys(*box);
    if (auto* table = dynamic_cast<QTableView*>(&widget); table != nullptr && Chance(10)) {
      auto* header = table->horizontalHeader();
      const auto border = header->sectionViewportPosition(0) + header->sectionSize(0) - 1;
      const auto from = header->viewport()->mapToGlobal(QPoint(border, header->height() / 2));
      queue_.Drag(from, from + QPoint(Below(80) - 40, 0));
      return {"arrastra una columna de " + NameOf(widget)};
    }
    const auto place = PlaceOn(widget);
    return ClickAt(
        place, NameOf(widget) + " " + std::to_string(place.x()) + "," + std::to_string(place.y()));
  }

  Deed ClickAt(QPoint place, const std::string& text) {
    if (Chance(60)) {
      queue_.DoubleClick(place);
      return {"doble clic en " + text, 1, place};
    }
    if (Chance(20)) {
      queue_.Wheel(place, random_.Chance(50) ? 1 : -1);
      return {"rueda sobre " + text};
    }
    if (Chance(10)) {
      queue_.Click(place, Qt::RightButton);
      return {"clic derecho en " + text};
    }
    queue_.Click(place);
    return {"clic en " + text, 1, place};
  }

  Deed PickByKeys(QComboBox& box) {
    const auto entry = Below(box.count());
    auto* window = box.window()->windowHandle();
    const auto place = box.mapToGlobal(box.rect().center());
    queue_.Click(place);
    queue_.Key(window, Qt::Key_Home);
    for (int i = 0; i < entry; ++i) queue_.Key(window, Qt::Key_Down);
    queue_.Key(window, Qt::Key_Return, {}, "\r");
    return {"elige la entrada " + std::to_string(entry) + " de " + NameOf(box), entry + 3, place};
  }

  [[nodiscard]] QPoint PlaceOn(QWidget& widget) {
    if (auto* view = dynamic_cast<QAbstractItemView*>(&widget)) {
      const auto* model = view->model();
      // Some tries for a cell that is in sight; else just somewhere.
      for (int tries = 0; tries < 10 && model->rowCount() > 0 && model->columnCount() > 0;
           ++tries) {
        const auto row = Below(model->rowCount());
        const auto room = view->visualRect(model->index(row, Below(model->columnCount())));
        if (room.isEmpty() || !view->viewport()->rect().contains(room.center())) continue;
        return view->viewport()->mapToGlobal(room.center());
      }
      return view->viewport()->mapToGlobal(view->viewport()->rect().center());
    }
    if (const auto* tabs = dynamic_cast<QTabBar*>(&widget); tabs != nullptr && tabs->count() > 0)
      return tabs->mapToGlobal(tabs->tabRect(Below(tabs->count())).center());
    return widget.mapToGlobal(widget.rect().center());
  }
  [[nodiscard]] int Below(int end) {
    return static_cast<int>(random_.Below(static_cast<std::size_t>(end)));
  }
  [[nodiscard]] bool Chance(std::size_t thousandths) { return random_.Below(1000) < thousandths; }

  Prng& random_;
  InputQueue& queue_;
};

}  // namespace quorvane::test

#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMessageBox>
#include <QObject>
#include <QTimer>
#include <QWindow>
#include <functional>
#include <string>
#include <vector>

#include "adapters/qt/window/FormWindow.h"
#include "apps/escuela/Prng.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/FormInstances.h"
#include "tests/ventana/InputQueue.h"
#include "tests/ventana/Keys.h"
#include "tests/ventana/OpenList.h"
#include "tests/ventana/ShownGrades.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/School.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// A grade form, and what step one has to choose for it to be shown.
struct GradeScreen {
  const char* form;
  int node;
  const char* evaluation;
};

/// How fast keys come: each when the one before has had its effect, or whole bursts of them, which
/// is what a fast typist and a slow machine make.
enum class Pace { Slow, Fast };

/// One run of keys on a grade form of the sample school, the same however often it is made. It
/// tells all that came of it, to be held against another run's: the statements, what stood in the
/// cells whenever a button was pressed or Esc was left to the form, and at the end.
class KeyPass : public QObject, private Onlooker {
 public:
  KeyPass(const GradeScreen& which, const std::vector<const KeyPress*>& keys, Pace pace)
      : which_(which), keys_(keys), pace_(pace) {
    screen_.UseOnlooker(*this);
    screen_.WindowShown = [this](qt::FormWindow& window) {
      if (window.Model().Name() != which_.form) Choose(window);
    };
    screen_.MessageShown = [this](QMessageBox& box) {
      Log("mensaje " + box.text().toStdString());
      box.accept();
    };
    QObject::connect(&turn_, &QTimer::timeout, [this] { Tick(); });
    turn_.start(0);
  }

  std::vector<std::string> Run() {
    Prng random(kHostSeed);
    const RandomHost host(random);
    RandomHost::SignIn({school_.Centro(), school_.Borrado(), school_.Entrada(), false},
                       HostSession{});
    school_.Executing = [this](const std::string& statement) {
      Log("sql " + statement);
      // Long work lets the screen be painted, and the keys come meanwhile.
      if (pace_ == Pace::Fast) QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
    try {
      cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(which_.node));
    } catch (const RuntimeError& error) {
      Log("error " + std::to_string(error.Number()) + " " + error.Description());
      FormInstances::DropAll();
      screen_.MousePointer(Pointer::Default);
    }
    if (!begun_) throw Violation(std::string("No se ha abierto ") + which_.form);
    return std::move(log_);
  }

 private:
  static constexpr int kSettled = 3;
  static constexpr std::size_t kLongestBurst = 200;
  static constexpr std::uint64_t kHostSeed = 7;
  static constexpr const char* kCourse = "3º ESO";

  template <class C>
  static C& Of(const Form& form, const char* name) {
    return dynamic_cast<C&>(*form.Find(name));
  }
  static void Pick(ComboBox& combo, const std::string& entry) {
    for (int i = 0; i < combo.ListCount(); ++i)
      if (combo.List(i) == entry) {
        combo.ListIndex(i);
        return;
      }
    throw Violation(combo.Name() + " no ofrece " + entry);
  }

  /// Esc that no list has taken would close the form, and the keys after it would be another's.
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
      return false;
    LogCells(*static_cast<qt::FormWindow*>(watched), "Esc");
    return true;
  }

  void Tick() {
    auto* window = screen_.ActiveWindow();
    if (window == nullptr || window->Model().Name() != which_.form || !screen_.Ready() ||
        !InputQueue::Empty() || screen_.Busy()) {
      quiet_ = 0;
      return;
    }
    if (++quiet_ < kSettled) return;
    quiet_ = 0;
    if (!begun_) Begin(*window);
    if (next_ == keys_.size()) {
      if (!finished_) Finish(*window);
      return;
    }
    const auto burst = pace_ == Pace::Slow ? 1 : 1 + bursts_.Below(kLongestBurst);
    for (std::size_t i = 0; i < burst && next_ < keys_.size(); ++i)
      Put(queue_, nullptr, *keys_[next_++]);
  }

  void Choose(qt::FormWindow& window) {
    auto& form = window.Model();
    if (finished_) {
      form.CloseByUser();
      return;
    }
    Of<ComboBox>(form, "cboTipoEnsenanza").ListIndex(0);
    Pick(Of<ComboBox>(form, "cboCursos"), kCourse);
    Of<ComboBox>(form, "cboSecciones").ListIndex(0);
    Pick(Of<ComboBox>(form, "cboEvaluaciones"), which_.evaluation);
    for (const auto* last : {"cboMateria", "cboAlumno"})
      if (form.Find(last) != nullptr)
        Of<ComboBox>(form, last).ListIndex(static_cast<int>(entry_++));
    Of<CommandButton>(form, "cmdNotaManual1(0)").Press();
  }
  void Begin(qt::FormWindow& window) {
    begun_ = true;
    auto& form = window.Model();
    window.installEventFilter(this);
    auto& accept = Of<CommandButton>(form, "cmdAceptar");
    save_ = accept.Click;
    accept.Click = [this, &window] { LogCells(window, "cmdAceptar"); };
    Of<CommandButton>(form, "cmdCancelar").Click = [this, &window] {
      LogCells(window, "cmdCancelar");
    };
  }
  void Finish(qt::FormWindow& window) {
    finished_ = true;
    Log(FindOpenList(window) ? "queda abierta una lista" : "no queda abierta ninguna lista");
    LogCells(window, "fin");
    screen_.Gesture(window, save_);
  }
  void Log(const std::string& what) { log_.push_back(what); }
  void LogCells(const qt::FormWindow& window, const std::string& when) {
    auto line = when + ":";
    for (const auto& [name, texts] :
         ShownGrades(window, EntriesOf(window.Model()).SelectedData()).texts) {
      line += " " + name;
      for (const auto& [column, text] : texts) line += "|" + text;
    }
    Log(line);
  }

  const GradeScreen& which_;
  const std::vector<const KeyPress*>& keys_;
  Pace pace_;
  Prng bursts_{1};
  History history_;
  School school_{School::Sample{}};
  WatchedScreen screen_{history_};
  InputQueue queue_;
  QTimer turn_;
  std::vector<std::string> log_;
  std::function<void()> save_;
  std::size_t next_ = 0;   ///< the key to come
  std::size_t entry_ = 0;  ///< of step one's last list, to be tried
  int quiet_ = 0;
  bool begun_ = false;
  bool finished_ = false;
};

}  // namespace quorvane::test

#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/qt/Hands.h"
#include "tests/qt/ScreenTest.h"
#include "tests/support/Matchers.h"
#include "tests/support/TestSchool.h"

namespace quorvane::test {

/// The module's own screens on the sample school.
class SchoolScreenTest : public ScreenTest {
 public:
  SchoolScreenTest();
  ~SchoolScreenTest() override;
  SchoolScreenTest(SchoolScreenTest&&) = delete;

 protected:
  /// The user opens a node of the tree; comes back when its screens have gone, with all
  /// steps taken.
  void OpenNode(int node);

  /// Chooses section 5, 3º ESO A, for the register; by its place, whatever it is called.
  static Gesture ChooseRegister() {
    return Steps(Pick("cboTEnsenanza", 0), Pick("cboCurso", 2), Pick("cboSeccion", 0),
                 "cmdAceptar");
  }
  /// Opens the register with that, and has one of these for each window that comes up then.
  template <class... Windows>
  void InRegister(Windows... windows) {
    Then(ChooseRegister());
    (Then(windows), ...);
    OpenNode(kRegister);
  }
  /// Chooses it for grades, with the evaluation of that text or place, and the first student or
  /// subject where there is one to choose.
  template <class Evaluation>
  static Gesture ChooseGrades(const Evaluation& evaluation) {
    return Steps(Pick("cboTipoEnsenanza", 0), Pick("cboCursos", 2), Pick("cboSecciones", 0),
                 Pick("cboEvaluaciones", evaluation), PickOwnChoice, "cmdNotaManual1(0)");
  }
  static void PickOwnChoice(qt::FormWindow& window) {
    for (const auto* choice : {"cboMateria", "cboAlumno"})
      if (window.Widget(choice) != nullptr) Pick(choice, 0)(window);
  }
  /// Chooses that in step one, acts in step two, and leaves step one when it comes back.
  template <class Evaluation, class... Gestures>
  void InStepTwo(int node, const Evaluation& evaluation, Gestures... gestures) {
    Then(ChooseGrades(evaluation));
    Then(gestures...);
    Then("cmdNotaManual1(1)");
    OpenNode(node);
  }

  /// Run at each statement that saves grades.
  void Saving(std::function<void()> look) { saving_ = std::move(look); }

  static constexpr int kRegister = 123;
  static constexpr int kByStudent = 124;
  static constexpr int kBySubject = 125;
  static constexpr const char* kSecond = "2ª Evaluación";

  TestSchool school;
  std::int32_t teacher = 0;  ///< whom the person search finds

 private:
  sqlite::SqliteConnection centro_;
  sqlite::SqliteConnection borrado_;
  sqlite::SqliteConnection entrada_;
  std::function<void()> saving_;
};

}  // namespace quorvane::test

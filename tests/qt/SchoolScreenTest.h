#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/qt/Hands.h"
#include "tests/qt/ScreenTest.h"
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
  void OpenNode(std::uint8_t node);

  /// Chooses section 5, 3º ESO A, for the register; by its place, whatever it is called.
  static void ChooseRegister(const qt::FormWindow& window);
  /// Chooses it for grades, with the evaluation of that text or place.
  template <class Evaluation>
  static void ChooseGrades(const qt::FormWindow& window, const Evaluation& evaluation) {
    Pick(window, "cboTipoEnsenanza", 0);
    Pick(window, "cboCursos", 2);
    Pick(window, "cboSecciones", 0);
    Pick(window, "cboEvaluaciones", evaluation);
    Click(window, "cmdNotaManual1(0)");
  }
  static void ChooseGradesOfTheSecond(const qt::FormWindow& window) {
    ChooseGrades(window, "2ª Evaluación");
  }

  /// Run at each statement that saves grades.
  void Saving(std::function<void()> look) { saving_ = std::move(look); }

  TestSchool school;
  std::int32_t teacher = 0;  ///< whom the person search finds

 private:
  sqlite::SqliteConnection centro_;
  sqlite::SqliteConnection borrado_;
  sqlite::SqliteConnection entrada_;
  std::function<void()> saving_;
};

}  // namespace quorvane::test

#include <gmock/gmock.h>
#include <optional>

#include "selection/frmNotaManual1.h"
#include "selection/frmNotaMateria1.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "selection/frmNotaSeccionMateria1.h"
#include "tests/selection/HandedOver.h"

// What the screen shows while a statement runs, which may take long on a school's network.

namespace quorvane::test {
namespace {

class WhileReadingTest : public HandedOver {
 protected:
  /// The pointer while the evaluations are read, as the form loads; none when they aren't.
  template <class F>
  std::optional<Pointer> PointerOverEvaluations() {
    std::optional<Pointer> pointer;
    centro.Observe([&](const Connection&, const std::string& statement) {
      if (statement.find("FROM NumEvaluacion WHERE Final=0") != std::string::npos)
        pointer = hands.pointers.back();
    });
    FormInstance<F>::Get().ShowModal();
    centro.Observe({});
    return pointer;
  }
};

TEST_F(WhileReadingTest, AnHourglassStandsUntilTheLastListIsFull) {
  EXPECT_EQ(PointerOverEvaluations<frmNotaManual1>(), Pointer::Hourglass);
  EXPECT_EQ(PointerOverEvaluations<frmNotaMateria1>(), Pointer::Hourglass);
  EXPECT_EQ(PointerOverEvaluations<frmNotaSeccionAlumno1>(), Pointer::Hourglass);
  EXPECT_EQ(PointerOverEvaluations<frmNotaSeccionMateria1>(), Pointer::Hourglass);
  EXPECT_EQ(hands.pointers.back(), Pointer::Default);
}

TEST_F(WhileReadingTest, BySubjectTheButtonIsClosedBehindTheEvaluationsOfANewSection) {
  auto& form = FormInstance<frmNotaMateria1>::Get();
  form.ShowModal();
  SelectSection(form, 1);
  ASSERT_TRUE(form.cmdNotaManual1[0].Enabled());
  std::vector<bool> enabled;
  centro.Observe([&](const Connection&, const std::string& statement) {
    if (statement.find(" UNION ") != std::string::npos)
      enabled.push_back(form.cmdNotaManual1[0].Enabled());
  });
  form.cboSecciones_Click();
  centro.Observe({});
  EXPECT_EQ(enabled, std::vector<bool>{true});
  EXPECT_FALSE(form.cmdNotaManual1[0].Enabled());
}

}  // namespace
}  // namespace quorvane::test

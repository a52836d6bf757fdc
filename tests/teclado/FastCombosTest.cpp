#include <QComboBox>
#include <functional>
#include <gmock/gmock.h>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/teclado/Hasty.h"
#include "tests/teclado/Rest.h"

namespace quorvane::test {
namespace {

using Names = std::vector<std::string>;

/// The entry that each combo box shows, and what has the keyboard.
Names Look(const qt::FormWindow& window) {
  Names shown;
  for (const auto& view : window.Views())
    if (const auto* box = qobject_cast<const QComboBox*>(view->Widget()))
      shown.push_back(view->Model().Name() + ": " + box->currentText().toStdString());
  const auto* widget = window.focusWidget();
  shown.push_back(widget == nullptr ? "nothing" : widget->objectName().toStdString());
  return shown;
}

class FastCombosTest : public SchoolScreenTest, public ::testing::WithParamInterface<int> {
 protected:
  // Hands take their time, and on a busy machine more.
  FastCombosTest() { Patience(std::chrono::minutes(5)); }

  using Act = std::function<void(const Hasty::Next& done)>;

  /// Opens step one, acts in its first combo box, gives what stands there, and leaves.
  Names Play(const Act& act) {
    Names outcome;
    Then([&outcome, act](qt::FormWindow& window) {
      Of(window, "cboTipoEnsenanza")->setFocus();
      Rest::In(window, [&window, &outcome, act] {
        act([&window, &outcome] {
          outcome = Look(window);
          window.close();
        });
      });
    });
    OpenNode(static_cast<std::uint8_t>(GetParam()));
    ExpectDone();
    return outcome;
  }
};

// A list that a key opens and another closes is a window of its own here.
TEST_P(FastCombosTest, ChoosingByKeysGivesTheSameAtAnySpeed) {
  const QStringList keys{"space", "Down",   "Return", "Tab",    "space", "Down",
                         "Down",  "Return", "Tab",    "space",  "Home",  "Return",
                         "Tab",   "space",  "Down",   "Return", "Tab"};
  const auto careful = Play([&keys](const Hasty::Next& done) { Hasty::TypeWithCare(keys, done); });
  const BusyMachine busy;
  for (const auto apart : {10, 60}) {
    const auto hasty =
        Play([&keys, apart](const Hasty::Next& done) { Hasty::Type(keys, apart, done); });
    EXPECT_EQ(hasty, careful) << apart;
  }
}

INSTANTIATE_TEST_SUITE_P(Nodes, FastCombosTest, ::testing::Values(124, 127));

}  // namespace
}  // namespace quorvane::test

#include <QComboBox>
#include <QTimer>
#include <gmock/gmock.h>

#include "adapters/qt/views/ControlView.h"
#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/teclado/Hasty.h"

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

  /// Opens step one, types in its first combo box, gives what stands there, and leaves.
  Names Type(const QStringList& keys, int apart) {
    Names outcome;
    Then([&outcome, keys, apart](qt::FormWindow& window) {
      Of(window, "cboTipoEnsenanza")->setFocus();
      QTimer::singleShot(300, &window, [&window, &outcome, keys, apart] {
        Hasty::Type(keys, apart, [&window, &outcome] {
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

constexpr int kSlow = 150;  // milliseconds

// A list that a key opens and another closes is a window of its own here.
TEST_P(FastCombosTest, ChoosingByKeysGivesTheSameAtAnySpeed) {
  const QStringList keys{"space", "Down",   "Return", "Tab",    "space", "Down",
                         "Down",  "Return", "Tab",    "space",  "Home",  "Return",
                         "Tab",   "space",  "Down",   "Return", "Tab"};
  const auto slow = Type(keys, kSlow);
  const BusyMachine busy;
  for (const auto apart : {10, 60}) EXPECT_EQ(Type(keys, apart), slow) << apart;
}

INSTANTIATE_TEST_SUITE_P(Nodes, FastCombosTest, ::testing::Values(124, 127));

}  // namespace
}  // namespace quorvane::test

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/qt/Hands.h"
#include "tests/qt/ScreenTest.h"
#include "tests/qt/frmPrueba.h"

namespace quorvane::test {

/// One show of the form with all kinds of control, ended by its button that cancels.
class PruebaTest : public ScreenTest {
 protected:
  void Run(const Step& act) {
    Then([this, act](qt::FormWindow& window) {
      form->log.clear();
      act(window);
      seen = form->log;
      Click(window, "cmdCancelar");
    });
    Show(*form);
  }

  std::shared_ptr<frmPrueba> form = std::make_shared<frmPrueba>();
  std::vector<std::string> seen;  ///< the events, but for the last button's
};

}  // namespace quorvane::test

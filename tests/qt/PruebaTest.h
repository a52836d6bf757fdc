#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/qt/Hands.h"
#include "tests/qt/ScreenTest.h"
#include "tests/qt/frmPrueba.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {

/// One show of the form with all kinds of control, ended by its button that cancels.
class PruebaTest : public ScreenTest {
 protected:
  template <class... Gestures>
  void Run(Gestures... gestures) {
    Then([this](auto&) { form->log.clear(); }, gestures..., [this](auto&) { seen = form->log; },
         "cmdCancelar");
    Show(*form);
  }

  std::shared_ptr<frmPrueba> form = std::make_shared<frmPrueba>();
  std::vector<std::string> seen;  ///< the events, but for the last button's
};

/// Two forms, one opened from the other.
class TwoFormsTest : public ScreenTest {
 protected:
  /// The outer form hides while the inner one is shown, and is shown anew from inside that.
  void HideOuterBehindInner() {
    outer->cmdPagina.Click = [this] {
      outer->Hide();
      inner->ShowModal();
    };
    inner->cmdAceptar.Click = [this] {
      inner->Unload();
      outer->ShowModal();
    };
  }

  /// As step two of the module is: it goes before it has the outer form come back.
  void TakeTurns() {
    HideOuterBehindInner();
    inner->cmdAceptar.Click = [this] {
      inner->Unload();
      outer->ShowInTurn();
    };
  }

  std::shared_ptr<frmPrueba> outer = std::make_shared<frmPrueba>("frmFuera");
  std::shared_ptr<frmPrueba> inner = std::make_shared<frmPrueba>("frmDentro");
};

}  // namespace quorvane::test

#pragma once

#include <gtest/gtest.h>

#include "grades/student/frmNotaManual.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "tests/grades/DirectSession.h"

namespace quorvane::test {

/// Entry by student on the small school, for what no gesture of the user reaches.
class NotaManualDirect : public ::testing::Test {
 protected:
  frmNotaManual& Opened() {
    auto& form = session_.Open();
    static_cast<void>(session_.Statements());
    return form;
  }

  static frmNotaManual1& PasoUno() { return FormInstance<frmNotaManual1>::Get(); }

  GradeSchool school_;
  DirectSession session_{school_};
};

}  // namespace quorvane::test

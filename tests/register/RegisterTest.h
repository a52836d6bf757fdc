#pragma once

#include <initializer_list>
#include <string>

#include "tests/register/RegisterScript.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {

using testing::EndsWith;

/// A small school, and somebody at the register of its section 321.
class RegisterTest : public testing::Test {
 protected:
  ScriptResult Run(const std::string& script, const ScriptOptions& options = {}) const {
    return RunScript(school, script, options);
  }
  void Registra(std::initializer_list<int> alumnos) const {
    for (const auto alumno : alumnos) school.Registra(321, alumno);
  }
  /// The student is on the register, with those pending subjects in this order.
  void Pendientes(int alumno, std::initializer_list<int> matDets) const {
    Registra({alumno});
    for (int orden = 0; const auto matDet : matDets) Debe(alumno, matDet, ++orden);
  }

  void Debe(int alumno, int matDet, int orden) const {
    static_cast<void>(school.Pendiente(alumno, matDet, orden));
  }

  /// No row is left in those tables.
  void ExpectEmpty(std::initializer_list<const char*> tables) const {
    for (const auto* const table : tables)
      EXPECT_THAT(school.Rows(std::string("SELECT * FROM ") + table), IsEmpty()) << table;
  }

  SmallSchool school;
};

}  // namespace quorvane::test

#pragma once

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "tests/salida/Play.h"
#include "tests/support/SmallSchool.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {

/// The small school with two pending subjects: one in section 321 that is graded in an ordinary and
/// in the final evaluation, and one in 331 that is locked by what a form which died has left.
class SessionTest : public testing::TestWithParam<Session> {
 protected:
  SessionTest() {
    school_.Sql(
        "UPDATE Usuario SET Nombre='Dirección', CodPerfil=0 WHERE IDUsuario=1;"
        "UPDATE Usuario SET Nombre='Ana Ruiz', CodPerfil=3 WHERE IDUsuario=2;"
        "UPDATE Usuario SET Nombre='Luis Gil', CodPerfil=3 WHERE IDUsuario=3;"
        "UPDATE Usuario SET Nombre='Sin perfil', CodPerfil=3 WHERE IDUsuario=4");
    school_.Registra(321, 1);
    const auto pending = school_.Pendiente(1, 3111, 1);
    school_.Evalua(pending, 1);
    school_.Evalua(pending, 4);
    school_.Registra(331, 5);
    school_.Evalua(school_.Pendiente(5, 3112, 1), 2);
    school_.Bloquea(2, 2, 3112, 3, kLeft);
    std::filesystem::copy_file(school_.Path(), atFirst_);
  }

  /// Plays the test's session on the school as it was at first.
  Played PlayAfresh(const Moment& moment = {}) {
    std::filesystem::copy_file(atFirst_, school_.Path(),
                               std::filesystem::copy_options::overwrite_existing);
    if (!GetParam().sql.empty()) school_.Sql(GetParam().sql);
    return Play(GetParam(), school_.Path(), moment);
  }

  /// Holds that no form has left anything, and that nothing was written but what an undisturbed
  /// session writes first, and then what gives back what the forms hold.
  void ExpectInOrder(const Played& played, const Played& undisturbed) const {
    EXPECT_EQ(school_.Rows("SELECT * FROM PublicacionPte"), std::vector<std::string>{});
    EXPECT_EQ(school_.Rows("SELECT codPublicacion FROM BloqueoPte"),
              std::vector<std::string>{std::to_string(kLeft)});
    const auto& writes = played.writes;
    const auto& usual = undisturbed.writes;
    const auto other =
        std::mismatch(writes.begin(), writes.end(), usual.begin(), usual.end()).first;
    const auto wrong = std::find_if_not(other, writes.end(), GivesBack);
    EXPECT_EQ(wrong == writes.end() ? "" : *wrong, "");
  }

  SmallSchool school_;

 private:
  static constexpr int kLeft = 77;  // the publication of the form that died

  static bool GivesBack(const std::string& statement) {
    return statement.find("DELETE FROM PublicacionPte WHERE IDPublicacionPte=") !=
               std::string::npos ||
           statement.find("DELETE FROM BloqueoPte WHERE codPublicacion=") != std::string::npos;
  }

  TempFolder folder_;
  std::string atFirst_ = folder_ / "escuela.sqlite";
};

}  // namespace quorvane::test

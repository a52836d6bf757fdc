#include <QPushButton>
#include <gtest/gtest.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/zendria/LocksDialog.h"
#include "tests/support/Opened.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

class LocksDialogTest : public HostTest {
 protected:
  LocksDialogTest() {
    school_.Sql("INSERT INTO PublicacionPte VALUES (7, 1, 2, 4, 1)");
    school_.Bloquea(1, 1, 3111, 2, 7);
    school_.Bloquea(1, 1, 3112, 2, 7);
    school_.Bloquea(2, 2, 3121, 3, 9);
  }

  Opened<sqlite::SqliteConnection> connection_{school_.Path(), ""};
};

TEST_F(LocksDialogTest, TellsWhoHoldsWhat) {
  zendria::LocksDialog dialog(connection_);
  auto& list = dialog.List();
  ASSERT_EQ(list.topLevelItemCount(), 2);
  EXPECT_EQ(list.topLevelItem(0)->text(0), "7");
  EXPECT_TRUE(list.topLevelItem(0)->text(1).contains("Ruiz")) << "the staff's name";
  EXPECT_EQ(list.topLevelItem(0)->text(3), "2");
  EXPECT_TRUE(list.topLevelItem(0)->child(0)->text(3).contains("Lengua"));
  EXPECT_EQ(list.topLevelItem(1)->text(0), "9 (sin publicación)");
}

TEST_F(LocksDialogTest, RemovesBehindAQuestion) {
  zendria::LocksDialog dialog(connection_);
  Answer("pregunta", "&Cancelar");
  dialog.RemoveButton().click();
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM BloqueoPte"), 3);
  Answer("pregunta", "&Quitar");
  dialog.RemoveButton().click();
  EXPECT_EQ(school_.Rows("SELECT CodPublicacion FROM BloqueoPte"), std::vector<std::string>{"9"});
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM PublicacionPte"), 0);
  EXPECT_EQ(dialog.List().topLevelItemCount(), 1);
}

TEST_F(LocksDialogTest, SparesAFormThatTookTheNumberMeanwhile) {
  zendria::LocksDialog dialog(connection_);
  robot_.OnDialog("pregunta", [this](QWidget& question) {
    school_.Sql("UPDATE PublicacionPte SET CodPropietario=3");
    Button(question, "&Quitar").click();
  });
  EXPECT_THAT(NoticeOf([&] { dialog.RemoveButton().click(); }),
              StartsWith("La publicación ha cambiado"));
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM BloqueoPte"), 3);
  EXPECT_TRUE(dialog.List().topLevelItem(0)->text(1).contains("usuario 3")) << "read again";
}

TEST_F(LocksDialogTest, AnEmptyListOffersNothingToRemove) {
  school_.Sql("DELETE FROM BloqueoPte; DELETE FROM PublicacionPte");
  zendria::LocksDialog dialog(connection_);
  EXPECT_EQ(dialog.List().topLevelItemCount(), 0);
  EXPECT_FALSE(dialog.RemoveButton().isEnabled());
}

TEST_F(LocksDialogTest, AFailedStatementIsTold) {
  school_.Sql("DROP TABLE BloqueoPte");
  EXPECT_THAT(NoticeOf([this] { zendria::LocksDialog dialog(connection_); }),
              StartsWith("Error -2147467259: no such table: BloqueoPte"));
}

}  // namespace
}  // namespace quorvane::test

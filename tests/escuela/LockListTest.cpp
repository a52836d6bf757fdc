#include <chrono>

#include "apps/escuela/LockList.h"
#include "apps/escuela/Transaction.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using testing::_;

class LockListTest : public testing::Test {
 protected:
  OpenSchool school_;
  LockList list_{school_.Db()};
};

TEST_F(LockListTest, TellsOwnerEvaluationAndSubjects) {
  EXPECT_THAT(list_.Read(),
              ElementsAre(FieldsAre(1, 2, "jefatura", "2ª Evaluación", true,
                                    ElementsAre("Lengua Castellana y Literatura (1º ESO B)",
                                                "Primera Lengua Extranjera: Inglés (1º ESO B)"))));
}

TEST_F(LockListTest, AMemberOfStaffIsNamedInFull) {
  school_.Sql("UPDATE PublicacionPte SET CodPropietario=8");
  EXPECT_THAT(list_.Read().front().ownerName, StartsWith("Lucía Vidal "));
}

TEST_F(LockListTest, ASchoolWithoutAccountNamesHasItsListToo) {
  school_.Sql("ALTER TABLE Usuario DROP COLUMN Nombre");
  EXPECT_EQ(list_.Read().front().ownerName, "");
}

TEST_F(LockListTest, ShowsWhatHasNoNameByItsNumber) {
  school_.Sql(
      "INSERT INTO PublicacionPte VALUES (2,0,99,4,88);"
      "INSERT INTO BloqueoPte VALUES (0,88,7777,99,2)");
  EXPECT_THAT(list_.Read(),
              ElementsAre(_, FieldsAre(2, 99, "", "88", true, ElementsAre("materia 7777"))));
}

TEST_F(LockListTest, LocksWithoutAPublicationAreShownToo) {
  school_.Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte=1");
  EXPECT_THAT(list_.Read(), ElementsAre(FieldsAre(1, 2, _, _, false, SizeIs(2))));
  EXPECT_TRUE(list_.Remove(1));
  EXPECT_THAT(list_.Read(), IsEmpty());
}

TEST_F(LockListTest, RemovesThatPublicationAndNothingElse) {
  school_.Sql(
      "INSERT INTO PublicacionPte VALUES (2,0,2,4,3); INSERT INTO BloqueoPte VALUES (0,3,1,2,2)");
  const auto other = school_.Count("EvaluacionPte");
  EXPECT_TRUE(list_.Remove(1));
  EXPECT_THAT(list_.Read(), ElementsAre(FieldsAre(2, _, _, _, _, SizeIs(1))));
  EXPECT_EQ(school_.Count("EvaluacionPte"), other);
}

TEST_F(LockListTest, NobodyComesBetweenTheLookAndTheRemoval) {
  sqlite::SqliteConnection other(school_.Path(), "");
  other.BusyWait(std::chrono::milliseconds(1));
  other.Open();
  auto tried = 0;
  school_.Db().Observe([&](const Connection&, const std::string& statement) {
    if (!statement.starts_with("DELETE FROM BloqueoPte WHERE CodPublicacion=")) return;
    ++tried;
    EXPECT_THROW(other.Execute("UPDATE PublicacionPte SET CodPropietario=8"), RuntimeError);
  });
  EXPECT_TRUE(list_.RemoveUnchanged(list_.Read().front()));
  EXPECT_EQ(tried, 1);
}

TEST_F(LockListTest, AFailureHalfwayLeavesThemAll) {
  school_.Db().Observe([](const Connection&, const std::string& statement) {
    if (statement.starts_with("DELETE FROM PublicacionPte"))
      throw RuntimeError(ErrorNumber::StatementFailed, "disk I/O error");
  });
  EXPECT_THROW(list_.Remove(1), RuntimeError);
  EXPECT_EQ(list_.Read().front().subjects.size(), 2U);
}

// The program would end there, and with it what it was about to tell.
TEST_F(LockListTest, WhatAnObserverThrowsAtTheUndoingEndsNothing) {
  {
    const Transaction transaction(school_.Db());
    school_.Sql("DELETE FROM BloqueoPte");
    school_.Db().Observe([](const Connection&, const std::string&) { throw 7; });
  }
  school_.Db().Observe({});
  EXPECT_FALSE(school_.Db().IsOpen());
  school_.Db().Open();
  EXPECT_EQ(list_.Read().front().subjects.size(), 2U);
}

TEST_F(LockListTest, LeavesANumberThatHasPassedToAnotherAlone) {
  const auto seen = list_.Read().front();
  school_.Sql("UPDATE PublicacionPte SET CodPropietario=8");
  EXPECT_FALSE(list_.RemoveUnchanged(seen));
  EXPECT_EQ(list_.Read().front().subjects.size(), 2U);
  EXPECT_TRUE(list_.RemoveUnchanged(list_.Read().front()));
  EXPECT_THAT(list_.Read(), IsEmpty());
  EXPECT_FALSE(list_.RemoveUnchanged(seen)) << "gone by itself";
}

TEST_F(LockListTest, TellsThatThereIsNoSuchPublication) {
  EXPECT_FALSE(list_.Remove(5));
  EXPECT_EQ(list_.Read().size(), 1U);
}

}  // namespace
}  // namespace quorvane::test

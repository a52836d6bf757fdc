#include <chrono>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "apps/escuela/Transaction.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

class LockListTest : public testing::Test {
 protected:
  void Change(const std::string& statement) { school_.Db().Execute(statement); }

  OpenSchool school_{[](Connection& school) { DemoSchool(school).Build(); }};
  LockList list_{school_.Db()};
};

TEST_F(LockListTest, TellsOwnerEvaluationAndSubjects) {
  const auto publications = list_.Read();
  ASSERT_EQ(publications.size(), 1U);
  const auto& one = publications.front();
  EXPECT_EQ(one.id, 1);
  EXPECT_EQ(one.owner, 2);
  EXPECT_EQ(one.ownerName, "jefatura");
  EXPECT_EQ(one.evaluation, "2ª Evaluación");
  EXPECT_TRUE(one.exists);
  EXPECT_THAT(one.subjects, ElementsAre("Lengua Castellana y Literatura (1º ESO B)",
                                        "Primera Lengua Extranjera: Inglés (1º ESO B)"));
}

TEST_F(LockListTest, AMemberOfStaffIsNamedInFull) {
  Change("UPDATE PublicacionPte SET CodPropietario=8");
  EXPECT_EQ(list_.Read().front().ownerName.find("Lucía Vidal "), 0U);
}

TEST_F(LockListTest, ASchoolWithoutAccountNamesHasItsListToo) {
  Change("ALTER TABLE Usuario DROP COLUMN Nombre");
  EXPECT_EQ(list_.Read().front().ownerName, "");
}

TEST_F(LockListTest, ShowsWhatHasNoNameByItsNumber) {
  Change("INSERT INTO PublicacionPte VALUES (2,0,99,4,88)");
  Change("INSERT INTO BloqueoPte VALUES (0,88,7777,99,2)");
  const auto publications = list_.Read();
  ASSERT_EQ(publications.size(), 2U);
  EXPECT_EQ(publications[1].owner, 99);
  EXPECT_EQ(publications[1].ownerName, "");
  EXPECT_EQ(publications[1].evaluation, "88");
  EXPECT_THAT(publications[1].subjects, ElementsAre("materia 7777"));
}

TEST_F(LockListTest, LocksWithoutAPublicationAreShownToo) {
  Change("DELETE FROM PublicacionPte WHERE IDPublicacionPte=1");
  const auto publications = list_.Read();
  ASSERT_EQ(publications.size(), 1U);
  EXPECT_FALSE(publications[0].exists);
  EXPECT_EQ(publications[0].owner, 2);
  EXPECT_EQ(publications[0].subjects.size(), 2U);
  EXPECT_TRUE(list_.Remove(1));
  EXPECT_THAT(list_.Read(), IsEmpty());
}

TEST_F(LockListTest, RemovesThatPublicationAndNothingElse) {
  Change("INSERT INTO PublicacionPte VALUES (2,0,2,4,3)");
  Change("INSERT INTO BloqueoPte VALUES (0,3,1,2,2)");
  const auto other = school_.Number("SELECT COUNT(*) FROM EvaluacionPte");
  EXPECT_TRUE(list_.Remove(1));
  const auto left = list_.Read();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].id, 2);
  EXPECT_EQ(left[0].subjects.size(), 1U);
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionPte"), other);
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
    Change("DELETE FROM BloqueoPte");
    school_.Db().Observe([](const Connection&, const std::string&) { throw 7; });
  }
  school_.Db().Observe({});
  EXPECT_FALSE(school_.Db().IsOpen());
  school_.Db().Open();
  EXPECT_EQ(list_.Read().front().subjects.size(), 2U);
}

TEST_F(LockListTest, LeavesANumberThatHasPassedToAnotherAlone) {
  const auto seen = list_.Read().front();
  Change("UPDATE PublicacionPte SET CodPropietario=8");
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

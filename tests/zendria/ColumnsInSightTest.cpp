#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "apps/zendria/ColumnsInSight.h"

namespace quorvane::test {
namespace {

class ColumnsInSightTest : public testing::Test {
 protected:
  ColumnsInSightTest() {
    list_.setHeaderLabels({"Materia", "Nota", "Quién"});
    new QTreeWidgetItem(&list_, {kLong, "10", kLong});
    columns_ = new zendria::ColumnsInSight(list_, {0, 2});
    columns_->Fit();
    Widen(1000);
    list_.show();
  }
  void Widen(int width) {
    list_.resize(width, 200);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] bool AllInSight() const { return list_.horizontalScrollBar()->maximum() == 0; }
  /// What is told under the mouse in that column of the only row, before another has told anything.
  [[nodiscard]] QString ToldAt(int column) const {
    const auto cell = list_.visualRect(list_.model()->index(0, column)).center();
    QHelpEvent help(QEvent::ToolTip, cell, list_.viewport()->mapToGlobal(cell));
    QCoreApplication::sendEvent(list_.viewport(), &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  }

  const QString kLong{"Primera Lengua Extranjera: Inglés"};
  QTreeWidget list_;
  zendria::ColumnsInSight* columns_ = nullptr;
};

TEST_F(ColumnsInSightTest, WhereThereIsRoomNothingIsCut) {
  const auto whole = list_.fontMetrics().horizontalAdvance(kLong);
  EXPECT_GT(list_.columnWidth(0), whole);
  EXPECT_GT(list_.columnWidth(2), whole);
  EXPECT_EQ(ToldAt(0), "");
}

TEST_F(ColumnsInSightTest, WhereThereIsNoneTheLongTextsYieldAndTellThemselves) {
  const auto grade = list_.columnWidth(1);
  Widen(300);
  EXPECT_TRUE(AllInSight());
  EXPECT_EQ(list_.columnWidth(1), grade) << "a number stays whole";
  EXPECT_EQ(ToldAt(1), "");
  EXPECT_EQ(ToldAt(0), kLong);
  Widen(1000);
  EXPECT_GT(list_.columnWidth(0), list_.fontMetrics().horizontalAdvance(kLong));
}

TEST_F(ColumnsInSightTest, WhatTheUserHasSetStays) {
  list_.header()->resizeSection(0, 222);
  Widen(300);
  columns_->Fit();
  EXPECT_EQ(list_.columnWidth(0), 222);
}

}  // namespace
}  // namespace quorvane::test

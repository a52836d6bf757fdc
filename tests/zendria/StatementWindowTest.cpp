#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/zendria/StatementWindow.h"
#include "tests/zendria/Robot.h"

namespace quorvane::zendria {
namespace {

class StatementWindowTest : public testing::Test {
 protected:
  void Run(const char* statement) { log_.Add(centro_, statement); }

  const sqlite::SqliteConnection centro_{"escuela.sqlite", "centro"};
  StatementLog log_;
  StatementWindow window_{log_};
};

TEST_F(StatementWindowTest, FiltersWhatRanAndWhatRuns) {
  Run("SELECT 1 FROM Alumno");
  Run("SELECT 1 FROM Sección");
  QTest::keyClicks(&window_.Filter(), "SECCION");
  EXPECT_FALSE(window_.Text().contains("Alumno"));
  Run("DELETE FROM Alumno");
  EXPECT_FALSE(window_.Text().contains("Alumno"));
  Run("DELETE FROM Sección");
  EXPECT_TRUE(window_.Text().endsWith("DELETE FROM Sección"));
}

TEST_F(StatementWindowTest, ShowsTheLastFromItsBeginning) {
  for (int i = 0; i < 100; ++i) Run("SELECT 1 FROM Alumno");
  Run(("SELECT " + std::string(500, '1')).c_str());
  StatementWindow window(log_);
  window.show();
  QCoreApplication::processEvents();
  const auto* const text = window.findChild<QPlainTextEdit*>();
  EXPECT_GT(text->horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(text->horizontalScrollBar()->value(), 0);
  const auto atLast = [text] {
    return text->verticalScrollBar()->value() == text->verticalScrollBar()->maximum();
  };
  EXPECT_TRUE(atLast());
  Run("SELECT 2 FROM Alumno");
  QCoreApplication::processEvents();
  EXPECT_TRUE(atLast()) << "and those that follow";
}

TEST_F(StatementWindowTest, ItsLettersAreNoSmallerThanTheOthers) {
  const auto before = QApplication::font();
  auto large = before;
  large.setPointSizeF(29);
  QApplication::setFont(large);
  const StatementWindow window(log_);
  EXPECT_EQ(window.findChild<QPlainTextEdit*>()->font().pointSizeF(), 29);
  QApplication::setFont(before);
}

TEST_F(StatementWindowTest, ShowsStatementsAsTheyRunCopiesThemAsATraceAndIsEmptied) {
  Run("SELECT 1 FROM Alumno");
  EXPECT_TRUE(window_.Text().endsWith("centro  SELECT 1 FROM Alumno"));
  test::Button(window_, "&Copiar").click();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "sql centro SELECT 1 FROM Alumno\n");
  test::Button(window_, "&Vaciar").click();
  EXPECT_EQ(window_.Text(), "");
  EXPECT_TRUE(log_.Lines().empty());
}

TEST(StatementLogTest, KeepsTheLastLines) {
  const sqlite::SqliteConnection centro("escuela.sqlite", "centro");
  StatementLog log;
  for (std::size_t i = 0; i <= StatementLog::kMostLines; ++i) log.Add(centro, std::to_string(i));
  EXPECT_EQ(log.Lines().size(), StatementLog::kMostLines);
  EXPECT_EQ(log.Lines().front().statement, "1");
}

}  // namespace
}  // namespace quorvane::zendria

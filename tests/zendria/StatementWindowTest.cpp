#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/zendria/StatementWindow.h"

namespace quorvane::zendria {
namespace {

class StatementWindowTest : public testing::Test {
 protected:
  void Run(const char* statement) { log_.Add(centro_, statement); }
  void Press(const QString& caption) {
    for (auto* const button : window_.findChildren<QPushButton*>())
      if (button->text() == caption) button->click();
  }

  const sqlite::SqliteConnection centro_{"escuela.sqlite", "centro"};
  StatementLog log_;
  StatementWindow window_{log_};
};

TEST_F(StatementWindowTest, ShowsStatementsAsTheyRun) {
  Run("SELECT 1 FROM Alumno");
  EXPECT_TRUE(window_.Text().endsWith("centro  SELECT 1 FROM Alumno"));
}

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

TEST_F(StatementWindowTest, CopiesTheLinesOfATrace) {
  Run("SELECT 1 FROM Alumno");
  Press("&Copiar");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "sql centro SELECT 1 FROM Alumno\n");
}

TEST_F(StatementWindowTest, IsEmptied) {
  Run("SELECT 1 FROM Alumno");
  Press("&Vaciar");
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

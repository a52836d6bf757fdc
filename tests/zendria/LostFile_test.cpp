// The school's file is deleted or replaced while the host has it open.

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <gtest/gtest.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "frame/cConfiguracion.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;
using Window = qt::FormWindow;

constexpr auto kLongEnough = 1100;  // ms, for a look to be trusted no more

class LostFileTest : public HostTest {
 protected:
  LostFileTest() {
    school_.Registra(321, 1);
    school_.Evalua(school_.Pendiente(1, 3111, 1), 1);
    school_.Sql("PRAGMA journal_mode=WAL");
    fs::copy_file(school_.Path(), Other());
    EXPECT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  }

  [[nodiscard]] std::string Away() const {
    return folder_.filePath("apartada.sqlite").toStdString();
  }
  [[nodiscard]] std::string Other() const { return folder_.filePath("otra.sqlite").toStdString(); }

  void Delete() const { fs::remove(school_.Path()); }
  void Move() const { fs::rename(school_.Path(), Away()); }
  void Replace() const {
    Move();
    fs::rename(Other(), school_.Path());
  }

  /// What the host says of the file; then its advice.
  [[nodiscard]] QString Told(const QString& what) const {
    return "Error -2147467259: Se ha perdido el archivo " + SchoolFile() + ": " + what +
           "; hasta entonces no se guarda nada.\n";
  }
  static QString Advice() {
    return "Si el fichero se ha movido o ha cambiado de nombre, devuélvalo a su sitio y vuelva a "
           "abrir la pantalla. Si no, abra la escuela de nuevo (menú Escuela, «Abrir…»), mire qué "
           "falta y repítalo.";
  }
  static QString Closed() {
    return "La pantalla se ha cerrado. Lo que ya se había escrito está en el fichero que se abrió, "
           "no en el que pueda haber ahora en su sitio.\n\n" +
           Advice() +
           "\n\nSi estaba introduciendo notas, sus materias pueden haber quedado bloqueadas: "
           "véalas "
           "en el menú Ver, Publicaciones y bloqueos.";
  }

  /// Opens the grades by student up to step two; there `lose` happens, and a grade is saved.
  QString SaveAfter(const std::function<void()>& lose) {
    QString told;
    ReadNotice(told);
    PlanStepOne();
    robot_.On("frmNotaManual", [this, lose](Window& window) {
      Grade(window);
      QTest::qWait(kLongEnough);
      lose();
      Robot::Click(window, "cmdAceptar");
      rows_ = Grades(*cConfiguracion::Instancia().conLocalCentro);
    });
    window_->OpenNode(124);
    EXPECT_TRUE(robot_.Done());
    EXPECT_TRUE(robot_.unexpected.empty());
    return told;
  }

  void PlanStepOne() {
    robot_.On("frmNotaManual1", [](Window& window) {
      Robot::Pick(window, "cboTipoEnsenanza", "ESO");
      Robot::Pick(window, "cboCursos", "2");
      Robot::Pick(window, "cboSecciones", "A");
      Robot::Pick(window, "cboEvaluaciones", "1");
      Robot::Press(window, "cboEvaluaciones", Qt::Key_Return);
    });
  }

  static void Grade(Window& window) {
    auto& grid = dynamic_cast<QTableView&>(*window.Widget("rtvNotasAlumno"));
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(0, 1));
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* const list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr);
    auto* const filter = list->findChild<QLineEdit*>();
    QTest::keyClicks(filter, "7");
    QTest::keyClick(filter, Qt::Key_Return);
  }

  static std::string Grades(Connection& school) {
    const auto row = school.Execute("SELECT Evaluado, CodNota FROM EvaluacionPte");
    return row.Fields(0).Text() + "|" + row.Fields(1).Text();
  }
  static std::string GradesIn(const std::string& path) {
    sqlite::SqliteConnection school(path, "");
    school.Open();
    return Grades(school);
  }

  /// Opens a screen that then isn't shown.
  QString OpeningTold() {
    QString told;
    ReadNotice(told);
    window_->OpenNode(124);
    EXPECT_TRUE(robot_.Done());
    EXPECT_TRUE(robot_.unexpected.empty());
    return told;
  }

  std::string rows_;  ///< of the file that was lost, behind the saving
};

const QString kDeleted =
    "se ha borrado, movido o cambiado de nombre. Devuélvalo a su sitio, o recupere una copia y "
    "abra la escuela de nuevo";
const QString kReplaced =
    "otro ha ocupado su sitio. Abra la escuela de nuevo para trabajar con el que hay ahora, o "
    "devuelva el anterior a su sitio";

TEST_F(LostFileTest, NoScreenIsOpenedOnADeletedSchool) {
  Delete();
  EXPECT_EQ(OpeningTold(), Told(kDeleted) + Closed());
  EXPECT_EQ(OpeningTold(), Told(kDeleted) + Closed()) << "and so on";
}

TEST_F(LostFileTest, NoScreenIsOpenedOnASchoolInItsPlaceUntilThatIsOpened) {
  Replace();
  EXPECT_EQ(OpeningTold(), Told(kReplaced) + Closed());
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  auto opened = false;
  robot_.On("frmNotaManual1", [&opened](Window& window) {
    opened = true;
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  window_->OpenNode(124);
  EXPECT_TRUE(opened);
}

TEST_F(LostFileTest, SavingIntoADeletedSchoolIsTold) {
  EXPECT_EQ(SaveAfter([this] { Delete(); }), Told(kDeleted) + Closed());
  EXPECT_EQ(rows_, "0|0");
  EXPECT_FALSE(fs::exists(school_.Path()));
}

TEST_F(LostFileTest, SavingIntoAReplacedSchoolIsToldAndReachesNeither) {
  EXPECT_EQ(SaveAfter([this] { Replace(); }), Told(kReplaced) + Closed());
  EXPECT_EQ(rows_, "0|0");
  EXPECT_EQ(GradesIn(Away()), "0|0");
}

TEST_F(LostFileTest, WhatIsPutBackIsWorkedOnAgain) {
  EXPECT_EQ(SaveAfter([this] { Move(); }), Told(kDeleted) + Closed());
  fs::rename(Away(), school_.Path());
  school_.Sql("DELETE FROM BloqueoPte;DELETE FROM PublicacionPte");
  PlanStepOne();
  robot_.On("frmNotaManual", [](Window& window) {
    Grade(window);
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmNotaManual1", [](Window& window) { Robot::Click(window, "cmdNotaManual1(1)"); });
  window_->OpenNode(124);
  EXPECT_TRUE(robot_.Done());
  EXPECT_EQ(GradesIn(school_.Path()), "-1|107");
}

// A program that closes the last connection it knows of takes the log away: what was written to it
// then would have no name either.
TEST_F(LostFileTest, OpeningTheSchoolTwiceLeavesNoProgramToThinkItIsTheLast) {
  school_.Sql("INSERT INTO PublicacionPte VALUES (7, 1, 2, 4, 1)");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  ASSERT_TRUE(QFile::exists(SchoolFile() + "-wal"));
  EXPECT_EQ(QProcess::execute(QUORVANE_ESCUELA, {"bloqueos", SchoolFile()}), 0);
  EXPECT_TRUE(QFile::exists(SchoolFile() + "-wal"));
}

TEST_F(LostFileTest, TheLocksOfADeletedSchoolAreNotShown) {
  Delete();
  QString told;
  ReadNotice(told);
  for (auto* const action : window_->findChildren<QAction*>())
    if (action->text() == "&Publicaciones y bloqueos…") action->trigger();
  EXPECT_EQ(told, Told(kDeleted) + Advice());
}

}  // namespace
}  // namespace quorvane::test

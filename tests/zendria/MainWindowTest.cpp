#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidgetItemIterator>
#include <QUrl>
#include <gtest/gtest.h>

#include "apps/zendria/MainWindow.h"
#include "apps/zendria/ManualPage.h"
#include "apps/zendria/SignInDialog.h"
#include "apps/zendria/StatementWindow.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmPendientes.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using MainWindowTest = HostTest;

/// With the school, for the administrator.
class OpenMainWindowTest : public HostTest {
 protected:
  OpenMainWindowTest() { EXPECT_TRUE(window_->OpenSchool(SchoolFile(), 1)); }
};

std::vector<std::string> Titles(QTreeWidget& tree, bool disabledOnly = false) {
  std::vector<std::string> titles;
  for (QTreeWidgetItemIterator at(&tree); *at != nullptr; ++at)
    if ((*at)->childCount() == 0 && (!disabledOnly || (*at)->isDisabled()))
      titles.push_back((*at)->text(0).toStdString());
  return titles;
}

TEST_F(MainWindowTest, WithoutASchoolItOffersToOpenOne) {
  EXPECT_FALSE(window_->HasSchool());
  EXPECT_TRUE(window_->findChild<QPushButton*>("abrirEscuela")->isVisible());
  EXPECT_FALSE(window_->Page().isVisible());
  EXPECT_FALSE(window_->YearAction().isEnabled());
}

TEST_F(OpenMainWindowTest, ShowsUserProfileFileAndYear) {
  EXPECT_EQ(LabelText("usuario"), "Dirección");
  EXPECT_EQ(LabelText("perfil"), "0 (sin restricciones), administrador");
  EXPECT_EQ(LabelText("fichero"), SchoolFile());
  EXPECT_EQ(LabelText("año"), "activo");
  window_->YearAction().trigger();
  EXPECT_TRUE(LabelText("año").startsWith("no activo"));
}

TEST_F(MainWindowTest, SignsInAsTheOneWhoIsChosen) {
  robot_.OnDialog<zendria::SignInDialog>("entrada", [](auto& dialog) {
    EXPECT_EQ(dialog.List().List().count(), 3) << "one without a profile can't sign in";
    QTest::keyClicks(&dialog.List().Field(), "ruiz");
    QTest::keyClick(&dialog.List().Field(), Qt::Key_Return);
  });
  EXPECT_TRUE(window_->OpenSchool(SchoolFile()));
  EXPECT_EQ(LabelText("usuario"), "Ana Ruiz");
  EXPECT_EQ(preferences_.RecentSchools(), QStringList(SchoolFile()));
}

TEST_F(MainWindowTest, GivingUpTheSignInOpensNothing) {
  GiveUp("entrada");
  EXPECT_FALSE(window_->OpenSchool(SchoolFile()));
  EXPECT_FALSE(window_->HasSchool());
}

TEST_F(OpenMainWindowTest, EnterOnTheStartPageOpensTheSchoolThatIsMarked) {
  UseScreens(zendria::PendingScreens());
  QApplication::setActiveWindow(window_.get());
  ASSERT_EQ(window_->findChild<QListWidget*>("recientes")->count(), 1);
  SignIn("gil");
  // As the keyboard comes to a window that has just opened.
  QTest::keyClick(window_->windowHandle(), Qt::Key_Return);
  EXPECT_EQ(LabelText("usuario"), "Luis Gil");
}

TEST_F(MainWindowTest, TheTreeOffersTheFiveScreens) {
  EXPECT_EQ(
      Titles(window_->Page().Tree()),
      (std::vector<std::string>{"Alumnos con materias pendientes", "Por alumno", "Por materia",
                                "De un alumno, por materia", "De una materia, por alumno"}));
  EXPECT_TRUE(Titles(window_->Page().Tree(), true).empty());
}

TEST_F(MainWindowTest, AScreenThatIsNotAvailableIsDisabledAndDoesNotOpen) {
  auto screens = zendria::PendingScreens();
  screens[1].available = false;
  UseScreens(screens);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  EXPECT_EQ(Titles(window_->Page().Tree(), true), std::vector<std::string>{"Por alumno"});
  window_->Page().SelectNode(124);
  EXPECT_NE(window_->Page().SelectedNode(), 124);
  window_->OpenNode(124);
  EXPECT_TRUE(robot_.unexpected.empty()) << "no form came up";
}

TEST_F(MainWindowTest, WithoutAnyScreenThereIsNothingToOpen) {
  auto screens = zendria::PendingScreens();
  for (auto& screen : screens) screen.available = false;
  UseScreens(screens);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  EXPECT_FALSE(window_->Page().SelectedNode());
  EXPECT_FALSE(window_->Page().OpenButton().isEnabled());
}

TEST_F(OpenMainWindowTest, EveryNodeOpensItsScreen) {
  for (std::uint8_t node = 123;
       const auto* const form : {"frmPendientes", "frmNotaManual1", "frmNotaMateria1",
                                 "frmNotaSeccionMateria1", "frmNotaSeccionAlumno1"}) {
    robot_.On(form, [this](qt::FormWindow& window) {
      EXPECT_TRUE(window_->statusBar()->currentMessage().startsWith("Abierta: "));
      window_->OpenNode(123);  // only one screen at a time
      window.close();
    });
    window_->Page().SelectNode(node++);
    QTest::keyClick(&window_->Page().Tree(), Qt::Key_Return);
    EXPECT_TRUE(robot_.Done()) << form;
    EXPECT_EQ(window_->statusBar()->currentMessage(), "Listo");
  }
}

TEST_F(MainWindowTest, HandsTheModuleTheWholeSession) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  window_->YearAction().setChecked(false);
  CloseNext("frmPendientes");
  window_->OpenNode(123);
  const auto& session = cConfiguracion::Instancia();
  EXPECT_EQ(session.intIDUsuario, 2);
  EXPECT_EQ(session.intIDPerfil, 3);
  EXPECT_EQ(session.strNombreUsuario, "Ana Ruiz");
  EXPECT_EQ(session.intIdCentro, 1);
  EXPECT_FALSE(session.Activa);
  EXPECT_FALSE(session.SQLServer);
  EXPECT_EQ(session.RutaBD, school_.Path());
  EXPECT_EQ(session.CarpetaIconos(), "C:\\Zendria\\iconos\\");
}

TEST_F(OpenMainWindowTest, StaysOpenWhileAScreenIs) {
  robot_.On("frmPendientes", [this](qt::FormWindow& window) {
    EXPECT_FALSE(window_->close());
    window.close();
  });
  window_->OpenNode(123);
  EXPECT_TRUE(window_->close());
}

TEST_F(OpenMainWindowTest, ChangingTheUserKeepsTheSchool) {
  SignIn("gil");
  Trigger("cambiarUsuario");
  EXPECT_EQ(LabelText("usuario"), "Luis Gil");
}

// A statement fails under the form that is open; the host tells it and goes on living.
TEST_F(OpenMainWindowTest, ARuntimeErrorIsToldAndTheNextScreenOpens) {
  school_.Sql("ALTER TABLE Curso RENAME TO Apartado");
  robot_.On("frmPendientes", {{"cboTEnsenanza", "ESO"}});
  EXPECT_THAT(NoticeOf(123), AllOf(HasSubstr("Error -2147467259: no such table: Curso"),
                                   HasSubstr("La pantalla se ha cerrado")));
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(screen_.ActiveWindow(), nullptr);

  school_.Sql("ALTER TABLE Apartado RENAME TO Curso");
  robot_.On("frmPendientes", {{"cboTEnsenanza", "ESO"}, {"cboCurso", "2"}, "cmdCancelar"});
  Play(123);
}

// The failure comes out of two nested shows; neither form is left.
TEST_F(OpenMainWindowTest, AnErrorUnderTwoFormsLeavesNone) {
  school_.Sql("ALTER TABLE Profesor_Pte RENAME TO Apartado");
  const auto pickClass = Robot::Doing(
      {{"cboTEnsenanza", "ESO"}, {"cboCurso", "2"}, {"cboSeccion", "A"}, "cmdAceptar"});
  robot_.On("frmPendientes", pickClass);
  EXPECT_THAT(NoticeOf(123), HasSubstr("no such table"));
  EXPECT_FALSE(FormInstance<frmPendientes>::Exists());
  EXPECT_FALSE(FormInstance<frmAlumnoPendiente>::Exists());

  school_.Sql("ALTER TABLE Apartado RENAME TO Profesor_Pte");
  robot_.On("frmPendientes", [&pickClass](qt::FormWindow& window) {
    EXPECT_EQ(FormInstance<frmPendientes>::Get().cboTEnsenanza.ListIndex(), -1) << "a fresh form";
    pickClass(window);
  });
  CloseNext("frmAlumnoPendiente");
  Play(123);
}

// Qt lets nobody reach the menus meanwhile, but their keys.
TEST_F(OpenMainWindowTest, TheMenusKeysThatMakeSenseWorkWhileAScreenIsOpen) {
  std::vector<QUrl> opened;
  window_->Browse = [&opened](const QUrl& page) { opened.push_back(page); };
  robot_.OnDialog("bloqueos", [this, &opened](QWidget& dialog) {
    EXPECT_EQ(dialog.parentWidget(), screen_.ActiveWindow()) << "over the window that it is for";
    QTest::keyClick(&dialog, Qt::Key_F1);
    EXPECT_EQ(opened.size(), 2U);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  robot_.On("frmPendientes", [&](qt::FormWindow& form) {
    QTest::keyClick(form.Widget("cboTEnsenanza"), Qt::Key_F1);
    ASSERT_EQ(opened.size(), 1U);
    EXPECT_EQ(opened[0].fragment(), "frmPendientes");
    EXPECT_TRUE(QFileInfo::exists(opened[0].toLocalFile()));
    QTest::keyClick(&form, Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(&form, Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(window_->ShowStatements().isVisible());
    Robot::Click(form, "cmdCancelar");
  });
  Play(123);
}

TEST_F(OpenMainWindowTest, TheStatementsAreReadWhileAScreenIsOpen) {
  auto& statements = window_->ShowStatements();
  robot_.On("frmPendientes", [&statements](qt::FormWindow& window) {
    statements.Filter().setFocus();
    // As the desktop brings them, to the window.
    for (const char letter : {'c', 'u', 'r', 's', 'o'})
      QTest::keyClick(statements.windowHandle(), letter);
    EXPECT_EQ(statements.Filter().text(), "curso");
    Robot::Pick(window, "cboTEnsenanza", "E");
    EXPECT_TRUE(statements.Text().contains("FROM Curso")) << statements.Text().toStdString();
    window.close();
  });
  Play(123);
}

// What is no runtime error, as a lack of memory, doesn't end the host either.
TEST_F(OpenMainWindowTest, AnUnexpectedFailureIsTold) {
  robot_.On("frmPendientes", [](qt::FormWindow& /*window*/) { throw std::bad_alloc(); });
  EXPECT_THAT(NoticeOf(123), StartsWith("Error inesperado: "));
  CloseNext("frmPendientes");
  Play(123);
}

// A user's number that the session's 16 bits can't hold fails before any form comes up.
TEST_F(MainWindowTest, AFailingSessionIsToldToo) {
  school_.Sql("INSERT INTO Usuario (IDUsuario, Nombre, CodPerfil) VALUES (70000, 'Zoe', 0)");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 70000));
  EXPECT_THAT(NoticeOf(123), StartsWith("Error 6: "));
}

using ManualPageTest = HostTest;
using zendria::FindManual;

TEST_F(ManualPageTest, IsFoundWhereItIsLaidDownAndWhereItIsBuilt) {
  const QDir place(folder_.path());
  ASSERT_TRUE(place.mkpath("bin"));
  const auto programs = place.filePath("bin");
  EXPECT_EQ(FindManual(programs), "");

  ASSERT_TRUE(place.mkpath("docs"));
  const auto built = MakeFile("docs/manual.html", "<p>construido</p>");
  EXPECT_EQ(FindManual(programs), QFileInfo(built).canonicalFilePath());

  ASSERT_TRUE(place.mkpath("share/doc/quorvane/docs"));
  const auto laidDown = MakeFile("share/doc/quorvane/docs/manual.html", "<p>instalado</p>");
  EXPECT_EQ(FindManual(programs), QFileInfo(laidDown).canonicalFilePath());
}

TEST_F(ManualPageTest, IsOpenedFromTheMenu) {
  QUrl opened;
  window_->Browse = [&opened](const QUrl& page) { opened = page; };
  auto* const action = window_->findChild<QAction*>("manual");
  ASSERT_NE(action, nullptr);
  const auto page = FindManual(QCoreApplication::applicationDirPath());
  // Who has built the program has its manual too.
  ASSERT_NE(page, "");
  EXPECT_TRUE(QFileInfo::exists(QFileInfo(page).dir().filePath("pantallas/inicio.png")));
  EXPECT_TRUE(action->isEnabled());
  action->trigger();
  EXPECT_EQ(opened, QUrl::fromLocalFile(page));
}

}  // namespace
}  // namespace quorvane::test

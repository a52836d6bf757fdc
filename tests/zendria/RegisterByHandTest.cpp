#include <QLabel>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/PersonSearchDialog.h"
#include "platform/controls/Label.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using RegisterByHandTest = HostTest;
using Window = qt::FormWindow;

void PickClass(Window& window) {
  Robot::Pick(window, "cboTEnsenanza", "ESO");
  Robot::Pick(window, "cboCurso", "2");
  Robot::Pick(window, "cboSeccion", "A");
  Robot::Press(window, "cboSeccion", Qt::Key_Return);  // the default button
}

// A student, a subject of his and two evaluations, by keyboard and mouse, up to the saved rows.
TEST_F(RegisterByHandTest, AStudentWithASubjectIsSaved) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  robot_.On("frmPendientes", PickClass);
  robot_.On("frmAlumnoPendiente", [](Window& window) {
    Robot::Click(window, "cmdListar");
    Robot::ClickRow(window, "msgAlumnos", 0);
    Robot::Click(window, "cmdPropiedades");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmAlumnos", [](Window& window) {
    Robot::DoubleClickRow(window, "lstDisponibles", 0);
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmAlumnoMateria", [](Window& window) {
    Robot::Click(window, "cmdAgregar");
    Robot::ClickRow(window, "msgMaterias", 0);
    Robot::Click(window, "cmdPropiedades");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmMateriaPend", [](Window& window) {
    Robot::Pick(window, "cboCurso", "1");
    Robot::Pick(window, "cboSeccion", "A");
    Robot::Pick(window, "cboMateria", "Leng");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmMateriaEv", [](Window& window) {
    Robot::ClickRow(window, "lstDisponibles", 0);
    Robot::Press(window, "lstDisponibles", Qt::Key_Return);
    Robot::ClickRow(window, "lstDisponibles", 0);
    Robot::Click(window, "cmdAgregarUno");
    Robot::Click(window, "cmdAceptar");
  });
  window_->OpenNode(123);

  EXPECT_TRUE(robot_.Done());
  EXPECT_TRUE(robot_.messages.empty());
  EXPECT_TRUE(robot_.unexpected.empty());
  const auto student = school_.Rows("SELECT CodSeccion FROM Seccion_AlumnoPte");
  EXPECT_EQ(student, std::vector<std::string>{"321"});
  EXPECT_EQ(school_.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet"),
            std::vector<std::string>{"3111|1"});
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM EvaluacionPte") +
                school_.Numero("SELECT COUNT(*) FROM EvaluacionActaPte"),
            2);
}

TEST_F(RegisterByHandTest, MandatoryFieldsAreMarkedOnTheScreenAlone) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  robot_.On("frmPendientes", [](Window& window) {
    for (const auto* const name : {"Label1", "Label2", "Label3"}) {
      EXPECT_TRUE(dynamic_cast<QLabel&>(*window.Widget(name)).text().contains("*")) << name;
      EXPECT_EQ(dynamic_cast<Label&>(*window.Model().Find(name)).Caption().find('*'),
                std::string::npos);
    }
    window.close();
  });
  window_->OpenNode(123);
  EXPECT_TRUE(robot_.Done());
}

// The teacher comes from the person search: accents ignored, Enter chooses.
TEST_F(RegisterByHandTest, ATeacherIsSearchedAndSaved) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  robot_.On("frmPendientes", PickClass);
  robot_.On("frmAlumnoPendiente", [](Window& window) {
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    Robot::ClickRow(window, "msgMaterias", 0);
    Robot::Click(window, "cmdPropMat");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmPropMatProf", [](Window& window) {
    Robot::Click(window, "cmdNProfesor");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.OnDialog("buscarPersona", [](QWidget& dialog) {
    auto& search = dynamic_cast<zendria::PersonSearchDialog&>(dialog);
    EXPECT_EQ(search.windowTitle(), "Buscar: Docente");
    EXPECT_EQ(search.People().List().count(), 3);
    QTest::keyClicks(&search.People().Field(), "VEGA");
    QTest::keyClick(&search.People().Field(), Qt::Key_Return);
  });
  window_->OpenNode(123);
  EXPECT_TRUE(robot_.Done());
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM Profesor_Pte WHERE CodProfesor=3"), 1);
}

TEST_F(RegisterByHandTest, EscapeInTheSearchKeepsTheTeacher) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  robot_.On("frmPendientes", PickClass);
  robot_.On("frmAlumnoPendiente", [](Window& window) {
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    Robot::ClickRow(window, "msgMaterias", 0);
    Robot::Click(window, "cmdPropMat");
    window.close();
  });
  robot_.On("frmPropMatProf", [](Window& window) {
    Robot::Click(window, "cmdNProfesor");
    Robot::Press(window, "cmdAceptar", Qt::Key_Escape);
  });
  robot_.OnDialog("buscarPersona",
                  [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  window_->OpenNode(123);
  EXPECT_TRUE(robot_.Done());
  EXPECT_TRUE(robot_.messages.empty());
  EXPECT_TRUE(school_.Modulo().empty());
}

}  // namespace
}  // namespace quorvane::test

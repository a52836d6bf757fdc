#include <QLabel>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

#include "apps/zendria/PersonSearchDialog.h"
#include "platform/controls/Label.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using Window = qt::FormWindow;

class RegisterByHandTest : public HostTest {
 protected:
  RegisterByHandTest() { EXPECT_TRUE(window_->OpenSchool(SchoolFile(), 1)); }

  // Enter is the default button.
  const std::vector<Robot::Deed> pickClass_{{"cboTEnsenanza", "ESO"},
                                            {"cboCurso", "2"},
                                            {"cboSeccion", "A"},
                                            {"cboSeccion", Qt::Key_Return}};
};

// A student, a subject of his and two evaluations, by keyboard and mouse, up to the saved rows.
TEST_F(RegisterByHandTest, AStudentWithASubjectIsSaved) {
  robot_.On("frmPendientes", pickClass_);
  robot_.On("frmAlumnoPendiente", {"cmdListar", {"msgAlumnos", 0}, "cmdPropiedades", "cmdAceptar"});
  robot_.On("frmAlumnos", [](Window& window) {
    Robot::DoubleClickRow(window, "lstDisponibles", 0);
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmAlumnoMateria", {"cmdAgregar", {"msgMaterias", 0}, "cmdPropiedades", "cmdAceptar"});
  robot_.On("frmMateriaPend",
            {{"cboCurso", "1"}, {"cboSeccion", "A"}, {"cboMateria", "Leng"}, "cmdAceptar"});
  robot_.On("frmMateriaEv", {{"lstDisponibles", 0},
                             {"lstDisponibles", Qt::Key_Return},
                             {"lstDisponibles", 0},
                             "cmdAgregarUno",
                             "cmdAceptar"});
  Play(123);
  EXPECT_TRUE(robot_.messages.empty());
  EXPECT_THAT(school_.Rows("SELECT CodSeccion FROM Seccion_AlumnoPte"), ElementsAre("321"));
  EXPECT_THAT(school_.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet"), ElementsAre("3111|1"));
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM EvaluacionPte") +
                school_.Numero("SELECT COUNT(*) FROM EvaluacionActaPte"),
            2);
}

TEST_F(RegisterByHandTest, MandatoryFieldsAreMarkedOnTheScreenAlone) {
  robot_.On("frmPendientes", [](Window& window) {
    for (const auto* const name : {"Label1", "Label2", "Label3"}) {
      EXPECT_TRUE(dynamic_cast<QLabel&>(*window.Widget(name)).text().contains("*")) << name;
      EXPECT_EQ(dynamic_cast<Label&>(*window.Model().Find(name)).Caption().find('*'),
                std::string::npos);
    }
    window.close();
  });
  Play(123);
}

// The teacher comes from the person search: accents ignored, Enter chooses.
TEST_F(RegisterByHandTest, ATeacherIsSearchedAndSaved) {
  robot_.On("frmPendientes", pickClass_);
  robot_.On("frmAlumnoPendiente", [](Window& window) {
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    Robot::ClickRow(window, "msgMaterias", 0);
    Robot::Click(window, "cmdPropMat");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmPropMatProf", {"cmdNProfesor", "cmdNProfesor", "cmdAceptar"});
  robot_.OnDialog<zendria::PersonSearchDialog>("buscarPersona", [this](auto& search) {
    EXPECT_EQ(search.parentWidget(), screen_.ActiveWindow());
    EXPECT_EQ(search.windowTitle(), "Buscar: Docente");
    EXPECT_EQ(search.People().List().count(), 3);
    QTest::keyClicks(&search.People().Field(), "VEGA");
    QTest::keyClick(&search.People().Field(), Qt::Key_Return);
  });
  // The next search begins with who stands.
  robot_.OnDialog<zendria::PersonSearchDialog>("buscarPersona", [](auto& search) {
    EXPECT_EQ(search.People().List().currentItem()->text(), "Vega Paz, Eva");
    EXPECT_NE(search.People().List().currentRow(), 0);
    QTest::keyClick(&search.People().Field(), Qt::Key_Return);
  });
  Play(123);
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM Profesor_Pte WHERE CodProfesor=3"), 1);
}

TEST_F(RegisterByHandTest, EscapeInTheSearchKeepsTheTeacher) {
  robot_.On("frmPendientes", pickClass_);
  robot_.On("frmAlumnoPendiente", [](Window& window) {
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    Robot::ClickRow(window, "msgMaterias", 0);
    Robot::Click(window, "cmdPropMat");
    window.close();
  });
  robot_.On("frmPropMatProf", {"cmdNProfesor", {"cmdAceptar", Qt::Key_Escape}});
  GiveUp("buscarPersona");
  Play(123);
  EXPECT_TRUE(robot_.messages.empty());
  EXPECT_TRUE(school_.Modulo().empty());
}

using GradesByHandTest = HostTest;

// The tutor of 2º ESO A, from her name to the saved row, by keyboard and mouse.
TEST_F(GradesByHandTest, ATutorSignsInGradesASubjectAndSaves) {
  school_.Registra(321, 1);
  const auto pending = school_.Pendiente(1, 3111, 1);
  school_.Evalua(pending, 1);
  SignIn("ruiz");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile()));

  robot_.On("frmNotaManual1", {{"cboCursos", "2"},
                               {"cboSecciones", "A"},
                               {"cboEvaluaciones", "1"},
                               {"cboEvaluaciones", Qt::Key_Return}});
  robot_.On("frmNotaManual", [this](Window& window) {
    EXPECT_EQ(Robot::CellText(window, 0, 0), "Lengua (1º ESO)");
    EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM BloqueoPte WHERE CodMatDet=3111"), 1);
    Robot::Grade(window, 0, 1, "7");
    EXPECT_EQ(Robot::CellText(window, 0, 1), "7");
    Robot::Click(window, "cmdAceptar");
  });
  robot_.On("frmNotaManual1", {"cmdNotaManual1(1)"});
  Play(124);
  EXPECT_TRUE(robot_.messages.empty());
  EXPECT_THAT(school_.Rows("SELECT Evaluado, CodNota, UltimaEvaluada FROM EvaluacionPte"),
              ElementsAre("-1|107|-1"));
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM PublicacionPte"), 0);
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM BloqueoPte"), 0);
}

}  // namespace
}  // namespace quorvane::test

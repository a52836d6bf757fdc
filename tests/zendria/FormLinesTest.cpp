// What the desktop tells over the forms: where the user is, and why something is missing.

#include <QLabel>
#include <QScrollArea>
#include <gtest/gtest.h>

#include "adapters/qt/views/Units.h"
#include "apps/zendria/LocksDialog.h"
#include "apps/zendria/StatementWindow.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

class FormLinesTest : public RescueTest {
 protected:
  static std::string LineOf(const Window& window, const char* name) {
    const auto* const label = window.findChild<QLabel*>(name);
    if (label == nullptr) return "no line";
    return label->isVisible() ? label->text().toStdString() : "";
  }
  static std::string Place(const Window& window) { return LineOf(window, "dondeEstoy"); }
  static std::string Remark(const Window& window) { return LineOf(window, "porQue"); }
};

TEST_F(FormLinesTest, OverTheGradesSectionEvaluationAndWhatIsWalked) {
  // Two subjects of one name and course, of different sections.
  school_.Evalua(school_.Pendiente(3, 3121, 3), 1);
  Visit(kByStudent, [](Window& window) {
    EXPECT_EQ(Place(window),
              "2º ESO A · 1ª Evaluación · Alumno 1 de 3: Abad Rey, Jorge · Lengua (1º ESO A)");
    Robot::ClickRow(window, "rtvNotasAlumno", 1);
    EXPECT_EQ(Place(window),
              "2º ESO A · 1ª Evaluación · Alumno 1 de 3: Abad Rey, Jorge · Lengua (1º ESO B)");
    Robot::Click(window, "cmdSiguiente");
    EXPECT_THAT(Place(window), HasSubstr("Alumno 2 de 3: Díaz Cano, Marta"));
    EXPECT_EQ(Remark(window), "");
  });
  Visit(kBySubject, [](Window& window) {
    EXPECT_EQ(Place(window), "2º ESO A · 1ª Evaluación · Materia 1 de 3: Lengua (1º ESO A)");
    Robot::Click(window, "cmdSiguiente");
    EXPECT_EQ(Place(window), "2º ESO A · 1ª Evaluación · Materia 2 de 3: Lengua (1º ESO B)");
  });
}

TEST_F(FormLinesTest, TheWindowIsHigherByTheLinesAndTheFormKeepsItsMeasures) {
  QSize plain;
  for (const auto locked : {false, true}) {
    if (locked) school_.Bloquea(1, 1, 3112, 2, 77);
    Visit(kByStudent, [&plain, locked](Window& window) {
      const auto& form = window.Model();
      const QSize measures(form.Width(), form.Height());
      if (!locked) plain = measures;
      EXPECT_EQ(measures, plain);
      const auto& strip = *window.findChild<QFrame*>("cabecera");
      const auto& page = *window.findChild<QScrollArea*>();
      EXPECT_EQ(strip.y(), 0);
      EXPECT_EQ(page.y(), strip.height());
      EXPECT_EQ(page.height(), qt::Pixels(form.ScaleHeight()));
      EXPECT_EQ(window.height(), strip.height() + page.height());
      for (const auto* const line : strip.findChildren<QLabel*>())
        EXPECT_TRUE(line->isHidden() || line->height() >= line->heightForWidth(line->width()));
      // What the user adds goes to the form.
      window.resize(window.width(), window.height() + 40);
      QCoreApplication::processEvents();
      EXPECT_EQ(page.height(), qt::Pixels(form.ScaleHeight()));
      EXPECT_EQ(qt::Pixels(form.Height() - plain.height()), 40);
      window.resize(window.width(), window.height() - 40);
      QCoreApplication::processEvents();
    });
  }
}

TEST_F(FormLinesTest, ASectionThatIsCalledByItsCourseTooIsToldOnce) {
  school_.Sql("UPDATE Seccion SET Descripcion='1º ESO A' WHERE IDSeccion=311");
  school_.Bloquea(1, 1, 3112, 2, 77);
  Visit(kByStudent, [](Window& window) {
    EXPECT_THAT(Place(window), EndsWith("· Lengua (1º ESO A)"));
    EXPECT_THAT(Remark(window), StartsWith("Matemáticas (1º ESO A): "));
  });
}

TEST_F(FormLinesTest, WhoHoldsWhatIsMissing) {
  school_.Bloquea(1, 1, 3112, 2, 77);
  school_.Bloquea(0, 2, 3111, 1, 78);
  StepOne(kByStudent);
  robot_.On("frmNotaManual", [](Window& window) {
    EXPECT_EQ(Remark(window), "Matemáticas (1º ESO A): la está calificando Ana Ruiz Soto.");
    Robot::Click(window, "cmdCancelar");
  });
  robot_.On("frmNotaManual1", [](Window& window) {
    EXPECT_EQ(Remark(window), "Matemáticas (1º ESO A): la está calificando Ana Ruiz Soto.");
    Robot::Pick(window, "cboEvaluaciones", "2");
    EXPECT_THAT(Remark(window), HasSubstr("Lengua (1º ESO A): la tiene abierta usted mismo"));
    Robot::Press(window, "cboEvaluaciones", Qt::Key_End);  // the final one
    EXPECT_EQ(Remark(window), "");
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  Play(124);
}

TEST_F(FormLinesTest, WhoTookAllOfItWhileStepOneWasOpenIsToldWhenItComesBack) {
  robot_.On("frmNotaManual1", [this](Window& window) {
    PickSection(window);
    EXPECT_EQ(Remark(window), "");
    for (const auto subject : {3111, 3112}) school_.Bloquea(1, 1, subject, 2, 77);
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On("frmNotaManual1", [this](Window& window) {
    EXPECT_THAT(Remark(window),
                StartsWith("Lengua (1º ESO A): la está calificando Ana Ruiz Soto."));
    school_.Sql("UPDATE BloqueoPte SET CodUsuario=1");
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On("frmNotaManual1", [](Window& window) {
    EXPECT_THAT(Remark(window), StartsWith("Lengua (1º ESO A): la tiene abierta usted mismo"));
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  Play(124);
  EXPECT_EQ(robot_.messages.size(), 2);
}

TEST_F(FormLinesTest, TheOtherSubjectsThatAreHeldAreToldWhenOneIsChosen) {
  school_.Bloquea(1, 1, 3112, 2, 77);
  robot_.On("frmNotaSeccionAlumno1", [](Window& window) {
    const auto* const held = "Matemáticas (1º ESO A): la está calificando Ana Ruiz Soto.";
    PickSection(window);
    EXPECT_EQ(Remark(window), held);
    Robot::Pick(window, "cboMateria", "Lengua");
    EXPECT_EQ(Remark(window), held);
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  Play(127);
}

TEST_F(FormLinesTest, WhatIsRemovedByHandIsNotToldAnyMoreAndTheFormsOwnStays) {
  // What a form that died has left. The open form's own is the next number.
  school_.Sql("INSERT INTO PublicacionPte VALUES (77,1,2,4,1)");
  school_.Bloquea(1, 1, 3112, 2, 77);
  std::string refusal;
  Use(kByStudent, [this, &refusal](Window& window) {
    EXPECT_NE(Remark(window), "");
    robot_.OnDialog<zendria::LocksDialog>("bloqueos", [this, &refusal](auto& dialog) {
      auto& list = dialog.List();
      ASSERT_EQ(list.topLevelItemCount(), 2);
      list.setCurrentItem(list.topLevelItem(1));
      ReadNotice(refusal);
      dialog.RemoveButton().click();
      EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM PublicacionPte"), 2);
      list.setCurrentItem(list.topLevelItem(0));
      Answer("pregunta", "&Quitar");
      dialog.RemoveButton().click();
      EXPECT_EQ(school_.Rows("SELECT IDPublicacionPte FROM PublicacionPte"), Lines{"78"});
      dialog.accept();
    });
    QTest::keyClick(&window, Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(Remark(window), "");
    Doing({{0, 1, "7"}, "cmdAceptar"})(window);
  });
  EXPECT_THAT(refusal, StartsWith("La publicación 78 es la de la pantalla de notas que tiene"));
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM PublicacionPte"), 0);
}

TEST_F(FormLinesTest, WhyAListIsEmpty) {
  // Kept from him by a lock, and for good.
  school_.Sql("DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=3112");
  school_.Bloquea(1, 1, 3111, 2, 77);
  robot_.On("frmNotaSeccionAlumno1", [](Window& window) {
    EXPECT_EQ(Remark(window), "");
    PickSection(window);
    EXPECT_EQ(Remark(window),
              "En esta sección y evaluación no queda ninguna materia libre que calificar.\n"
              "Lengua (1º ESO A): la está calificando Ana Ruiz Soto.");
    Robot::Press(window, "cboCursos", Qt::Key_Home);
    Robot::Press(window, "cboSecciones", Qt::Key_Home);
    EXPECT_THAT(Remark(window), HasSubstr("En esta sección nadie tiene materias pendientes"));
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  Play(127);
}

TEST_F(FormLinesTest, WhyThisUserHasNothingToChoose) {
  school_.Sql("UPDATE Seccion SET CodTutor=0");
  const auto opened = [this](int user) {
    EXPECT_TRUE(window_->OpenSchool(SchoolFile(), user));
    std::string remark;
    robot_.On("frmNotaManual1", [&remark](Window& window) {
      remark = Remark(window);
      Robot::Click(window, "cmdNotaManual1(1)");
    });
    Play(124);
    return remark;
  };
  EXPECT_THAT(opened(3), HasSubstr("«Luis Gil» no es tutor de ninguna sección ni profesor"));
  school_.Sql("UPDATE Personal SET CodUsuario=0 WHERE CodUsuario=3");
  EXPECT_THAT(opened(3), HasSubstr("el usuario «Luis Gil» no está entre el personal"));
  EXPECT_EQ(opened(1), "");
}

TEST_F(FormLinesTest, ADraftThatCanNotBeWrittenIsTold) {
  QFile(folder_.filePath("borradores")).open(QIODevice::WriteOnly);
  Use(kByStudent, [](Window& window) {
    EXPECT_EQ(Remark(window), "");
    Robot::Grade(window, 0, 1, "7");
    EXPECT_THAT(Remark(window), HasSubstr("No se puede guardar el borrador"));
    Robot::Click(window, "cmdAceptar");
  });
  EXPECT_EQ(school_.Numero("SELECT COUNT(*) FROM EvaluacionPte WHERE CodNota=107"), 1);
}

TEST_F(FormLinesTest, NothingOfItReachesTheModulesStatements) {
  school_.Bloquea(1, 1, 3112, 2, 77);
  auto& statements = window_->ShowStatements();
  Visit(kByStudent, [&statements](Window& window) {
    EXPECT_NE(Remark(window), "");
    EXPECT_TRUE(statements.Text().contains("BloqueoPte")) << "the module has its own";
    EXPECT_FALSE(statements.Text().contains("SELECT * FROM BloqueoPte"));
    EXPECT_FALSE(statements.Text().contains("Seccion.Descripcion AS Seccion"));
  });
}

}  // namespace
}  // namespace quorvane::test

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/BusySign.h"
#include "platform/RuntimeError.h"
#include "tests/qt/Hands.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

constexpr std::uint8_t kByStudent = 124;

/// The grades of section 5 (3º ESO A) of the sample school, entered as its head does.
class GradeScreensTest : public SchoolScreenTest {
 protected:
  /// Step one, those gestures in step two, and out of step one to which the form comes back.
  template <class... Gestures>
  void InStepTwo(Gestures... gestures) {
    Then(ChooseGradesOfTheSecond);
    Then(gestures...);
    Then("cmdNotaManual1(1)");
    OpenNode(kByStudent);
  }
  [[nodiscard]] std::size_t Publications() const {
    return school.Rows("SELECT * FROM PublicacionPte").size();
  }

  const std::size_t before = Publications();  ///< a form that died has left some
};

TEST_F(GradeScreensTest, AGradeIsChosenFromItsListAndSaved) {
  Then(ChooseGradesOfTheSecond);
  const auto choose = [](auto& window) {
    EXPECT_EQ(window.windowTitle(), "Introducción de notas. Paso 2 de 2");
    ClickCell(window, "rtvNotasAlumno", 0, 1);
    QTest::keyClicks(ListFilter(window), "9");
    QTest::keyClick(ListFilter(window), Qt::Key_Return);
    EXPECT_EQ(CellText(window, "rtvNotasAlumno", 0, 1), "9");
  };
  Then(choose, "cmdAceptar");
  const auto isStepOne = [](auto& window) {
    EXPECT_EQ(Of<QComboBox>(window, "cboCursos")->currentText(), "3º ESO");
  };
  Then(isStepOne, "cmdNotaManual1(1)");
  OpenNode(kByStudent);
  EXPECT_THAT(messages, IsEmpty());
  EXPECT_THAT(school.Rows("SELECT N.DescripcionCorta FROM EvaluacionPte E INNER JOIN Nota N ON "
                          "N.IDNota=E.CodNota WHERE E.UltimaEvaluada<>0 AND "
                          "N.DescripcionCorta='9' AND E.CodNumEvaluacion=2"),
              Not(IsEmpty()));
  EXPECT_EQ(Publications(), before);
}

TEST_F(GradeScreensTest, TheArrowKeysGoFromStudentToStudentWhereverTheKeyboardIs) {
  const auto isOn = [](int student) {
    return [student](auto& window) {
      const auto* students = Of<QComboBox>(window, "cboAlumnos");
      ASSERT_GT(students->count(), 1);
      EXPECT_EQ(students->currentIndex(), student);
    };
  };
  InStepTwo(isOn(0), Key("rtvNotasAlumno", Qt::Key_Down), isOn(1), Key("cmdAceptar", Qt::Key_Up),
            isOn(0), "cmdSiguiente", isOn(1), "cmdCancelar");
}

TEST_F(GradeScreensTest, AWindowMadeTooSmallGoesBackToItsLeastMeasures) {
  const auto resize = [](auto& window) {
    window.resize(400, 300);
    EXPECT_EQ(window.size(),
              QSize(qt::Pixels(9300 - Form::kBorderWidth), qt::Pixels(6465 - Form::kBorderHeight)));
    window.resize(1000, 700);
    EXPECT_EQ(window.size(), QSize(1000, 700));
    EXPECT_LT(1000 - Of(window, "cmdCancelar")->geometry().right(), 30);
  };
  InStepTwo(resize, "cmdCancelar");
}

TEST_F(GradeScreensTest, TheBusyBoxStandsAloneWhileTheGradesAreSaved) {
  auto seen = 0;
  const auto lookWhileSaving = [this, &seen](auto& window) {
    Saving([&window, &seen] {
      ++seen;
      EXPECT_TRUE(Of<qt::BusySign>(window, "aniCarga")->isVisible());
      EXPECT_FALSE(Of(window, "rtvNotasAlumno")->isVisible());
      EXPECT_FALSE(Of(window, "cmdAceptar")->isVisible());
      Click(window, "cmdCancelar");  // out of reach
    });
  };
  InStepTwo(lookWhileSaving, "cmdAceptar");
  EXPECT_GT(seen, 0);
}

TEST_F(GradeScreensTest, TheXGivesTheLocksBackAndStepOneComesBackAsItWas) {
  Then(ChooseGradesOfTheSecond);
  Then([this](auto&) { EXPECT_EQ(Publications(), before + 1); },
       [](auto& window) { window.close(); });
  Then([this](auto& window) {
    EXPECT_EQ(window.Model().Name(), "frmNotaManual1");
    EXPECT_EQ(Publications(), before);
    EXPECT_GE(Of<QComboBox>(window, "cboSecciones")->currentIndex(), 0);
    window.close();
  });
  OpenNode(kByStudent);
  ExpectDone();
}

TEST_F(GradeScreensTest, AFailureWhileLoadingLeavesNoWindow) {
  school.Sql("DROP TABLE TipoNota");
  Then(ChooseGradesOfTheSecond);
  EXPECT_THROW(OpenNode(kByStudent), RuntimeError);
  ExpectDone();
}

}  // namespace
}  // namespace quorvane::test

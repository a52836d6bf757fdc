#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTableView>

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/BusySign.h"
#include "platform/RuntimeError.h"
#include "tests/qt/SchoolScreenTest.h"

namespace quorvane::test {
namespace {

constexpr const char* kGrades = "rtvNotasAlumno";

/// The grades of section 5 (3º ESO A) of the sample school, entered as its head does.
class GradeScreensTest : public SchoolScreenTest {
 protected:
  template <class... Gestures>
  void Enter(Gestures... gestures) {
    InStepTwo(kByStudent, kSecond, gestures...);
  }
  [[nodiscard]] std::size_t Publications() const {
    return school.Rows("SELECT * FROM PublicacionPte").size();
  }

  const std::size_t before = Publications();  ///< a form that died has left some
};

TEST_F(GradeScreensTest, AGradeIsChosenFromItsListAndSaved) {
  const auto choose = [](auto& window) {
    EXPECT_EQ(window.windowTitle(), "Introducción de notas. Paso 2 de 2");
    ClickCell(kGrades, 0, 1)(window);
    QTest::keyClicks(ListFilter(window), "9");
    QTest::keyClick(ListFilter(window), Qt::Key_Return);
    EXPECT_EQ(CellText(window, kGrades, 0, 1), "9");
  };
  const auto isStepOne = [](auto& window) {
    EXPECT_EQ(Of<QComboBox>(window, "cboCursos")->currentText(), "3º ESO");
  };
  Then(ChooseGrades(kSecond));
  Then(choose, "cmdAceptar");
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
  Enter(isOn(0), Key(kGrades, Qt::Key_Down), isOn(1), Key("cmdAceptar", Qt::Key_Up), isOn(0),
        "cmdSiguiente", isOn(1), "cmdCancelar");
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
  Enter(resize, "cmdCancelar");
}

TEST_F(GradeScreensTest, TheBusyBoxStandsAloneWhileTheGradesAreSaved) {
  auto seen = 0;
  const auto lookWhileSaving = [this, &seen](auto& window) {
    Saving([&window, &seen] {
      ++seen;
      EXPECT_TRUE(Of<qt::BusySign>(window, "aniCarga")->isVisible());
      EXPECT_FALSE(Of(window, kGrades)->isVisible());
      EXPECT_FALSE(Of(window, "cmdAceptar")->isVisible());
      Click("cmdCancelar")(window);  // out of reach
    });
  };
  Enter(lookWhileSaving, "cmdAceptar");
  EXPECT_GT(seen, 0);
}

TEST_F(GradeScreensTest, TheXGivesTheLocksBackAndStepOneComesBackAsItWas) {
  Then(ChooseGrades(kSecond));
  Then([this](auto&) { EXPECT_EQ(Publications(), before + 1); }, Close);
  Then([this](auto& window) {
    EXPECT_EQ(window.Model().Name(), "frmNotaManual1");
    EXPECT_EQ(Publications(), before);
    EXPECT_GE(Of<QComboBox>(window, "cboSecciones")->currentIndex(), 0);
    window.close();
  });
  OpenNode(kByStudent);
}

TEST_F(GradeScreensTest, AFailureWhileLoadingLeavesNoWindow) {
  school.Sql("DROP TABLE TipoNota");
  Then(ChooseGrades(kSecond));
  EXPECT_THROW(OpenNode(kByStudent), RuntimeError);
  ExpectDone();
}

/// A column of grades as it comes from a spreadsheet.
class PasteGradesTest : public SchoolScreenTest {
 protected:
  /// So many more students of 3º ESO A, who all have that subject pending.
  void FillTheClass(int students) const {
    const auto many = "WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM N WHERE n<" +
                      std::to_string(students) + ") SELECT ";
    school.Sql(
        "DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=20;"
        "INSERT INTO Alumno(IDAlumno,Nombre,Apellido_1,Apellido_2,CodSeccion,OrdenSeccion,"
        "Anticipado,FechaBaja) " +
        many + "5000+n,'Ana','Apellido '||printf('%03d',n),'',5,100+n,0,'' FROM N;" +
        "INSERT INTO Seccion_Alumno " + many + "5,5000+n FROM N;" +
        "INSERT INTO AlumnoPte_MatDet " + many + "5000+n,5000+n,20,1,0 FROM N;" +
        "INSERT INTO EvaluacionPte " + many + "5000+n,5000+n,2,0,0,0,0,0,0,0 FROM N;");
  }
};

TEST_F(PasteGradesTest, AHundredAndFiftyGradesArePastedAndSaved) {
  static constexpr int kStudents = 150;
  FillTheClass(kStudents);
  std::vector<std::string> grades;
  QString column;
  for (int i = 0; i < kStudents; ++i) {
    grades.push_back(std::to_string((i * 7 + 3) % 11));
    column += QString::fromStdString(grades.back()) + "\r\n";
  }
  QGuiApplication::clipboard()->setText(column);
  const auto paste = [&grades](qt::FormWindow& window) {
    const auto* table = Of<QTableView>(window, kGrades);
    for (int tries = 0; table->model()->rowCount() < kStudents && tries < 20; ++tries)
      Click("cmdSiguiente")(window);
    ASSERT_EQ(table->model()->rowCount(), kStudents);
    StandOn(kGrades, 0, 1)(window);
    QElapsedTimer clock;
    clock.start();
    Key(kGrades, Qt::Key_V, Qt::ControlModifier)(window);
    RecordProperty("milliseconds", std::to_string(clock.elapsed()));
    EXPECT_LT(clock.elapsed(), 10000);
    for (int row = 0; row < kStudents; ++row)
      ASSERT_EQ(CellText(window, kGrades, row, 1), grades[static_cast<std::size_t>(row)]);
    EXPECT_TRUE(window.isWindowModified());
  };
  InStepTwo(kBySubject, kSecond, paste, "cmdAceptar");
  EXPECT_THAT(messages, IsEmpty());
  EXPECT_EQ(school.Rows("SELECT N.DescripcionCorta FROM EvaluacionPte E INNER JOIN Nota N ON "
                        "N.IDNota=E.CodNota WHERE E.CodAlumnoPte_MatDet>5000 AND "
                        "E.CodNumEvaluacion=2 ORDER BY E.CodAlumnoPte_MatDet"),
            grades);
}

}  // namespace
}  // namespace quorvane::test

// A column of grades as it comes from a spreadsheet, on the module's own screens.

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTableView>

#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

constexpr int kGrades = 150;

class PasteGradesTest : public SchoolScreenTest {
 protected:
  /// As many more students of 3º ESO A as it takes, who all have that subject pending.
  void FillTheClass() const {
    const auto many = "WITH RECURSIVE N(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM N WHERE n<" +
                      std::to_string(kGrades) + ") ";
    school.Sql(
        "DELETE FROM AlumnoPte_MatDet WHERE CodMatDet=20;"
        "INSERT INTO Alumno(IDAlumno,Nombre,Apellido_1,Apellido_2,CodSeccion,OrdenSeccion,"
        "Anticipado,FechaBaja) " +
        many +
        "SELECT 5000+n,'Ana','Apellido '||printf('%03d',n),'',5,100+n,0,'' FROM N;"
        "INSERT INTO Seccion_Alumno " +
        many +
        "SELECT 5,5000+n FROM N;"
        "INSERT INTO AlumnoPte_MatDet " +
        many +
        "SELECT 5000+n,5000+n,20,1,0 FROM N;"
        "INSERT INTO EvaluacionPte " +
        many + "SELECT 5000+n,5000+n,2,0,0,0,0,0,0,0 FROM N;");
  }
  /// The grades of those students, in their order.
  [[nodiscard]] std::vector<std::string> Stored() const {
    return school.Rows(
        "SELECT N.DescripcionCorta FROM EvaluacionPte E INNER JOIN Nota N ON "
        "N.IDNota=E.CodNota WHERE E.CodAlumnoPte_MatDet>5000 AND "
        "E.CodNumEvaluacion=2 ORDER BY E.CodAlumnoPte_MatDet");
  }
  static std::vector<std::string> Grades() {
    std::vector<std::string> grades;
    for (int i = 0; i < kGrades; ++i) grades.push_back(std::to_string((i * 7 + 3) % 11));
    return grades;
  }
};

TEST_F(PasteGradesTest, AHundredAndFiftyGradesArePastedAndSaved) {
  FillTheClass();
  const auto grades = Grades();
  QString column;
  for (const auto& grade : grades) column += QString::fromStdString(grade) + "\r\n";
  QGuiApplication::clipboard()->setText(column);
  Then(ChooseGradesOfTheSecond);
  const auto paste = [&grades](qt::FormWindow& window) {
    auto* table = Of<QTableView>(window, "rtvNotasAlumno");
    for (int tries = 0; table->model()->rowCount() < kGrades && tries < 20; ++tries)
      Click(window, "cmdSiguiente");
    ASSERT_EQ(table->model()->rowCount(), kGrades);
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 1));
    QElapsedTimer clock;
    clock.start();
    QTest::keyClick(table, Qt::Key_V, Qt::ControlModifier);
    RecordProperty("milliseconds", std::to_string(clock.elapsed()));
    EXPECT_LT(clock.elapsed(), 10000);
    for (int row = 0; row < kGrades; ++row)
      ASSERT_EQ(CellText(window, "rtvNotasAlumno", row, 1), grades[static_cast<std::size_t>(row)]);
    EXPECT_TRUE(window.isWindowModified());
  };
  Then(paste, "cmdAceptar");
  Then("cmdNotaManual1(1)");
  OpenNode(125);
  EXPECT_THAT(messages, IsEmpty());
  EXPECT_EQ(Stored(), grades);
}

}  // namespace
}  // namespace quorvane::test

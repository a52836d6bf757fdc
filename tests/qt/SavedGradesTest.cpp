#include <QLineEdit>
#include <algorithm>
#include <optional>

#include "platform/controls/ComboBox.h"
#include "tests/qt/SchoolScreenTest.h"
#include "tests/support/Opened.h"
#include "tests/ventana/SavedGrades.h"

namespace quorvane::test {
namespace {

constexpr int kSecondFinal = 5;

/// A student of the sample school has a subject twice: the first final failed one of the two rows,
/// and passed the other, which has a grade of the second as well.
class SavedGradesTest : public SchoolScreenTest {
 protected:
  SavedGradesTest() {
    school.Sql("UPDATE AlumnoPte_MatDet SET CodMatDet=" + subject_ +
               " WHERE IDAlumnoPte_MatDet=" + passed_ +
               ";UPDATE EvaluacionActaPte SET Evaluado=-1, CodNota=(SELECT F.CodNota FROM "
               "EvaluacionActaPte F WHERE F.CodAlumnoPte_MatDet=" +
               passed_ + " AND F.CodNumEvaluacion=4)" + InSecondFinal(passed_));
  }

  /// Types that grade for the student and saves.
  void Save(const std::string& grade) {
    before_.emplace(connection_, true, kSecondFinal);
    const auto type = [this, grade](auto& window) {
      const auto entry = EntriesOf(window.Model()).SelectedData();
      const auto rows = ShownGrades(window, entry).rows;
      const auto own = std::find(rows.begin(), rows.end(), student_ + "/" + subject_);
      ASSERT_NE(own, rows.end());
      EXPECT_EQ(std::count(rows.begin(), rows.end(), *own), 1);
      ClickCell("rtvNotasAlumno", static_cast<int>(own - rows.begin()), 1)(window);
      QTest::keyClicks(ListFilter(window), QString::fromStdString(grade));
      QTest::keyClick(ListFilter(window), Qt::Key_Return);
      shown_ = ShownGrades(window, entry).texts;
    };
    InStepTwo(kBySubject, "Final Extraordinaria", type, "cmdAceptar");
  }
  void Check(bool whole = true) {
    SavedGrades(shown_, *before_, StoredGrades(connection_, true, kSecondFinal)).Check(whole);
  }

  [[nodiscard]] std::vector<std::string> TextOf(const std::string& pending) const {
    return school.Rows(
        "SELECT (SELECT DescripcionCorta FROM Nota WHERE IDNota=CodNota) FROM EvaluacionActaPte" +
        InSecondFinal(pending));
  }
  void Set(const std::string& pending, const std::string& grade) const {
    school.Sql("UPDATE EvaluacionActaPte SET CodNota=" + grade + InSecondFinal(pending));
  }

  static std::string InSecondFinal(const std::string& pending) {
    return " WHERE CodAlumnoPte_MatDet=" + pending + " AND CodNumEvaluacion=5";
  }
  [[nodiscard]] std::string Pending(const std::string& column, int place) const {
    return school
        .Rows("SELECT " + column + " FROM AlumnoPte_MatDet ORDER BY IDAlumnoPte_MatDet LIMIT 1 " +
              "OFFSET " + std::to_string(place))
        .front();
  }

  const std::string failed_ = Pending("IDAlumnoPte_MatDet", 0);
  const std::string passed_ = Pending("IDAlumnoPte_MatDet", 1);
  const std::string student_ = Pending("CodAlumno", 0);
  const std::string subject_ = Pending("CodMatDet", 0);

 private:
  Opened<sqlite::SqliteConnection> connection_{school.Path(), ""};
  ShownTexts shown_;
  std::optional<StoredGrades> before_;
};

TEST_F(SavedGradesTest, OfASubjectTwiceTheRowThatIsNotOfferedKeepsItsGrade) {
  Save("4");
  EXPECT_THAT(TextOf(failed_), ElementsAre("4"));
  EXPECT_THAT(TextOf(passed_), ElementsAre("7"));
  EXPECT_NO_THROW(Check());
  // What was typed has reached neither, or an error has come before.
  Set(failed_, "0");
  EXPECT_THROW(Check(), Violation);
  EXPECT_NO_THROW(Check(false));
  // It has reached both, or the other has become what nobody saw.
  const auto typed = "(SELECT CodNota FROM EvaluacionActaPte" + InSecondFinal(failed_) + ")";
  Save("4");
  Set(passed_, typed);
  EXPECT_THROW(Check(), Violation);
  EXPECT_THROW(Check(false), Violation);
  Set(passed_, "0");
  EXPECT_THROW(Check(), Violation);
  EXPECT_THROW(Check(false), Violation);
}

}  // namespace
}  // namespace quorvane::test

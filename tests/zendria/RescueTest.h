#pragma once

#include <QByteArray>
#include <QDir>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/zendria/FileBytes.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {

/// A section whose grades are typed and not saved. Students 3, 1 and 2 of section 321 owe "Lengua",
/// and 1 "Matemáticas" too: the pending rows 1 to 4, in the order in which the forms save them; 1
/// and 2 have a 5 in the first, the second and the final evaluation. The school is open for the
/// administrator.
class RescueTest : public HostTest {
 protected:
  using Window = qt::FormWindow;
  using Lines = std::vector<std::string>;
  using Step = Robot::Step;

  static constexpr const char* kJorge = "1 Abad Rey, Jorge";
  static constexpr const char* kMarta = "2 Díaz Cano, Marta";
  static constexpr const char* kInigo = "3 Ñúñez Sanz, Íñigo";
  static constexpr const char* kLengua = "Lengua (1º ESO)";
  static constexpr const char* kMates = "Matemáticas (1º ESO)";

  RescueTest() {
    for (const auto& [student, subject] :
         {std::pair{3, 3111}, std::pair{1, 3111}, std::pair{1, 3112}, std::pair{2, 3111}}) {
      if (subject == 3111) school_.Registra(321, student);
      const auto pending = school_.Pendiente(student, subject, subject - 3110);
      for (const int evaluation : {1, 2, 4})
        school_.Evalua(pending, evaluation, pending <= 2 ? 105 : 0);
    }
    // One name to a column, and observations in ordinary evaluations too.
    school_.Sql(
        "UPDATE TipoNota SET Nombre='Nota' WHERE Orden=1;"
        "UPDATE TipoNota SET Observacion=0 WHERE Orden=5");
    EXPECT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  }

  static Step Doing(const std::vector<Robot::Deed>& deeds) { return Robot::Doing(deeds); }

  /// The database refuses to write that pending row, as a disk does that is full.
  void FullAt(int pending, const std::string& table = "EvaluacionPte") const {
    school_.Sql("CREATE TRIGGER lleno BEFORE UPDATE ON " + table +
                " WHEN NEW.CodAlumnoPte_MatDet=" + std::to_string(pending) +
                " BEGIN SELECT RAISE(FAIL,'database or disk is full'); END");
  }
  /// Fixes section, evaluation and what else that step asks for, and goes on.
  void StepOne(const std::string& form, const char* evaluation, const char* more = nullptr,
               const char* entry = nullptr) {
    std::vector<Robot::Deed> deeds{{"cboTipoEnsenanza", "ESO"},
                                   {"cboCursos", "2"},
                                   {"cboSecciones", "A"},
                                   {"cboEvaluaciones", evaluation}};
    if (more != nullptr) deeds.emplace_back(more, entry);
    deeds.emplace_back("cmdNotaManual1(0)");
    robot_.On(form, deeds);
  }
  void LeaveStepOne(const std::string& form) { robot_.On(form, {"cmdNotaManual1(1)"}); }
  /// Grades in that form until it fails, and gives the message.
  QString FailIn(std::uint8_t node, const std::string& form, const Step& act) {
    robot_.On(form, act);
    auto text = NoticeOf(node);
    EXPECT_TRUE(robot_.Done());
    EXPECT_TRUE(robot_.unexpected.empty());
    return text;
  }
  /// By student, in the first evaluation.
  QString Fail(const Step& act) {
    StepOne("frmNotaManual1", "1");
    return FailIn(124, "frmNotaManual", act);
  }

  /// The next offer of a draft is answered by that button; its text goes to `text`.
  void AnswerDraft(const char* button, QString* text = nullptr) {
    robot_.OnDialog("borrador", [button, text](QWidget& dialog) {
      const auto& box = dynamic_cast<QMessageBox&>(dialog);
      if (text != nullptr) *text = (box.text() + u'\n' + box.informativeText()).trimmed();
      QTest::mouseClick(dialog.findChild<QWidget*>(button), Qt::LeftButton);
    });
  }

  /// Where the files are.
  [[nodiscard]] QString Folder() const { return folder_.filePath("notas-sin-guardar"); }
  /// All that lies there, hidden files too.
  [[nodiscard]] QStringList Files() const {
    return QDir(Folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }
  /// What the only file holds.
  [[nodiscard]] QByteArray Content() const {
    const auto files = Files();
    if (files.size() != 1) return "not one file, but " + QByteArray::number(files.size());
    return FileBytes(Folder() + '/' + files[0]);
  }
  /// The lines of the cells in a text.
  static Lines CellsOf(const QByteArray& content) {
    Lines cells;
    for (const auto& line : content.split('\n'))
      if (line.contains('\t')) cells.push_back(line.toStdString());
    return cells;
  }
  [[nodiscard]] Lines Cells() const { return CellsOf(Content()); }
  static std::string Line(const char* who, const char* what, const char* column, const char* text) {
    return std::string(who) + '\t' + what + '\t' + column + '\t' + text;
  }
};

}  // namespace quorvane::test

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/zendria/FileBytes.h"
#include "tests/zendria/HostTest.h"

namespace quorvane::test {

/// A form of grades, and the way to it.
struct Flow {
  std::uint8_t node;
  std::string form;
  const char* list = nullptr;  ///< what step one asks for besides
  const char* entry = nullptr;
  const char* evaluation = "1";

  /// The form of the final evaluation.
  [[nodiscard]] Flow Final() const { return {node, form + "Final", list, entry, "Final"}; }
  /// The same in another evaluation.
  [[nodiscard]] Flow In(const char* other) const { return {node, form, list, entry, other}; }
  [[nodiscard]] std::string StepOne() const { return form.substr(0, form.find("Final")) + '1'; }
};

inline const Flow kByStudent{124, "frmNotaManual"};
inline const Flow kBySubject{125, "frmNotaMateria"};
inline const Flow kOfStudent{126, "frmNotaSeccionMateria", "cboAlumno", "D"};
inline const Flow kOfSubject{127, "frmNotaSeccionAlumno", "cboMateria", "Lengua"};

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
  /// What fixes section and evaluation in step one.
  static std::vector<Robot::Deed> Section(const char* evaluation = "1") {
    return {{"cboTipoEnsenanza", "ESO"},
            {"cboCursos", "2"},
            {"cboSecciones", "A"},
            {"cboEvaluaciones", evaluation}};
  }
  static void PickSection(Window& window) { Doing(Section())(window); }
  /// What leads on from step one to that form.
  static std::vector<Robot::Deed> WayTo(const Flow& flow) {
    auto deeds = Section(flow.evaluation);
    if (flow.list != nullptr) deeds.emplace_back(flow.list, flow.entry);
    deeds.emplace_back("cmdNotaManual1(0)");
    return deeds;
  }
  void StepOne(const Flow& flow) { robot_.On(flow.StepOne(), WayTo(flow)); }
  void LeaveStepOne(const Flow& flow) { robot_.On(flow.StepOne(), {"cmdNotaManual1(1)"}); }
  /// Opens the form, acts on it until it goes, and leaves step one.
  void Use(const Flow& flow, const Step& act) {
    StepOne(flow);
    robot_.On(flow.form, act);
    LeaveStepOne(flow);
    Play(flow.node);
  }
  /// Opens it, acts on it, and cancels.
  void Visit(const Flow& flow, const Step& act) {
    Use(flow, [act](Window& window) {
      act(window);
      Robot::Click(window, "cmdCancelar");
    });
  }
  /// Acts on it until it fails, and gives the message.
  std::string Fail(const Flow& flow, const Step& act) {
    StepOne(flow);
    return FailIn(flow, act);
  }
  std::string Fail(const Step& act) { return Fail(kByStudent, act); }
  std::string FailIn(const Flow& flow, const Step& act) {
    robot_.On(flow.form, act);
    auto text = NoticeOf(flow.node);
    EXPECT_TRUE(robot_.Done());
    return text;
  }

  /// The next offer of a draft is answered by that button; its text goes to `text`.
  void AnswerDraft(const char* button, std::string* text = nullptr) {
    robot_.OnDialog<QMessageBox>("borrador", [button, text](auto& box) {
      if (text != nullptr)
        *text = (box.text() + u'\n' + box.informativeText()).trimmed().toStdString();
      QTest::mouseClick(box.template findChild<QWidget*>(button), Qt::LeftButton);
    });
  }

  /// Where the files are.
  [[nodiscard]] QString Folder() const { return folder_.filePath("notas-sin-guardar"); }
  [[nodiscard]] QStringList Files() const { return Entries(Folder()); }
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

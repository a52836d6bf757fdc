#include "tests/zendria/RescueTest.h"

#include <QDir>
#include <QFile>
#include <utility>

namespace quorvane::test {

RescueTest::RescueTest() {
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

void RescueTest::FullAt(int pending, const std::string& table) const {
  school_.Sql("CREATE TRIGGER lleno BEFORE UPDATE ON " + table +
              " WHEN NEW.CodAlumnoPte_MatDet=" + std::to_string(pending) +
              " BEGIN SELECT RAISE(FAIL,'database or disk is full'); END");
}

void RescueTest::StepOne(const std::string& form, const char* evaluation, const char* more,
                         const char* entry) {
  std::vector<Robot::Deed> deeds{{"cboTipoEnsenanza", "ESO"},
                                 {"cboCursos", "2"},
                                 {"cboSecciones", "A"},
                                 {"cboEvaluaciones", evaluation}};
  if (more != nullptr) deeds.emplace_back(more, entry);
  deeds.emplace_back("cmdNotaManual1(0)");
  robot_.On(form, deeds);
}

void RescueTest::LeaveStepOne(const std::string& form) { robot_.On(form, {"cmdNotaManual1(1)"}); }

QString RescueTest::FailIn(std::uint8_t node, const std::string& form, const Step& act) {
  robot_.On(form, act);
  auto text = NoticeOf(node);
  EXPECT_TRUE(robot_.Done());
  EXPECT_TRUE(robot_.unexpected.empty());
  return text;
}

QString RescueTest::Fail(const Step& act) {
  StepOne("frmNotaManual1", "1");
  return FailIn(124, "frmNotaManual", act);
}

QString RescueTest::Folder() const { return folder_.filePath("notas-sin-guardar"); }

QStringList RescueTest::Files() const {
  return QDir(Folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QByteArray RescueTest::Content() const {
  const auto files = Files();
  if (files.size() != 1) return "not one file, but " + QByteArray::number(files.size());
  QFile file(Folder() + '/' + files[0]);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

RescueTest::Lines RescueTest::CellsOf(const QByteArray& content) {
  Lines cells;
  for (const auto& line : content.split('\n'))
    if (line.contains('\t')) cells.push_back(line.toStdString());
  return cells;
}

std::string RescueTest::Line(const char* who, const char* what, const char* column,
                             const char* text) {
  return std::string(who) + '\t' + what + '\t' + column + '\t' + text;
}

}  // namespace quorvane::test

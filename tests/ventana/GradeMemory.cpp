#include "tests/ventana/GradeMemory.h"

#include <QComboBox>
#include <utility>

#include "adapters/qt/window/FormWindow.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

std::string Differences(const GradeTexts& one, const GradeTexts& other) {
  std::string text;
  for (const auto& [column, grade] : one)
    if (other.at(column) != grade)
      text += " columna " + std::to_string(column) + ": «" + grade + "», ahora «" +
              other.at(column) + "»";
  return text;
}

std::size_t Changes(const GradeTexts& before, const GradeTexts& now) {
  std::size_t count = 0;
  for (const auto& [column, grade] : before)
    if (now.at(column) != grade) ++count;
  return count;
}

}  // namespace

void GradeMemory::Open(Form& form) {
  form_ = form.shared_from_this();
  shown_.clear();
  expected_.reset();
  before_.reset();
  entry_ = 0;
  auto& entries = EntriesOf(form);
  entries.Click = [this, &entries, turn = entries.Click] {
    Turn();
    if (entries.ListIndex() >= 0) entry_ = entries.SelectedData();
    turn();
  };
}

bool GradeMemory::OnScreen() const {
  return form_ != nullptr && screen_.Ready() && &screen_.ActiveWindow()->Model() == form_.get();
}

void GradeMemory::Turn() {
  if (OnScreen()) Remember(ShownGrades(*screen_.ActiveWindow(), entry_));
}

void GradeMemory::Look(bool oneGesture) {
  if (!OnScreen()) return;
  const auto& window = *screen_.ActiveWindow();
  const auto& entries = EntriesOf(*form_);
  if (dynamic_cast<const QComboBox*>(window.Widget(entries.Name()))->currentIndex() !=
      entries.ListIndex())
    throw Violation("La pantalla muestra otra entrada de " + entries.Name());
  const ShownGrades shown(window, entry_);
  CheckExpected(shown);
  std::size_t changes = 0;
  std::string text;
  for (const auto& [name, texts] : shown.texts) {
    const auto known = shown_.find(name);
    if (known == shown_.end()) continue;
    changes += Changes(known->second, texts);
    if (known->second != texts) text += " " + name + Differences(known->second, texts);
  }
  if (oneGesture && changes > 1)
    throw Violation("Un solo gesto ha cambiado " + std::to_string(changes) + " notas:" + text);
  Remember(shown);
}

void GradeMemory::Remember(const ShownGrades& shown) {
  for (const auto& [name, texts] : shown.texts) shown_[name] = texts;
}

void GradeMemory::Expect(int row, int column, const std::string& text) {
  if (!OnScreen() || row < 0) return;
  const ShownGrades shown(*screen_.ActiveWindow(), entry_);
  const auto& name = shown.rows.at(static_cast<std::size_t>(row));
  if (shown.texts.at(name).contains(column)) expected_ = Expected{name, column, Plain(text)};
}

void GradeMemory::CheckExpected(const ShownGrades& shown) {
  if (!expected_) return;
  const auto expected = *std::exchange(expected_, std::nullopt);
  // Where another student or subject is on the screen by now, what this one showed last.
  const auto& texts = shown.texts.contains(expected.name) ? shown.texts : shown_;
  const auto row = texts.find(expected.name);
  ++leftTyped_;
  if (row->second.at(expected.column) != expected.text)
    throw Violation("Lo escrito se ha perdido: " + expected.name + " columna " +
                    std::to_string(expected.column) + " muestra «" +
                    row->second.at(expected.column) + "» y no «" + expected.text + "»");
}

void GradeMemory::Accept() {
  Look(false);
  evaluation_ = EvaluationOf(*form_);
  before_.emplace(school_.Unwatched(), EntersFinals(*form_), evaluation_);
}

bool GradeMemory::CheckRow(const std::string& key, const StoredGrades::Row& row, bool whole) const {
  auto shown = shown_.find(row.pending);
  if (shown == shown_.end()) shown = shown_.find(row.student);
  const auto before = before_->rows.find(key);
  if (shown == shown_.end()) {
    // Never on the screen. Some forms don't read the grades of other kinds, and store none.
    if (row.ordinary && before != before_->rows.end() && before->second.texts != row.texts)
      throw Violation("Al grabar ha cambiado lo que no se mostraba: " + row.student +
                      Differences(before->second.texts, row.texts));
    return false;
  }
  for (const auto& [column, text] : shown->second) {
    const auto& stored = row.texts.at(column);
    const auto untouched =
        !whole && before != before_->rows.end() && before->second.texts.at(column) == stored;
    if (stored != text && !untouched)
      throw Violation("Se mostraba «" + text + "» y se ha grabado «" + stored +
                      "»: " + row.student + " columna " + std::to_string(column));
  }
  return true;
}

void GradeMemory::Close(bool whole) {
  if (form_ == nullptr) return;
  if (before_) {
    const StoredGrades after(school_.Unwatched(), EntersFinals(*form_), evaluation_);
    std::size_t stored = 0;
    for (const auto& [key, row] : after.rows)
      if (CheckRow(key, row, whole)) ++stored;
    if (stored < shown_.size())
      throw Violation(std::to_string(shown_.size() - stored) +
                      " de las materias mostradas no están en la base de datos");
    ++saves_;
  }
  form_.reset();
  before_.reset();
}

}  // namespace quorvane::test

#pragma once

#include <QComboBox>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "adapters/qt/window/FormWindow.h"
#include "tests/ventana/SavedGrades.h"
#include "tests/ventana/ShownGrades.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/School.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {

/// Remembers what a grade form has shown, subject by subject, to hold it against what saving the
/// form leaves in the school.
class GradeMemory {
 public:
  /// Both outlive this.
  GradeMemory(School& school, const WatchedScreen& screen) : school_(school), screen_(screen) {}

  /// A grade form has been opened: all that was known of another is forgotten.
  void Open(Form& form) {
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
  [[nodiscard]] const Form* Watched() const noexcept { return form_.get(); }

  /// What the screen shows now. After no more than one gesture no more than one grade changes.
  void Look(bool oneGesture) {
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

  /// What the user has typed into a cell's list and marked there is to be that cell's grade, if he
  /// goes on with the mouse.
  void Expect(int row, int column, const std::string& text) {
    if (!OnScreen() || row < 0) return;
    const ShownGrades shown(*screen_.ActiveWindow(), entry_);
    const auto& name = shown.rows.at(static_cast<std::size_t>(row));
    if (shown.texts.at(name).contains(column)) expected_ = Expected{name, column, Plain(text)};
  }
  void ExpectNothing() noexcept { expected_.reset(); }

  /// The form is about to save what it shows.
  void Accept() {
    Look(false);
    evaluation_ = EvaluationOf(*form_);
    before_.emplace(school_.Unwatched(), EntersFinals(*form_), evaluation_);
  }

  /// The form has gone. With an error on the way each grade is as it was or as it was shown.
  void Close(bool whole) {
    if (form_ == nullptr) return;
    if (before_) {
      const StoredGrades after(school_.Unwatched(), EntersFinals(*form_), evaluation_);
      SavedGrades(shown_, *before_, after).Check(whole);
      ++saves_;
    }
    form_.reset();
    before_.reset();
  }
  /// How often what was shown has been held against the school.
  [[nodiscard]] std::uint64_t Saves() const noexcept { return saves_; }
  /// How often a grade has been typed and then left with the mouse.
  [[nodiscard]] std::uint64_t LeftTyped() const noexcept { return leftTyped_; }

 private:
  static std::size_t Changes(const GradeTexts& before, const GradeTexts& now) {
    std::size_t count = 0;
    for (const auto& [column, grade] : before)
      if (now.at(column) != grade) ++count;
    return count;
  }

  struct Expected {
    std::string name;
    int column = 0;
    std::string text;
  };

  [[nodiscard]] bool OnScreen() const {
    return form_ != nullptr && screen_.Ready() && &screen_.ActiveWindow()->Model() == form_.get();
  }
  /// Another entry has been chosen: what the one before shows for the last time.
  void Turn() {
    if (OnScreen()) Remember(ShownGrades(*screen_.ActiveWindow(), entry_));
  }
  void Remember(const ShownGrades& shown) {
    for (const auto& [name, texts] : shown.texts) shown_[name] = texts;
  }

  void CheckExpected(const ShownGrades& shown) {
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

  School& school_;
  const WatchedScreen& screen_;
  std::shared_ptr<Form> form_;
  ShownTexts shown_;
  std::optional<Expected> expected_;
  std::optional<StoredGrades> before_;  ///< while it saves
  std::int32_t entry_ = 0;              ///< item data of the one on the screen
  std::int32_t evaluation_ = 0;
  std::uint64_t saves_ = 0;
  std::uint64_t leftTyped_ = 0;
};

}  // namespace quorvane::test

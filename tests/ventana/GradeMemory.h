#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "tests/ventana/ShownGrades.h"
#include "tests/ventana/StoredGrades.h"
#include "tests/ventana/WatchedScreen.h"
#include "tests/walk/School.h"

namespace quorvane::test {

/// Remembers what a grade form has shown, subject by subject, to hold it against what saving the
/// form leaves in the school.
class GradeMemory {
 public:
  /// Both outlive this.
  GradeMemory(School& school, const WatchedScreen& screen) : school_(school), screen_(screen) {}

  /// A grade form has been opened: all that was known of another is forgotten.
  void Open(Form& form);
  [[nodiscard]] const Form* Watched() const noexcept { return form_.get(); }

  /// What the screen shows now. After no more than one gesture no more than one grade changes.
  void Look(bool oneGesture);

  /// What the user has typed into a cell's list and marked there is to be that cell's grade, if he
  /// goes on with the mouse.
  void Expect(int row, int column, const std::string& text);
  void ExpectNothing() noexcept { expected_.reset(); }

  /// The form is about to save what it shows.
  void Accept();
  /// The form has gone. With an error on the way each grade is as it was or as it was shown.
  void Close(bool whole);
  /// How often what was shown has been held against the school.
  [[nodiscard]] std::uint64_t Saves() const noexcept { return saves_; }
  /// How often a grade has been typed and then left with the mouse.
  [[nodiscard]] std::uint64_t LeftTyped() const noexcept { return leftTyped_; }

 private:
  struct Expected {
    std::string name;
    int column = 0;
    std::string text;
  };

  [[nodiscard]] bool OnScreen() const;
  /// Another entry has been chosen: what the one before shows for the last time.
  void Turn();
  void Remember(const ShownGrades& shown);
  void CheckExpected(const ShownGrades& shown);
  /// Whether the row's grades have been on the screen.
  bool CheckRow(const std::string& key, const StoredGrades::Row& row, bool whole) const;

  School& school_;
  const WatchedScreen& screen_;
  std::shared_ptr<Form> form_;
  std::map<std::string, GradeTexts> shown_;
  std::optional<Expected> expected_;
  std::optional<StoredGrades> before_;  ///< while it saves
  std::int32_t entry_ = 0;              ///< item data of the one on the screen
  std::int32_t evaluation_ = 0;
  std::uint64_t saves_ = 0;
  std::uint64_t leftTyped_ = 0;
};

}  // namespace quorvane::test

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

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

  RescueTest();

  static Step Doing(const std::vector<Robot::Deed>& deeds) { return Robot::Doing(deeds); }

  /// The database refuses to write that pending row, as a disk does that is full.
  void FullAt(int pending, const std::string& table = "EvaluacionPte") const;
  /// Fixes section, evaluation and what else that step asks for, and goes on.
  void StepOne(const std::string& form, const char* evaluation, const char* more = nullptr,
               const char* entry = nullptr);
  void LeaveStepOne(const std::string& form);
  /// Grades in that form until it fails, and gives the message.
  QString FailIn(std::uint8_t node, const std::string& form, const Step& act);
  /// By student, in the first evaluation.
  QString Fail(const Step& act);

  /// Where the files are.
  [[nodiscard]] QString Folder() const;
  /// All that lies there, hidden files too.
  [[nodiscard]] QStringList Files() const;
  /// What the only file holds.
  [[nodiscard]] QByteArray Content() const;
  /// The lines of the cells in a text.
  static Lines CellsOf(const QByteArray& content);
  [[nodiscard]] Lines Cells() const { return CellsOf(Content()); }
  static std::string Line(const char* who, const char* what, const char* column, const char* text);
};

}  // namespace quorvane::test

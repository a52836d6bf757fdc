#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "apps/zendria/GradeEdits.h"
#include "apps/zendria/RescueText.h"
#include "apps/zendria/SavingStatements.h"

namespace quorvane::qt {
class QtFrontEnd;
}

namespace quorvane::zendria {

class School;

/// Grades that a failed screen has left without saving.
struct RescuedGrades {
  std::size_t count = 0;
  QString text;  ///< see `RescueText`
  QString file;  ///< where the text is; empty when no file could be written
};

/// Knows what is typed into the grade forms, and puts it into a file when the screen fails before
/// it was saved.
class GradeRescue {
 public:
  /// Listens to the forms that `screen` shows, in the place of who did before. `folder` is where
  /// the files go.
  GradeRescue(qt::QtFrontEnd& screen, QString folder);

  /// A screen of the module opens: nothing has been typed yet.
  void Begin();
  /// The module is about to execute a statement.
  void Told(const std::string& statement);

  /// After the screen has failed: the grades that were changed and aren't in the school's database.
  /// None when there are none. They are known no more then.
  std::optional<RescuedGrades> Rescue(const School& school, const RescueHeading& heading);

 private:
  struct Watched {
    GradeEdits edits;
    SavingStatements saving;
  };

  std::shared_ptr<Watched> watched_;  // the front end's hooks have it too: they may live longer
  QString folder_;
};

}  // namespace quorvane::zendria

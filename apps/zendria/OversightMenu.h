#pragma once

#include <QAction>
#include <QMenu>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace quorvane::zendria {

class School;
struct GradeRoute;
struct User;

/// What whoever answers for an evaluation asks of an open school, as entries of a menu.
class OversightMenu {
 public:
  /// The school, the user who is signed in, and the number of his centre (0 for none).
  using Work = std::function<void(School& school, const User& user, std::int32_t centre)>;

  /// `window` is what the dialogs stand before; it outlives the menu.
  explicit OversightMenu(QWidget& window);

  void AddTo(QMenu& menu);
  /// There is a school to be asked, by that user: the register is imported by who is above roles.
  void Enable(bool open, const User& user);

  /// Does that on the open school, connected anew where the connection was lost.
  std::function<void(const Work& work)> OnSchool;
  /// Opens the screen that it leads to.
  std::function<void(const GradeRoute& route)> OpenRoute;

 private:
  void Add(const char* name, const QString& text, const QKeySequence& keys, const Work& work);
  /// As whom the user is shown grades: 0 for one who sees all; none where that failed and was told.
  std::optional<std::int32_t> WhoGrades(School& school, const User& user);
  void ShowState(School& school, const User& user, std::int32_t centre);

  QWidget& window_;
  std::vector<QAction*> actions_;
};

}  // namespace quorvane::zendria

#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

namespace quorvane {
class Form;
class Retivo;
namespace qt {
class FormWindow;
class QtFrontEnd;
}  // namespace qt
}  // namespace quorvane

namespace quorvane::zendria {

class School;
struct User;

/// Keeps what is typed into the grade forms in a file of the user's until the form has saved it or
/// given it up, so that neither a failure nor the end of the program loses a grade; and offers it
/// again when such a form opens with the same choices.
///
/// An edit is on the disk before the form learns of it; of several in one turn of the event loop,
/// as a paste makes, the first, and all of them when the turn ends.
class GradeDrafts {
 public:
  /// Listens to the forms that `screen` shows, behind who listens already. `folder` is where the
  /// files go.
  GradeDrafts(qt::QtFrontEnd& screen, QString folder);
  ~GradeDrafts();
  GradeDrafts(const GradeDrafts&) = delete;
  GradeDrafts& operator=(const GradeDrafts&) = delete;
  GradeDrafts(GradeDrafts&&) = delete;
  GradeDrafts& operator=(GradeDrafts&&) = delete;

  /// A screen of the module opens for that user of that school. Both outlive it.
  void Begin(School& school, const User& user);
  /// It has gone.
  void End();
  /// The module is about to execute a statement: what was typed is on the disk before one that
  /// writes.
  void Told(const std::string& statement);

  /// Tells why the draft can't be written, as the user reads it; nothing while it can. It may
  /// outlive this.
  [[nodiscard]] std::function<QString()> Problem() const;

 private:
  class Keeper;

  std::shared_ptr<Keeper> keeper_;  // the front end's hooks have it too: they may live longer
};

}  // namespace quorvane::zendria

#pragma once

#include <QString>
#include <QStringList>

#include "tools/screenshots/Camera.h"

namespace quorvane::screenshots {

/// A terminal in a folder of its own, in which orders are typed, and what they tell is looked at.
class Terminal {
 public:
  /// `folder` is made.
  Terminal(Camera& camera, const QString& folder);

  /// Types an order and waits for its end. Unseen, it is only done. Throws a runtime error of the
  /// language when it can't be started.
  void Type(const QStringList& words, bool seen = true);
  /// Takes what has been typed and told since the last time.
  void Take(const QString& name);

 private:
  Camera& camera_;
  QString folder_;
  QString text_;
};

}  // namespace quorvane::screenshots

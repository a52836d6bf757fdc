#pragma once

#include <QFrame>

class QLabel;

namespace quorvane::qt {

/// The host's lines over a form. They wrap, and take no room while there are none.
class HeadingStrip : public QFrame {
 public:
  explicit HeadingStrip(QWidget& window);

  /// True when these aren't the lines that stood.
  bool Tell(const QString& place, const QString& remark);
  /// What the lines need in that width; 0 without any.
  [[nodiscard]] int HeightFor(int width) const;

 private:
  QLabel* place_;
  QLabel* remark_;
};

}  // namespace quorvane::qt

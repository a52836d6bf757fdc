#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QTimer>
#include <optional>
#include <vector>

class QWidget;

namespace quorvane::qt {

/// Where that frame is whole on the screen's room: moved by no more than it takes. One without room
/// there keeps its left and its top edge in sight.
QRect WholeOn(QRect frame, const QRect& room);

/// What a window asks of the window system for its place and size, and what it is told of them.
///
/// An answer can be late. A form that shrinks to its busy box and grows back has asked for three
/// sizes before it hears of the second, and the answer for the box then looks as if the user had
/// resized the window. So each request names place and size together, and a window that is told a
/// size that it asked for before, and not last, waits for the next answer.
///
/// A window that has just grown is put whole onto its screen, and is looked at again until the
/// window system has come to rest: the frame's measures are known late too. From then on it stays
/// where the user puts it.
class WindowPlace {
 public:
  /// The window outlives it.
  explicit WindowPlace(QWidget& window);

  /// Asks for that size with the frame's corner there, or where it was.
  void Ask(QSize size, std::optional<QPoint> corner = std::nullopt);
  [[nodiscard]] QSize Asked() const noexcept { return asked_; }

  /// What the window is told now is the late answer to a former request.
  [[nodiscard]] bool Late() const;
  /// The window's size is the user's: it stands for what was asked for.
  void TakeSize();
  /// The window's corner is the user's, or the window system's last word.
  void TakeCorner();
  /// Looks soon whether the window is as it was asked for, and asks again where it isn't.
  void Watch();

 private:
  [[nodiscard]] QSize Decoration() const;
  [[nodiscard]] QPoint CornerOnScreen() const;
  void Put();
  void Look();

  QWidget& window_;
  QSize asked_;
  QPoint corner_;              // of the frame
  std::vector<QSize> former_;  // asked for before, since the user last chose a size
  bool grown_ = false;         // and not at rest yet
  int looks_ = 0;              // left, until the window system is believed to want it so
  QSize decoration_;           // of the frame, when last looked at
  QTimer rest_;
};

}  // namespace quorvane::qt

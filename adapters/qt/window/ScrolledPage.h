#pragma once

#include <QScrollArea>

class QFocusEvent;

namespace quorvane::qt {

/// What a form is drawn on that places its controls itself: a page of the form's own size, in a
/// window that may be smaller, on a screen without room for it. The page then scrolls, so that the
/// user reaches everything, while the form keeps its measures.
class ScrolledPage : public QScrollArea {
 public:
  explicit ScrolledPage(QWidget* window);

  /// The controls stand on it; it lives as long as this.
  [[nodiscard]] QWidget& Page() const { return *widget(); }

  /// The window that shows a page of that size and is nowhere greater than `most`: with scroll bars
  /// where that cuts the page, beside it as far as there is room.
  [[nodiscard]] QSize WindowFor(QSize page, QSize most) const;
  /// Gives the page that size; where that is more than `most`, it is to be scrolled.
  void Take(QSize page, QSize most);
  /// What a window of that size would show of a page in the place of the one that stands, beside
  /// the scroll bars of that.
  [[nodiscard]] QSize InSight(QSize window) const { return window - bars_; }

  /// Brings a control of the page into sight that gets the keyboard, but for a click of the mouse,
  /// under which nothing may move.
  void Follow(QWidget& control, const QFocusEvent& event);

 private:
  [[nodiscard]] QSize BarsFor(QSize page, QSize most) const;

  QSize bars_{0, 0};  // what they take of the window
};

}  // namespace quorvane::qt

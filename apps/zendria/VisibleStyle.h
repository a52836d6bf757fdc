#pragma once

#include <QProxyStyle>

namespace quorvane::zendria {

/// The desktop's own style, with what some of its colour schemes leave invisible in sight: the
/// hints in empty fields, and the boxes to be checked, of schemes that are dark.
class VisibleStyle : public QProxyStyle {
 public:
  using QProxyStyle::polish;
  void polish(QPalette& palette) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace quorvane::zendria

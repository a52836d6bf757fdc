#pragma once

#include <QString>

class QDialog;
class QSize;
class QWidget;

namespace quorvane::zendria {

/// Fills a dialog that has its title: `above`, the grades as lines of text that can be copied, and
/// its buttons, of which «Cerrar» accepts. The dialog takes `above`; `first` is its size until the
/// user gives it another.
void LayOutGradesToCopy(QDialog& dialog, QWidget* above, const QString& grades, const QSize& first);

}  // namespace quorvane::zendria

#pragma once

#include <QString>

class QWidget;

namespace quorvane::zendria {

/// The module's version as people know it, "6.00.0009".
QString VersionText();

/// Tells what program this is, before `window`.
void ShowAbout(QWidget& window);

}  // namespace quorvane::zendria

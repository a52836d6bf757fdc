#pragma once

#include <QString>

namespace quorvane::zendria {

/// The manual's page that belongs to the programs of that folder: laid down with them, or built
/// with them. Empty when there is none.
QString FindManual(const QString& programs);

}  // namespace quorvane::zendria

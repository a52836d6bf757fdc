#pragma once

#include <QString>

namespace quorvane::zendria {

/// A section with its course, "1º ESO A": many schools call it that already, others just "A".
QString ClassName(const QString& course, const QString& section);

}  // namespace quorvane::zendria

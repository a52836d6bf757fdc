#pragma once

#include <QByteArray>

namespace quorvane::zendria {

/// Whether a native event is the desktop's request to close a window, as its task bar sends it.
bool IsCloseRequest(const QByteArray& eventType, const void* message);

}  // namespace quorvane::zendria

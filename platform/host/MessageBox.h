#pragma once

#include <string>

#include "platform/host/FrontEnd.h"

namespace quorvane {

/// Shows a message under the application's title.
void MessageBox(const std::string& text, MessageIcon icon);

/// The same with a beep before it.
void BeepAndMessage(const std::string& text, MessageIcon icon);

}  // namespace quorvane

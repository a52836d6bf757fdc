#pragma once

#include "platform/Application.h"
#include "platform/FrontEnd.h"

namespace quorvane {

/// The front end that shows the forms. Error 91 when none is in use.
inline FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace quorvane

#pragma once

#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {

/// The front end that shows the forms. Error 91 when none is in use.
inline FrontEnd& Pantalla() { return Application::Instance().Screen(); }

}  // namespace quorvane

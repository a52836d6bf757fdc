#pragma once

#include <QString>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane::zendria {

class SchoolError;

/// Why a school on a server couldn't be opened, in the user's words.
struct ServerAnswer {
  enum class About { Everything, Server, Port, Database, User, Password, Tls };

  About about = About::Everything;  ///< what the user has to look at
  QString text;                     ///< what to do, and behind it the driver's own words
};

/// Tells it from what the drivers and servers say, in English or in Spanish.
ServerAnswer AnswerTo(const SchoolError& error, const SchoolAddress& address);

}  // namespace quorvane::zendria

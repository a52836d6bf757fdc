#pragma once

#include <functional>
#include <memory>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane {

/// A school, open for what is written in one piece: whoever holds it is waited for five seconds,
/// and not as long as one waits for the next of many small writes. Errors as of
/// `SchoolAddress::Open`.
std::unique_ptr<Connection> OpenForPiece(const SchoolAddress& address,
                                         SchoolAddress::Access access);

/// Does `work`, which leaves nothing behind when it fails. That somebody else holds the school, or
/// that its server has gone, is told by error 0x80004005 in Spanish, with what to do about it;
/// other errors are left alone.
void TellIfHeldOrLost(const std::function<void()>& work);

}  // namespace quorvane

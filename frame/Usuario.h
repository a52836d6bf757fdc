#pragma once

#include <cstdint>

namespace quorvane {

class Connection;

// The session's user in the school: who he is there, and what he may see.

/// The user as a member of staff: his `IDPersonal`, 0 when he is none.
std::int32_t PersonalDelUsuario(Connection& centro);

/// The same, asked as who takes back a publication asks: the column is spelled otherwise.
std::int32_t PersonalDelPublicador(Connection& centro);

/// He sees the whole of that section: he is its tutor, or his profile is 0 or less.
bool EsTutor(Connection& centro, std::int32_t seccion);

}  // namespace quorvane

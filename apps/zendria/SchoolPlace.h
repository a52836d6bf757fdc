#pragma once

#include <QString>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane::zendria {

/// Where a school is, in one text: the path of a file, or "odbc:" and a connection string. One that
/// was just given may hold a password; `PlaceOf` makes the one to keep.

/// The place of a connection string, with its password if it has one.
QString OdbcPlace(const QString& connectionString);
/// Whether a place is a connection string's.
bool IsOdbcPlace(const QString& place);

/// The address of a place, with a file's whole path.
SchoolAddress AddressOf(const QString& place);
/// The place of an address, without any password: what the list of recent schools keeps.
QString PlaceOf(const SchoolAddress& address);
/// What tells a school from others: of a file the same by whatever link or path it is reached.
QString IdentityOf(const SchoolAddress& address);

/// What a list shows of a place: the name of its school first, then where that is.
QString PlaceTitle(const QString& place);
/// The name that a school goes by: the file's; or what its string names of database, data source
/// and server, the first of them.
QString SchoolName(const SchoolAddress& address);

/// Whether the connection string names a user without his password, so that it has to be asked for.
bool NeedsPassword(const SchoolAddress& address);

}  // namespace quorvane::zendria

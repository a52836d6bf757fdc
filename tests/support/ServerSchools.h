#pragma once

#include <string>

namespace quorvane {
class Connection;
}

namespace quorvane::test {

/// Whether the tests reach their schools on a server of their own (tests/servidor): two strings
/// without a database in the environment, QUORVANE_PRUEBAS_SERVIDOR as who works on a school, with
/// the rights that docs/servidores.md grants and no more, QUORVANE_PRUEBAS_DUENA as who makes it.
bool OnServer();

/// The connection string of a database there.
std::string ServerString(const std::string& database);
std::string OwnerString(const std::string& database);

/// A database with all tables of a school and no rows. Making one takes its time, so that one which
/// is given back is emptied and taken again.
std::string TakeServerSchool();
void GiveBackServerSchool(const std::string& database);

/// Open as who made the database, to the end of the program: to open one takes longer than most
/// tests.
Connection& OwnersConnection(const std::string& database);

}  // namespace quorvane::test

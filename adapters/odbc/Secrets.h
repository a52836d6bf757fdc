#pragma once

#include <string>
#include <string_view>

namespace quorvane::odbc {

/// Whether a keyword of a connection string's, or a setting's of a driver's, names a secret by what
/// drivers call one: a password, a key's secret, a token.
bool IsSecret(std::string_view keyword);

/// A text in which the value behind such a keyword and an equals sign, or a colon but for a
/// token's, is `***`, up to where the next one may begin, and a password in an address, as in
/// "//user:password@server".
std::string WithoutSecrets(std::string_view text);

}  // namespace quorvane::odbc

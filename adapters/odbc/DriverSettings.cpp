#include "adapters/odbc/DriverSettings.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <odbcinst.h>
#include <span>
#include <string_view>

#include "platform/text/AsciiCase.h"

namespace quorvane::odbc {
namespace {

using sqltext::Engine;

struct Setting {
  const char* keyword;
  const char* value;
};

/// What the file database's own adapter sees to: a file that isn't there stays so, one that
/// somebody else writes to is waited for, and what is written is durable.
constexpr Setting kForSqlite[] = {{"Timeout", "60000"}, {"NoCreat", "Yes"}, {"SyncPragma", "FULL"}};

/// One round trip a statement, which a pooler can hand to any of its connections; no log of them in
/// the system's temporary folder, as Debian registers the driver; True is a bit;
/// and a server that has gone silent is given up.
constexpr Setting kForPostgreSql[] = {{"UseServerSidePrepare", "0"},
                                      {"UseDeclareFetch", "0"},
                                      {"CommLog", "0"},
                                      {"Debug", "0"},
                                      {"BoolsAsChar", "0"},
                                      {"KeepaliveTime", "30"},
                                      {"KeepaliveInterval", "10"}};

/// What the driver hands on to its library, in one setting: it may hold other options as well.
constexpr auto kLibraryOptions = "pqopt";
constexpr Setting kLibrary[] = {{"keepalives_count", "3"}, {"tcp_user_timeout", "20000"}};

std::span<const Setting> SettingsFor(Engine engine) {
  if (engine == Engine::Sqlite) return kForSqlite;
  if (engine == Engine::PostgreSql) return kForPostgreSql;
  return {};
}

std::string OutOfBraces(const std::string& value) {
  const auto braced = value.size() > 1 && value.front() == '{' && value.back() == '}';
  return braced ? value.substr(1, value.size() - 2) : value;
}

/// The library's options as they are given, and what they lack.
std::string LibraryOptions(const std::string& given) {
  auto options = OutOfBraces(given);
  for (const auto& [keyword, value] : kLibrary) {
    const auto at = (" " + options).find(std::string(" ") + keyword);
    if (at != std::string::npos) continue;
    options += (options.empty() ? "" : " ") + std::string(keyword) + "=" + value;
  }
  return options;
}

}  // namespace

std::string GivenSetting(const ConnectionString& string, const char* keyword) {
  if (string.Has(keyword)) return string.Value(keyword);
  const auto source = string.Value("DSN");
  if (source.empty()) return {};
  std::array<char, 1024> text{};
  SQLGetPrivateProfileString(source.c_str(), keyword, "", text.data(),
                             static_cast<int>(text.size()), "odbc.ini");
  return text.data();
}

Engine NamedEngine(const std::string& connectionString) {
  return sqltext::EngineNamed(GivenSetting(ConnectionString(connectionString), "Driver"));
}

bool NamesOtherDriver(const std::string& connectionString) {
  const auto driver = GivenSetting(ConnectionString(connectionString), "Driver");
  return !driver.empty() && sqltext::EngineNamed(driver) == Engine::Unknown;
}

std::size_t NamedServers(const std::string& connectionString) {
  if (NamedEngine(connectionString) != Engine::PostgreSql) return 1;
  const ConnectionString given(connectionString);
  auto servers = GivenSetting(given, "Server");
  if (servers.empty()) servers = GivenSetting(given, "Servername");
  return 1 + static_cast<std::size_t>(std::count(servers.begin(), servers.end(), ','));
}

std::string Completed(const std::string& connectionString, Engine engine) {
  auto given = ConnectionString(connectionString);
  auto completed = connectionString;
  if (engine == Engine::PostgreSql) {
    const auto options = LibraryOptions(GivenSetting(given, kLibraryOptions));
    if (given.Has(kLibraryOptions)) {
      given.Set(kLibraryOptions, options);
      completed = given.Text();
    } else {
      completed += std::string(";") + kLibraryOptions + "={" + options + "}";
    }
  }
  for (const auto& [keyword, value] : SettingsFor(engine))
    if (GivenSetting(given, keyword).empty()) completed += std::string(";") + keyword + "=" + value;
  return completed;
}

}  // namespace quorvane::odbc

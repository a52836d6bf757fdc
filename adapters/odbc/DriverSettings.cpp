#include "adapters/odbc/DriverSettings.h"

#include <algorithm>
#include <array>
#include <odbcinst.h>
#include <span>

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

/// How many servers a string names for a driver that tries several.
std::size_t ServersIn(const ConnectionString& given) {
  auto servers = GivenSetting(given, "Server");
  if (servers.empty()) servers = GivenSetting(given, "Servername");
  return 1 + static_cast<std::size_t>(std::count(servers.begin(), servers.end(), ','));
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
  return ServersIn(ConnectionString(connectionString));
}

std::string OnlyAt(const std::string& completed, const std::string& address, int port) {
  constexpr auto kAddress = "hostaddr";
  ConnectionString given(completed);
  auto options = OutOfBraces(given.Value(kLibraryOptions));
  if (options.empty() || options.find(kAddress) != std::string::npos) return completed;
  // The library wants an address for each name, and what is given last counts. The names stay: the
  // certificate and the password go by them.
  options += std::string(" target_session_attrs=any ") + kAddress + "=" + address;
  for (auto more = ServersIn(given); more > 1; --more) options += "," + address;
  given.Set(kLibraryOptions, options);
  given.Set("Port", std::to_string(port));
  return given.Text();
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

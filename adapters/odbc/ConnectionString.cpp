#include "adapters/odbc/ConnectionString.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "adapters/odbc/Secrets.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::odbc {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

/// Behind the closing brace of the value that opens at `at`; a doubled one stands for itself.
std::size_t EndOfBraces(std::string_view text, std::size_t at) {
  for (auto end = text.find('}', at); end != std::string_view::npos; end = text.find('}', end + 2))
    if (end + 1 >= text.size() || text[end + 1] != '}') return end + 1;
  return text.size();
}

bool IsUnclosed(std::string_view value) {
  return value.starts_with('{') && (value.size() < 2 || !value.ends_with('}'));
}

std::string WithoutBraces(std::string_view value) {
  if (value.size() < 2 || value.front() != '{' || value.back() != '}') return std::string(value);
  std::string plain;
  for (std::size_t at = 1; at + 1 < value.size(); ++at) {
    plain += value[at];
    if (value[at] == '}') ++at;
  }
  return plain;
}

std::string InBraces(std::string_view value) {
  const auto plain = value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos &&
                     Trimmed(value).size() == value.size();
  if (plain) return std::string(value);
  std::string braced = "{";
  for (const auto letter : value) {
    braced += letter;
    if (letter == '}') braced += letter;
  }
  return braced + "}";
}

/// Keywords of the drivers' whose values may be shown: what isn't known might be a password.
constexpr std::string_view kHarmless[] = {
    // of all
    "Driver", "DSN", "Server", "Servername", "Port", "Database", "UID", "User", "Username",
    "Timeout", "Description", "ReadOnly",
    // PostgreSQL's
    "sslmode", "pqopt", "ConnSettings", "UseServerSidePrepare", "UseDeclareFetch", "Fetch",
    "CommLog", "Debug", "BoolsAsChar", "TrueIsMinus1", "KeepaliveTime", "KeepaliveInterval",
    "DisableKeepalive", "Protocol", "LFConversion", "UnknownSizes", "MaxVarcharSize",
    "MaxLongVarcharSize", "TextAsLongVarchar", "UnknownsAsLongVarchar", "ByteaAsLongVarBinary",
    "BI", "RowVersioning", "ShowSystemTables", "ShowOidColumn", "FakeOidIndex", "UpdatableCursors",
    "LowerCaseIdentifier", "Parse", "ExtraSysTablePrefixes", "GssAuthUseGSS", "XaOpt",
    "IgnoreTimeout", "BatchSize", "OptionalErrors", "FetchRefcursors", "Ksqo",
    // SQL Server's
    "TDS_Version", "ClientCharset", "Language", "Instance", "App", "WSID", "Address", "Encryption",
    "Encrypt", "TrustServerCertificate", "HostNameInCertificate", "ServerCertificate",
    "Trusted_Connection", "Authentication", "ServerSPN", "Realm", "MultiSubnetFailover",
    "ApplicationIntent", "Failover_Partner", "MARS_Connection", "AnsiNPW", "QuotedId", "Regional",
    "Network", "LoginTimeout", "ConnectRetryCount", "ConnectRetryInterval", "DebugFlags",
    "UseNTLMv2",
    // SQLite's
    "NoCreat", "SyncPragma", "StepAPI", "NoTXN", "NoWCHAR", "ShortNames", "LongNames", "FKSupport",
    "JournalMode", "BigInt", "JDConv", "OEMCP"};

/// These hold settings of other programs' in turn.
constexpr std::string_view kNested[] = {"pqopt", "ConnSettings"};

bool IsAmong(std::span<const std::string_view> keywords, std::string_view keyword) {
  return std::any_of(keywords.begin(), keywords.end(),
                     [keyword](std::string_view one) { return EqualNoCase(one, keyword); });
}

}  // namespace

bool ConnectionString::IsHarmless(const Entry& entry) {
  if (!IsAmong(kHarmless, entry.keyword) || IsUnclosed(entry.value)) return false;
  // Whatever else such a setting of secrets is written like.
  return !IsAmong(kNested, entry.keyword) || !IsSecret(entry.value);
}

ConnectionString::ConnectionString(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto equals = text.find('=', at);
    if (equals == std::string_view::npos) break;
    // What has no value before it, as in "Trusted_Connection;PWD=a", is no part of it.
    auto keyword = text.substr(at, equals - at);
    if (const auto last = keyword.rfind(';'); last != std::string_view::npos)
      keyword.remove_prefix(last + 1);
    keyword = Trimmed(keyword);
    auto begin = text.find_first_not_of(kBlanks, equals + 1);
    begin = std::min(begin, text.size());
    const auto braced = begin < text.size() && text[begin] == '{';
    const auto end =
        std::min(text.find(';', braced ? EndOfBraces(text, begin + 1) : begin), text.size());
    const auto value = Trimmed(text.substr(begin, end - begin));
    if (!keyword.empty()) entries_.push_back({std::string(keyword), std::string(value)});
    at = end + 1;
  }
}

const ConnectionString::Entry* ConnectionString::Find(std::string_view keyword) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [keyword](const Entry& entry) {
    return EqualNoCase(entry.keyword, keyword);
  });
  return found == entries_.end() ? nullptr : &*found;
}

bool ConnectionString::IsAddress(std::string_view text) {
  const auto scheme = AsciiLower(text.substr(0, text.find("://")));
  const auto isLetter = [](char letter) { return letter >= 'a' && letter <= 'z'; };
  // A file's own address is a file's name.
  return scheme.size() < text.size() && scheme.size() > 1 && scheme != "file" &&
         isLetter(scheme.front()) && std::all_of(scheme.begin(), scheme.end(), [&](char letter) {
           return isLetter(letter) || (letter >= '0' && letter <= '9') || letter == '+' ||
                  letter == '-' || letter == '.';
         });
}

bool ConnectionString::Reads(std::string_view text) {
  constexpr std::string_view kTelling[] = {"Driver",   "DSN",        "FileDSN",
                                           "Server",   "Servername", "Database",
                                           "UID",      "User",       "Trusted_Connection",
                                           "ClientKey"};
  if (IsAddress(text)) return true;
  const ConnectionString given(text);
  return std::any_of(given.entries_.begin(), given.entries_.end(), [&](const Entry& entry) {
    return IsAmong(kTelling, entry.keyword) || IsSecret(entry.keyword);
  });
}

bool ConnectionString::Has(std::string_view keyword) const { return Find(keyword) != nullptr; }

std::string ConnectionString::Value(std::string_view keyword) const {
  const auto* const entry = Find(keyword);
  return entry == nullptr ? std::string() : WithoutBraces(entry->value);
}

void ConnectionString::Set(std::string_view keyword, std::string_view value) {
  for (auto& entry : entries_) {
    if (!EqualNoCase(entry.keyword, keyword)) continue;
    entry.value = InBraces(value);
    return;
  }
  entries_.push_back({std::string(keyword), InBraces(value)});
}

std::string ConnectionString::TooLong() const {
  constexpr std::size_t kMostOfAll = 4000;
  constexpr std::size_t kMostOfOne = 900;
  constexpr std::size_t kMostOfName = 250;  // a driver's or a data source's
  const auto tell = [](const std::string& what, std::size_t length, std::size_t most) {
    return "La cadena de conexión es demasiado larga: " + what + " tiene " +
           std::to_string(length) + " bytes, y se admiten " + std::to_string(most);
  };
  for (const auto& [keyword, value] : entries_) {
    if (keyword.size() > kMostOfName)
      return tell("una de sus palabras clave", keyword.size(), kMostOfName);
    const auto names = EqualNoCase(keyword, "Driver") || EqualNoCase(keyword, "DSN");
    const auto most = names ? kMostOfName : kMostOfOne;
    if (value.size() > most) return tell("el valor de " + keyword, value.size(), most);
  }
  const auto all = Text().size();
  return all > kMostOfAll ? tell("toda ella", all, kMostOfAll) : std::string();
}

std::string ConnectionString::Text() const {
  std::string text;
  for (const auto& entry : entries_)
    text += (text.empty() ? "" : ";") + entry.keyword + "=" + entry.value;
  return text;
}

std::string ConnectionString::TextWithoutPassword() const {
  auto shown = *this;
  std::erase_if(shown.entries_, [](const Entry& entry) { return !IsHarmless(entry); });
  return shown.Text();
}

}  // namespace quorvane::odbc

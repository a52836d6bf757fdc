#include "adapters/odbc/Diagnostics.h"

#include <algorithm>
#include <utility>

#include "adapters/odbc/Secrets.h"

namespace quorvane::odbc {
namespace {

constexpr SQLSMALLINT kMostRecords = 16;

// "[Vendor][Driver][Engine]text": the layers that passed it on say nothing to the user.
std::string WithoutLayers(const std::string& text) {
  std::size_t at = 0;
  while (at < text.size() && text[at] == '[') {
    const auto end = text.find(']', at);
    if (end == std::string::npos) break;
    at = end + 1;
  }
  const auto begin = text.find_first_not_of(" \r\n", at);
  if (begin == std::string::npos) return text;
  return text.substr(begin, text.find_last_not_of(" \r\n") - begin + 1);
}

}  // namespace

Diagnostics::Diagnostics(const DriverCalls& calls, SQLSMALLINT kind, SQLHANDLE handle) {
  for (SQLSMALLINT number = 1; number <= kMostRecords; ++number) {
    Record record;
    if (!SQL_SUCCEEDED(
            calls.DiagnosticRecord(kind, handle, number, record.state, record.native, record.text)))
      break;
    // Some repeat what they were given.
    record.text = WithoutSecrets(WithoutLayers(record.text));
    records_.push_back(std::move(record));
  }
}

RuntimeError Diagnostics::Error(const std::string& before, const std::string& behind) const {
  auto text = before;
  for (const auto& record : records_) {
    if (&record != records_.data()) text += "; ";
    text += "[" + record.state + "] " + record.text;
    const auto native = " (" + std::to_string(record.native) + ")";
    if (!record.text.ends_with(native)) text += native;
  }
  if (records_.empty()) text += "el controlador ODBC no da ninguna explicación";
  return {ErrorNumber::StatementFailed, text + behind};
}

bool Diagnostics::HasState(const std::string& beginning) const {
  return std::any_of(records_.begin(), records_.end(),
                     [&](const Record& record) { return record.state.starts_with(beginning); });
}

bool Diagnostics::HasNative(SQLINTEGER number) const {
  return std::any_of(records_.begin(), records_.end(),
                     [number](const Record& record) { return record.native == number; });
}

bool Diagnostics::ComeFromServer() const {
  // Of a connection that a server refuses the one driver tells as of one that isn't to be had, but
  // for the word that its server's own refusals begin with.
  return std::any_of(records_.begin(), records_.end(), [](const Record& record) {
    return record.text.find("FATAL:") != std::string::npos ||
           !(record.state.starts_with("08") || record.state.starts_with("HYT") ||
             record.state.starts_with("S1T"));
  });
}

}  // namespace quorvane::odbc

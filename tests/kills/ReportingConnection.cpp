#include "tests/kills/ReportingConnection.h"

#include <unistd.h>
#include <utility>

#include "platform/RuntimeError.h"
#include "tests/kills/Report.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {

ReportingConnection::ReportingConnection(const std::string& path, std::string name, int in,
                                         bool fault)
    : Connection(std::move(name)), engine_(path, ""), in_(in), fault_(fault) {}

void ReportingConnection::Tell(std::string line) const {
  line += '\n';
  // A pipe takes a line of this length whole or not at all.
  if (write(in_, line.data(), line.size()) != static_cast<ssize_t>(line.size())) _exit(1);
}

Recordset ReportingConnection::Run(const std::string& statement) {
  constexpr int kEachFault = 7;
  const auto reads = Reads(statement);
  Tell(reads ? std::string(1, kBeginsToRead) : kBeginsToWrite + statement);
  const auto swallowed = fault_ && !reads && ++writes_ % kEachFault == 0;
  try {
    auto rows = swallowed ? Recordset() : engine_.Execute(statement);
    Tell(std::string(1, kReturned));
    return rows;
  } catch (const RuntimeError&) {
    Tell(std::string(1, kFailed));
    throw;
  }
}

}  // namespace quorvane::test

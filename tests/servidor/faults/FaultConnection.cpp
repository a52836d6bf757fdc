#include "tests/servidor/faults/FaultConnection.h"

#include <thread>
#include <utility>

#include "platform/RuntimeError.h"
#include "tests/walk/Statement.h"

namespace quorvane::test {

FaultConnection::FaultConnection(const std::string& text, std::string name, FaultDiary& diary)
    : Connection(std::move(name)), engine_(text, ""), diary_(diary) {}

void FaultConnection::Open() {
  // The fault may just have met it at rest, or the server be on its way back.
  const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  for (;; std::this_thread::sleep_for(std::chrono::milliseconds(50))) try {
      engine_.Open();
      process_ = engine_.Execute("SELECT pg_backend_pid()").Fields(0).Long();
      return;
    } catch (const RuntimeError&) {
      if (std::chrono::steady_clock::now() > until) throw;
    }
}

Recordset FaultConnection::Run(const std::string& statement) {
  const auto writes = !Reads(statement);
  diary_.before(statement);
  const auto begin = std::chrono::steady_clock::now();
  try {
    auto rows = engine_.Execute(statement);
    ++diary_.returned;
    if (writes) diary_.written.push_back(statement);
    return rows;
  } catch (const RuntimeError& error) {
    // What the engine refuses at a connection that goes on has done nothing.
    if (!engine_.IsOpen() && diary_.error.empty()) {
      diary_.error = std::to_string(error.Number()) + " " + error.Description();
      diary_.took = std::chrono::steady_clock::now() - begin;
      if (writes) diary_.inFlight = statement;
    }
    throw;
  }
}

}  // namespace quorvane::test

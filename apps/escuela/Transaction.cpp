#include "apps/escuela/Transaction.h"

#include "apps/escuela/OutcomeUnknown.h"
#include "platform/RuntimeError.h"

namespace quorvane {

Transaction::Transaction(Connection& database, const std::string& begin) : database_(database) {
  database_.Execute(begin);
}

Transaction::~Transaction() {
  try {
    if (!kept_ && database_.IsOpen()) database_.Execute("ROLLBACK TRANSACTION");
  } catch (...) {
    // The connection ends with its transaction, whose failure has been told. Whatever comes out of
    // an observer must not end the program here.
    database_.Close();
  }
}

void Transaction::Keep() {
  database_.Execute(kCommit);
  kept_ = true;
}

void Transaction::KeepOrTell(const std::string& unknown) {
  try {
    Keep();
  } catch (const RuntimeError& error) {
    if (database_.IsOpen()) throw;
    throw OutcomeUnknown(unknown + error.Description());
  }
}

}  // namespace quorvane

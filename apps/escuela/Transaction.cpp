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

void Transaction::KeepOrTell() {
  try {
    Keep();
  } catch (const RuntimeError& error) {
    if (database_.IsOpen()) throw;
    throw OutcomeUnknown(
        "No se sabe si se ha escrito, porque la conexión se perdió cuando el servidor lo daba por "
        "hecho: está todo o no está nada. Mírelo antes de repetirlo. " +
        error.Description());
  }
}

}  // namespace quorvane

#pragma once

#include <string>

#include "platform/data/Connection.h"

namespace quorvane {

/// What keeps a transaction.
inline constexpr const char* kCommit = "COMMIT TRANSACTION";

/// What is written through an open connection from here on, undone at the end unless it is kept. A
/// lost connection is undone by the server.
class Transaction {
 public:
  /// `begin` is the engine's statement where it has more to say.
  explicit Transaction(Connection& database, const std::string& begin = "BEGIN TRANSACTION");
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  Transaction(Transaction&&) = delete;
  Transaction& operator=(Transaction&&) = delete;

  /// Error 0x80004005 when the engine refuses: nothing is kept then, unless the connection is
  /// closed afterwards, lost before the answer came: then nobody knows.
  void Keep();
  /// The same, but that nobody knows is an `OutcomeUnknown` of that Spanish text, which says what
  /// to do about it, and of the engine's.
  void KeepOrTell(
      const std::string& unknown =
          "No se sabe si se ha escrito, porque la conexión se perdió cuando el servidor "
          "lo daba por hecho: está todo o no está nada. Mírelo antes de repetirlo. ");

 private:
  Connection& database_;
  bool kept_ = false;
};

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace quorvane {

/// The numbers that the runtime's failures carry; handlers test for them.
enum class ErrorNumber : std::int32_t {
  InvalidCall = 5,          ///< invalid call, or a key that a collection doesn't hold
  Overflow = 6,             ///< a number that its field can't hold
  TypeMismatch = 13,        ///< a text that is no number, an object of another kind
  ObjectNotSet = 91,        ///< use of an object that isn't there
  MissingResource = 326,    ///< no such entry in the string table
  InvalidProperty = 380,    ///< a value that a control refuses, a list index that doesn't exist
  InvalidArrayIndex = 381,  ///< a cell or entry that doesn't exist
  CantCreateObject = 429,   ///< no component of the host answers to a ProgID
  MissingMember = 438,      ///< an object without the member asked for
  DuplicateKey = 457,       ///< a key that the collection holds already
  InvalidArgument = 3001,   ///< a recordset filter that can't be read
  NoCurrentRecord = 3021,   ///< a column of a recordset that stands on no row
  UnknownField = 3265,      ///< a column that the recordset doesn't have
  ObjectClosed = 3704,      ///< use of a closed recordset or connection
  StatementFailed = -2147467259,  ///< 0x80004005: the database refused a statement
};

/// A failure of the runtime: a number and a text for the user. It is the only exception that the
/// module throws or catches.
class RuntimeError : public std::runtime_error {
 public:
  /// With the runtime's own text for that number.
  explicit RuntimeError(ErrorNumber number);
  RuntimeError(ErrorNumber number, const std::string& description);

  [[nodiscard]] std::int32_t Number() const noexcept { return static_cast<std::int32_t>(number_); }
  [[nodiscard]] bool Is(ErrorNumber number) const noexcept { return number_ == number; }
  [[nodiscard]] std::string Description() const { return what(); }

 private:
  ErrorNumber number_;
};

}  // namespace quorvane

#include "adapters/odbc/DriverCalls.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <sqlext.h>
#include <sqlucode.h>

#include "adapters/odbc/WideText.h"

namespace quorvane::odbc {
namespace {

constexpr std::size_t kStateLetters = 5;
constexpr std::size_t kMostLetters = 4096;  // of a name or a message
constexpr std::size_t kPiece = 1024;        // of a cell, got at once

/// A text for the manager to read; it takes none as constant.
class WideArgument {
 public:
  explicit WideArgument(std::string_view text) : text_(ToWide(text)) {}
  [[nodiscard]] SQLWCHAR* Data() { return reinterpret_cast<SQLWCHAR*>(text_.data()); }

 private:
  std::u16string text_;
};

class NarrowArgument {
 public:
  explicit NarrowArgument(std::string_view text) : text_(text) {}
  [[nodiscard]] SQLCHAR* Data() { return reinterpret_cast<SQLCHAR*>(text_.data()); }

 private:
  std::string text_;
};

/// Room for a text that the manager writes. It isn't cleared: there is one for each column.
template <class Letter, std::size_t Room>
class Buffer {
 public:
  Buffer() { letters_.front() = 0; }
  [[nodiscard]] Letter* Data() { return letters_.data(); }
  static constexpr SQLSMALLINT Size() { return static_cast<SQLSMALLINT>(Room); }

  /// Drivers don't agree on what they say of a text's length; all of them end it.
  [[nodiscard]] std::string Text() const {
    const auto end = std::find(letters_.begin(), letters_.end() - 1, Letter{0});
    const auto length = static_cast<std::size_t>(end - letters_.begin());
    if constexpr (sizeof(Letter) == sizeof(char)) {
      return {reinterpret_cast<const char*>(letters_.data()), length};
    } else {
      return FromWide({reinterpret_cast<const char16_t*>(letters_.data()), length});
    }
  }

 private:
  std::array<Letter, Room> letters_;
};

using WideBuffer = Buffer<SQLWCHAR, kMostLetters>;
using NarrowBuffer = Buffer<SQLCHAR, kMostLetters>;

/// All pieces of a cell. The last piece alone leaves room in the buffer.
template <class Letter>
SQLRETURN Pieces(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type,
                 std::basic_string<Letter>& text, bool& null) {
  std::array<Letter, kPiece + 1> piece;
  for (SQLRETURN result = SQL_SUCCESS_WITH_INFO; result == SQL_SUCCESS_WITH_INFO;) {
    SQLLEN bytes = 0;
    result = SQLGetData(statement, column, type, piece.data(), sizeof piece, &bytes);
    if (result == SQL_NO_DATA) return SQL_SUCCESS;
    if (!SQL_SUCCEEDED(result)) return result;
    null = bytes == SQL_NULL_DATA;
    if (null) return result;
    const auto rest = static_cast<std::size_t>(std::max<SQLLEN>(bytes, 0)) / sizeof(Letter);
    text.append(piece.data(), bytes == SQL_NO_TOTAL ? kPiece : std::min(rest, kPiece));
  }
  return SQL_SUCCESS;
}

}  // namespace

SQLRETURN DriverCalls::Connect(SQLHDBC connection, std::string_view text) const {
  if (wide_)
    return SQLDriverConnectW(connection, nullptr, WideArgument(text).Data(), SQL_NTS, nullptr, 0,
                             nullptr, SQL_DRIVER_NOPROMPT);
  return SQLDriverConnect(connection, nullptr, NarrowArgument(text).Data(), SQL_NTS, nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT);
}

SQLRETURN DriverCalls::Execute(SQLHSTMT statement, std::string_view text) const {
  if (wide_) return SQLExecDirectW(statement, WideArgument(text).Data(), SQL_NTS);
  return SQLExecDirect(statement, NarrowArgument(text).Data(), SQL_NTS);
}

SQLRETURN DriverCalls::Info(SQLHDBC connection, SQLUSMALLINT what, std::string& text) const {
  const auto get = [&](auto buffer, auto function, std::size_t letterBytes) {
    const auto result = function(connection, what, buffer.Data(),
                                 static_cast<SQLSMALLINT>(kMostLetters * letterBytes), nullptr);
    if (SQL_SUCCEEDED(result)) text = buffer.Text();
    return result;
  };
  return wide_ ? get(WideBuffer(), SQLGetInfoW, sizeof(SQLWCHAR))
               : get(NarrowBuffer(), SQLGetInfo, sizeof(SQLCHAR));
}

SQLRETURN DriverCalls::DescribeColumn(SQLHSTMT statement, SQLUSMALLINT number, std::string& name,
                                      SQLSMALLINT& type) const {
  const auto get = [&](auto buffer, auto function) {
    SQLSMALLINT length = 0;
    const auto result = function(statement, number, buffer.Data(), buffer.Size(), &length, &type,
                                 nullptr, nullptr, nullptr);
    if (SQL_SUCCEEDED(result)) name = buffer.Text();
    return result;
  };
  return wide_ ? get(WideBuffer(), SQLDescribeColW) : get(NarrowBuffer(), SQLDescribeCol);
}

SQLRETURN DriverCalls::NameColumn(SQLHSTMT statement, SQLUSMALLINT number, std::string& name,
                                  SQLSMALLINT& type) const {
  const auto get = [&](auto buffer, auto function, std::size_t letterBytes) {
    const auto result =
        function(statement, number, SQL_DESC_NAME, buffer.Data(),
                 static_cast<SQLSMALLINT>(kMostLetters * letterBytes), nullptr, nullptr);
    if (SQL_SUCCEEDED(result)) name = buffer.Text();
    return result;
  };
  const auto named = wide_ ? get(WideBuffer(), SQLColAttributeW, sizeof(SQLWCHAR))
                           : get(NarrowBuffer(), SQLColAttribute, sizeof(SQLCHAR));
  if (!SQL_SUCCEEDED(named)) return named;
  SQLLEN given = 0;
  const auto ask = [&](SQLUSMALLINT what) {
    return SQLColAttribute(statement, number, what, nullptr, 0, nullptr, &given);
  };
  auto typed = ask(SQL_DESC_TYPE);
  // Of dates and times it doesn't tell which.
  if (SQL_SUCCEEDED(typed) && given == SQL_DATETIME) typed = ask(SQL_DESC_CONCISE_TYPE);
  type = static_cast<SQLSMALLINT>(given);
  return typed;
}

SQLRETURN DriverCalls::DiagnosticRecord(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number,
                                        std::string& state, SQLINTEGER& native,
                                        std::string& text) const {
  const auto get = [&](auto stateBuffer, auto buffer, auto function) {
    SQLSMALLINT length = 0;
    const auto result = function(kind, handle, number, stateBuffer.Data(), &native, buffer.Data(),
                                 buffer.Size(), &length);
    if (SQL_SUCCEEDED(result)) {
      state = stateBuffer.Text();
      text = buffer.Text();
    }
    return result;
  };
  return wide_ ? get(Buffer<SQLWCHAR, kStateLetters + 1>(), WideBuffer(), SQLGetDiagRecW)
               : get(Buffer<SQLCHAR, kStateLetters + 1>(), NarrowBuffer(), SQLGetDiagRec);
}

SQLRETURN DriverCalls::CellText(SQLHSTMT statement, SQLUSMALLINT column, std::string& text,
                                bool& null) const {
  if (!wide_) return Pieces(statement, column, SQL_C_CHAR, text, null);
  std::u16string wide;
  const auto result = Pieces(statement, column, SQL_C_WCHAR, wide, null);
  text = FromWide(wide);
  return result;
}

}  // namespace quorvane::odbc

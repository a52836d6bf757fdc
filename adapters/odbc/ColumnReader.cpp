#include "adapters/odbc/ColumnReader.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <sqlext.h>

#include "adapters/odbc/DriverFailure.h"

namespace quorvane::odbc {
namespace {

template <class Number>
bool Parse(const std::string& text, Number& number) {
  const auto* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

}  // namespace

ColumnReader::ColumnReader(const DriverCalls& calls, SQLHSTMT statement, SQLUSMALLINT number,
                           bool typed)
    : calls_(calls), statement_(statement), number_(number) {
  SQLSMALLINT type = 0;
  Require(typed ? calls.NameColumn(statement, number, name_, type)
                : calls.DescribeColumn(statement, number, name_, type));
  kind_ = KindOf(type, typed);
}

ColumnReader::Kind ColumnReader::KindOf(SQLSMALLINT type, bool typed) {
  switch (type) {
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return typed ? Kind::Whole : Kind::Numeral;
    case SQL_BIT:
      return typed ? Kind::Bit : Kind::Numeral;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return typed ? Kind::Real : Kind::Numeral;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return Kind::Numeral;
    case SQL_DATETIME:
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return typed ? Kind::Date : Kind::Text;
    default:
      return Kind::Text;
  }
}

Value ColumnReader::Read() const {
  switch (kind_) {
    case Kind::Whole:
      return ReadWhole();
    case Kind::Bit:
      return ReadBit();
    case Kind::Real:
      return ReadReal();
    case Kind::Numeral:
      return ReadNumeral();
    case Kind::Date:
      return ReadDate();
    case Kind::Text:
      break;
  }
  return ReadText();
}

void ColumnReader::Require(SQLRETURN result) const {
  if (!SQL_SUCCEEDED(result)) throw DriverFailure({calls_, SQL_HANDLE_STMT, statement_});
}

bool ColumnReader::Get(SQLSMALLINT type, void* target, SQLLEN size) const {
  SQLLEN length = 0;
  Require(SQLGetData(statement_, number_, type, target, size, &length));
  return length != SQL_NULL_DATA;
}

Value ColumnReader::ReadWhole() const {
  std::int64_t number = 0;
  if (!Get(SQL_C_SBIGINT, &number, sizeof number)) return {};
  return Value(number);
}

// The module's True, as the file database keeps it.
Value ColumnReader::ReadBit() const {
  unsigned char bit = 0;
  if (!Get(SQL_C_BIT, &bit, sizeof bit)) return {};
  return Value(bit == 0 ? 0 : -1);
}

Value ColumnReader::ReadReal() const {
  double number = 0;
  if (!Get(SQL_C_DOUBLE, &number, sizeof number)) return {};
  return Value(number);
}

Value ColumnReader::ReadNumeral() const {
  auto value = ReadText();
  if (value.IsNull()) return value;
  const auto text = value.Text();
  if (std::int64_t whole = 0; Parse(text, whole)) return Value(whole);
  if (double number = 0; Parse(text, number)) return Value(number);
  return value;
}

Value ColumnReader::ReadDate() const {
  SQL_TIMESTAMP_STRUCT date{};
  if (!Get(SQL_C_TYPE_TIMESTAMP, &date, sizeof date)) return {};
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "%04d/%02u/%02u", int{date.year}, unsigned{date.month},
                unsigned{date.day});
  return Value(std::string(text.data()));
}

Value ColumnReader::ReadText() const {
  std::string text;
  auto null = false;
  Require(calls_.CellText(statement_, number_, text, null));
  if (null) return {};
  return Value(std::move(text));
}

}  // namespace quorvane::odbc

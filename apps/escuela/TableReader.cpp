#include "apps/escuela/TableReader.h"

#include <cstddef>
#include <string>

namespace quorvane {
namespace {

constexpr std::size_t kRows = 2000;

Recordset FirstOf(Recordset rows) {
  if (!rows.Eof()) rows.MoveFirst();
  return rows;
}

/// The value of a column in the last row, which the rows stay on.
std::string LastOf(Recordset& rows, std::size_t column) {
  for (auto left = rows.RecordCount(); left > 1; --left) rows.MoveNext();
  return rows.Fields(column).Text();
}

/// By the number that the file keeps of every row, which is its key where that is a whole number.
class SqliteReader : public TableReader {
 public:
  SqliteReader(Connection& school, const CopiedTable& table)
      : school_(school), table_(table), selection_(table.Selection()) {}

  Recordset Next() override {
    auto rows = school_.Execute("SELECT " + selection_ + ",rowid FROM [" + table_.name + "]" +
                                (last_.empty() ? "" : " WHERE rowid>" + last_) +
                                " ORDER BY rowid LIMIT " + std::to_string(kRows));
    if (rows.Eof()) return rows;
    last_ = LastOf(rows, table_.columns.size());
    return FirstOf(std::move(rows));
  }

 private:
  Connection& school_;
  const CopiedTable& table_;
  std::string selection_;
  std::string last_;
};

/// By a cursor of the transaction's.
class PostgreSqlReader : public TableReader {
 public:
  PostgreSqlReader(Connection& school, const CopiedTable& table) : school_(school) {
    const auto key = table.Key();
    // Else a large table is read from where another reader happens to be.
    school_.Execute("SET LOCAL synchronize_seqscans=off");
    school_.Execute("DECLARE copia NO SCROLL CURSOR FOR SELECT " + table.Selection() + " FROM [" +
                    table.name + "]" +
                    (key < table.columns.size() ? " ORDER BY [" + table.there[key] + "]" : ""));
  }

  Recordset Next() override {
    auto rows = school_.Execute("FETCH FORWARD " + std::to_string(kRows) + " FROM copia");
    if (rows.Eof()) school_.Execute("CLOSE copia");
    return rows;
  }

 private:
  Connection& school_;
};

/// By the key, or without one by all columns and the number of rows that are behind: equal rows are
/// the same wherever the engine parts them.
class SqlServerReader : public TableReader {
 public:
  SqlServerReader(Connection& school, const CopiedTable& table)
      : school_(school), table_(table), selection_(table.Selection()) {}

  Recordset Next() override {
    return table_.Key() < table_.columns.size() ? NextByKey() : NextByNumber();
  }

 private:
  // Each part sorts the table anew.
  static constexpr std::size_t kSortedRows = 20000;

  Recordset NextByKey() {
    const auto key = "[" + table_.there[table_.Key()] + "]";
    auto rows = school_.Execute(
        "SELECT TOP " + std::to_string(kRows) + " " + selection_ + " FROM [" + table_.name + "]" +
        (last_.empty() ? "" : " WHERE " + key + ">" + last_) + " ORDER BY " + key);
    if (rows.Eof()) return rows;
    last_ = LastOf(rows, table_.Key());
    return FirstOf(std::move(rows));
  }

  Recordset NextByNumber() {
    auto rows = school_.Execute("SELECT " + selection_ + " FROM [" + table_.name + "] ORDER BY " +
                                selection_ + " OFFSET " + std::to_string(behind_) +
                                " ROWS FETCH NEXT " + std::to_string(kSortedRows) + " ROWS ONLY");
    behind_ += rows.RecordCount();
    return rows;
  }

  Connection& school_;
  const CopiedTable& table_;
  std::string selection_;
  std::string last_;
  std::size_t behind_ = 0;
};

}  // namespace

std::unique_ptr<TableReader> TableReader::Make(Connection& school, sqltext::Engine engine,
                                               const CopiedTable& table) {
  switch (engine) {
    case sqltext::Engine::PostgreSql:
      return std::make_unique<PostgreSqlReader>(school, table);
    case sqltext::Engine::SqlServer:
      return std::make_unique<SqlServerReader>(school, table);
    default:
      return std::make_unique<SqliteReader>(school, table);
  }
}

}  // namespace quorvane

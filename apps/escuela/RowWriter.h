#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "adapters/sqltext/Dialect.h"
#include "platform/data/Connection.h"

namespace quorvane {

/// A value to write: a number, a True/False as the file database keeps it, or a text.
class Cell {
 public:
  Cell(int number) : number_(number) {}
  Cell(bool flag) : number_(flag ? -1 : 0) {}
  Cell(std::string_view text) : text_(text), isText_(true) {}
  Cell(const char* text) : Cell(std::string_view(text)) {}
  Cell(const std::string& text) : Cell(std::string_view(text)) {}

  void AppendTo(std::string& statement, sqltext::Engine engine) const;

 private:
  int number_ = 0;
  std::string_view text_;
  bool isText_ = false;
};

/// Writes rows of the school by position, in the order of the columns of the schema.
class RowWriter {
 public:
  explicit RowWriter(Connection& connection);

  /// `cells` are all columns of the table, in their order.
  void Insert(std::string_view table, std::initializer_list<Cell> cells);

 private:
  Connection& connection_;
  sqltext::Engine engine_;
  std::string statement_;
};

}  // namespace quorvane

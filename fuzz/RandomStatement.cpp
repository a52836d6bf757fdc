#include "fuzz/RandomStatement.h"

#include <array>
#include <string_view>
#include <vector>

namespace quorvane::fuzz {
namespace {

struct Table {
  std::string_view name;
  std::array<std::string_view, 3> columns;  ///< two of numbers, then one of any kind
};

constexpr std::array kTables{
    Table{"Alumno", {"IDAlumno", "CodSeccion", "Nombre"}},
    Table{"Seccion", {"IDSeccion", "CodCurso", "Descripcion"}},
    Table{"Curso", {"IDCurso", "CodTipoEnsenanza", "Descripcion"}},
    Table{"AlumnoPte_MatDet", {"IDAlumnoPte_MatDet", "CodAlumno", "UltimaEvaluada"}},
    Table{"EvaluacionPte", {"IDEvaluacionPte", "CodAlumnoPte_MatDet", "CodNota"}},
};

constexpr std::array<std::string_view, 26> kNumbers{"0",
                                                    "1",
                                                    "2",
                                                    "3",
                                                    "31",
                                                    "311",
                                                    "321",
                                                    "007",
                                                    "0x1F",
                                                    "0XfF",
                                                    "1.5",
                                                    ".5",
                                                    "3.",
                                                    "1e2",
                                                    "1E+2",
                                                    "2e-1",
                                                    "1.5e-3",
                                                    ".5E-1",
                                                    "9223372036854775807",
                                                    "9223372036854775808",
                                                    "-9223372036854775808",
                                                    "999999999999999999",
                                                    "1000000000000000000",
                                                    "123456789012345678901234567890",
                                                    "2147483648",
                                                    "1e400"};

constexpr std::array<std::string_view, 20> kTexts{
    "'a'",  "''",   "', '", "'O''Neil'", "'+'", "' + '",          "'1'",    "'12 + 3'", "'[x]'",
    "'\"'", "'--'", "'/*'", "'?'",       "';'", "' LEFT JOIN ('", "'FROM'", "'ñandú'",  "'\t'",
    "'\n'", "'%'"};

constexpr std::array<std::string_view, 6> kBlanks{" ", " ", "  ", "\t", "\n", "\r\n"};
constexpr std::array<std::string_view, 3> kComments{"/* 1 */", "-- it's 1\n", "/*' + '*/"};

class Writer {
 public:
  explicit Writer(Choices& choices) : choices_(choices) {}

  Statement Write() {
    const auto kind = choices_.Below(8);
    if (kind < 5) {
      Select(0);
    } else if (kind == 5) {
      Update();
    } else if (kind == 6) {
      Delete();
    } else {
      Insert();
    }
    return {Text(false), Text(true), kind >= 5};
  }

 private:
  void Put(std::string_view token) { tokens_.emplace_back(token); }

  void Select(int depth) {
    Put("SELECT");
    if (choices_.OneIn(6)) Put("DISTINCT");
    const auto grouped = depth == 0 && choices_.OneIn(6);
    tables_.clear();
    // The columns are written first and read from the tables that follow.
    const auto from = choices_.Below(3);
    PickTables(from);
    if (depth > 0) {
      Column();
    } else if (grouped) {
      Column();
      Put(",");
      Put("COUNT(*)");
    } else {
      Columns();
    }
    Put("FROM");
    Joins(from);
    if (choices_.Below(3) > 0) {
      Put("WHERE");
      Condition(0);
    }
    if (grouped) {
      Put("GROUP BY");
      Put("1");
      if (choices_.OneIn(3)) Put("HAVING COUNT(*) > 1");
      return;
    }
    if (depth == 0 && choices_.OneIn(4)) OrderAndLimit();
  }

  void OrderAndLimit() {
    // By all columns: which rows a limit leaves is not the engine's choice then.
    Put("ORDER BY");
    for (int i = 1; i <= columns_; ++i) {
      if (i > 1) Put(",");
      Put(std::to_string(i));
    }
    if (!plainColumns_ || choices_.Below(2) == 0) return;
    Put("LIMIT");
    Put(std::to_string(choices_.Below(5)));
    if (choices_.OneIn(3)) {
      Put("OFFSET");
      Put(std::to_string(choices_.Below(3)));
    }
  }

  void PickTables(std::size_t joins) {
    const auto first = choices_.Below(kTables.size());
    for (std::size_t i = 0; i <= joins; ++i)
      tables_.push_back(&kTables[(first + i) % kTables.size()]);
  }

  void Joins(std::size_t joins) {
    if (joins == 0) return Put(tables_[0]->name);
    const auto nested = choices_.Below(2) == 0;
    Put(tables_[0]->name);
    JoinWord(nested);
    if (joins == 1) {
      Put(tables_[1]->name);
      On(0, 1);
    } else if (nested) {
      Put("(");
      Put(tables_[1]->name);
      JoinWord(choices_.Below(4) > 0);
      Put(tables_[2]->name);
      On(1, 2);
      Put(")");
      On(0, 1);
    } else {
      Put(tables_[1]->name);
      On(0, 1);
      JoinWord(choices_.Below(2) == 0);
      Put(tables_[2]->name);
      On(choices_.Below(2), 2);
    }
  }

  void JoinWord(bool left) { Put(left ? "LEFT JOIN" : "INNER JOIN"); }

  void On(std::size_t one, std::size_t other) {
    Put("ON");
    ColumnOf(*tables_[one]);
    Put("=");
    ColumnOf(*tables_[other]);
    if (choices_.OneIn(6)) {
      Put("AND");
      ColumnOf(*tables_[other]);
      Put(">");
      Number();
    }
  }

  void Columns() {
    columns_ = 1 + static_cast<int>(choices_.Below(3));
    for (int i = 0; i < columns_; ++i) {
      if (i > 0) Put(",");
      if (choices_.Below(2) == 0) {
        Column();
        continue;
      }
      plainColumns_ = false;
      Expression(0);
      if (choices_.OneIn(3)) Put("AS valor" + std::to_string(i));
    }
  }

  void Column() { ColumnOf(*tables_[choices_.Below(tables_.size())]); }

  void ColumnOf(const Table& table) {
    const auto& column = choices_.Of(table.columns);
    switch (choices_.Below(4)) {
      case 1:
        return Put("[" + std::string(table.name) + "].[" + std::string(column) + "]");
      case 2:
        return Put("\"" + std::string(table.name) + "\"." + std::string(column));
      default:
        return Put(std::string(table.name) + "." + std::string(column));
    }
  }

  void Number() { Put(choices_.Of(kNumbers)); }

  void Expression(int depth) {
    switch (depth > 2 ? choices_.Below(3) : choices_.Below(10)) {
      case 0:
        return Column();
      case 1:
        return Number();
      case 2:
        return Put(choices_.Of(kTexts));
      case 3:
        Put("-");
        return Number();
      case 4:
        Put("(");
        Expression(depth + 1);
        return Put(")");
      case 5:
        Put("CASE WHEN");
        Condition(depth + 1);
        Put("THEN");
        Expression(depth + 1);
        Put("ELSE");
        Expression(depth + 1);
        return Put("END");
      default:
        Expression(depth + 1);
        Put(choices_.Of(std::array<std::string_view, 6>{"+", "+", "+", "-", "*", "||"}));
        return Expression(depth + 1);
    }
  }

  void Condition(int depth) {
    switch (depth > 2 ? 0 : choices_.Below(8)) {
      case 1:
        Condition(depth + 1);
        Put(choices_.Below(2) == 0 ? "AND" : "OR");
        return Condition(depth + 1);
      case 2:
        Put("NOT (");
        Condition(depth + 1);
        return Put(")");
      case 3:
        Column();
        return List();
      case 4:
        Column();
        Put("BETWEEN");
        Number();
        Put("AND");
        return Number();
      case 5:
        Column();
        return Put(choices_.Below(2) == 0 ? "IS NULL" : "IS NOT NULL");
      case 6: {
        Column();
        Put("IN (");
        auto outer = tables_;
        Select(1);
        tables_ = std::move(outer);
        return Put(")");
      }
      default:
        Expression(2);
        Put(choices_.Of(std::array<std::string_view, 6>{"=", "<>", "<", ">=", "!=", "LIKE"}));
        return Expression(2);
    }
  }

  void List() {
    Put(choices_.Below(2) == 0 ? "IN (" : "NOT IN (");
    const auto count = 1 + choices_.Below(choices_.OneIn(16) ? 80 : 4);
    for (std::size_t i = 0; i < count; ++i) {
      if (i > 0) Put(",");
      Number();
    }
    Put(")");
  }

  void Update() {
    PickTables(0);
    Put("UPDATE");
    Put(tables_[0]->name);
    Put("SET");
    Put(tables_[0]->columns[2]);
    Put("=");
    Expression(1);
    Put("WHERE");
    Condition(0);
  }

  void Delete() {
    PickTables(0);
    Put("DELETE FROM");
    Put(tables_[0]->name);
    Put("WHERE");
    Condition(0);
  }

  void Insert() {
    PickTables(0);
    Put("INSERT INTO");
    Put(tables_[0]->name);
    Put("(");
    Put(tables_[0]->columns[0]);
    Put(",");
    Put(tables_[0]->columns[2]);
    Put(") VALUES (");
    Number();
    Put(",");
    Put(choices_.Below(2) == 0 ? choices_.Of(kNumbers) : choices_.Of(kTexts));
    Put(")");
  }

  std::string Text(bool engine) {
    std::string text;
    auto blanks = choices_;
    // What has a comment isn't lifted: few have one.
    const auto commented = blanks.OneIn(8);
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      const auto nextToText = (i > 0 && tokens_[i - 1].front() == '\'') ||
                              (i + 1 < tokens_.size() && tokens_[i + 1].front() == '\'');
      text += engine && tokens_[i] == "+" && nextToText ? "||" : tokens_[i];
      text += blanks.Of(kBlanks);
      if (commented && blanks.OneIn(4)) text += blanks.Of(kComments);
    }
    return text;
  }

  Choices& choices_;
  std::vector<const Table*> tables_;
  std::vector<std::string> tokens_;
  int columns_ = 2;
  bool plainColumns_ = true;
};

}  // namespace

Statement RandomStatement(Choices& choices) { return Writer(choices).Write(); }

}  // namespace quorvane::fuzz

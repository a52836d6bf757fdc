#include "frame/schema/SchemaSql.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace quorvane {
namespace {

class Writer {
 public:
  explicit Writer(const SchemaEngine& engine) : engine_(engine) {}

  std::string Write(const SchemaDescription& description) {
    Line("-- The school database on " + std::string(engine_.name) + ".");
    Line("--");
    for (const auto& line : description.heading) Line(line);
    Line(engine_.note);
    for (const auto& table : description.tables) {
      Line("");
      AddTable(table);
    }
    Line("");
    Line(
        "-- For the statements of the module: without them the load of a class reads whole tables.");
    for (const auto& table : description.tables)
      for (const auto& columns : table.indexes) AddIndex(table.name, columns);
    return std::move(sql_);
  }

 private:
  void AddTable(const SchemaTable& table) {
    for (const auto& line : table.comment) Line(line);
    Line("CREATE TABLE " + Name(table.name) + " (" + Mark(table.byPosition ? kByPosition : ""));
    std::string key;
    for (const auto& column : table.columns)
      if (engine_.namedKey && column.kind == SchemaKind::Key) key = column.name;
    for (const auto& column : table.columns) {
      const auto last = key.empty() && &column == &table.columns.back();
      Line("  " + Name(column.name) + " " + Type(column.kind) + (last ? "" : ",") +
           Mark(kSchemaMarkWords.at(static_cast<std::size_t>(column.mark))));
    }
    if (!key.empty())
      Line("  CONSTRAINT " + Name("PK_" + table.name) + " PRIMARY KEY (" + Name(key) + ")");
    Line(");");
  }

  void AddIndex(const std::string& table, const std::vector<std::string>& columns) {
    std::string names;
    for (const auto& column : columns) names += (names.empty() ? "" : ", ") + Name(column);
    Line("CREATE INDEX " + Name("Idx_" + table + "_" + columns.front()) + " ON " + Name(table) +
         " (" + names + ");");
  }

  void Line(std::string_view line) { sql_.append(line) += '\n'; }

  static std::string Mark(std::string_view words) {
    return words.empty() ? "" : "  -- " + std::string(words);
  }

  [[nodiscard]] std::string Type(SchemaKind kind) const {
    return std::string(engine_.types.at(static_cast<std::size_t>(kind)));
  }

  [[nodiscard]] std::string Name(const std::string& name) const {
    const std::string quote(engine_.quote);
    return quote + name + quote;
  }

  const SchemaEngine& engine_;
  std::string sql_;
};

}  // namespace

std::string SchemaSql(const SchemaDescription& description, const SchemaEngine& engine) {
  return Writer(engine).Write(description);
}

}  // namespace quorvane

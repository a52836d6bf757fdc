#include <algorithm>

#include "adapters/sqlite/SqliteConnection.h"
#include "frame/schema/SchoolSchema.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

const SchemaTable& Table(const std::string& name) {
  const auto& tables = SchoolTables();
  return *std::find_if(tables.begin(), tables.end(),
                       [&](const SchemaTable& table) { return table.name == name; });
}

class NewSchoolFileTest : public testing::Test {
 protected:
  NewSchoolFileTest() {
    school_.Execute("BEGIN");
    for (const auto& statement : SchemaStatements(SqliteSchema())) school_.Execute(statement);
  }

  /// The values of a row each, with blanks between them.
  std::vector<std::string> Rows(const std::string& select) {
    std::vector<std::string> lines;
    for (auto rows = school_.Execute(select); !rows.Eof(); rows.MoveNext()) {
      auto& line = lines.emplace_back();
      for (std::size_t i = 0; i < rows.Names().size(); ++i)
        line += (i == 0 ? "" : " ") + rows.Fields(i).Text();
    }
    return lines;
  }

 private:
  const TempFolder folder_;
  Opened<sqlite::SqliteConnection> school_{folder_ / "a.sqlite", "", sqlite::OpenMode::Create};
};

TEST_F(NewSchoolFileTest, HasTheTablesOfTheDescription) {
  std::vector<std::string> names;
  for (const auto& table : SchoolTables()) names.push_back(table.name);
  EXPECT_EQ(names.size(), 29U);
  EXPECT_EQ(Rows("SELECT name FROM sqlite_master WHERE type='table' ORDER BY rowid"), names);
}

TEST_F(NewSchoolFileTest, HasTheColumnsOfTheDescriptionAndItsKeys) {
  for (const auto& table : SchoolTables()) {
    std::vector<std::string> columns;
    for (const auto& column : table.columns) {
      const auto key = column.kind == SchemaKind::Key;
      const auto text = column.kind == SchemaKind::Text || column.kind == SchemaKind::Date;
      columns.push_back(column.name + (text ? " TEXT" : " INTEGER") + (key ? " 1" : " 0") +
                        (text || key ? " none" : " 0"));
    }
    EXPECT_EQ(Rows("SELECT name, type, pk, coalesce(dflt_value, 'none') FROM pragma_table_info('" +
                   table.name + "') ORDER BY cid"),
              columns)
        << table.name;
  }
}

TEST_F(NewSchoolFileTest, HasTheIndexesOfTheDescription) {
  auto indexes = 0;
  for (const auto& table : SchoolTables())
    for (const auto& columns : table.indexes) {
      ++indexes;
      EXPECT_EQ(Rows("SELECT name FROM pragma_index_info('Idx_" + table.name + "_" +
                     columns.front() + "') ORDER BY seqno"),
                columns)
          << table.name;
    }
  EXPECT_EQ(Rows("SELECT COUNT(*) FROM sqlite_master WHERE type='index'"),
            std::vector{std::to_string(indexes)});
}

TEST(SchoolSchemaTest, AllEnginesGetTheSameTablesAndIndexes) {
  const auto head = [](const std::string& statement) {
    return statement.substr(0, statement.find('\n'));
  };
  const auto sqlite = SchemaStatements(SqliteSchema());
  for (const auto text : {SqlServerSchema(), PostgreSqlSchema()}) {
    const auto server = SchemaStatements(text);
    ASSERT_EQ(sqlite.size(), server.size());
    for (std::size_t i = 0; i < sqlite.size(); ++i) EXPECT_EQ(head(sqlite[i]), head(server[i]));
  }
}

TEST(SchoolSchemaTest, OnlyPrimaryKeysAreUnique) {
  for (const auto text : {SqliteSchema(), SqlServerSchema(), PostgreSqlSchema()})
    for (const auto* word : {"UNIQUE", "REFERENCES", "FOREIGN"})
      EXPECT_EQ(text.find(word), std::string_view::npos) << word;
}

TEST(SchoolSchemaTest, TellsKeysFlagsTextsAndPlaces) {
  const auto& pending = Table("AlumnoPte_MatDet");
  EXPECT_TRUE(pending.byPosition);
  EXPECT_EQ(pending.columns[0].kind, SchemaKind::Key);
  EXPECT_EQ(pending.columns[1].kind, SchemaKind::Long);
  EXPECT_EQ(pending.columns[3].kind, SchemaKind::Byte);
  EXPECT_EQ(pending.columns[4].mark, SchemaMark::FreeName);

  const auto& grades = Table("EvaluacionPte");
  EXPECT_EQ(grades.columns[2].mark, SchemaMark::None);
  EXPECT_EQ(grades.columns[3].mark, SchemaMark::FreePlace);
  EXPECT_EQ(grades.columns[3].kind, SchemaKind::Flag);

  const auto& student = Table("Alumno");
  EXPECT_FALSE(student.byPosition);
  EXPECT_EQ(student.columns[1].kind, SchemaKind::Text);
  EXPECT_EQ(student.columns[7].kind, SchemaKind::Date);

  EXPECT_EQ(Table("Usuario").columns[3].mark, SchemaMark::Host);
  for (const auto& column : Table("BloqueoPte").columns) EXPECT_NE(column.kind, SchemaKind::Key);
}

TEST(SchoolSchemaTest, ThePublicationNamesItsConstantAsTheSection) {
  std::vector<std::string> names;
  for (const auto& column : Table("PublicacionPte").columns) names.push_back(column.name);
  EXPECT_THAT(names, ElementsAre("IDPublicacionPte", "CodProfesor", "CodPropietario", "CodSeccion",
                                 "CodNumEvaluacion"));
}

}  // namespace
}  // namespace quorvane::test

#include <algorithm>
#include <string>

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

std::vector<std::string> Names(const SchemaTable& table) {
  std::vector<std::string> names;
  for (const auto& column : table.columns) names.push_back(column.name);
  return names;
}

TEST(SchoolSchemaTest, TheDescriptionIsWhatTheFileDatabaseHas) {
  const TempFolder folder;
  Opened<sqlite::SqliteConnection> school(folder / "a.sqlite", "", sqlite::OpenMode::Create);
  school.Execute("BEGIN");
  for (const auto& statement : SchemaStatements(SqliteSchema())) school.Execute(statement);
  EXPECT_EQ(SchoolTables().size(), 29U);
  for (const auto& table : SchoolTables())
    EXPECT_EQ(school.Execute("SELECT * FROM " + table.name).Names(), Names(table)) << table.name;
  EXPECT_EQ(school.Execute("SELECT name FROM sqlite_master WHERE type='table'").RecordCount(), 29U);
}

TEST(SchoolSchemaTest, BothEnginesGetTheSameTablesAndIndexes) {
  const auto head = [](const std::string& statement) {
    return statement.substr(0, statement.find('\n'));
  };
  const auto sqlite = SchemaStatements(SqliteSchema());
  const auto server = SchemaStatements(SqlServerSchema());
  ASSERT_EQ(sqlite.size(), server.size());
  for (std::size_t i = 0; i < sqlite.size(); ++i) EXPECT_EQ(head(sqlite[i]), head(server[i]));
}

TEST(SchoolSchemaTest, OnlyPrimaryKeysAreUnique) {
  for (const auto text : {SqliteSchema(), SqlServerSchema()})
    for (const auto* word : {"UNIQUE", "REFERENCES", "FOREIGN"})
      EXPECT_EQ(text.find(word), std::string_view::npos) << word;
}

TEST(SchoolSchemaTest, TellsKeysFlagsTextsAndPlaces) {
  const auto& pending = Table("AlumnoPte_MatDet");
  EXPECT_TRUE(pending.byPosition);
  EXPECT_TRUE(pending.columns[0].key);
  EXPECT_FALSE(pending.columns[1].key);
  EXPECT_TRUE(pending.columns[4].freeName);

  const auto& grades = Table("EvaluacionPte");
  EXPECT_FALSE(grades.columns[2].freePlace);
  EXPECT_TRUE(grades.columns[3].freePlace);
  EXPECT_TRUE(grades.columns[3].flag);

  const auto& student = Table("Alumno");
  EXPECT_FALSE(student.byPosition);
  EXPECT_TRUE(student.columns[1].text);
  EXPECT_TRUE(student.columns[7].text);

  EXPECT_TRUE(Table("Usuario").columns[3].forHost);
  for (const auto& column : Table("BloqueoPte").columns) EXPECT_FALSE(column.key);
}

TEST(SchoolSchemaTest, ThePublicationNamesItsConstantAsTheSection) {
  EXPECT_THAT(Names(Table("PublicacionPte")),
              ElementsAre("IDPublicacionPte", "CodProfesor", "CodPropietario", "CodSeccion",
                          "CodNumEvaluacion"));
}

}  // namespace
}  // namespace quorvane::test

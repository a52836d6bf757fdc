#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include "frame/schema/SchemaDescription.h"

namespace quorvane::test {
namespace {

using testing::ElementsAre;
using testing::FieldsAre;
using testing::IsEmpty;

/// Why a description can't be read; empty when it can.
std::string Refusal(const std::string& text) {
  try {
    ReadSchema(text);
    return "";
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
}

TEST(SchemaDescriptionTest, TellsTablesColumnsAndIndexesInTheirOrder) {
  const auto school = ReadSchema(R"(# Not in the SQL.
-- On the whole.
-- In two lines.

-- On Nota.
table Nota by position
  IDNota  key
  Nombre  text  free name
  index IDNota, Nombre
  index Nombre

table Curso
  Orden byte)");
  EXPECT_THAT(school.heading, ElementsAre("-- On the whole.", "-- In two lines."));
  // Name, comment, columns, indexes, and whether it is filled by position.
  EXPECT_THAT(
      school.tables,
      ElementsAre(
          FieldsAre("Nota", ElementsAre("-- On Nota."),
                    ElementsAre(FieldsAre("IDNota", SchemaKind::Key, SchemaMark::None),
                                FieldsAre("Nombre", SchemaKind::Text, SchemaMark::FreeName)),
                    ElementsAre(ElementsAre("IDNota", "Nombre"), ElementsAre("Nombre")), true),
          FieldsAre("Curso", IsEmpty(),
                    ElementsAre(FieldsAre("Orden", SchemaKind::Byte, SchemaMark::None)), IsEmpty(),
                    false)));
}

TEST(SchemaDescriptionTest, MayHaveNoHeading) {
  const auto school = ReadSchema("-- On A.\ntable A\nB long");
  EXPECT_THAT(school.heading, IsEmpty());
  EXPECT_THAT(school.tables.at(0).comment, ElementsAre("-- On A."));
}

TEST(SchemaDescriptionTest, NamesTheLineThatIsWrong) {
  EXPECT_EQ(Refusal("\n# x\n  IDNota key\n"), "line 3: 'IDNota' stands in no table");
  EXPECT_EQ(Refusal("table\n"), "line 1: a table has a name");
  EXPECT_EQ(Refusal("table A by positon\n"), "line 1: a table can't be 'by positon'");
  EXPECT_EQ(Refusal("table A\nB long\ntable a\n"), "line 3: there is a table a already");
  EXPECT_EQ(Refusal("table A\n\ntable B\nC long\n"), "line 3: the table A above has no columns");
  EXPECT_EQ(Refusal("table A\n"), "line 1: the table A above has no columns");
}

TEST(SchemaDescriptionTest, NamesTheColumnThatIsWrong) {
  EXPECT_EQ(Refusal("table A\n  B\n"), "line 2: the column B has no kind");
  EXPECT_EQ(Refusal("table A\n  B lnog\n"), "line 2: there is no kind 'lnog'");
  EXPECT_EQ(Refusal("table A\n  B long free\n"), "line 2: there is no mark 'free'");
  EXPECT_EQ(Refusal("table A\n  B long\n  b text\n"), "line 3: A has a column b already");
  EXPECT_EQ(Refusal("table A\n  B key\n  C key\n"), "line 3: A has a key already");
  EXPECT_EQ(Refusal("table A\n  B key\n  index\n"), "line 3: an index has columns");
  EXPECT_EQ(Refusal("table A\n  B key\n  index B, C\n"), "line 3: A has no column C");
}

TEST(SchemaDescriptionTest, HasCommentsAboveTablesAlone) {
  EXPECT_EQ(Refusal("table A\n-- On B.\n  B long\n"), "line 3: a comment stands above a table");
  EXPECT_EQ(Refusal("table A\n  B long\n-- On A.\n\n"), "line 4: a comment stands above a table");
  EXPECT_EQ(Refusal("-- One.\n\n-- Two.\n\ntable A\n  B long\n"),
            "line 4: a comment stands above a table");
  EXPECT_EQ(Refusal("table A\n  B long\n-- The end."), "line 3: a comment stands above a table");
}

}  // namespace
}  // namespace quorvane::test

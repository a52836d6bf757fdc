#include <gtest/gtest.h>

#include "frame/schema/SchemaSql.h"

namespace quorvane::test {
namespace {

const auto kEveryKind = ReadSchema(
    "-- Of the tables.\n"
    "\n"
    "-- All kinds.\n"
    "table Todo by position\n"
    "  IDTodo   key\n"
    "  Largo    long   free place\n"
    "  Corto    short  free name\n"
    "  Octeto   byte   host\n"
    "  Bandera  flag\n"
    "  Texto    text\n"
    "  Fecha    date   host\n"
    "  index Largo, Corto\n"
    "\n"
    "table Sin_clave\n"
    "  Largo  long\n"
    "  index Largo\n");

TEST(SchemaSqlTest, OfSqlite) {
  EXPECT_EQ(SchemaSql(kEveryKind, kSqliteEngine),
            "-- The school database on SQLite.\n"
            "--\n"
            "-- Of the tables.\n"
            "-- A flag is 0 or -1; a date is a text.\n"
            "\n"
            "-- All kinds.\n"
            "CREATE TABLE Todo (  -- by position\n"
            "  IDTodo INTEGER PRIMARY KEY,\n"
            "  Largo INTEGER DEFAULT 0,  -- free place\n"
            "  Corto INTEGER DEFAULT 0,  -- free name\n"
            "  Octeto INTEGER DEFAULT 0,  -- host\n"
            "  Bandera INTEGER DEFAULT 0,\n"
            "  Texto TEXT,\n"
            "  Fecha TEXT  -- host\n"
            ");\n"
            "\n"
            "CREATE TABLE Sin_clave (\n"
            "  Largo INTEGER DEFAULT 0\n"
            ");\n"
            "\n"
            "-- For the statements of the module: without them the load of a class reads whole "
            "tables.\n"
            "CREATE INDEX Idx_Todo_Largo ON Todo (Largo, Corto);\n"
            "CREATE INDEX Idx_Sin_clave_Largo ON Sin_clave (Largo);\n");
}

TEST(SchemaSqlTest, OfSqlServerNamesThePrimaryKeysConstraint) {
  EXPECT_EQ(
      SchemaSql(kEveryKind, kSqlServerEngine),
      "-- The school database on SQL Server.\n"
      "--\n"
      "-- Of the tables.\n"
      "-- A flag is a bit, which takes the -1 that the module writes as 1; a date is a text.\n"
      "\n"
      "-- All kinds.\n"
      "CREATE TABLE Todo (  -- by position\n"
      "  IDTodo int NOT NULL,\n"
      "  Largo int DEFAULT 0,  -- free place\n"
      "  Corto smallint DEFAULT 0,  -- free name\n"
      "  Octeto tinyint DEFAULT 0,  -- host\n"
      "  Bandera bit DEFAULT 0,\n"
      "  Texto nvarchar(255),\n"
      "  Fecha varchar(10),  -- host\n"
      "  CONSTRAINT PK_Todo PRIMARY KEY (IDTodo)\n"
      ");\n"
      "\n"
      "CREATE TABLE Sin_clave (\n"
      "  Largo int DEFAULT 0\n"
      ");\n"
      "\n"
      "-- For the statements of the module: without them the load of a class reads whole "
      "tables.\n"
      "CREATE INDEX Idx_Todo_Largo ON Todo (Largo, Corto);\n"
      "CREATE INDEX Idx_Sin_clave_Largo ON Sin_clave (Largo);\n");
}

TEST(SchemaSqlTest, OfAnEngineThatAsksForQuotes) {
  constexpr SchemaEngine kQuoting = {
      .name = "another engine",
      .note = "-- All in quotes.",
      .types = {"k", "l", "s", "b", "f", "t", "d"},
      .quote = "\"",
      .namedKey = true,
  };
  const auto school =
      ReadSchema("-- Of one.\n\ntable Nota\nIDNota key\nNombre text\nindex Nombre\n");
  EXPECT_EQ(SchemaSql(school, kQuoting),
            "-- The school database on another engine.\n"
            "--\n"
            "-- Of one.\n"
            "-- All in quotes.\n"
            "\n"
            "CREATE TABLE \"Nota\" (\n"
            "  \"IDNota\" k,\n"
            "  \"Nombre\" t,\n"
            "  CONSTRAINT \"PK_Nota\" PRIMARY KEY (\"IDNota\")\n"
            ");\n"
            "\n"
            "-- For the statements of the module: without them the load of a class reads whole "
            "tables.\n"
            "CREATE INDEX \"Idx_Nota_Nombre\" ON \"Nota\" (\"Nombre\");\n");
}

}  // namespace
}  // namespace quorvane::test

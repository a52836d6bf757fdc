#include <gtest/gtest.h>

#include "frame/schema/SchemaSql.h"

namespace quorvane::test {
namespace {

const auto kEveryKind = ReadSchema(
    R"(-- Of the tables.

-- All kinds.
table Todo by position
  IDTodo   key
  Largo    long   free place
  Corto    short  free name
  Octeto   byte   host
  Bandera  flag
  Texto    text
  Fecha    date   host
  index Largo, Corto

table Sin_clave
  Largo  long
  index Largo
)");

TEST(SchemaSqlTest, OfSqlite) {
  EXPECT_EQ(SchemaSql(kEveryKind, kSqliteEngine),
            R"(-- The school database on SQLite.
--
-- Of the tables.
-- A flag is 0 or -1; a date is a text.

-- All kinds.
CREATE TABLE Todo (  -- by position
  IDTodo INTEGER PRIMARY KEY,
  Largo INTEGER DEFAULT 0,  -- free place
  Corto INTEGER DEFAULT 0,  -- free name
  Octeto INTEGER DEFAULT 0,  -- host
  Bandera INTEGER DEFAULT 0,
  Texto TEXT,
  Fecha TEXT  -- host
);

CREATE TABLE Sin_clave (
  Largo INTEGER DEFAULT 0
);

-- For the statements of the module: without them the load of a class reads whole tables.
CREATE INDEX Idx_Todo_Largo ON Todo (Largo, Corto);
CREATE INDEX Idx_Sin_clave_Largo ON Sin_clave (Largo);
)");
}

TEST(SchemaSqlTest, OfSqlServerNamesThePrimaryKeysConstraint) {
  EXPECT_EQ(SchemaSql(kEveryKind, kSqlServerEngine),
            R"(-- The school database on SQL Server.
--
-- Of the tables.
-- A flag is a bit, which takes the -1 that the module writes as 1; a date is a text.

-- All kinds.
CREATE TABLE Todo (  -- by position
  IDTodo int NOT NULL,
  Largo int DEFAULT 0,  -- free place
  Corto smallint DEFAULT 0,  -- free name
  Octeto tinyint DEFAULT 0,  -- host
  Bandera bit DEFAULT 0,
  Texto nvarchar(255),
  Fecha varchar(10),  -- host
  CONSTRAINT PK_Todo PRIMARY KEY (IDTodo)
);

CREATE TABLE Sin_clave (
  Largo int DEFAULT 0
);

-- For the statements of the module: without them the load of a class reads whole tables.
CREATE INDEX Idx_Todo_Largo ON Todo (Largo, Corto);
CREATE INDEX Idx_Sin_clave_Largo ON Sin_clave (Largo);
)");
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
            R"(-- The school database on another engine.
--
-- Of one.
-- All in quotes.

CREATE TABLE "Nota" (
  "IDNota" k,
  "Nombre" t,
  CONSTRAINT "PK_Nota" PRIMARY KEY ("IDNota")
);

-- For the statements of the module: without them the load of a class reads whole tables.
CREATE INDEX "Idx_Nota_Nombre" ON "Nota" ("Nombre");
)");
}

}  // namespace
}  // namespace quorvane::test

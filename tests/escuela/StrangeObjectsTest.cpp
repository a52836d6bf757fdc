// Rules that somebody has given a school's tables, by which it refuses what is written, or keeps
// other rows than were: whatever the check passes takes a whole year of grades.

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/Transaction.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/repair/SchoolRepair.h"
#include "apps/quorvane-guion/PlayScript.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/text/AsciiCase.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"

namespace quorvane::test {
namespace {

constexpr auto kEnding = ", que no es de estos programas y puede impedir que se escriba en ella";

std::string Finding(const std::string& table, const std::string& object) {
  return "La tabla " + table + " tiene " + object + kEnding;
}

std::string Joint(const std::vector<std::string>& columns) {
  std::string text;
  for (const auto& column : columns) text += (text.empty() ? "" : ", ") + column;
  return text;
}

std::vector<std::string> OtherThanKey(const SchemaTable& table) {
  std::vector<std::string> columns;
  for (const auto& column : table.columns)
    if (column.kind != SchemaKind::Key) columns.push_back(column.name);
  return columns;
}

/// Those that are written.
std::vector<SchemaTable> WrittenTables() {
  std::vector<SchemaTable> tables;
  for (const auto& table : SchoolTables())
    if (table.byPosition) tables.push_back(table);
  EXPECT_EQ(tables.size(), 10U);
  return tables;
}

std::string Rule(const std::string& table, const std::string& rule) {
  return "ALTER TABLE " + table + " ADD CONSTRAINT ajena " + rule;
}

class StrangeObjectsTest : public testing::Test {
 protected:
  void SetUp() override {
    if (OnServer()) GTEST_SKIP() << "of a file";
  }
  void Change(const std::string& statements) { school_.Sql(statements); }
  [[nodiscard]] std::vector<std::string> Strange() { return SchoolCheck(school_.Db()).Strange(); }
  /// The text by which a table was made, as anybody may write it into a file.
  void Rewrite(const std::string& table, const std::string& sql) {
    Change("PRAGMA writable_schema=ON; UPDATE sqlite_master SET sql='" + sql +
           "' WHERE type='table' AND name='" + table + "'; PRAGMA writable_schema=RESET");
  }
  [[nodiscard]] std::string Made(const std::string& table) {
    return school_
        .FirstColumn(
            "SELECT replace(sql,'''','''''') FROM sqlite_master WHERE type='table' AND name='" +
            table + "'")
        .at(0);
  }
  /// With a clause at the end of its columns.
  [[nodiscard]] static std::string With(std::string sql, const std::string& clause) {
    return sql.insert(sql.rfind(')'), ", " + clause);
  }
  [[nodiscard]] static std::string Instead(std::string sql, const std::string& text,
                                           const std::string& by) {
    const auto at = sql.find(text);
    return at == std::string::npos ? sql : sql.replace(at, text.size(), by);
  }

  OpenSchool school_;
};

TEST_F(StrangeObjectsTest, ASchoolsOwnAreNone) {
  UserPasswords(school_.Db()).Set(3, "alcachofas azules");
  GradeHistory(school_.Db()).Activate();
  EXPECT_THAT(Strange(), IsEmpty());
}

TEST_F(StrangeObjectsTest, EachIsFoundOnWhicheverTable) {
  for (const auto& table : WrittenTables()) {
    const auto columns = OtherThanKey(table);
    const auto& first = columns.front();
    const auto found = [&](const std::string& object) {
      EXPECT_THAT(Strange(), ElementsAre(Finding(table.name, object)));
      Change("DROP INDEX ajeno");
    };
    const auto made = Made(table.name);
    const auto rewritten = [&](const std::string& sql, const std::string& object) {
      Rewrite(table.name, sql);
      EXPECT_THAT(Strange(), Contains(Finding(table.name, object))) << sql;
      Rewrite(table.name, made);
    };
    Change("DELETE FROM " + table.name + "; CREATE UNIQUE INDEX ajeno ON " + table.name + " (" +
           Joint(columns) + ")");
    found("el índice «ajeno» de " + Joint(columns));
    Change("CREATE INDEX ajeno ON " + table.name + " (abs(" + first + "))");
    found("el índice «ajeno»");
    Change("CREATE INDEX ajeno ON " + table.name + " (" + first + ") WHERE abs(" + first + ")<9");
    found("el índice «ajeno»");
    rewritten(With(made, "CHECK (" + first + "<9)"), "la condición «CHECK»");
    rewritten(With(made, "FOREIGN KEY (" + first + ") REFERENCES Otra (a)"),
              "la clave ajena «" + table.name + "." + first + "»");
    rewritten(Instead(made, first + " INTEGER", first + " INTEGER NOT NULL"),
              "la condición «NOT NULL» de " + first);
    rewritten(With(made, "UNIQUE (" + first + ") ON CONFLICT REPLACE"),
              "la condición «ON CONFLICT»");
    rewritten(Instead(made, "DEFAULT 0", "DEFAULT (abs(0))"), "la condición «DEFAULT»");
    rewritten(Instead(made, first + " INTEGER", first + " INTEGER COLLATE ajeno"),
              "la condición «COLLATE ajeno»");
    rewritten(made + " STRICT", "la condición «STRICT»");
  }
}

TEST_F(StrangeObjectsTest, AKeyThatIsNoneOfTheSchoolsIsFound) {
  Rewrite("Profesor_Pte",
          "CREATE TABLE Profesor_Pte (CodProfesor INTEGER, CodMatDet INTEGER PRIMARY KEY)");
  EXPECT_THAT(Strange(),
              ElementsAre(Finding("Profesor_Pte", "el índice «PRIMARY KEY» de CodMatDet")));
  Rewrite("BloqueoPte",
          "CREATE TABLE BloqueoPte (CodProfesor INTEGER, CodNumEvaluacion INTEGER, "
          "CodMatDet INTEGER, CodUsuario INTEGER, CodPublicacion INTEGER, PRIMARY "
          "KEY (CodMatDet, CodUsuario)) WITHOUT ROWID");
  EXPECT_THAT(Strange(),
              Contains(HasSubstr("BloqueoPte tiene el índice «PRIMARY KEY» de CodMatDet, "
                                 "CodUsuario,")));
}

/// Triggers: of a file, or on the server that the tests run beside.
class StrangeTriggersTest : public testing::Test {
 protected:
  // On a server the next test takes the same database.
  void TearDown() override {
    school_.ForgetHistory();
    if (OnServer())
      school_.Sql(
          "DROP TRIGGER IF EXISTS ajeno ON PublicacionPte;"
          "DROP TRIGGER IF EXISTS Historial_EvaluacionPte_UPDATE ON Alumno;"
          "DROP FUNCTION IF EXISTS ajeno()");
  }

  /// One that refuses what is inserted.
  void Hang(const std::string& name, const std::string& table) const {
    school_.Sql(
        OnServer()
            ? "CREATE OR REPLACE FUNCTION ajeno() RETURNS trigger LANGUAGE plpgsql AS $ajeno$ "
              "BEGIN RAISE EXCEPTION 'no'; END $ajeno$; CREATE TRIGGER " +
                  name + " BEFORE INSERT ON " + table + " FOR EACH ROW EXECUTE FUNCTION ajeno()"
            : "CREATE TRIGGER " + name + " BEFORE INSERT ON " + table +
                  " BEGIN SELECT RAISE(ABORT,'no'); END");
  }
  [[nodiscard]] std::vector<std::string> Found() const {
    return SchoolCheck(school_.Db()).Strange();
  }

  AnySchool school_;
  GradeHistory history_{school_.Db()};
};

TEST_F(StrangeTriggersTest, OneThatRefusesIsFoundAndRepairLeavesIt) {
  EXPECT_THAT(Found(), IsEmpty());
  Hang("ajeno", "PublicacionPte");
  const auto finding = Finding("PublicacionPte", "el disparador «ajeno»");
  EXPECT_THAT(Found(), ElementsAre(finding));
  EXPECT_THAT(Escuela("comprobar " + school_.Argument()),
              FieldsAre(1, AllOf(HasSubstr(finding + "\n"),
                                 EndsWith("\nApta para el módulo, con avisos\n"))));

  school_.Rest();
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  ASSERT_THAT(SchoolCheck(school_.Db()).Rows(), Not(IsEmpty()));
  EXPECT_GT(RepairSchool(school_.Address(), {.backedUp = true}).removed, 0U);
  EXPECT_THAT(SchoolCheck(school_.Db()).Rows(), IsEmpty());
  EXPECT_THAT(Found(), ElementsAre(finding));
}

TEST_F(StrangeTriggersTest, TheHistorysAreNone) {
  history_.Activate();
  EXPECT_THAT(Found(), IsEmpty());
  EXPECT_THAT(Escuela("comprobar " + school_.Argument()).text, Not(HasSubstr("disparador")));
  if (OnServer()) return;
  EXPECT_THAT(Escuela("comprobar --odbc 'Driver=SQLite3;Database=" + school_.Path() + "'").text,
              AllOf(HasSubstr("Apta para"), Not(HasSubstr("disparador"))));
}

TEST_F(StrangeTriggersTest, AHistorysNameOnAnotherTableHidesNone) {
  history_.Activate();
  if (!OnServer()) school_.Sql("DROP TRIGGER Historial_EvaluacionPte_UPDATE");
  Hang("Historial_EvaluacionPte_UPDATE", "Alumno");
  EXPECT_THAT(Found(), ElementsAre(HasSubstr("La tabla Alumno tiene el disparador «")));
}

TEST_F(StrangeTriggersTest, InAFileAHistorysNameWithAnotherTextHidesNone) {
  if (OnServer()) GTEST_SKIP() << "there a trigger is its owner's affair";
  history_.Activate();
  school_.Sql("DROP TRIGGER Historial_EvaluacionPte_INSERT");
  Hang("historial_evaluacionpte_insert", "EvaluacionPte");
  EXPECT_THAT(Found(), ElementsAre(HasSubstr("EvaluacionPte tiene el disparador")));
}

TEST_F(StrangeTriggersTest, OneOnATableOfNobodysIsNoAffairOfTheSchools) {
  if (OnServer()) GTEST_SKIP() << "the next test takes the same database";
  school_.Sql("CREATE TABLE Otra (A INTEGER)");
  Hang("ajeno", "Otra");
  EXPECT_THAT(Found(), IsEmpty());
}

/// The same on a server, where the owner's changes are undone with their transaction.
class ServerObjectsTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "of a server";
  }
  /// What is told where the owner has written that, and nothing else has been.
  [[nodiscard]] std::vector<std::string> After(const std::vector<std::string>& statements) const {
    const Transaction undone(school_.Db());
    for (const auto& statement : statements) school_.Sql(statement);
    const SchoolCheck check(school_.Db());
    auto findings = check.Structure(SchoolCheck::For::Module);
    return findings.empty() ? check.Strange() : findings;
  }

  AnySchool school_;
};

TEST_F(ServerObjectsTest, EachIsFoundOnWhicheverTable) {
  EXPECT_THAT(After({}), IsEmpty());
  for (const auto& table : WrittenTables()) {
    const auto columns = OtherThanKey(table);
    const auto& first = columns.front();
    const auto low = AsciiLower(first);
    const auto found = [&](const std::string& object, const std::string& statement,
                           const std::string& before = "SELECT 1") {
      EXPECT_THAT(After({"DELETE FROM " + table.name, before, statement}),
                  ElementsAre(Finding(table.name, object)))
          << statement;
    };
    const auto on = " ON " + table.name + " ";
    const auto column = "ALTER TABLE " + table.name + " ALTER COLUMN " + first;
    const auto secured = "ALTER TABLE " + table.name + " ENABLE ROW LEVEL SECURITY";
    const auto key = table.columns.front().kind == SchemaKind::Key;
    found("el índice «ajeno» de " + low, "CREATE UNIQUE INDEX ajeno" + on + "(" + first + ")");
    found("el índice «ajeno» de " + low,
          "CREATE UNIQUE INDEX ajeno" + on + "(" + first + ") INCLUDE (" +
              (key ? table.columns.front().name : columns.back()) + ")");
    found("el índice «ajeno»", "CREATE INDEX ajeno" + on + "(abs(" + first + "))");
    found("el índice «ajeno»", "CREATE INDEX ajeno" + on + "(" + first + ") WHERE " + first + "<9");
    found("el índice «ajena»", Rule(table.name, "EXCLUDE USING btree (" + first + " WITH =)"));
    found("la condición «ajena»", Rule(table.name, "CHECK (" + first + "<9)"));
    found("la condición «ajeno»", column + " TYPE ajeno",
          "CREATE DOMAIN ajeno AS integer CHECK (VALUE<9)");
    found("la condición «NOT NULL» de " + low, column + " SET NOT NULL");
    found("la clave ajena «ajena»",
          Rule(table.name, "FOREIGN KEY (" + first + ") REFERENCES Otra (a)"),
          "CREATE TABLE Otra (a integer PRIMARY KEY)");
    if (key)
      found("la clave ajena «ajena»", Rule("Otra", "FOREIGN KEY (a) REFERENCES " + table.name),
            "CREATE TABLE Otra (a integer PRIMARY KEY)");
    found("la regla «ajena»",
          "CREATE RULE ajena AS ON UPDATE TO " + table.name + " DO INSTEAD NOTHING");
    found("la política de filas «ROW LEVEL SECURITY»", secured);
    found("la política de filas «ajena»", secured, "CREATE POLICY ajena" + on + "USING (false)");
  }
}

TEST_F(ServerObjectsTest, WhatHarmsNobodyIsNotTold) {
  EXPECT_THAT(
      After({"CREATE UNIQUE INDEX ajeno ON EvaluacionPte (CodNota, IDEvaluacionPte)",
             "CREATE INDEX mas ON EvaluacionPte (CodNota)", Rule("Alumno", "CHECK (IDAlumno>0)"),
             "CREATE TABLE Otra (a integer NOT NULL UNIQUE CHECK (a>0))",
             Rule("Otra", "FOREIGN KEY (a) REFERENCES Nota"),
             "ALTER TABLE PublicacionPte ADD ajena integer GENERATED ALWAYS AS IDENTITY",
             "ALTER TABLE PublicacionPte DROP COLUMN ajena"}),
      IsEmpty());
  EXPECT_THAT(SchoolCheck(school_.Db()).Structure(SchoolCheck::For::Module), IsEmpty());
}

TEST_F(ServerObjectsTest, WhatIsReadIsAlsoKeptFromItsReaders) {
  EXPECT_THAT(After({"ALTER TABLE Alumno ENABLE ROW LEVEL SECURITY"}),
              ElementsAre(Finding("Alumno", "la política de filas «ROW LEVEL SECURITY»")));
}

TEST_F(ServerObjectsTest, AKeyThatTheServerGivesItselfIsFound) {
  EXPECT_THAT(After({"ALTER TABLE PublicacionPte ALTER COLUMN IDPublicacionPte ADD GENERATED "
                     "ALWAYS AS IDENTITY"}),
              ElementsAre(HasSubstr("La columna idpublicacionpte de la tabla PublicacionPte es "
                                    "calculada")));
}

/// A change to the sample school.
struct Changed {
  const char* what;
  std::vector<std::string> statements;
};

class StrangeYearTest : public StrangeObjectsTest {
 protected:
  /// What the year's script tells on a sample school that has been changed, and the grades behind
  /// it.
  [[nodiscard]] static std::string Year(const std::string& school) {
    std::stringstream script;
    script << std::ifstream(QUORVANE_SCHOOL_YEAR).rdbuf();
    for (const auto& table : WrittenTables())
      script << "sql \"SELECT * FROM " << table.name << " ORDER BY 1, 2\"\n";
    guion::PlayOptions options;
    options.bd = school;
    options.host.usuario = 1;
    options.host.hoy = "01/10/2024";
    std::ostringstream told;
    guion::PlayScript(options, script, told, told);
    return told.str();
  }
  /// Its lines of errors and of what it couldn't do.
  [[nodiscard]] static std::string Trouble(const std::string& told) {
    std::string trouble;
    std::istringstream lines(told);
    for (std::string line; std::getline(lines, line);)
      if (line.starts_with("error ") || line.starts_with("rechazo ")) trouble += "\n" + line;
    return trouble;
  }
  [[nodiscard]] static std::vector<std::string> Findings(Connection& school) {
    const SchoolCheck check(school);
    auto findings = check.Structure(SchoolCheck::For::Module);
    if (!findings.empty()) return findings;
    for (const auto& found : {check.Damage(), check.Rows(), check.Strange()})
      findings.insert(findings.end(), found.begin(), found.end());
    return findings;
  }
};

/// What stands for a table's own text, with another in the place of its end.
std::string Behind(const std::string& table, const std::string& text) {
  return "UPDATE sqlite_master SET sql=substr(sql,1,length(rtrim(sql,')' || char(10)))) || '" +
         text + "' WHERE type='table' AND name='" + table + "'";
}
std::string Replacing(const std::string& table, const std::string& text, const std::string& by) {
  return "UPDATE sqlite_master SET sql=replace(sql,'" + text + "','" + by +
         "') WHERE type='table' AND name='" + table + "'";
}

const Changed kHarming[] = {
    {"a condition", {Behind("EvaluacionPte", ", CHECK (CodNota<3))")}},
    {"a condition behind a comment", {Behind("EvaluacionPte", ", /* '' */ cHeCk(CodNota<3))")}},
    {"a unique index",
     {"CREATE UNIQUE INDEX a ON AlumnoPte_MatDet (CodAlumno) WHERE CodAlumno=34"}},
    {"an index of an expression",
     {"DELETE FROM BloqueoPte", "CREATE INDEX a ON BloqueoPte (json('x' || CodMatDet))"}},
    {"a unique constraint",
     {"DELETE FROM BloqueoPte", "DROP TABLE BloqueoPte",
      "CREATE TABLE BloqueoPte (CodProfesor INTEGER, CodNumEvaluacion INTEGER, CodMatDet INTEGER, "
      "CodUsuario INTEGER, CodPublicacion INTEGER UNIQUE)"}},
    {"a key of the engine's in another place",
     {"DROP TABLE Seccion_AlumnoPte",
      "CREATE TABLE Seccion_AlumnoPte (CodSeccion INTEGER PRIMARY KEY, CodAlumno INTEGER, Posicion "
      "INTEGER, Situacion INTEGER)",
      "INSERT INTO Seccion_AlumnoPte VALUES (5,29,0,0)"}},
    {"an order that nobody knows",
     {Replacing("Alumno", "Apellido_1 TEXT", "Apellido_1 TEXT COLLATE a")}},
    {"a strict table that takes no numbers",
     {Replacing("EvaluacionPte", "CodNota INTEGER DEFAULT 0", "CodNota BLOB"),
      Behind("EvaluacionPte", ") STRICT")}},
    {"a history that can't be written",
     {"ALTER TABLE HistorialNotas ADD COLUMN Ajena TEXT",
      Replacing("HistorialNotas", "Ajena TEXT", "Ajena TEXT DEFAULT (json(''x''))")}},
    {"a trigger",
     {"CREATE TRIGGER a BEFORE INSERT ON PublicacionPte BEGIN SELECT RAISE(ABORT,'no'); END"}},
    {"a trigger that undoes",
     {"CREATE TRIGGER a AFTER UPDATE ON EvaluacionPte BEGIN UPDATE EvaluacionPte SET CodNota=0 WHERE "
      "IDEvaluacionPte=NEW.IDEvaluacionPte; END"}},
    {"a generated column",
     {"DROP TABLE PublicacionPte",
      "CREATE TABLE PublicacionPte (IDPublicacionPte INTEGER PRIMARY KEY, CodProfesor INTEGER, "
      "CodPropietario INTEGER, CodSeccion INTEGER AS (1), CodNumEvaluacion INTEGER)"}},
};

const Changed kHarmless[] = {
    {"an index more", {"CREATE INDEX a ON EvaluacionPte (CodNota, UltimaEvaluada)"}},
    {"a unique index with the key",
     {"CREATE UNIQUE INDEX a ON EvaluacionPte (CodNota, idEvaluacionPte)"}},
    {"rules of what is only read",
     {"CREATE UNIQUE INDEX a ON Nota (IDNota, DescripcionCorta)",
      "CREATE UNIQUE INDEX b ON Curso (Descripcion) WHERE Orden>2",
      Replacing("Alumno", "Apellido_1 TEXT", "Apellido_1 TEXT NOT NULL CHECK (Apellido_1<>1)")}},
    {"an order that the engine knows",
     {Replacing("Alumno", "Apellido_2 TEXT", "Apellido_2 TEXT COLLATE \"NoCase\"")}},
    {"a number in brackets",
     {Replacing("EvaluacionPte", "CodNota INTEGER DEFAULT 0", "CodNota INTEGER DEFAULT ( -1 )")}},
    {"words in names, texts and comments",
     {Replacing("EvaluacionPte", "CodNotaConcepto INTEGER DEFAULT 0",
                "CodNotaConcepto [CHECK] /* CHECK (0) */ DEFAULT ''CHECK''")}},
    {"tables of nobody's",
     {"CREATE TABLE Otra (a INTEGER PRIMARY KEY, b INTEGER NOT NULL UNIQUE CHECK (b>0), c INTEGER "
      "REFERENCES Nota (IDNota))",
      "CREATE TRIGGER a BEFORE INSERT ON Otra BEGIN SELECT RAISE(ABORT,'no'); END"}},
};

TEST_F(StrangeYearTest, OnWhatPassesTheYearIsSaved) {
  GradeHistory(school_.Db()).Activate();
  Change("PRAGMA wal_checkpoint(TRUNCATE)");
  const auto copy = school_.Path() + ".copia";
  const auto changed = [&](const std::vector<std::string>& statements) {
    std::filesystem::copy_file(school_.Path(), copy,
                               std::filesystem::copy_options::overwrite_existing);
    Opened<sqlite::SqliteConnection> school(copy, "");
    school.ExecuteScript("PRAGMA synchronous=OFF; PRAGMA writable_schema=ON");
    for (const auto& statement : statements) school.Execute(statement);
    school.Execute("PRAGMA writable_schema=RESET");
    return Findings(school);
  };
  EXPECT_THAT(changed({}), IsEmpty());
  const auto whole = Year(copy);
  EXPECT_EQ(Trouble(whole), "");
  for (const auto& [what, statements] : kHarming) {
    EXPECT_THAT(changed(statements), Not(IsEmpty())) << what;
    EXPECT_TRUE(Year(copy) != whole) << what;
  }
  for (const auto& [what, statements] : kHarmless) {
    EXPECT_THAT(changed(statements), IsEmpty()) << what;
    const auto told = Year(copy);
    EXPECT_TRUE(told == whole) << what << Trouble(told);
  }
}

}  // namespace
}  // namespace quorvane::test

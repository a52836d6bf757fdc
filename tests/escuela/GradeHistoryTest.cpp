// Who changed which grade and when: in a school in a file, or on the server that the tests run
// beside.

#include <filesystem>

#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/history/HistoryTriggers.h"
#include "apps/escuela/repair/SchoolRepair.h"
#include "platform/RuntimeError.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

using testing::Field;

class GradeHistoryTest : public testing::Test {
 protected:
  void SetUp() override { school_.Rest(); }
  void TearDown() override { school_.ForgetHistory(); }

  std::vector<std::string> Kept(const HistoryFilter& filter = {}) {
    std::vector<std::string> kept;
    for (const auto& change : history_.Read(filter))
      kept.push_back(change.column + ":" + change.before + ">" + change.after + ":" + change.user);
    return kept;
  }
  std::string Text(int grade) {
    return school_.Rows("SELECT DescripcionCorta FROM Nota WHERE IDNota=" +
                        std::to_string(grade))[0];
  }

  AnySchool school_;
  GradeHistory history_{school_.Db()};
};

TEST_F(GradeHistoryTest, IsOffUntilItIsSwitchedOn) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=1");
  EXPECT_FALSE(history_.Active());
  EXPECT_FALSE(history_.Kept());
  EXPECT_THAT(Kept(), IsEmpty());
  history_.Activate();
  EXPECT_TRUE(history_.Active());
  history_.Activate();
  history_.Deactivate();
  EXPECT_FALSE(history_.Active());
  school_.Sql("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=1");
  EXPECT_THAT(Kept(), IsEmpty());
  EXPECT_TRUE(history_.Kept());
}

TEST_F(GradeHistoryTest, KeepsEachColumnThatChangedWithTheUserWhoHeldTheSubject) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=5, CodNotaActitud=0 WHERE IDEvaluacionPte=2");
  school_.Sql(
      "INSERT INTO BloqueoPte SELECT 0, 2, CodMatDet, 4, 1 FROM AlumnoPte_MatDet WHERE "
      "IDAlumnoPte_MatDet=1");
  history_.Activate();
  const std::string save =
      "UPDATE EvaluacionPte SET Evaluado=-1, CodNota=6, CodNotaActitud=22 WHERE IDEvaluacionPte=2;";
  school_.Sql(save + save + "UPDATE EvaluacionPte SET CodNota=0 WHERE IDEvaluacionPte=1");
  const std::string user = "usuario 4 (Ortega García, Javier)";
  EXPECT_THAT(history_.Read({}),
              ElementsAre(FieldsAre(SizeIs(std::string("2025-03-03 12:00:00.000").size()),
                                    "Domínguez Álvarez, Marina", "Matemáticas (2º ESO A)",
                                    "2ª Evaluación", "Nota", Text(5), Text(6), user),
                          Field(&GradeChange::column, "Actitud"),
                          // Nobody held it in the first evaluation.
                          AllOf(Field(&GradeChange::user, ""), Field(&GradeChange::after, ""))));
}

TEST_F(GradeHistoryTest, NamesNobodyForNoUserAndEverybodyForOneThatTwoShare) {
  school_.Sql(
      "UPDATE Personal SET CodUsuario=0 WHERE CodUsuario<>4 AND IDPersonal<>1;"
      "UPDATE Personal SET CodUsuario=4 WHERE IDPersonal=1");
  const auto names = school_.Rows(
      "SELECT Apellido1, Apellido2, Nombre FROM Personal WHERE CodUsuario=4 ORDER BY IDPersonal");
  ASSERT_EQ(names.size(), 2U);
  history_.Activate();
  school_.Sql(
      "INSERT INTO BloqueoPte SELECT 0, 1, CodMatDet, 0, 1 FROM AlumnoPte_MatDet WHERE "
      "IDAlumnoPte_MatDet=1;"
      "INSERT INTO BloqueoPte SELECT 0, 2, CodMatDet, 4, 1 FROM AlumnoPte_MatDet WHERE "
      "IDAlumnoPte_MatDet=1;"
      "UPDATE EvaluacionPte SET CodNota=0 WHERE IDEvaluacionPte=1;"
      "UPDATE EvaluacionPte SET CodNota=0 WHERE IDEvaluacionPte=2");
  const auto all = history_.Read({});
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].user, "usuario 0");
  EXPECT_THAT(all[1].user, HasSubstr(" / "));
  for (const auto& name : names)
    EXPECT_THAT(all[1].user, HasSubstr(name.substr(0, name.find('|'))));
}

TEST_F(GradeHistoryTest, TellsRowsThatComeAndGoAndFinals) {
  history_.Activate();
  school_.Sql(
      "INSERT INTO EvaluacionActaPte VALUES (9001,1,4,0,5,0,2,0);"
      "DELETE FROM EvaluacionActaPte WHERE IDEvaluacionActaPte=9001");
  EXPECT_THAT(Kept(),
              ElementsAre("Alta:>:", "Nota:>" + Text(5) + ":", "Medidas:>Adaptación curricular:",
                          "Baja:>:", "Nota:" + Text(5) + ">:", "Medidas:Adaptación curricular>:"));
}

TEST_F(GradeHistoryTest, TellsWhoseGradesWereWhenTheirSubjectHasGoneFirst) {
  history_.Activate();
  const std::string grades = "FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=1";
  ASSERT_GT(school_.Number("SELECT COUNT(*) " + grades), 0);
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3;"
      "DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=1; DELETE " +
      grades);
  EXPECT_THAT(history_.Read({}),
              AllOf(SizeIs(testing::Gt(1U)),
                    Each(AllOf(Field(&GradeChange::student, "Domínguez Álvarez, Marina"),
                               Field(&GradeChange::subject, "Matemáticas (2º ESO A)")))));
}

TEST_F(GradeHistoryTest, TellsWhoseGradesARepairRemoves) {
  school_.Sql(
      "INSERT INTO AlumnoPte_MatDet VALUES (9001,777777,1,1,0);"
      "INSERT INTO EvaluacionPte VALUES (9001,9001,1,-1,5,0,0,0,0,-1);"
      "INSERT INTO EvaluacionActaPte VALUES (9001,9001,4,0,5,0,0,0)");
  history_.Activate();
  const auto report = RepairSchool(school_.Address(), {.backedUp = true});
  if (!report.copy.empty()) std::filesystem::remove(report.copy);
  EXPECT_EQ(report.removed, 3U);
  EXPECT_THAT(history_.Read({}),
              AllOf(SizeIs(4), Each(Field(&GradeChange::student, "alumno 777777"))));
}

TEST_F(GradeHistoryTest, IsMadeWholeAgainWhenAPieceIsMissing) {
  std::vector<std::string> spoilings = {
      "DROP TRIGGER Historial_EvaluacionPte_UPDATE",
      "DROP TABLE HistorialNotas",
  };
  if (OnServer())
    spoilings = {spoilings[0] + " ON EvaluacionPte", spoilings[1],
                 "ALTER TABLE EvaluacionPte DISABLE TRIGGER Historial_EvaluacionPte_UPDATE",
                 "ALTER FUNCTION Historial_EvaluacionPte_UPDATE() RESET ALL"};
  auto grade = 6;
  for (const auto& spoiling : spoilings) {
    history_.Activate();
    school_.Sql(spoiling);
    EXPECT_FALSE(history_.Active()) << spoiling;
    history_.Activate();
    EXPECT_TRUE(history_.Active()) << spoiling;
    const auto before = Kept().size();
    // As the module saves, whose statement is kept while the triggers come and go.
    school_.Db().Execute("UPDATE EvaluacionPte SET CodNota=" + std::to_string(grade++) +
                         " WHERE IDEvaluacionPte=3");
    EXPECT_EQ(Kept().size(), before + 1) << spoiling;
  }
}

TEST_F(GradeHistoryTest, AnotherProgramsTriggerOfThatNameIsMadeAnew) {
  if (OnServer()) GTEST_SKIP() << "there a trigger's rights tell who made it";
  history_.Activate();
  school_.Sql(
      "DROP TRIGGER Historial_EvaluacionPte_UPDATE; CREATE TRIGGER Historial_EvaluacionPte_UPDATE "
      "AFTER UPDATE ON EvaluacionPte BEGIN SELECT 1; END");
  EXPECT_FALSE(history_.Active());
  history_.Activate();
  EXPECT_TRUE(history_.Active());
}

TEST_F(GradeHistoryTest, IsGivenTheColumnsThatItsTableLacks) {
  const auto* const save = "UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3";
  school_.Sql("UPDATE EvaluacionPte SET CodNota=5 WHERE IDEvaluacionPte=3");
  history_.Activate();
  school_.Sql("UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=3");
  EXPECT_THAT(SchoolCheck(school_.Db()).Rows(), IsEmpty());
  for (const std::string column : {"CodUsuario", "Momento"}) {
    // A file's engine won't take a column from what a trigger names.
    history_.Deactivate();
    school_.Sql("ALTER TABLE HistorialNotas DROP COLUMN " + column);
    for (const auto& statement : history_.TriggersSql()) school_.Sql(statement);
    EXPECT_FALSE(history_.Active());
    if (!OnServer()) {
      EXPECT_THROW(school_.Sql(save), RuntimeError);
    }
    EXPECT_THROW(static_cast<void>(history_.Read({})), RuntimeError);
    EXPECT_THAT(SchoolCheck(school_.Db()).Rows(),
                ElementsAre(HasSubstr("HistorialNotas le falta la columna " + column)));
    history_.Activate();
    EXPECT_TRUE(history_.Active());
    EXPECT_THAT(SchoolCheck(school_.Db()).Rows(), IsEmpty());
    EXPECT_EQ(Kept().size(), 1U) << "what was kept stays";
  }
  school_.Sql(save);
  EXPECT_EQ(Kept().size(), 2U);
  history_.Deactivate();
  school_.Sql("DROP TABLE HistorialNotas; CREATE TABLE HistorialNotas (Momento varchar(32))");
  try {
    history_.Activate();
    ADD_FAILURE() << "made of a table without its key";
  } catch (const RuntimeError& error) {
    EXPECT_THAT(error.Description(), HasSubstr("IDHistorial"));
  }
}

TEST_F(GradeHistoryTest, FiltersByWhatIsAskedFor) {
  history_.Activate();
  school_.Sql("UPDATE EvaluacionPte SET CodNota=0 WHERE CodNota>0");
  const auto all = Kept().size();
  HistoryFilter filter;
  filter.student = 29;
  EXPECT_EQ(static_cast<int>(Kept(filter).size()),
            school_.Count("HistorialNotas WHERE CodAlumno=29"));
  EXPECT_LT(Kept(filter).size(), all);
  filter.evaluation = 2;
  EXPECT_EQ(static_cast<int>(Kept(filter).size()),
            school_.Count("HistorialNotas WHERE CodAlumno=29 AND CodNumEvaluacion=2"));
  EXPECT_GT(Kept(filter).size(), 0U);
  filter = {};
  filter.user = 4;
  EXPECT_THAT(Kept(filter), IsEmpty());
  filter = {};
  filter.to = "2020-01-01";
  EXPECT_THAT(Kept(filter), IsEmpty());
  filter.to = {};
  filter.from = "2020-01-01";
  EXPECT_THAT(Kept(filter), SizeIs(all));
  filter.to = history_.Read({}).front().moment.substr(0, 10);
  EXPECT_THAT(Kept(filter), SizeIs(all)) << "the day itself counts";
}

TEST_F(GradeHistoryTest, IsShortenedByDays) {
  history_.Activate();
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3;"
      "INSERT INTO HistorialNotas (IDHistorial, Momento, Columna) VALUES (9001,"
      "'2020-01-01 10:00:00.000','CodNota')");
  EXPECT_EQ(history_.Purge("2020-01-01"), 0);
  EXPECT_EQ(history_.Purge("2020-01-02"), 1);
  EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(GradeHistoryTest, ARowThatCantBeKeptStopsNoSaving) {
  history_.Activate();
  school_.Sql(OnServer() ? "DROP TABLE HistorialNotas"
                         : "CREATE UNIQUE INDEX Estorbo ON HistorialNotas (Columna);"
                           "UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=2");
  school_.Sql("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=2");
  EXPECT_EQ(school_.Number("SELECT CodNota FROM EvaluacionPte WHERE IDEvaluacionPte=2"), 7);
}

TEST_F(GradeHistoryTest, WhoWorksNeedsNoRightToIt) {
  if (!OnServer()) GTEST_SKIP() << "a file knows no rights";
  history_.Activate();
  const auto worker = SchoolAddress::Odbc(ServerString(school_.Path())).Open("");
  worker->Execute("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3");
  EXPECT_EQ(GradeHistory(*worker).Read({}).size(), 1U);
}

TEST_F(GradeHistoryTest, AWorkersOwnTablesStandInNobodysPlace) {
  if (!OnServer()) GTEST_SKIP() << "a file knows no rights";
  history_.Activate();
  const auto worker = SchoolAddress::Odbc(ServerString(school_.Path())).Open("");
  ASSERT_NE(worker->Execute("SELECT CAST(current_user AS text)").Fields(0).Text(),
            school_.Rows("SELECT CAST(current_user AS text)")[0]);
  worker->Execute(
      "CREATE TEMP TABLE HistorialNotas AS SELECT * FROM HistorialNotas;"
      "CREATE TEMP TABLE BloqueoPte AS SELECT * FROM BloqueoPte;"
      "INSERT INTO BloqueoPte SELECT DISTINCT 0, 3, CodMatDet, 4, 1 FROM AlumnoPte_MatDet;"
      "GRANT ALL ON HistorialNotas TO PUBLIC; GRANT ALL ON BloqueoPte TO PUBLIC");
  worker->Execute("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3");
  EXPECT_EQ(worker->Execute("SELECT COUNT(*) FROM HistorialNotas").Fields(0).Long(), 0);
  worker->Execute("DROP TABLE HistorialNotas");
  EXPECT_THAT(history_.Read({}), ElementsAre(Field(&GradeChange::user, "")))
      << "the lock is one that he has made up";
  worker->Execute("CREATE TEMP TABLE Falsa AS SELECT * FROM EvaluacionPte WHERE 1=0");
  EXPECT_THROW(worker->Execute("CREATE TRIGGER Falso AFTER INSERT ON Falsa FOR EACH ROW EXECUTE "
                               "FUNCTION Historial_EvaluacionPte_INSERT()"),
               RuntimeError);
}

TEST_F(GradeHistoryTest, TheProgramSwitchesShowsAndShortens) {
  const auto run = [&](const std::string& rest) {
    return Escuela("historial " + school_.Argument() + " " + rest);
  };
  EXPECT_THAT(run("ver").text, HasSubstr("no se ha activado nunca"));
  EXPECT_EQ(run("activar").text, "Historial activado\n");
  EXPECT_EQ(run("activar").text, "El historial ya estaba activado\n");
  EXPECT_EQ(run("ver").text, "No hay ningún cambio\n");
  school_.Sql("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3");
  const auto grade = Text(7);
  EXPECT_THAT(run("ver --alumno 29").text,
              HasSubstr("Domínguez Álvarez, Marina, Matemáticas (2º ESO A), 3ª Evaluación, Nota: "
                        "— → " +
                        grade));
  EXPECT_THAT(run("ver --csv").text, HasSubstr("3ª Evaluación;Nota;;" + grade + ";"));
  EXPECT_THAT(run("ver --json --desde 01/01/2020").text,
              HasSubstr("\"despues\":\"" + grade + "\""));
  EXPECT_EQ(run("purgar --antes 2020-01-01").text, "Borrados 0 cambios anteriores a 2020-01-01\n");
  EXPECT_THAT(run("desactivar").text, HasSubstr("Historial desactivado"));
  for (const std::string wrong :
       {"", "otra", "purgar", "ver --desde ayer", "ver --csv --json", "ver --desde 2025-13-39",
        "ver --hasta 30/02/2025", "activar --antes 2025-01-01", "desactivar --alumno 29",
        "ver --antes 2025-01-01", "purgar --antes 2020-01-01 --csv"})
    EXPECT_EQ(run(wrong).status, 2) << wrong;
  EXPECT_FALSE(history_.Active());
  EXPECT_THAT(run("activar --usuario 4").text, HasSubstr("«activar» no admite --usuario"));
  EXPECT_EQ(run("ver --desde 29/02/2024").status, 0);
  EXPECT_THAT(Escuela("comprobar " + school_.Argument()).text, Not(HasSubstr("Historial")));
}

TEST(HistoryTriggersTest, EveryEngineWatchesTheSameColumnsOfTheSameTables) {
  using sqltext::Engine;
  for (const auto engine : {Engine::Sqlite, Engine::PostgreSql, Engine::SqlServer}) {
    std::string all;
    for (const auto& statement : HistoryTriggersSql(engine, "CodUsuario", "public"))
      all += statement + "\n";
    for (const auto& table : WatchedTables()) {
      for (const auto* const event : {"UPDATE", "INSERT", "DELETE"})
        EXPECT_THAT(all, HasSubstr("Historial_" + std::string(table.name) + "_" + event));
      for (const auto column : table.columns)
        EXPECT_THAT(all, HasSubstr("'" + std::string(column) + "'"));
    }
  }
}

}  // namespace
}  // namespace quorvane::test

// What is wrong in a school's rows, mended: in a file, or on the server that the tests run beside.

#include <filesystem>
#include <fstream>

#include "apps/escuela/QuotedText.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/repair/SchoolRepair.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/text/VisibleText.h"
#include "tests/escuela/AnySchool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

class SchoolRepairTest : public testing::Test {
 protected:
  void SetUp() override { school_.Sql("DELETE FROM PublicacionPte"); }
  void TearDown() override {
    for (const auto& copy : copies_) std::filesystem::remove(copy);
  }

  RepairReport Repair(RepairOptions options = {}) {
    options.backedUp = true;
    auto report = RepairSchool(school_.Address(), options);
    if (!report.copy.empty()) copies_.push_back(report.copy);
    return report;
  }

  std::string Refusal(const RepairOptions& options) {
    try {
      RepairSchool(school_.Address(), options);
    } catch (const RuntimeError& error) {
      return error.Description();
    }
    return {};
  }

  std::vector<std::string> Faults() { return SchoolCheck(school_.Db()).Rows(); }

  std::vector<std::vector<std::string>> Content() {
    std::vector<std::vector<std::string>> content;
    for (const auto& table : SchoolTables()) {
      content.push_back(school_.Rows("SELECT * FROM " + table.name));
      std::sort(content.back().begin(), content.back().end());
    }
    return content;
  }

  /// As who wants it all back would play them.
  void PlayBack(const RepairReport& report) {
    for (const auto& statement : report.undo)
      school_.Sql(statement.substr(0, statement.rfind("; -- ")));
  }

  AnySchool school_;
  std::vector<std::string> copies_;
};

TEST_F(SchoolRepairTest, MendsEveryFaultAndTellsHowToPutItBack) {
  const std::vector<std::string> spoilings = {
      "INSERT INTO AlumnoPte_MatDet VALUES (9001,777777,1,1,0)",
      "INSERT INTO EvaluacionPte VALUES (9001,9001,1,-1,5,0,0,0,0,-1)",
      "INSERT INTO AlumnoPte_MatDet VALUES (9002,1,777777,1,0)",
      "INSERT INTO EvaluacionActaPte VALUES (9001,9002,6,0,0,0,0,0)",
      "INSERT INTO EvaluacionPte VALUES (9002,1,99,-1,5,0,0,0,0,-1)",
      "UPDATE EvaluacionPte SET CodNota=88888 WHERE IDEvaluacionPte=3",
      "INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)",
      "INSERT INTO Seccion_AlumnoPte SELECT * FROM Seccion_AlumnoPte WHERE CodSeccion=5",
      "INSERT INTO Profesor_Pte VALUES (0,777777)",
      "INSERT INTO Profesor_Pte SELECT 0, CodMatDet FROM Profesor_Pte WHERE CodProfesor<>0",
      "UPDATE Seccion SET CodTutor=5555 WHERE IDSeccion=3",
      "UPDATE Personal SET CodUsuario=4444 WHERE IDPersonal=2",
      "INSERT INTO FechaNotas VALUES ('2020/01/01','2020/02/01',5,1)",
      "INSERT INTO BloqueoPte VALUES (0,1,1,1,55)",
      "INSERT INTO Nota VALUES (99999,'nada',0,0,0,0,0,0,0,7777)",
  };
  for (const auto& spoiling : spoilings) school_.Sql(spoiling);
  const auto teachers = school_.Number("SELECT COUNT(*) FROM Profesor_Pte WHERE CodProfesor<>0");
  const auto before = Content();
  EXPECT_GT(Faults().size(), 10U);
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(report.removed + report.changed, report.undo.size());
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM Profesor_Pte WHERE CodProfesor<>0"), teachers)
      << "the row with a teacher stays";
  EXPECT_EQ(school_.Number("SELECT CodNota FROM EvaluacionPte WHERE IDEvaluacionPte=3"), 0);
  EXPECT_GT(school_.Number("SELECT COUNT(*) FROM FechaNotas WHERE FechaFin>'2020/02/01' AND "
                           "CodSeccion=5 AND CodNumEvaluacion=1"),
            0);
  PlayBack(report);
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, MendsReferencesThatAreNull) {
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,NULL,0,0)");
  school_.Sql("UPDATE EvaluacionPte SET CodNumEvaluacion=NULL WHERE IDEvaluacionPte=3");
  school_.Sql("UPDATE AlumnoPte_MatDet SET CodAlumno=NULL WHERE IDAlumnoPte_MatDet=2");
  const auto before = Content();
  EXPECT_EQ(Faults().size(), 3U);
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=2"), 0);
  PlayBack(report);
  EXPECT_EQ(Content(), before);
}

// What is printed is played as it stands, and somebody reads it on a terminal.
TEST_F(SchoolRepairTest, GivesBackWhateverLettersARowHolds) {
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("INSERT INTO Nota VALUES (99999,'nada',0,0,0,0,0,0,0,7777)");
  const std::string texts[] = {"a'b", "\x1b[2J", "uno\ndos\r", "\u202e;--\\", ""};
  for (const auto& text : texts) {
    std::string quoted;
    AppendQuoted(quoted, text, EngineReached(school_.Db()));
    school_.Sql("UPDATE Nota SET DescripcionCorta=" + quoted + " WHERE IDNota=99999");
    const auto before = Content();
    const auto report = Repair();
    ASSERT_EQ(report.undo.size(), 1U);
    EXPECT_EQ(VisibleText(report.undo[0]), report.undo[0]);
    PlayBack(report);
    EXPECT_EQ(Content(), before) << report.undo[0];
  }
  if (OnServer()) {
    school_.Sql("DELETE FROM Nota WHERE IDNota=99999");
    return;
  }
  for (const std::string value :
       {"X'00FF41'", "CAST(X'4100FF' AS TEXT)", "X'41'", "'41'", "41", "0.1", "NULL", "-9e999"}) {
    school_.Sql("DELETE FROM Seccion_AlumnoPte WHERE CodAlumno=777777");
    school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0," + value + ")");
    const std::string all =
        "SELECT quote(Situacion), typeof(Situacion), hex(Situacion) FROM Seccion_AlumnoPte "
        "WHERE CodAlumno=777777";
    const auto before = school_.Rows(all);
    const auto report = Repair();
    EXPECT_THAT(school_.Rows(all), IsEmpty());
    PlayBack(report);
    EXPECT_EQ(school_.Rows(all), before) << value;
  }
}

TEST_F(SchoolRepairTest, LeavesASoundSchoolAlone) {
  school_.Sql("DELETE FROM BloqueoPte");
  const auto before = Content();
  const auto report = Repair();
  EXPECT_THAT(report.undo, IsEmpty());
  EXPECT_EQ(report.copy, "");
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, KeepsTheGradesOfADoubledSubject) {
  school_.Sql("DELETE FROM BloqueoPte");
  const auto row = school_.Rows(
      "SELECT IDAlumnoPte_MatDet, CodAlumno, CodMatDet FROM AlumnoPte_MatDet ORDER BY 1")[0];
  ASSERT_EQ(row.substr(0, 2), "1|");
  school_.Sql(
      "INSERT INTO AlumnoPte_MatDet SELECT 9001, CodAlumno, CodMatDet, 9, 0 FROM "
      "AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=1");
  school_.Sql("UPDATE EvaluacionPte SET CodNota=0 WHERE CodAlumnoPte_MatDet=1");
  school_.Sql("INSERT INTO EvaluacionPte VALUES (9001,9001,1,-1,5,0,0,0,0,-1)");
  const auto before = Content();
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=9001"),
            0);
  EXPECT_EQ(school_.Number("SELECT CodNota FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=1 AND "
                           "CodNumEvaluacion=1"),
            5);
  PlayBack(report);
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, TakesGradesToTheTableOfTheirEvaluation) {
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=1");
  school_.Sql("INSERT INTO EvaluacionActaPte VALUES (9001,1,1,-1,5,6,0,-1)");
  const auto before = Content();
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_THAT(school_.Rows("SELECT Evaluado, CodNota, CodNotaObservacion, UltimaEvaluada FROM "
                           "EvaluacionPte WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=1"),
              ElementsAre("-1|5|6|-1"));
  PlayBack(report);
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, GivesDoubledKeysOfGradesNewOnesAndRemovesEqualRows) {
  school_.Sql("DELETE FROM BloqueoPte");
  std::string constraint;
  if (OnServer()) {
    constraint = school_.Rows(
        "SELECT CAST(conname AS text) FROM pg_constraint WHERE contype='p' "
        "AND conrelid='evaluacionpte'::regclass")[0];
    school_.Sql("ALTER TABLE EvaluacionPte DROP CONSTRAINT " + constraint);
  } else {
    school_.Sql("ALTER TABLE EvaluacionPte RENAME TO Anterior");
    school_.Sql("CREATE TABLE EvaluacionPte AS SELECT * FROM Anterior");
    school_.Sql("DROP TABLE Anterior");
  }
  school_.Sql("INSERT INTO EvaluacionPte SELECT * FROM EvaluacionPte WHERE IDEvaluacionPte=2");
  school_.Sql("UPDATE EvaluacionPte SET IDEvaluacionPte=4 WHERE IDEvaluacionPte IN (5,6)");
  const auto count = school_.Number("SELECT COUNT(*) FROM EvaluacionPte");
  const auto before = Content();
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionPte"), count - 1);
  EXPECT_EQ(report.changed, 2U);
  PlayBack(report);
  EXPECT_EQ(Content(), before);
  // The next test takes the same database.
  if (!OnServer()) return;
  school_.Sql("DELETE FROM EvaluacionPte");
  school_.Sql("ALTER TABLE EvaluacionPte ADD CONSTRAINT " + constraint +
              " PRIMARY KEY (IDEvaluacionPte)");
}

TEST_F(SchoolRepairTest, TakesAwayAHistoryWhoseTableHasGone) {
  school_.Sql("DELETE FROM BloqueoPte");
  GradeHistory history(school_.Db());
  history.Activate();
  EXPECT_THAT(Faults(), IsEmpty());
  school_.Sql("DROP TABLE HistorialNotas");
  school_.Sql("INSERT INTO AlumnoPte_MatDet VALUES (9001,777777,1,1,0)");
  EXPECT_THAT(Faults(), Contains(HasSubstr("HistorialNotas")));
  const auto grade = "UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=2";
  if (!OnServer()) {
    EXPECT_THROW(school_.Sql("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=2"),
                 RuntimeError);
  }
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(report.removed, 1U);
  EXPECT_EQ(report.changed, OnServer() ? 18U : 6U);
  school_.Sql(grade);
  PlayBack(report);
  EXPECT_EQ(Faults().size(), 2U);
  history.Deactivate();
  school_.Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=9001");
}

TEST_F(SchoolRepairTest, MendsTheRestWhereAValueFitsNoField) {
  if (OnServer()) GTEST_SKIP() << "the server's own types refuse there";
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV='x' WHERE IDEvaluacionActaPte=1");
  EXPECT_EQ(Repair().undo.size(), 0U) << "no copy, either, of what nobody changes";
  const auto run = [&](const std::string& rest) {
    return RunCommand(QUORVANE_ESCUELA " reparar " + school_.Argument() + rest);
  };
  const auto* const left =
      "quorvane-escuela: No se ha podido reparar: Valores que no caben en "
      "EvaluacionActaPte.RE_AC_DIV: 1 fila sin un número de ";
  const auto alone = run("");
  EXPECT_EQ(alone.status, 1);
  EXPECT_EQ(alone.text.find(left), 0U) << alone.text;
  school_.Sql(
      "INSERT INTO Profesor_Pte SELECT 0, CodMatDet FROM Profesor_Pte WHERE CodProfesor<>0");
  school_.Sql("UPDATE MateriaDetalles SET CodTipoMateria=4444 WHERE IDMateriaDetalles=30");
  const auto simulated = run(" --simular");
  EXPECT_EQ(simulated.status, 1);
  EXPECT_THAT(simulated.text, HasSubstr("-- Se repararía "));
  EXPECT_THAT(simulated.text, HasSubstr(left));
  const auto report = Repair();
  EXPECT_GT(report.removed, 0U);
  EXPECT_EQ(report.changed, 1U);
  EXPECT_EQ(report.left, Faults());
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("EvaluacionActaPte.RE_AC_DIV")));
  EXPECT_EQ(school_.Number("SELECT COUNT(*) FROM EvaluacionActaPte WHERE RE_AC_DIV='x'"), 1);
}

TEST_F(SchoolRepairTest, LeavesRowsWhoseTargetHasLostItsKey) {
  if (OnServer()) GTEST_SKIP() << "the server's own types refuse there";
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("CREATE TABLE Otra AS SELECT * FROM Alumno");
  school_.Sql("DROP TABLE Alumno");
  school_.Sql("ALTER TABLE Otra RENAME TO Alumno");
  ASSERT_THAT(Faults(), IsEmpty());
  const auto before = Content();
  school_.Sql("UPDATE Alumno SET IDAlumno='x' WHERE IDAlumno=29");
  const auto report = Repair();
  EXPECT_THAT(report.undo, IsEmpty());
  EXPECT_THAT(report.left, Contains(HasSubstr("Alumno.IDAlumno")));
  school_.Sql("UPDATE Alumno SET IDAlumno=29 WHERE IDAlumno='x'");
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, SimulatesWithoutATrace) {
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  const auto before = Content();
  RepairOptions options;
  options.simulate = true;
  const auto report = Repair(options);
  EXPECT_EQ(report.removed, 3U) << "with the locks that stand without their publication";
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(report.copy, "");
}

TEST_F(SchoolRepairTest, RefusesWhileSomebodySeemsToWork) {
  school_.Sql("INSERT INTO PublicacionPte VALUES (1,0,2,4,2)");
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  RepairOptions options;
  options.backedUp = true;
  EXPECT_THAT(Refusal(options), HasSubstr("--con-publicaciones"));
  EXPECT_EQ(Faults().size(), 1U);
  options.publicationsToo = true;
  Repair(options);
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(SchoolRepairTest, AsksForACopyOnAServerAndMakesOneOfAFile) {
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  if (OnServer()) {
    EXPECT_THAT(Refusal({}), HasSubstr("--con-copia-hecha"));
    return;
  }
  const auto before = Content();
  const auto report = Repair();
  ASSERT_NE(report.copy, "");
  const auto copy = SchoolAddress::File(report.copy).Open("");
  EXPECT_EQ(copy->Execute("SELECT COUNT(*) FROM Seccion_AlumnoPte WHERE CodAlumno=777777")
                .Fields(0)
                .Long(),
            1);
  EXPECT_EQ(copy->Execute("PRAGMA journal_mode").Fields(0).Text(),
            school_.Db().Execute("PRAGMA journal_mode").Fields(0).Text());
}

TEST_F(SchoolRepairTest, LeavesNothingBehindWhenItFails) {
  if (OnServer()) GTEST_SKIP() << "the server's own rights refuse there";
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  school_.Sql("INSERT INTO BloqueoPte VALUES (0,1,1,1,55)");
  school_.Sql(
      "CREATE TRIGGER Terco BEFORE DELETE ON BloqueoPte BEGIN SELECT RAISE(ABORT,'no'); "
      "END");
  const auto before = Content();
  const auto files = [this] {
    const auto folder = std::filesystem::path(school_.Path()).parent_path();
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      count += entry.path().string().find("antes-de-reparar") != std::string::npos ? 1 : 0;
    return count;
  };
  const auto there = files();
  EXPECT_THAT(Refusal({}), HasSubstr("no"));
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(files(), there);
}

TEST_F(SchoolRepairTest, TouchesNothingThatItCantTell) {
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  const auto before = Content();
  std::string copy;
  RepairOptions options;
  options.backedUp = true;
  const auto refuse = [&](const RepairReport& report) {
    EXPECT_EQ(report.undo.size(), 1U);
    copy = report.copy;
    throw RuntimeError(ErrorNumber::StatementFailed, "lleno");
  };
  EXPECT_THROW(RepairSchool(school_.Address(), options, refuse), RuntimeError);
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(copy.empty(), OnServer());
  EXPECT_FALSE(std::filesystem::exists(copy));
  // Behind the longest that a file may be.
  const TempFolder folder;
  const auto output = folder / "deshacer.sql";
  std::ofstream(output).close();
  std::filesystem::resize_file(output, 1 << 24);
  const auto full = RunCommand("(trap '' XFSZ; ulimit -f 8192; " QUORVANE_ESCUELA " reparar " +
                               school_.Argument() + " --con-copia-hecha 2>&1 >>" + output + ")");
  EXPECT_EQ(full.status, 1);
  EXPECT_THAT(full.text, HasSubstr("no se ha tocado nada"));
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, TheProgramTellsItAndEndsSo) {
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  const auto run = [&](const std::string& options) {
    return RunCommand(QUORVANE_ESCUELA " reparar " + school_.Argument() + options);
  };
  const auto simulated = run(" --simular");
  EXPECT_EQ(simulated.status, 0);
  EXPECT_THAT(simulated.text, HasSubstr("-- Se repararía "));
  const auto done = run(" --con-copia-hecha");
  EXPECT_EQ(done.status, 0);
  EXPECT_THAT(done.text, HasSubstr("3 filas borradas, 0 cambiadas"));
  EXPECT_THAT(done.text, HasSubstr("VALUES (5,777777,0,0)"));
  EXPECT_THAT(done.text, HasSubstr("su CodAlumno no está en Alumno"));
  EXPECT_EQ(done.text.find("antes-de-reparar") == std::string::npos, OnServer());
  const auto at = done.text.find("antes: ");
  if (at != std::string::npos)
    copies_.push_back(done.text.substr(at + 7, done.text.find('\n', at) - at - 7));
  const auto again = run("");
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.text, "-- No hay nada que reparar\n");
  EXPECT_EQ(RunCommand(QUORVANE_ESCUELA " comprobar " + school_.Argument()).status, 0);
  EXPECT_EQ(run(" --otra").status, 2);
}

}  // namespace
}  // namespace quorvane::test

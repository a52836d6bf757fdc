// What is wrong in a school's rows, mended: in a file, or on the server that the tests run beside.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>

#include "apps/escuela/QuotedText.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/repair/SchoolRepair.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/text/VisibleText.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
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

  Outcome Reparar(const std::string& options) {
    return Escuela("reparar " + school_.Argument() + options);
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
  /// Each by the connection that a user has, which takes one statement at a time.
  void PlayBack(const RepairReport& report) {
    for (const auto& statement : report.undo)
      school_.Db().Execute(statement.substr(0, statement.rfind("; -- ")));
  }

  /// That a repair mends all, after which one has a `look`, and what it has told gives it all back.
  void ExpectMended(const std::function<void(const RepairReport&)>& look) {
    const auto before = Content();
    const auto report = Repair();
    EXPECT_THAT(Faults(), IsEmpty());
    look(report);
    PlayBack(report);
    EXPECT_EQ(Content(), before);
  }

  AnySchool school_;
  std::vector<std::string> copies_;
};

TEST_F(SchoolRepairTest, MendsEveryFaultAndTellsHowToPutItBack) {
  school_.Sql(
      "INSERT INTO AlumnoPte_MatDet VALUES (9001,777777,1,1,0);"
      "INSERT INTO EvaluacionPte VALUES (9001,9001,1,-1,5,0,0,0,0,-1);"
      "INSERT INTO AlumnoPte_MatDet VALUES (9002,1,777777,1,0);"
      "INSERT INTO EvaluacionActaPte VALUES (9001,9002,6,0,0,0,0,0);"
      "INSERT INTO EvaluacionPte VALUES (9002,1,99,-1,5,0,0,0,0,-1);"
      "UPDATE EvaluacionPte SET CodNota=88888 WHERE IDEvaluacionPte=3;"
      "INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0);"
      "INSERT INTO Seccion_AlumnoPte SELECT * FROM Seccion_AlumnoPte WHERE CodSeccion=5;"
      "INSERT INTO Profesor_Pte VALUES (0,777777);"
      "INSERT INTO Profesor_Pte SELECT 0, CodMatDet FROM Profesor_Pte WHERE CodProfesor<>0;"
      "UPDATE Seccion SET CodTutor=5555 WHERE IDSeccion=3;"
      "UPDATE Personal SET CodUsuario=4444 WHERE IDPersonal=2;"
      "INSERT INTO FechaNotas VALUES ('2020/01/01','2020/02/01',5,1);"
      "INSERT INTO BloqueoPte VALUES (0,1,1,1,55);"
      "INSERT INTO Nota VALUES (99999,'nada',0,0,0,0,0,0,0,7777)");
  const auto teachers = school_.Count("Profesor_Pte WHERE CodProfesor<>0");
  EXPECT_GT(Faults().size(), 10U);
  ExpectMended([&](const RepairReport& report) {
    EXPECT_EQ(report.removed + report.changed, report.undo.size());
    EXPECT_EQ(school_.Count("Profesor_Pte WHERE CodProfesor<>0"), teachers)
        << "the row with a teacher stays";
    EXPECT_EQ(school_.Number("SELECT CodNota FROM EvaluacionPte WHERE IDEvaluacionPte=3"), 0);
    EXPECT_GT(school_.Count("FechaNotas WHERE FechaFin>'2020/02/01' AND CodSeccion=5 AND "
                            "CodNumEvaluacion=1"),
              0);
  });
}

TEST_F(SchoolRepairTest, MendsReferencesThatAreNull) {
  school_.Sql(
      "DELETE FROM BloqueoPte; INSERT INTO Seccion_AlumnoPte VALUES (5,NULL,0,0);"
      "UPDATE EvaluacionPte SET CodNumEvaluacion=NULL WHERE IDEvaluacionPte=3;"
      "UPDATE AlumnoPte_MatDet SET CodAlumno=NULL WHERE IDAlumnoPte_MatDet=2");
  EXPECT_EQ(Faults().size(), 3U);
  ExpectMended([this](const RepairReport&) {
    EXPECT_EQ(school_.Count("EvaluacionPte WHERE CodAlumnoPte_MatDet=2"), 0);
  });
}

// What is printed is played as it stands, and somebody reads it on a terminal.
TEST_F(SchoolRepairTest, GivesBackWhateverLettersARowHolds) {
  school_.Sql("DELETE FROM BloqueoPte");
  school_.Sql("INSERT INTO Nota VALUES (99999,'nada',0,0,0,0,0,0,0,7777)");
  const std::string texts[] = {"a'b", "\x1b[2J", "uno\ndos\r", "\u202e;--\\", ""};
  for (const auto& text : texts) {
    std::string quoted;
    AppendQuoted(quoted, text, EngineReached(school_.Db()));
    school_.Db().Execute("UPDATE Nota SET DescripcionCorta=" + quoted + " WHERE IDNota=99999");
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
  ASSERT_EQ(school_.Number("SELECT MIN(IDAlumnoPte_MatDet) FROM AlumnoPte_MatDet"), 1);
  school_.Sql(
      "DELETE FROM BloqueoPte; INSERT INTO AlumnoPte_MatDet SELECT 9001, CodAlumno, CodMatDet, 9, "
      "0 FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=1;"
      "UPDATE EvaluacionPte SET CodNota=0 WHERE CodAlumnoPte_MatDet=1;"
      "INSERT INTO EvaluacionPte VALUES (9001,9001,1,-1,5,0,0,0,0,-1)");
  ExpectMended([this](const RepairReport&) {
    EXPECT_EQ(school_.Count("AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=9001"), 0);
    EXPECT_EQ(school_.Number("SELECT CodNota FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=1 AND "
                             "CodNumEvaluacion=1"),
              5);
  });
}

TEST_F(SchoolRepairTest, TakesGradesToTheTableOfTheirEvaluation) {
  school_.Sql(
      "DELETE FROM BloqueoPte; DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=1 AND "
      "CodNumEvaluacion=1; INSERT INTO EvaluacionActaPte VALUES (9001,1,1,-1,5,6,0,-1)");
  ExpectMended([this](const RepairReport&) {
    EXPECT_THAT(school_.Rows("SELECT Evaluado, CodNota, CodNotaObservacion, UltimaEvaluada FROM "
                             "EvaluacionPte WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=1"),
                ElementsAre("-1|5|6|-1"));
  });
}

TEST_F(SchoolRepairTest, GivesDoubledKeysOfGradesNewOnesAndRemovesEqualRows) {
  std::string constraint;
  if (OnServer()) {
    constraint = school_.Rows(
        "SELECT CAST(conname AS text) FROM pg_constraint WHERE contype='p' "
        "AND conrelid='evaluacionpte'::regclass")[0];
    school_.Sql("ALTER TABLE EvaluacionPte DROP CONSTRAINT " + constraint);
  } else {
    school_.Sql(
        "ALTER TABLE EvaluacionPte RENAME TO Anterior;"
        "CREATE TABLE EvaluacionPte AS SELECT * FROM Anterior; DROP TABLE Anterior");
  }
  school_.Sql(
      "DELETE FROM BloqueoPte;"
      "INSERT INTO EvaluacionPte SELECT * FROM EvaluacionPte WHERE IDEvaluacionPte=2;"
      "UPDATE EvaluacionPte SET IDEvaluacionPte=4 WHERE IDEvaluacionPte IN (5,6)");
  const auto count = school_.Count("EvaluacionPte");
  ExpectMended([&](const RepairReport& report) {
    EXPECT_EQ(school_.Count("EvaluacionPte"), count - 1);
    EXPECT_EQ(report.changed, 2U);
  });
  // The next test takes the same database.
  if (OnServer())
    school_.Sql("DELETE FROM EvaluacionPte; ALTER TABLE EvaluacionPte ADD CONSTRAINT " +
                constraint + " PRIMARY KEY (IDEvaluacionPte)");
}

TEST_F(SchoolRepairTest, TakesAwayAHistoryWhoseTableHasGone) {
  school_.Sql("DELETE FROM BloqueoPte");
  GradeHistory history(school_.Db());
  history.Activate();
  EXPECT_THAT(Faults(), IsEmpty());
  school_.Sql("DROP TABLE HistorialNotas; INSERT INTO AlumnoPte_MatDet VALUES (9001,777777,1,1,0)");
  EXPECT_THAT(Faults(), Contains(HasSubstr("HistorialNotas")));
  if (!OnServer()) {
    EXPECT_THROW(school_.Sql("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=2"),
                 RuntimeError);
  }
  const auto report = Repair();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(report.removed, 1U);
  EXPECT_EQ(report.changed, OnServer() ? 18U : 6U);
  school_.Sql("UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=2");
  PlayBack(report);
  EXPECT_EQ(Faults().size(), 2U);
  history.Deactivate();
  school_.Sql("DELETE FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet=9001");
}

TEST_F(SchoolRepairTest, MendsTheRestWhereAValueFitsNoField) {
  if (OnServer()) GTEST_SKIP() << "the server's own types refuse there";
  school_.Sql(
      "DELETE FROM BloqueoPte;"
      "UPDATE EvaluacionActaPte SET RE_AC_DIV='x' WHERE IDEvaluacionActaPte=1");
  EXPECT_EQ(Repair().undo.size(), 0U) << "no copy, either, of what nobody changes";
  const auto* const left =
      "quorvane-escuela: No se ha podido reparar: Valores que no caben en "
      "EvaluacionActaPte.RE_AC_DIV: 1 fila sin un número de ";
  EXPECT_THAT(Reparar(""), FieldsAre(1, StartsWith(left)));
  school_.Sql(
      "INSERT INTO Profesor_Pte SELECT 0, CodMatDet FROM Profesor_Pte WHERE CodProfesor<>0;"
      "UPDATE MateriaDetalles SET CodTipoMateria=4444 WHERE IDMateriaDetalles=30");
  EXPECT_THAT(Reparar(" --simular"),
              FieldsAre(1, AllOf(HasSubstr("-- Se repararía "), HasSubstr(left))));
  const auto report = Repair();
  EXPECT_GT(report.removed, 0U);
  EXPECT_EQ(report.changed, 1U);
  EXPECT_EQ(report.left, Faults());
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("EvaluacionActaPte.RE_AC_DIV")));
  EXPECT_EQ(school_.Count("EvaluacionActaPte WHERE RE_AC_DIV='x'"), 1);
}

TEST_F(SchoolRepairTest, LeavesRowsWhoseTargetHasLostItsKey) {
  if (OnServer()) GTEST_SKIP() << "the server's own types refuse there";
  school_.Sql(
      "DELETE FROM BloqueoPte; CREATE TABLE Otra AS SELECT * FROM Alumno; DROP TABLE Alumno;"
      "ALTER TABLE Otra RENAME TO Alumno");
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
  const auto report = Repair({.simulate = true});
  EXPECT_EQ(report.removed, 3U) << "with the locks that stand without their publication";
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(report.copy, "");
}

TEST_F(SchoolRepairTest, RefusesWhileSomebodySeemsToWork) {
  school_.Sql(
      "INSERT INTO PublicacionPte VALUES (1,0,2,4,2);"
      "INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  EXPECT_THAT(Refusal({.backedUp = true}), HasSubstr("--con-publicaciones"));
  EXPECT_EQ(Faults().size(), 1U);
  Repair({.publicationsToo = true});
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(SchoolRepairTest, AsksForACopyOnAServerAndMakesOneOfAFile) {
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  if (OnServer()) {
    EXPECT_THAT(Refusal({}), HasSubstr("--con-copia-hecha"));
    return;
  }
  const auto report = Repair();
  ASSERT_NE(report.copy, "");
  const auto copy = SchoolAddress::File(report.copy).Open("");
  const auto first = [](Connection& school, const std::string& select) {
    return school.Execute(select).Fields(0).Text();
  };
  EXPECT_EQ(first(*copy, "SELECT COUNT(*) FROM Seccion_AlumnoPte WHERE CodAlumno=777777"), "1");
  EXPECT_EQ(first(*copy, "PRAGMA journal_mode"), first(school_.Db(), "PRAGMA journal_mode"));
}

TEST_F(SchoolRepairTest, LeavesNothingBehindWhenItFails) {
  if (OnServer()) GTEST_SKIP() << "the server's own rights refuse there";
  school_.Sql(
      "INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0);"
      "INSERT INTO BloqueoPte VALUES (0,1,1,1,55);"
      "CREATE TRIGGER Terco BEFORE DELETE ON BloqueoPte BEGIN SELECT RAISE(ABORT,'no'); END");
  const auto before = Content();
  const auto files = [this] {
    const auto folder = std::filesystem::path(school_.Path()).parent_path();
    return std::count_if(std::filesystem::directory_iterator(folder), {}, [](const auto& entry) {
      return entry.path().string().find("antes-de-reparar") != std::string::npos;
    });
  };
  const auto there = files();
  EXPECT_THAT(Refusal({}), HasSubstr("no"));
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(files(), there);
}

TEST_F(SchoolRepairTest, TouchesNothingThatItCantTell) {
  school_.Sql("DELETE FROM BloqueoPte; INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  const auto before = Content();
  std::string copy;
  const auto refuse = [&](const RepairReport& report) {
    EXPECT_EQ(report.undo.size(), 1U);
    copy = report.copy;
    throw RuntimeError(ErrorNumber::StatementFailed, "lleno");
  };
  EXPECT_THROW(RepairSchool(school_.Address(), {.backedUp = true}, refuse), RuntimeError);
  EXPECT_EQ(Content(), before);
  EXPECT_EQ(copy.empty(), OnServer());
  EXPECT_FALSE(std::filesystem::exists(copy));
  // Behind the longest that a file may be.
  const TempFolder folder;
  const auto output = folder / "deshacer.sql";
  std::ofstream(output).close();
  std::filesystem::resize_file(output, 1 << 24);
  EXPECT_THAT(RunCommand("(trap '' XFSZ; ulimit -f 8192; " QUORVANE_ESCUELA " reparar " +
                         school_.Argument() + " --con-copia-hecha 2>&1 >>" + output + ")"),
              FieldsAre(1, HasSubstr("no se ha tocado nada")));
  EXPECT_EQ(Content(), before);
}

TEST_F(SchoolRepairTest, TheProgramTellsItAndEndsSo) {
  school_.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  EXPECT_THAT(Reparar(" --simular"), FieldsAre(0, HasSubstr("-- Se repararía ")));
  const auto done = Reparar(" --con-copia-hecha");
  EXPECT_THAT(done, FieldsAre(0, AllOf(HasSubstr("3 filas borradas, 0 cambiadas"),
                                       HasSubstr("VALUES (5,777777,0,0)"),
                                       HasSubstr("su CodAlumno no está en Alumno"))));
  EXPECT_EQ(done.text.find("antes-de-reparar") == std::string::npos, OnServer());
  const auto at = done.text.find("antes: ");
  if (at != std::string::npos)
    copies_.push_back(done.text.substr(at + 7, done.text.find('\n', at) - at - 7));
  EXPECT_THAT(Reparar(""), FieldsAre(0, "-- No hay nada que reparar\n"));
  EXPECT_EQ(Escuela("comprobar " + school_.Argument()).status, 0);
  EXPECT_EQ(Reparar(" --otra").status, 2);
}

}  // namespace
}  // namespace quorvane::test

#include <gtest/gtest.h>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/speed/Allocations.h"
#include "tests/support/TestSchool.h"

// What a kept statement takes of the allocator, exactly: time would tell the same, but not the same
// on every machine.

namespace quorvane::test {
namespace {

class StatementAllocations : public testing::Test {
 protected:
  StatementAllocations() {
    school_.Sql(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30) "
        "INSERT INTO Alumno (IDAlumno,Nombre,CodSeccion,OrdenSeccion) "
        "SELECT i,'Ana',7,i FROM n");
    connection_.Open();
  }

  /// Of the third of three runs that differ in a number: the first prepares, the second learns
  /// what follows it.
  std::size_t Of(const std::string& before, const std::string& behind = "") {
    std::size_t taken = 0;
    for (int i = 1; i <= 3; ++i) {
      const auto statement = std::string(before).append(std::to_string(i)).append(behind);
      const auto start = Allocations();
      connection_.Execute(statement);
      taken = Allocations() - start;
    }
    return taken;
  }

  TestSchool school_;
  sqlite::SqliteConnection connection_{school_.Path(), "centro"};
};

TEST_F(StatementAllocations, OneForTheCellsOfARow) {
  EXPECT_EQ(Of("SELECT IDAlumno, Nombre, CodSeccion, OrdenSeccion FROM Alumno WHERE IDAlumno="),
            1U);
}

TEST_F(StatementAllocations, OneForTheCellsOfThirtyRows) {
  EXPECT_EQ(Of("SELECT IDAlumno, Nombre, OrdenSeccion FROM Alumno WHERE CodSeccion>"), 1U);
}

TEST_F(StatementAllocations, NoneWithoutARow) {
  EXPECT_EQ(Of("SELECT IDAlumno FROM Alumno WHERE IDAlumno=100", " AND OrdenSeccion=0"), 0U);
}

TEST_F(StatementAllocations, NoneForAWrite) {
  EXPECT_EQ(Of("UPDATE Alumno SET OrdenSeccion=5 WHERE IDAlumno="), 0U);
}

TEST_F(StatementAllocations, NoneMoreWhenStatementsTakeTurns) {
  std::size_t taken = 0;
  for (int i = 1; i <= 4; ++i) {
    const auto one = "SELECT Nombre FROM Alumno WHERE IDAlumno=" + std::to_string(i);
    const auto other = "SELECT IDAlumno FROM Alumno WHERE OrdenSeccion=" + std::to_string(i);
    const auto start = Allocations();
    connection_.Execute(one);
    connection_.Execute(other);
    taken = Allocations() - start;
  }
  EXPECT_EQ(taken, 2U);
}

TEST_F(StatementAllocations, OneForReadingATextOfManyLetters) {
  school_.Sql("UPDATE Alumno SET Nombre='María de los Ángeles Inmaculada'");
  const auto rows = connection_.Execute("SELECT Nombre, CodSeccion FROM Alumno WHERE IDAlumno=1");
  const auto start = Allocations();
  const auto seccion = rows.Fields("codseccion").Long();
  EXPECT_EQ(Allocations() - start, 0U);
  const auto nombre = rows.Fields("nombre").Text();
  EXPECT_EQ(Allocations() - start, 1U);
  EXPECT_EQ(seccion, 7);
  EXPECT_EQ(nombre, "María de los Ángeles Inmaculada");
}

}  // namespace
}  // namespace quorvane::test

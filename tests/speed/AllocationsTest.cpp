#include <atomic>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolAddress.h"
#include "bench/BenchSchool.h"
#include "bench/Session.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestSchool.h"

namespace {

/// How often this program has asked the standard allocator for memory. What the engine's C code
/// takes doesn't count.
std::atomic<std::size_t> allocations{0};

}  // namespace

// All of the program's, the standard library's included: the other forms come to these two. Inlined
// they would look like mistaken for each other.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace quorvane::test {
namespace {

using bench::BenchSchool;

struct Opening {
  const char* name;
  std::uint8_t node;
  const char* stepOne;
  const char* stepTwo;
  int evaluation;
};

/// Opens one form three times in a session: the first prepares the statements, the second counts
/// them, the third is measured.
class OpeningAllocations : public testing::TestWithParam<Opening> {
 protected:
  void Play() {
    session_.Screen().OnLoading = [this](const Form& form) {
      if (form.Name() != GetParam().stepTwo) return;
      if (times_ == 2) session_.Executed().Record();
      start_ = allocations;
    };
    session_.Screen().On(GetParam().stepOne, [this](Form& form) { Open(form); });
    session_.Open(GetParam().node);
  }

  std::size_t taken_ = 0;
  std::size_t statements_ = 0;

 private:
  template <class T>
  static T& Control(const Form& form, const char* name) {
    return dynamic_cast<T&>(*form.Find(name));
  }

  static void Choose(const Form& form, const char* name, int data) {
    auto& combo = Control<ComboBox>(form, name);
    for (int i = 0; i < combo.ListCount(); ++i)
      if (combo.ItemData(i) == data) return combo.ListIndex(i);
    FAIL() << name << " has no " << data;
  }

  void Open(Form& stepOne) {
    if (++times_ > 3) return stepOne.CloseByUser();
    Choose(stepOne, "cboTipoEnsenanza", BenchSchool::kKind);
    Choose(stepOne, "cboCursos", BenchSchool::kCourse);
    Choose(stepOne, "cboSecciones", BenchSchool::kSection);
    Choose(stepOne, "cboEvaluaciones", GetParam().evaluation);
    session_.Screen().On(GetParam().stepTwo, [this](Form& stepTwo) {
      taken_ = allocations - start_;
      if (times_ == 2) statements_ = session_.Executed().Recorded().size();
      session_.Screen().On(GetParam().stepOne, [this](Form& form) { Open(form); });
      Control<CommandButton>(stepTwo, "cmdAceptar").Press();
    });
    Control<CommandButton>(stepOne, "cmdNotaManual1(0)").Press();
  }

  TempFolder folder_;
  BenchSchool school_{folder_ / ".", 50};
  bench::Session session_{SchoolAddress::File(school_.Path())};
  int times_ = 0;
  std::size_t start_ = 0;
};

// All that an opening does, the joining of its texts and the objects of the form included.
TEST_P(OpeningAllocations, AreFewForAStatement) {
  Play();
  EXPECT_LE(static_cast<double>(taken_) / static_cast<double>(statements_), 3.5);
}

INSTANTIATE_TEST_SUITE_P(
    , OpeningAllocations,
    testing::Values(
        Opening{"ByStudent", 124, "frmNotaManual1", "frmNotaManual", BenchSchool::kEvaluation},
        Opening{"BySubject", 125, "frmNotaMateria1", "frmNotaMateria", BenchSchool::kEvaluation},
        Opening{"ByStudentOfAFinalEvaluation", 124, "frmNotaManual1", "frmNotaManualFinal",
                BenchSchool::kFinalEvaluation},
        Opening{"BySubjectOfAFinalEvaluation", 125, "frmNotaMateria1", "frmNotaMateriaFinal",
                BenchSchool::kFinalEvaluation}),
    [](const auto& opening) { return opening.param.name; });

/// What a kept statement takes of the allocator, exactly: time would tell the same, but not the
/// same on every machine.
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
      const auto start = allocations.load();
      connection_.Execute(statement);
      taken = allocations - start;
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
    const auto start = allocations.load();
    connection_.Execute(one);
    connection_.Execute(other);
    taken = allocations - start;
  }
  EXPECT_EQ(taken, 2U);
}

TEST_F(StatementAllocations, OneForReadingATextOfManyLetters) {
  school_.Sql("UPDATE Alumno SET Nombre='María de los Ángeles Inmaculada'");
  const auto rows = connection_.Execute("SELECT Nombre, CodSeccion FROM Alumno WHERE IDAlumno=1");
  const auto start = allocations.load();
  const auto seccion = rows.Fields("codseccion").Long();
  EXPECT_EQ(allocations - start, 0U);
  const auto nombre = rows.Fields("nombre").Text();
  EXPECT_EQ(allocations - start, 1U);
  EXPECT_EQ(seccion, 7);
  EXPECT_EQ(nombre, "María de los Ángeles Inmaculada");
}

}  // namespace
}  // namespace quorvane::test

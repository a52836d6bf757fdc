#include "tests/grades/GradeDirect.h"
#include "tests/support/Matchers.h"

// Objects and grid where no gesture reaches: other kinds, objectives, the recovery, limits.

namespace quorvane::test {
namespace {

using NotaManualDirectTest = NotaManualDirect;

// What a failure leaves tells how the grids stand while they are built: still, out of sight, wide.
TEST_F(NotaManualDirectTest, GridsAreBuiltOutOfSight) {
  auto& form = Opened();
  school_.Sql("UPDATE TipoMateria SET CodSistemaCalificacion=9 WHERE IDTipoMateria=10");
  EXPECT_EQ(ErrorOf([&form] { form.cmdSiguiente_Click(); }), 3021);
  EXPECT_FALSE(form.blnEdicionActiva);
  for (const auto* grid : {&form.rtvNotasAlumno, &form.rtvNotasTutor}) {
    EXPECT_FALSE(grid->Redraw()) << grid->Name();
    EXPECT_FALSE(grid->Visible()) << grid->Name();
    EXPECT_EQ(grid->Width(), 17620) << grid->Name();
  }
}

TEST_F(NotaManualDirectTest, GridOfTheTutorIsBuiltWhenThatOfTheGradesShows) {
  auto& form = Opened();
  const auto width = form.rtvNotasAlumno.Width();
  school_.Sql("UPDATE TipoNota SET Orden=4 WHERE IDTipoNota=41");
  EXPECT_EQ(ErrorOf([&form] { form.cmdSiguiente_Click(); }), 381);
  EXPECT_FALSE(form.blnEdicionActiva);
  EXPECT_TRUE(form.rtvNotasAlumno.Visible());
  EXPECT_EQ(form.rtvNotasAlumno.Width(), width);
  EXPECT_FALSE(form.rtvNotasAlumno.Redraw());
  EXPECT_FALSE(form.rtvNotasTutor.Redraw());
  EXPECT_FALSE(form.rtvNotasTutor.Visible());
  EXPECT_EQ(form.rtvNotasTutor.Width(), 17620);
  // Mended, the next student has both again, at the one width.
  school_.Sql("UPDATE TipoNota SET Orden=2 WHERE IDTipoNota=41");
  form.rtvNotasAlumno.Width(5000);
  form.cmdSiguiente_Click();
  for (const auto* grid : {&form.rtvNotasAlumno, &form.rtvNotasTutor}) {
    EXPECT_TRUE(grid->Redraw() && grid->Visible()) << grid->Name();
    EXPECT_EQ(grid->Width(), 5000) << grid->Name();
  }
  EXPECT_TRUE(form.blnEdicionActiva);
}

TEST_F(NotaManualDirectTest, EventsDoNothingWhileTheGridIsBuilt) {
  auto& form = Opened();
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualDirectTest, ColumnOfWidthZeroNeitherOpensAListNorTakesAValue) {
  auto& form = Opened();
  ASSERT_EQ(form.rtvNotasAlumno.ColWidth(2), 0);
  form.rtvNotasAlumno.BeginEdit(1, 2);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(2).empty());
  form.rtvNotasAlumno.ListaAnadir(2, "x", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["4"]->Concepto, 0);
}

TEST_F(NotaManualDirectTest, HeadingAndColumnsOfNoGradeTakeNoValue) {
  auto& form = Opened();
  auto& grid = form.rtvNotasAlumno;
  // A kind of grade beyond the fifth can leave the column of the parents in sight.
  grid.ColWidth(6, 2000);
  for (const auto& [row, column] : {std::pair{0, 1}, std::pair{1, 0}, std::pair{1, 6}}) {
    grid.BeginEdit(row, column);
    EXPECT_TRUE(grid.Lista(column).empty()) << column;
    grid.ListaAnadir(column, "x", 107);
    grid.EndEdit(0);
  }
  EXPECT_THAT(session_.Statements(), IsEmpty());
  const auto& subject = *form.colAlumnos["3"]->colMateria["4"];
  for (const auto grade : {subject.Nota, subject.Concepto, subject.Procedimiento, subject.Actitud,
                           subject.Observacion})
    EXPECT_EQ(grade, 0);
}

TEST_F(NotaManualDirectTest, StudentWithoutSubjectsShowsTheHeadingAndFixedRowsStay) {
  auto& form = Opened();
  form.colAlumnos["1"]->colMateria.Clear();
  for (const int fixed : {1, 0}) {
    form.rtvNotasAlumno.FixedRows(fixed);
    form.cmdSiguiente_Click();
    EXPECT_EQ(form.rtvNotasAlumno.Rows(), 1);
    EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(0, 0), "Materia");
    EXPECT_EQ(form.rtvNotasAlumno.FixedRows(), fixed);
    form.cmdAnterior_Click();
    EXPECT_EQ(form.rtvNotasAlumno.FixedRows(), 1);
  }
}

TEST_F(NotaManualDirectTest, ArrowKeysAreTakenAndOthersPass) {
  auto& form = Opened();
  EXPECT_EQ(form.KeyDown(40), 0);
  EXPECT_EQ(form.cboAlumnos.ListIndex(), 1);
  EXPECT_EQ(form.KeyDown(38), 0);
  EXPECT_EQ(form.KeyDown(38), 0) << "at the end of the list too";
  for (const int other : {9, 13, 27, 37, 39}) EXPECT_EQ(form.KeyDown(other), other);
  EXPECT_EQ(form.cboAlumnos.ListIndex(), 0);
}

TEST_F(NotaManualDirectTest, WidthBeyondSixteenBitsEndsTheCopyQuietly) {
  auto& form = Opened();
  form.rtvNotasAlumno.ColWidth(1, 40000);
  form.rtvNotasAlumno.ColWidth(5, 3000);
  form.GuardarAnchosAlumno(false);
  form.RestaurarAnchosAlumno();
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(5), 2000) << "not reached any more";
}

TEST_F(NotaManualDirectTest, SectionBeyondSixteenBitsOfTheHostIsAnOverflow) {
  auto& form = Opened();
  PasoUno().cboSecciones.AddItem("lejana", 40000);
  PasoUno().cboSecciones.ListIndex(1);
  EXPECT_EQ(ErrorOf([&form] { form.Unload(); }), 6);
}

}  // namespace
}  // namespace quorvane::test

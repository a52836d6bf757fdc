#include <gmock/gmock.h>

#include "tests/grades/NotaManualDirect.h"

// Objects and grid where no gesture reaches: other kinds, objectives, the recovery, limits.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(NotaManualDirect, DraggedColumnOfTheGradesSpringsBack) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(1, 100);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
}

// What a failure leaves tells how the grids stand while they are built: still, out of sight, wide.
TEST_F(NotaManualDirect, GridsAreBuiltOutOfSight) {
  auto& form = Opened();
  school_.Sql("UPDATE TipoMateria SET CodSistemaCalificacion=9 WHERE IDTipoMateria=10");
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.cmdSiguiente_Click(); }), 3021);
  EXPECT_FALSE(form.blnEdicionActiva);
  for (const auto* grid : {&form.rtvNotasAlumno, &form.rtvNotasTutor}) {
    EXPECT_FALSE(grid->Redraw()) << grid->Name();
    EXPECT_FALSE(grid->Visible()) << grid->Name();
    EXPECT_EQ(grid->Width(), 17620) << grid->Name();
  }
}

TEST_F(NotaManualDirect, GridOfTheTutorIsBuiltWhenThatOfTheGradesShows) {
  auto& form = Opened();
  const auto width = form.rtvNotasAlumno.Width();
  school_.Sql("UPDATE TipoNota SET Orden=4 WHERE IDTipoNota=41");
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.cmdSiguiente_Click(); }), 381);
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

TEST_F(NotaManualDirect, EventsDoNothingWhileTheGridIsBuilt) {
  auto& form = Opened();
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualDirect, RowOfAnObjectiveIsAnErrorAndARowWithoutItsSubjectToo) {
  auto& form = Opened();
  const auto edit = [&form] { form.rtvNotasAlumno.BeginEdit(1, 1); };
  form.rtvNotasAlumno.TextMatrix(1, 6, "4");
  EXPECT_EQ(DirectSession::ErrorOf(edit), 438);
  form.rtvNotasAlumno.TextMatrix(1, 6, "0");
  form.rtvNotasAlumno.TextMatrix(1, 7, "12345");
  EXPECT_EQ(DirectSession::ErrorOf(edit), 5);
}

TEST_F(NotaManualDirect, SubjectOfAnotherKindGetsNoList) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  ASSERT_GT(form.rtvNotasAlumno.Lista(1).size(), 1U);
  static_cast<void>(session_.Statements());
  auto& subject = *form.colAlumnos["3"]->colMateria["4"];
  subject.Fct = true;
  subject.Nota = 107;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(1).empty());
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 381);
  EXPECT_EQ(subject.Nota, 107);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaManualDirect, ColumnOfWidthZeroNeitherOpensAListNorTakesAValue) {
  auto& form = Opened();
  ASSERT_EQ(form.rtvNotasAlumno.ColWidth(2), 0);
  form.rtvNotasAlumno.BeginEdit(1, 2);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  EXPECT_TRUE(form.rtvNotasAlumno.Lista(2).empty());
  form.rtvNotasAlumno.ListaAnadir(2, "x", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["4"]->Concepto, 0);
}

TEST_F(NotaManualDirect, HeadingAndColumnsOfNoGradeTakeNoValue) {
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

TEST_F(NotaManualDirect, StudentWithoutSubjectsShowsTheHeadingAndFixedRowsStay) {
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

TEST_F(NotaManualDirect, ArrowKeysAreTakenAndOthersPass) {
  auto& form = Opened();
  EXPECT_EQ(form.KeyDown(40), 0);
  EXPECT_EQ(form.cboAlumnos.ListIndex(), 1);
  EXPECT_EQ(form.KeyDown(38), 0);
  EXPECT_EQ(form.KeyDown(38), 0) << "at the end of the list too";
  for (const int other : {9, 13, 27, 37, 39}) EXPECT_EQ(form.KeyDown(other), other);
  EXPECT_EQ(form.cboAlumnos.ListIndex(), 0);
}

TEST_F(NotaManualDirect, ListaIndiceOfNoneWritesZero) {
  auto& form = Opened();
  auto& subject = *form.colAlumnos["3"]->colMateria["4"];
  subject.Nota = 107;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_EQ(subject.Nota, 0);
}

TEST_F(NotaManualDirect, EachColumnWritesItsOwnField) {
  auto& form = Opened();
  auto& subject = *form.colAlumnos["3"]->colMateria["4"];
  for (int column = 1; column <= 5; ++column) {
    form.rtvNotasAlumno.ColWidth(column, 1000);
    form.GuardarAnchosAlumno(true);
    form.rtvNotasAlumno.BeginEdit(1, column);
    form.rtvNotasAlumno.ListaLimpiar(column);
    form.rtvNotasAlumno.ListaAnadir(column, "x", 10 + column);
    form.rtvNotasAlumno.EndEdit(0);
  }
  EXPECT_EQ(subject.Nota, 11);
  EXPECT_EQ(subject.Concepto, 12);
  EXPECT_EQ(subject.Procedimiento, 13);
  EXPECT_EQ(subject.Actitud, 14);
  EXPECT_EQ(subject.Observacion, 15);
}

TEST_F(NotaManualDirect, LoadedSubjectHasItsFields) {
  school_.Sql(
      "UPDATE MateriaDetalles SET CodPersonal=2, CodPersonalAsociado=3 WHERE "
      "IDMateriaDetalles=3113");
  const auto& subject = *Opened().colAlumnos["3"]->colMateria["4"];
  EXPECT_EQ(subject.IDMatDetalle, 4);
  EXPECT_EQ(subject.CodAlumno_MateriaDetalles, 4);
  EXPECT_EQ(subject.Nombre, "Francés (1º ESO)");
  EXPECT_EQ(subject.IDMateria, 3);
  EXPECT_EQ(subject.IDseccion, 311);
  EXPECT_EQ(subject.IDProfesor, 2);
  EXPECT_EQ(subject.IDProfesorAsociado, 3);
  EXPECT_EQ(subject.Estado, 0);
  EXPECT_FALSE(subject.Fct || subject.MateriaExterna || subject.Recuperacion || subject.Evaluado);
}

// Step one never hands on a recovery in this flow; the branches stand all the same.

TEST_F(NotaManualDirect, RecoveryShowsNoGradesHidesBothFramesAndSavesNothing) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=107");
  PasoUno().blnRecuperar = true;
  auto& form = Opened();
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 1), "");
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 7), "4");
  EXPECT_FALSE(form.fraObservacion[0].Shown() || form.fraAusencia[0].Shown());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.EndEdit(1); }), 438);
  static_cast<void>(session_.Statements());
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Sql("SELECT IDPersonal FROM Personal WHERE codUsuario=1"),
                          Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte=1"),
                          Sql("DELETE FROM BloqueoPte WHERE codPublicacion=1"),
                          Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte=1")));
}

TEST_F(NotaManualDirect, WidthBeyondSixteenBitsEndsTheCopyQuietly) {
  auto& form = Opened();
  form.rtvNotasAlumno.ColWidth(1, 40000);
  form.rtvNotasAlumno.ColWidth(5, 3000);
  form.GuardarAnchosAlumno(false);
  form.RestaurarAnchosAlumno();
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(5), 2000) << "not reached any more";
}

TEST_F(NotaManualDirect, SectionBeyondSixteenBitsOfTheHostIsAnOverflow) {
  auto& form = Opened();
  PasoUno().cboSecciones.AddItem("lejana", 40000);
  PasoUno().cboSecciones.ListIndex(1);
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.Unload(); }), 6);
}

}  // namespace
}  // namespace quorvane::test

#include <gmock/gmock.h>

#include "tests/grades/FinalStatements.h"
#include "tests/grades/FinalSubjectDirect.h"

// What no gesture reaches in the final evaluations by the subjects of one student.

namespace quorvane::test {
namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

TEST_F(FinalSectionBySubjectDirect, LoadedSubjectIsKeyedByTheSubjectAndSavedByItsRow) {
  school_.Sql("UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111");
  const auto& form = Opened();
  const auto& materia = *form.colAlumnos["1"]->colMateria["3111"];
  EXPECT_EQ(materia.IDMatDetalle, 3111);
  EXPECT_EQ(materia.CodAlumno_MateriaDetalles, 1);
  EXPECT_EQ(materia.IDProfesor, 2);
  EXPECT_EQ(materia.IDProfesorAsociado, 3);
  EXPECT_FALSE(materia.Fct || materia.MateriaExterna);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3111,3112");
  EXPECT_EQ(form.ObservacionAlumno, "Observación del tutor");
}

TEST_F(FinalSectionBySubjectDirect, CaptionsWhileItWorks) {
  const auto captions = CaptionsOfWork();
  ASSERT_GE(captions.size(), 2U);
  EXPECT_EQ(captions.front(), "Cargando... Espere por favor");
  EXPECT_EQ(captions[1], "Grabando... Espere por favor");
}

// The observation comes before the guards of the cells, so that it is rebuilt where nothing is
// offered, but not while the grid is built.
TEST_F(FinalSectionBySubjectDirect, ObservationIsRebuiltBeforeTheGuards) {
  const Role user = kUnrestricted;
  auto& form = Opened();
  for (const auto column : {0, 7}) {
    form.rtvNotasAlumno.BeginEdit(1, column);
    EXPECT_THAT(session_.Statements(), ElementsAreArray(FinalObservation(user, 4, false)));
    EXPECT_THAT(form.rtvNotasAlumno.Lista(column), IsEmpty());
  }
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(FinalSectionBySubjectDirect, FrameIsHiddenAgainAndItsLabelStandsWhereTheComboDoes) {
  auto& form = Opened();
  form.fraObservacion[0].Visible(true);
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_FALSE(form.fraObservacion[0].Visible());
  EXPECT_EQ(form.lblNotaManual[1].Left(), form.cboObservacion.Left());
  EXPECT_EQ(form.lblNotaManual[1].Top(), form.cboObservacion.Top());
  form.blnTutor = false;
  form.fraObservacion[0].Visible(true);
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_FALSE(form.fraObservacion[0].Visible());
}

TEST_F(FinalSectionBySubjectDirect, MeasuresCanBeEditedWithAGradeInMemory) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 6);
  EXPECT_THAT(form.rtvNotasAlumno.Lista(6), IsEmpty());
  form.colAlumnos["1"]->colMateria["3111"]->Nota = 107;
  form.rtvNotasAlumno.BeginEdit(1, 6);
  ASSERT_EQ(form.rtvNotasAlumno.Lista(6).size(), 3U);
  form.rtvNotasAlumno.EndEdit(2);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3111"]->REACDIV, 2);
}

TEST_F(FinalSectionBySubjectDirect, EntryThatIsNoSubjectIsLocked) {
  auto& form = Opened();
  form.ListaMaterias[0].CodAsociada = 3112;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(form.rtvNotasAlumno.Lista(1), IsEmpty());
  form.rtvNotasAlumno.ListaAnadir(1, "7", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3111"]->Nota, 0);
}

TEST_F(FinalSectionBySubjectDirect, ObservationAndPromotionReachMissingMembers) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.cboObservacion.ListIndex(1); }), 438);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.chkPromocion.Value(1); }), 438);
}

TEST_F(FinalSectionBySubjectDirect, DraggedWidthGoesBackAndADraggedRowIsNobodysAffair) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(5, 900);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(5), 2000);
  form.rtvNotasAlumno.DragRow();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

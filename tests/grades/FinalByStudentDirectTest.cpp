#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frame/cConfiguracion.h"
#include "grades/final/frmNotaManualFinal.h"
#include "platform/controls/FormInstance.h"
#include "tests/grades/DirectSession.h"
#include "tests/grades/FinalSchool.h"

// What no gesture reaches in the final evaluations by student: the measures, which are never seen
// there, the handlers of members that a student doesn't have, what stands while the form works.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FinalByStudentDirect : public ::testing::Test {
 protected:
  static frmNotaManualFinal& Form() { return FormInstance<frmNotaManualFinal>::Get(); }

  static frmNotaManualFinal& Opened() {
    Form().ShowModal();
    return Form();
  }

  /// What the cell of the first subject's measure offers, as "text=data".
  static Lines Measures(frmNotaManualFinal& form) {
    form.rtvNotasAlumno.BeginEdit(1, 6);
    Lines offered;
    for (const auto& entry : form.rtvNotasAlumno.Lista(6))
      offered.push_back(entry.text + "=" + std::to_string(entry.data));
    return offered;
  }

  FinalSchool school_;
  DirectSession session_{school_, 4};
};

TEST_F(FinalByStudentDirect, MeasuresOfferNothingWithoutAGradeAlsoWhenOneIsStored) {
  school_.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=2");
  auto& form = Opened();
  EXPECT_THAT(Measures(form), IsEmpty());
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 6), "Adaptacion curricular");
}

TEST_F(FinalByStudentDirect, MeasuresAreOfferedForAGradeInMemoryWithTheAccent) {
  auto& form = Opened();
  form.colAlumnos["3"]->colMateria["4"]->Nota = 107;
  static_cast<void>(session_.Statements());
  EXPECT_THAT(Measures(form),
              ElementsAre(" =0", "Refuerzo educativo=1", "Adaptación curricular=2"));
  form.rtvNotasAlumno.EndEdit(2);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 6), "Adaptación curricular");
  form.cmdAceptar_Click();
  EXPECT_EQ(school_.Stored(4, 4), "107|0|2|-1|-1");
}

TEST_F(FinalByStudentDirect, EndOfAnEditWithoutAnEntryWritesNone) {
  school_.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=2");
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 6);
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["4"]->REACDIV, 0);
}

TEST_F(FinalByStudentDirect, ConceptIsKeptInMemoryAndOtherColumnsTakeNothing) {
  auto& form = Opened();
  auto& materia = *form.colAlumnos["3"]->colMateria["4"];
  for (const auto column : {3, 4, 7, 8, 2}) {
    form.rtvNotasAlumno.BeginEdit(1, column);
    form.rtvNotasAlumno.ListaAnadir(column, "x", 9);
    form.rtvNotasAlumno.EndEdit(static_cast<int>(form.rtvNotasAlumno.Lista(column).size()) - 1);
  }
  EXPECT_EQ(materia.Concepto, 9);
  EXPECT_EQ(materia.Procedimiento, 0);
  EXPECT_EQ(materia.Actitud, 0);
  EXPECT_EQ(materia.Nota, 0);
}

TEST_F(FinalByStudentDirect, RowThatMayNotBeEditedNeitherOffersNorTakes) {
  auto& form = Opened();
  form.rtvNotasAlumno.TextMatrix(1, 7, "1");
  static_cast<void>(session_.Statements());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(form.rtvNotasAlumno.Lista(1), IsEmpty());
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.rtvNotasAlumno.ListaAnadir(1, "7", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["4"]->Nota, 0);
}

TEST_F(FinalByStudentDirect, KeyColumnsOfferNothing) {
  auto& form = Opened();
  for (const auto column : {7, 8}) {
    form.rtvNotasAlumno.BeginEdit(1, column);
    EXPECT_THAT(form.rtvNotasAlumno.Lista(column), IsEmpty());
  }
}

TEST_F(FinalByStudentDirect, NothingIsEditedWhileTheGridIsBuilt) {
  auto& form = Opened();
  form.blnEdicionActiva = false;
  static_cast<void>(session_.Statements());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.rtvNotasAlumno.ListaAnadir(1, "7", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["4"]->Nota, 0);
}

TEST_F(FinalByStudentDirect, DraggedWidthGoesBackToTheKeptOne) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(1, 5000);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
  form.rtvNotasAlumno.DragColumn(3, 700);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(3), 0);
}

TEST_F(FinalByStudentDirect, ObservationAndPromotionReachMissingMembers) {
  auto& form = Opened();
  form.cboObservacion.AddItem("Sigue así", 501);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.cboObservacion.ListIndex(0); }), 438);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.chkPromocion.Value(1); }), 438);
}

TEST_F(FinalByStudentDirect, NoSelectionBuildsNothing) {
  auto& form = Opened();
  form.cboAlumnos.Clear();
  static_cast<void>(session_.Statements());
  form.cboAlumnos_Click();
  EXPECT_THAT(session_.Statements(), IsEmpty());
  EXPECT_TRUE(form.rtvNotasAlumno.Visible());
}

TEST_F(FinalByStudentDirect, GridIsGivenItsHeightBackAndStandsOnTheFirstSubject) {
  auto& form = Opened();
  const auto height = form.rtvNotasAlumno.Height();
  form.rtvNotasAlumno.Row(1);
  form.cboAlumnos.ListIndex(1);
  EXPECT_EQ(form.rtvNotasAlumno.Height(), height);
  EXPECT_EQ(form.rtvNotasAlumno.Row(), 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Redraw());
  EXPECT_TRUE(form.blnEdicionActiva);
}

// The pointer and the icon come before the test of the publication.
TEST_F(FinalByStudentDirect, PublicationIsRefusedUnderTheHourglass) {
  school_.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,1,321,4)");
  cConfiguracion::Instancia().RutaIcono = "zendria.ico";
  auto form = Form().shared_from_this();
  form->ShowModal();
  EXPECT_EQ(session_.screen.messages.size(), 1U);
  EXPECT_EQ(form->Icon(), "zendria.ico");
  EXPECT_FALSE(FormInstance<frmNotaManualFinal>::Exists());
}

/// What the form looks like whenever it lets the screen be painted.
TEST_F(FinalByStudentDirect, AnimationStandsAloneWhileTheFormWorks) {
  auto form = std::static_pointer_cast<frmNotaManualFinal>(Form().shared_from_this());
  const auto width = form->Width();
  Lines captions;
  session_.screen.Painting = [&] {
    if (!form->fraAniCarga.Visible()) return;
    captions.push_back(form->fraAniCarga.Caption());
    EXPECT_TRUE(form->aniCarga.Playing() && form->aniCarga.Visible());
    EXPECT_EQ(form->aniCarga.File(), "C:\\zendria\\avis\\filecopy.avi");
    EXPECT_FALSE(form->fraNota.Visible() || form->cmdAceptar.Visible());
    EXPECT_LT(form->Width(), width);
  };
  form->ShowModal();
  EXPECT_EQ(form->Width(), width);
  EXPECT_FALSE(form->aniCarga.Playing());
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Default);
  form->cmdAceptar_Click();
  ASSERT_GE(captions.size(), 2U);
  EXPECT_EQ(captions.front(), "Cargando Datos");
  EXPECT_EQ(captions[1], "Guardando Datos");
}

TEST_F(FinalByStudentDirect, ControlsStayInsideTheFormAndFollowItsEdges) {
  auto& form = Opened();
  const auto inside = [&form] {
    EXPECT_LE(form.cmdCancelar.Top() + form.cmdCancelar.Height(), form.ScaleHeight());
    EXPECT_LE(form.cmdCancelar.Left() + form.cmdCancelar.Width(), form.ScaleWidth());
    EXPECT_LE(form.cmdAceptar.Left() + form.cmdAceptar.Width(), form.cmdCancelar.Left());
    EXPECT_LE(form.fraObservacion[0].Left() + form.fraObservacion[0].Width(),
              form.cmdAceptar.Left());
    EXPECT_LE(form.fraNota.Top() + form.fraNota.Height(), form.fraObservacion[0].Top());
    EXPECT_LE(form.fraNota.Left() + form.fraNota.Width(), form.ScaleWidth());
    EXPECT_LE(form.rtvNotasAlumno.Left() + form.rtvNotasAlumno.Width(), form.fraNota.Width());
    EXPECT_LE(form.rtvNotasAlumno.Top() + form.rtvNotasAlumno.Height(), form.fraNota.Height());
    EXPECT_LE(form.cmdSiguiente.Left() + form.cmdSiguiente.Width(), form.ScaleWidth());
  };
  inside();
  const auto width = form.rtvNotasAlumno.Width();
  const auto height = form.rtvNotasAlumno.Height();
  form.ResizeByUser(10640, 7435);
  inside();
  EXPECT_EQ(form.rtvNotasAlumno.Width(), width + 2000);
  EXPECT_EQ(form.rtvNotasAlumno.Height(), height + 1000);
}

}  // namespace
}  // namespace quorvane::test

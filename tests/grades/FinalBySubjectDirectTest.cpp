#include <gmock/gmock.h>
#include <vector>

#include "platform/host/FrontEnd.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FinalSubjectDirect.h"

// What no gesture reaches in the final evaluations by subject: objects, guards, members that a
// student doesn't have, what stands while the form works.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

TEST_F(FinalBySubjectDirect, LoadedSubjectIsKeyedByTheSubjectAndSavedByItsRow) {
  school_.Sql(
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111;"
      "UPDATE EvaluacionActaPte SET Evaluado=-1, CodNota=107, CodNotaObservacion=202, RE_AC_DIV=2 "
      "WHERE CodAlumnoPte_MatDet=3 AND CodNumEvaluacion=4");
  const auto& form = Opened();
  const auto& materia = *form.colAlumnos["2"]->colMateria["3111"];
  EXPECT_EQ(materia.IDMatDetalle, 3111);
  EXPECT_EQ(materia.CodAlumno_MateriaDetalles, 3);
  EXPECT_EQ(materia.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(materia.IDMateria, 1);
  EXPECT_EQ(materia.IDseccion, 311);
  EXPECT_EQ(materia.IDProfesor, 2);
  EXPECT_EQ(materia.IDProfesorAsociado, 3);
  EXPECT_EQ(materia.Nota, 107);
  EXPECT_EQ(materia.Observacion, 202);
  EXPECT_EQ(materia.REACDIV, 2);
  EXPECT_TRUE(materia.Evaluado);
  EXPECT_FALSE(materia.Fct || materia.MateriaExterna || materia.Recuperacion);
  EXPECT_EQ(form.strMateriasBloqueo, "0,3113,3111,3112");
}

TEST_F(FinalBySubjectDirect, EntriesBehindTheComboAreSubjects) {
  const auto& form = Opened();
  ASSERT_EQ(form.ListaMaterias.size(), 3U);
  EXPECT_EQ(form.ListaMaterias[1].CodAsociada, 0);
  EXPECT_EQ(form.ListaMaterias[1].IDMatDet, 3111);
  EXPECT_EQ(form.ListaMaterias[1].Nombre, "Lengua (1º ESO)");
}

// The first of the two forms of the measures and the promotion is a field of its own.
TEST_F(FinalBySubjectDirect, CourseDecidesPromotionAndMeasuresEachByItself) {
  const std::vector<std::pair<const char*, int>> codes = {
      {"0", 0}, {"1", 1}, {"2", 1}, {"3", 0}, {"NULL", 0}};
  for (const auto& [code, field] : codes) {
    school_.DropPublications();
    school_.Sql(std::string("UPDATE Curso SET RE_AC=0, Promocion=") + code);
    auto& form = Opened();
    EXPECT_EQ(form.bytPromocion, field) << code;
    EXPECT_FALSE(form.blnMedidas) << code;
    form.Unload();
  }
  school_.Sql("UPDATE Curso SET RE_AC=1, Promocion=0");
  EXPECT_TRUE(Opened().blnMedidas);
  EXPECT_EQ(Form().bytPromocion, 0);
}

TEST_F(FinalBySubjectDirect, CaptionsWhileItWorks) {
  const auto captions = CaptionsOfWork();
  ASSERT_GE(captions.size(), 2U);
  EXPECT_EQ(captions.front(), "Cargando... Espere por favor");
  EXPECT_EQ(captions[1], "Grabando... Espere por favor");
}

TEST_F(FinalBySubjectDirect, NameOfTheTutorsGradeIsKept) {
  EXPECT_EQ(Opened().ObservacionAlumno, "Observación del tutor");
}

TEST_F(FinalBySubjectDirect, PointerComesBackAfterTheLoadAndEachSubject) {
  auto& form = Opened();
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Default);
  session_.screen.MousePointer(Pointer::Arrow);
  form.cboMaterias.ListIndex(1);
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Default);
}

TEST_F(FinalBySubjectDirect, GridKeepsItsHeightAndSelectsItsFirstRow) {
  auto& form = Opened();
  const auto height = form.rtvNotasAlumno.Height();
  form.cboMaterias.ListIndex(1);
  form.rtvNotasAlumno.Row(2);
  form.cboMaterias.ListIndex(1);
  EXPECT_EQ(form.rtvNotasAlumno.Height(), height);
  EXPECT_EQ(form.rtvNotasAlumno.Row(), 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Visible() && form.rtvNotasAlumno.Redraw());
  EXPECT_TRUE(form.blnEdicionActiva);
}

TEST_F(FinalBySubjectDirect, NothingHappensWithoutASelectedSubject) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(-1);
  form.cboMaterias_Click();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(FinalBySubjectDirect, MeasuresCanBeEditedAndTheKeyCannot) {
  auto& form = Opened();
  form.colAlumnos["3"]->colMateria["3113"]->Nota = 107;
  form.rtvNotasAlumno.BeginEdit(1, 6);
  EXPECT_EQ(form.rtvNotasAlumno.Lista(6).size(), 3U);
  form.rtvNotasAlumno.BeginEdit(1, 7);
  EXPECT_THAT(form.rtvNotasAlumno.Lista(7), IsEmpty());
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(FinalBySubjectDirect, ColumnsWithoutAFieldTakeNothing) {
  auto& form = Opened();
  auto& materia = *form.colAlumnos["3"]->colMateria["3113"];
  for (const auto column : {3, 4, 7, 2}) {
    form.rtvNotasAlumno.BeginEdit(1, column);
    form.rtvNotasAlumno.ListaAnadir(column, "x", 9);
    form.rtvNotasAlumno.EndEdit(static_cast<int>(form.rtvNotasAlumno.Lista(column).size()) - 1);
  }
  EXPECT_EQ(materia.Concepto, 9);
  EXPECT_EQ(materia.Procedimiento, 0);
  EXPECT_EQ(materia.Actitud, 0);
  EXPECT_EQ(materia.Nota, 0);
  EXPECT_EQ(materia.REACDIV, 0);
}

TEST_F(FinalBySubjectDirect, EditWritesTheStudentOfTheRowAlone) {
  auto& form = Opened();
  form.cboMaterias.ListIndex(1);
  form.rtvNotasAlumno.BeginEdit(2, 1);
  form.rtvNotasAlumno.EndEdit(1);
  EXPECT_EQ(form.colAlumnos["1"]->colMateria["3111"]->Nota, 0);
  EXPECT_EQ(form.colAlumnos["2"]->colMateria["3111"]->Nota, 100);
}

TEST_F(FinalBySubjectDirect, EntryThatIsNoSubjectIsIndentedAndLocked) {
  auto& form = Opened();
  form.ListaMaterias[0].CodAsociada = 3111;
  static_cast<void>(session_.Statements());
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(form.rtvNotasAlumno.Lista(1), IsEmpty());
  form.rtvNotasAlumno.ListaAnadir(1, "7", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["3113"]->Nota, 0);
  // The lock is the grades' alone: what a measure asks for is a grade.
  form.colAlumnos["3"]->colMateria["3113"]->Nota = 107;
  form.rtvNotasAlumno.BeginEdit(1, 6);
  EXPECT_EQ(form.rtvNotasAlumno.Lista(6).size(), 3U);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.cboMaterias_Click();
  EXPECT_EQ(form.rtvNotasAlumno.Rows(), 1);
}

TEST_F(FinalBySubjectDirect, NothingIsEditedWhileTheGridIsBuilt) {
  auto& form = Opened();
  form.blnEdicionActiva = false;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
  form.rtvNotasAlumno.ListaAnadir(1, "7", 107);
  form.rtvNotasAlumno.EndEdit(0);
  EXPECT_EQ(form.colAlumnos["3"]->colMateria["3113"]->Nota, 0);
}

TEST_F(FinalBySubjectDirect, DraggedWidthGoesBackAndADraggedRowIsNobodysAffair) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(1, 5000);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
  form.rtvNotasAlumno.DragColumn(4, 700);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(4), 0);
  form.rtvNotasAlumno.DragRow();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(FinalBySubjectDirect, ObservationAndPromotionReachMissingMembers) {
  auto& form = Opened();
  form.cboObservacion.AddItem("Sigue así", 501);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.cboObservacion.ListIndex(0); }), 438);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.chkPromocion.Value(1); }), 438);
}

TEST_F(FinalBySubjectDirect, RowOfAStudentWhoIsNotThereIsAnError) {
  auto& form = Opened();
  form.rtvNotasAlumno.TextMatrix(1, 7, "77");
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.rtvNotasAlumno.BeginEdit(1, 1); }), 5);
}

TEST_F(FinalBySubjectDirect, HeadingsUntilTheFirstSubject) {
  auto& form = Form();
  form.ConfigurarRejillaInicial();
  Lines headings;
  std::vector<std::int32_t> widths;
  for (int column = 0; column < form.rtvNotasAlumno.Cols(); ++column) {
    headings.push_back(form.rtvNotasAlumno.TextMatrix(0, column));
    widths.push_back(form.rtvNotasAlumno.ColWidth(column));
  }
  EXPECT_THAT(headings, ElementsAre("Materia", "Nota", "Concepto", "Procedimiento", "Actitud",
                                    "Observacion", "Medidas Adoptadas", ""));
  widths.pop_back();
  EXPECT_THAT(widths, ElementsAre(2000, 1000, 2000, 2000, 2000, 2000, 2000));
}

TEST_F(FinalBySubjectDirect, SavingWritesEverySubjectOfEveryStudent) {
  const Role user = kUnrestricted;
  auto& form = Opened();
  form.colAlumnos["2"]->colMateria["3111"]->Nota = 104;
  form.cmdAceptar_Click();
  auto statements = session_.Statements();
  const auto saved = SaveFinalUngraded(user, 4, 4) + SaveFinalUngraded(user, 4, 1) +
                     SaveFinalUngraded(user, 4, 2) + SaveFinalGraded(user, 4, 3, 104);
  ASSERT_GE(statements.size(), saved.size());
  statements.resize(saved.size());
  EXPECT_THAT(statements, ElementsAreArray(saved));
}

}  // namespace
}  // namespace quorvane::test

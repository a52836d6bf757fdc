#include <string>
#include <utility>
#include <vector>

#include "frame/cConfiguracion.h"
#include "platform/host/FrontEnd.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/GradeDirect.h"
#include "tests/support/Matchers.h"

// What no gesture reaches in the final dialogs: objects, guards, members that a student doesn't
// have, what stands while the form works.

namespace quorvane::test {
namespace {

using ByStudent = GradeDirect<frmNotaManual1, frmNotaManualFinal, kFinalByStudent>;
using BySubject = GradeDirect<frmNotaMateria1, frmNotaMateriaFinal, kFinalBySubject>;
using SectionByStudent =
    GradeDirect<frmNotaSeccionAlumno1, frmNotaSeccionAlumnoFinal, kFinalSectionByStudent>;
using SectionBySubject =
    GradeDirect<frmNotaSeccionMateria1, frmNotaSeccionMateriaFinal, kFinalSectionBySubject>;

template <class Direct>
class FinalDirect : public Direct {
 protected:
  using PasoDos = std::remove_reference_t<decltype(Direct::Form())>;

  /// The subject of the row, as it stands in memory.
  static auto& Subject(PasoDos& form) {
    const auto& known = Direct::Known();
    return *form.colAlumnos[std::to_string(known.student)]->colMateria[known.subjectKey];
  }

  /// What the cell of the row's measure offers, as "text=data".
  static Lines Measures(PasoDos& form) {
    form.rtvNotasAlumno.BeginEdit(1, 6);
    Lines offered;
    for (const auto& entry : form.rtvNotasAlumno.Lista(6))
      offered.push_back(entry.text + "=" + std::to_string(entry.data));
    return offered;
  }

  /// An entry that the form doesn't offer is picked in that column.
  static void Force(PasoDos& form, int column, const std::string& text, int data) {
    form.rtvNotasAlumno.ListaAnadir(column, text, data);
    form.rtvNotasAlumno.EndEdit(static_cast<int>(form.rtvNotasAlumno.Lista(column).size()) - 1);
  }

  /// Row 1 neither offers a grade nor takes one.
  void ExpectLocked(PasoDos& form) {
    form.rtvNotasAlumno.BeginEdit(1, 1);
    EXPECT_THAT(form.rtvNotasAlumno.Lista(1), IsEmpty());
    Force(form, 1, "7", 107);
    EXPECT_EQ(Subject(form).Nota, 0);
  }
};

template <class Direct>
class FinalDirectTest : public FinalDirect<Direct> {};

using Dialogs = ::testing::Types<ByStudent, BySubject, SectionByStudent, SectionBySubject>;
TYPED_TEST_SUITE(FinalDirectTest, Dialogs, NameOfDirect);

TYPED_TEST(FinalDirectTest, LoadedSubjectIsKeyedAndSavedByItsRow) {
  this->school_.Sql(
      "UPDATE MateriaDetalles SET CodPersonalAsociado=3 WHERE IDMateriaDetalles=3111;"
      "UPDATE EvaluacionActaPte SET Evaluado=-1, CodNota=107, CodNotaObservacion=202, RE_AC_DIV=2 "
      "WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=4");
  const auto& form = this->Opened();
  const std::string key = TypeParam::Known().lenguaKey;
  const auto& materia = *form.colAlumnos["1"]->colMateria[key];
  EXPECT_EQ(std::to_string(materia.IDMatDetalle), key);
  EXPECT_EQ(materia.CodAlumno_MateriaDetalles, 1);
  EXPECT_EQ(materia.Nombre, "Lengua (1º ESO)");
  EXPECT_EQ(materia.IDProfesor, TypeParam::Known().takesTeachers ? 2 : 0);
  EXPECT_EQ(materia.IDProfesorAsociado, TypeParam::Known().takesTeachers ? 3 : 0);
  EXPECT_EQ(materia.Nota, 107);
  EXPECT_EQ(materia.Observacion, 202);
  EXPECT_EQ(materia.REACDIV, 2);
  EXPECT_TRUE(materia.Evaluado);
  EXPECT_FALSE(materia.Fct || materia.MateriaExterna || materia.Recuperacion);
  std::string locked = "0";
  for (const auto matDet : TypeParam::Known().locked) locked += "," + std::to_string(matDet);
  EXPECT_EQ(form.strMateriasBloqueo, locked);
}

/// What the form looks like whenever it lets the screen be painted.
TYPED_TEST(FinalDirectTest, AnimationStandsAloneWhileTheFormWorks) {
  const auto form = this->Held();
  const auto width = form->Width();
  Lines captions;
  this->session_.screen.Painting = [&] {
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
  EXPECT_EQ(this->session_.screen.MousePointer(), Pointer::Default);
  ASSERT_EQ(captions.size(), 1U);
  form->cmdAceptar_Click();
  this->session_.screen.Painting = nullptr;
  const auto& [loading, saving] = std::pair{TypeParam::Known().loading, TypeParam::Known().saving};
  EXPECT_THAT(captions, ElementsAre(loading, saving, saving));
}

// The pointer and the icon come before the test of the publication.
TYPED_TEST(FinalDirectTest, PublicationIsRefusedUnderTheHourglass) {
  this->school_.Sql(PublicationOf(1, 4));
  cConfiguracion::Instancia().RutaIcono = "zendria.ico";
  const auto form = this->Held();
  form->ShowModal();
  EXPECT_EQ(this->session_.screen.messages.size(), 1U);
  EXPECT_EQ(form->Icon(), "zendria.ico");
  EXPECT_FALSE(FormInstance<typename TestFixture::PasoDos>::Exists());
}

TYPED_TEST(FinalDirectTest, GridIsGivenItsHeightBackAndStandsOnTheFirstRow) {
  auto& form = this->Opened();
  const auto height = form.rtvNotasAlumno.Height();
  this->Combo().ListIndex(1);
  form.rtvNotasAlumno.Row(form.rtvNotasAlumno.Rows() - 1);
  this->Combo().ListIndex(1);
  EXPECT_EQ(form.rtvNotasAlumno.Height(), height);
  EXPECT_EQ(form.rtvNotasAlumno.Row(), 1);
  EXPECT_TRUE(form.rtvNotasAlumno.Visible() && form.rtvNotasAlumno.Redraw());
  EXPECT_TRUE(form.blnEdicionActiva);
}

TYPED_TEST(FinalDirectTest, TheWalkStandsBesideItsCaption) {
  auto& form = this->Opened();
  const auto& caption = form.lblNotaManual[0];
  const auto wide = caption.Caption() == "Alumno:" ? 780 : 900;
  EXPECT_EQ(caption.Left(), 240);
  EXPECT_EQ(caption.Width(), wide);
  EXPECT_EQ(this->Combo().Left(), 240 + wide + 60);
  EXPECT_EQ(form.cmdAnterior.Left(), this->Combo().Left() + 4320);
  EXPECT_EQ(form.cmdSiguiente.Left(), form.cmdAnterior.Left() + 495);
}

TYPED_TEST(FinalDirectTest, NothingHappensWithoutASelectedEntry) {
  auto& form = this->Opened();
  this->Combo().Clear();
  this->Combo().Click();
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
  EXPECT_TRUE(form.rtvNotasAlumno.Visible());
}

TYPED_TEST(FinalDirectTest, MeasuresOfferNothingWithoutAGradeAlsoWhenOneIsStored) {
  this->school_.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=2");
  auto& form = this->Opened();
  EXPECT_THAT(this->Measures(form), IsEmpty());
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 6), "Adaptacion curricular");
  form.rtvNotasAlumno.EndEdit(-1);
  EXPECT_EQ(this->Subject(form).REACDIV, 0);
}

TYPED_TEST(FinalDirectTest, MeasuresAreOfferedForAGradeInMemoryWithTheAccent) {
  auto& form = this->Opened();
  this->Subject(form).Nota = 107;
  EXPECT_THAT(this->Measures(form),
              ElementsAre(" =0", "Refuerzo educativo=1", "Adaptación curricular=2"));
  this->session_.Forget();
  form.rtvNotasAlumno.EndEdit(2);
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
  EXPECT_EQ(form.rtvNotasAlumno.TextMatrix(1, 6), "Adaptación curricular");
  EXPECT_EQ(this->Subject(form).REACDIV, 2);
  form.cmdAceptar_Click();
  EXPECT_EQ(this->school_.Stored(TypeParam::Known().pending, 4), "107|0|2|-1|-1");
}

TYPED_TEST(FinalDirectTest, ConceptIsKeptInMemoryAndColumnsWithoutAFieldTakeNothing) {
  auto& form = this->Opened();
  for (auto column = form.rtvNotasAlumno.Cols() - 1; column >= 2; --column) {
    if (column == 5 || column == 6) continue;
    form.rtvNotasAlumno.BeginEdit(1, column);
    this->Force(form, column, "x", 9);
  }
  const auto& materia = this->Subject(form);
  EXPECT_EQ(materia.Concepto, 9);
  EXPECT_EQ(materia.Procedimiento, 0);
  EXPECT_EQ(materia.Actitud, 0);
  EXPECT_EQ(materia.Nota, 0);
  EXPECT_EQ(materia.REACDIV, 0);
}

TYPED_TEST(FinalDirectTest, KeyColumnsOfferNothing) {
  auto& form = this->Opened();
  for (auto column = form.rtvNotasAlumno.Cols() - 1; column >= 7; --column) {
    form.rtvNotasAlumno.BeginEdit(1, column);
    EXPECT_THAT(form.rtvNotasAlumno.Lista(column), IsEmpty());
  }
}

TYPED_TEST(FinalDirectTest, NothingIsEditedWhileTheGridIsBuilt) {
  auto& form = this->Opened();
  form.blnEdicionActiva = false;
  this->ExpectLocked(form);
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
}

TYPED_TEST(FinalDirectTest, DraggedWidthGoesBackToTheKeptOne) {
  auto& form = this->Opened();
  for (const auto column : {1, 3, 4, 5}) {
    const auto width = form.rtvNotasAlumno.ColWidth(column);
    form.rtvNotasAlumno.DragColumn(column, 700);
    EXPECT_EQ(width, column == 1 || column == 5 ? 2000 : 0);
    EXPECT_EQ(form.rtvNotasAlumno.ColWidth(column), width);
  }
  form.rtvNotasAlumno.DragRow();
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
}

TYPED_TEST(FinalDirectTest, ObservationAndPromotionReachMissingMembers) {
  auto& form = this->Opened();
  form.cboObservacion.AddItem("Sigue así", 501);
  EXPECT_EQ(this->ErrorOf([&] { form.cboObservacion.ListIndex(0); }), 438);
  EXPECT_EQ(this->ErrorOf([&] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(this->ErrorOf([&] { form.chkPromocion.Value(1); }), 438);
}

TYPED_TEST(FinalDirectTest, ControlsStayInsideTheFormAndFollowItsEdges) {
  auto& form = this->Opened();
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

template <class Direct>
class FinalDirectOfSubjectsTest : public FinalDirect<Direct> {};

using SubjectDialogs = ::testing::Types<BySubject, SectionBySubject>;
TYPED_TEST_SUITE(FinalDirectOfSubjectsTest, SubjectDialogs, NameOfDirect);

TYPED_TEST(FinalDirectOfSubjectsTest, EntriesBehindTheComboAreSubjects) {
  auto& form = this->Opened();
  const auto& locked = TypeParam::Known().locked;
  ASSERT_EQ(form.ListaMaterias.size(), locked.size());
  for (std::size_t i = 0; i < locked.size(); ++i) {
    EXPECT_EQ(form.ListaMaterias[i].CodAsociada, 0);
    EXPECT_EQ(form.ListaMaterias[i].IDMatDet, locked[i]);
    EXPECT_EQ(form.ListaMaterias[i].Nombre + "=" + std::to_string(i + 1),
              TypeParam::Known().Entries()[i]);
  }
  EXPECT_EQ(form.ObservacionAlumno, "Observación del tutor");
  const auto& lengua = *form.colAlumnos["1"]->colMateria["3111"];
  EXPECT_EQ(lengua.IDMateria, 1);
  EXPECT_EQ(lengua.IDseccion, 311);
}

TYPED_TEST(FinalDirectOfSubjectsTest, PointerComesBackAfterEachSubject) {
  auto& form = this->Opened();
  this->session_.screen.MousePointer(Pointer::Arrow);
  form.cboMaterias.ListIndex(1);
  EXPECT_EQ(this->session_.screen.MousePointer(), Pointer::Default);
}

// The first of the two forms of the measures and the promotion is a field of its own.
TYPED_TEST(FinalDirectOfSubjectsTest, CourseDecidesPromotionAndMeasuresEachByItself) {
  const std::vector<std::pair<const char*, int>> codes = {
      {"0", 0}, {"1", 1}, {"2", 1}, {"3", 0}, {"NULL", 0}};
  for (const auto& [code, field] : codes) {
    this->school_.DropPublications();
    this->school_.Sql(std::string("UPDATE Curso SET RE_AC=0, Promocion=") + code);
    auto& form = this->Opened();
    EXPECT_EQ(form.bytPromocion, field) << code;
    EXPECT_FALSE(form.blnMedidas) << code;
    form.Unload();
  }
  this->school_.Sql("UPDATE Curso SET RE_AC=1, Promocion=0");
  EXPECT_TRUE(this->Opened().blnMedidas);
  EXPECT_EQ(this->Form().bytPromocion, 0);
}

TYPED_TEST(FinalDirectOfSubjectsTest, EntryThatIsNoSubjectIsIndentedAndLocked) {
  auto& form = this->Opened();
  form.ListaMaterias[0].CodAsociada = TypeParam::Known().locked[1];
  this->ExpectLocked(form);
  // The lock is the grades' alone: what a measure asks for is a grade.
  this->Subject(form).Nota = 107;
  EXPECT_EQ(this->Measures(form).size(), 3U);
  // What the list costs is issued by no other edit, nor is the observation but of a section.
  EXPECT_EQ(this->session_.Statements().empty(), TypeParam::Known().choice.empty());
  form.cboMaterias_Click();
  EXPECT_EQ(form.rtvNotasAlumno.Rows(), 1);
  EXPECT_THAT(this->session_.Statements(), IsEmpty());
}

TYPED_TEST(FinalDirectOfSubjectsTest, RowOfAStudentWhoIsNotThereIsAnError) {
  auto& form = this->Opened();
  form.rtvNotasAlumno.TextMatrix(1, 7, "77");
  EXPECT_EQ(this->ErrorOf([&form] { form.rtvNotasAlumno.BeginEdit(1, 1); }), 5);
}

TYPED_TEST(FinalDirectOfSubjectsTest, HeadingsUntilTheFirstSubject) {
  auto& form = this->Form();
  form.ConfigurarRejillaInicial();
  EXPECT_THAT(Columns(form.rtvNotasAlumno),
              ElementsAre("2000 Materia", "1000 Nota", "2000 Concepto", "2000 Procedimiento",
                          "2000 Actitud", "2000 Observacion", "2000 Medidas Adoptadas",
                          ::testing::MatchesRegex("[0-9]+ ")));
}

using FinalDirectByStudentTest = FinalDirect<ByStudent>;

TEST_F(FinalDirectByStudentTest, RowThatMayNotBeEditedNeitherOffersNorTakes) {
  auto& form = Opened();
  form.rtvNotasAlumno.TextMatrix(1, 7, "1");
  ExpectLocked(form);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

using FinalDirectSectionByStudentTest = FinalDirect<SectionByStudent>;

TEST_F(FinalDirectSectionByStudentTest, PromotionOfACourseReachesAMissingMember) {
  auto& form = Opened();
  form.bytPromocion = 1;
  EXPECT_EQ(this->ErrorOf([&] { form.cboAlumnos_Click(); }), 438);
}

using FinalDirectSectionBySubjectTest = FinalDirect<SectionBySubject>;

// The observation comes before the guards of the cells, so that it is rebuilt where nothing is
// offered, but not while the grid is built.
TEST_F(FinalDirectSectionBySubjectTest, ObservationIsRebuiltBeforeTheGuards) {
  auto& form = Opened();
  for (const auto column : {0, 7}) {
    form.rtvNotasAlumno.BeginEdit(1, column);
    EXPECT_THAT(session_.Statements(), ElementsAreArray(FinalObservation(kUnrestricted, 4, false)));
    EXPECT_THAT(form.rtvNotasAlumno.Lista(column), IsEmpty());
  }
}

TEST_F(FinalDirectSectionBySubjectTest, FrameIsHiddenAgainAndItsLabelStandsWhereTheComboDoes) {
  auto& form = Opened();
  for (const auto tutor : {true, false}) {
    form.blnTutor = tutor;
    form.fraObservacion[0].Visible(true);
    form.rtvNotasAlumno.BeginEdit(1, 1);
    EXPECT_FALSE(form.fraObservacion[0].Visible());
    EXPECT_EQ(form.lblNotaManual[1].Left(), form.cboObservacion.Left());
    EXPECT_EQ(form.lblNotaManual[1].Top(), form.cboObservacion.Top());
  }
}

TEST_F(FinalDirectSectionBySubjectTest, RebuiltObservationReachesAMissingMember) {
  auto& form = Opened();
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_EQ(this->ErrorOf([&] { form.cboObservacion.ListIndex(1); }), 438);
}

}  // namespace
}  // namespace quorvane::test

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "grades/student/frmNotaManual.h"
#include "platform/FormInstance.h"
#include "selection/frmNotaManual1.h"
#include "tests/grades/DirectSession.h"

// What no gesture of the user reaches: routines without a caller, the pane of the tutor, the
// recovery, the form while it is shrunk.

namespace quorvane::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class NotaManualDirect : public ::testing::Test {
 protected:
  frmNotaManual& Opened() {
    auto& form = session_.Open();
    static_cast<void>(session_.Statements());
    return form;
  }

  static frmNotaManual1& PasoUno() { return FormInstance<frmNotaManual1>::Get(); }

  GradeSchool school_;
  DirectSession session_{school_};
};

std::vector<std::int32_t> Placed(const Control& control) {
  return {control.Left(), control.Top(), control.Width(), control.Height()};
}

TEST_F(NotaManualDirect, ResizeMovesTheBottomAndTheRightEdge) {
  auto& form = Opened();
  form.ResizeByUser(12000, 9000);
  // Inside: 11880 by 8595.
  EXPECT_THAT(Placed(form.cmdCancelar),
              ElementsAre(11880 - 1215 - 240, 8595 - 375 - 180, 1215, 375));
  EXPECT_THAT(Placed(form.cmdAceptar), ElementsAre(10425 - 1215 - 135, 8040, 1215, 375));
  EXPECT_THAT(Placed(form.tabNotaManual),
              ElementsAre(240, 720, 11880 - 240 - 240, 8040 - 720 - 240));
  for (const auto& pane : form.fraNotaManual)
    EXPECT_THAT(Placed(pane), ElementsAre(420, 1110, 11400 - 360, 7080 - 460));
  EXPECT_THAT(Placed(form.fraNota[0]), ElementsAre(180, 270, 11040 - 360, 6620 - 540));
  EXPECT_THAT(Placed(form.rtvNotasAlumno), ElementsAre(180, 360, 10680 - 360, 6080 - 540));
  EXPECT_THAT(Placed(form.fraNotaTutor[0]), ElementsAre(180, 270, 10680, 6080));
  EXPECT_EQ(form.fraObservacion[0].Top(), 6080 - 1070);
  EXPECT_THAT(Placed(form.fraAusencia[0]), ElementsAre(10680 - 2700 - 200, 5010, 2700, 930));
  EXPECT_THAT(Placed(form.rtvNotasTutor), ElementsAre(180, 300, 10680 - 360, 6080 - 1070 - 360));
}

TEST_F(NotaManualDirect, FormMadeTooSmallReturnsToItsLeastMeasures) {
  auto& form = Opened();
  form.ResizeByUser(100, 100);
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
  EXPECT_THAT(Placed(form.cmdCancelar), ElementsAre(7725, 5505, 1215, 375));
  form.ResizeByUser(9299, 6464);
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_EQ(form.Height(), 6465);
}

TEST_F(NotaManualDirect, MeasureThatAControlRefusesIsAnError) {
  auto& form = Opened();
  form.tabNotaManual.Top(6000);
  EXPECT_EQ(DirectSession::ErrorOf([&form] { form.ResizeByUser(9400, 6465); }), 380);
}

TEST_F(NotaManualDirect, WhileItLoadsOnlyTheBusySignShowsAndResizingHasNoEffect) {
  std::vector<std::string> shown;
  std::vector<std::int32_t> measures;
  std::string caption;
  int paints = 0;
  session_.screen.Painting = [&] {
    auto& form = FormInstance<frmNotaManual>::Get();
    if (!form.aniCarga.Playing() || ++paints > 1) return;
    for (const auto* control : form.Controls())
      if (control->Shown()) shown.push_back(control->Name());
    measures = {form.Left(), form.Top(), form.Width(), form.Height()};
    caption = form.fraAniCarga.Caption();
    EXPECT_EQ(form.aniCarga.File(), "C:\\zendria\\avis\\filecopy.avi");
    EXPECT_EQ(session_.screen.MousePointer(), Pointer::Hourglass);
  };
  auto& form = session_.Open();
  EXPECT_THAT(shown, ElementsAre("fraAniCarga", "aniCarga"));
  // The frame is 4320 by 1140 at 120, 120; the screen 20000 by 12000.
  EXPECT_THAT(measures, ElementsAre((20000 - 4780) / 2, (12000 - 1790) / 2, 4780, 1790));
  EXPECT_EQ(caption, "Cargando datos");
  EXPECT_EQ(form.Width(), 9300);
  EXPECT_FALSE(form.aniCarga.Playing());
  EXPECT_TRUE(form.Enabled());
  EXPECT_EQ(session_.screen.MousePointer(), Pointer::Default);
}

TEST_F(NotaManualDirect, WhileItSavesTheBusySignShowsAndTheFormTakesNoGesture) {
  auto& form = Opened();
  std::string caption;
  bool enabled = true;
  session_.screen.Painting = [&] {
    if (!form.aniCarga.Playing()) return;
    caption = form.fraAniCarga.Caption();
    enabled = form.Enabled();
    session_.screen.Painting = nullptr;
  };
  const auto held = form.shared_from_this();
  form.cmdAceptar_Click();
  EXPECT_EQ(caption, "Grabando datos");
  EXPECT_FALSE(enabled);
  EXPECT_FALSE(FormInstance<frmNotaManual>::Exists());
}

TEST_F(NotaManualDirect, MeasuresAndPlaceComeBackAfterTheBusySign) {
  auto& form = Opened();
  form.ResizeByUser(12000, 9000);
  form.Left(500);
  form.Top(300);
  form.MostrarCarga(false);
  EXPECT_EQ(form.Height(), 1790) << "the shrunk form isn't set back to its least measures";
  for (const auto* control : form.Controls()) EXPECT_FALSE(control->Visible()) << control->Name();
  form.MostrarCarga(true);
  EXPECT_THAT((std::vector<std::int32_t>{form.Left(), form.Top(), form.Width(), form.Height()}),
              ElementsAre(500, 300, 12000, 9000));
  EXPECT_TRUE(form.rtvNotasAlumno.Shown());
  EXPECT_FALSE(form.rtvNotasTutor.Shown()) << "on the pane without a tab";
  EXPECT_EQ(form.tabNotaManual.Height(), 8040 - 720 - 240) << "the panes follow";
}

TEST_F(NotaManualDirect, PressingTheOnlyTabShowsTheGrades) {
  auto& form = Opened();
  form.fraNotaManual[0].Visible(false);
  form.tabNotaManual.SelectedTab(1);
  EXPECT_TRUE(form.fraNotaManual[0].Visible());
  EXPECT_FALSE(form.fraNotaManual[1].Visible());
  EXPECT_LT(form.tabNotaManual.Layer(), form.fraNotaManual[0].Layer());
}

TEST_F(NotaManualDirect, CaptionOfStepOneIsKeptAndNotShown) {
  FormInstance<frmNotaManual>::Get().mstrCaption = "ESO 2º ESO A";
  EXPECT_EQ(Opened().Caption(), "Introducción de notas. Paso 2 de 2");
}

TEST_F(NotaManualDirect, MembersThatAStudentDoesNotHaveAreAnError) {
  auto& form = Opened();
  const auto error = [](const auto& action) { return DirectSession::ErrorOf(action); };
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(0); }), 438);
  EXPECT_EQ(error([&form] { form.cboObservacion.ListIndex(-1); }), 0);
  EXPECT_EQ(error([&form] { form.txtAusencias.TypeKey("3"); }), 438);
  EXPECT_EQ(error([&form] { form.txtRetrasos.Text("2"); }), 438);
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  for (const int column : {1, 2}) {
    form.rtvNotasTutor.BeginEdit(1, column);
    EXPECT_EQ(error([&form] { form.rtvNotasTutor.EndEdit(0); }), 438) << column;
  }
}

TEST_F(NotaManualDirect, CountersTakeDigitsAndTheBackspaceAlone) {
  auto& form = Opened();
  for (auto* box : {&form.txtAusencias, &form.txtRetrasos}) {
    int key = 'x';
    box->KeyPress(key);
    EXPECT_EQ(key, 0);
    for (const int good : {int{'0'}, int{'9'}, 8}) {
      key = good;
      box->KeyPress(key);
      EXPECT_EQ(key, good);
    }
  }
  EXPECT_EQ(session_.screen.beeps, 2);
}

TEST_F(NotaManualDirect, CellOfTheTutorsGridIsFilledWithTheGradesOfValues) {
  auto& form = Opened();
  form.rtvNotasTutor.AddItem("");
  form.rtvNotasTutor.TextMatrix(1, 3, "77");
  form.rtvNotasTutor.BeginEdit(1, 1);
  EXPECT_THAT(
      session_.Statements(),
      ElementsAre(Sql(
          "SELECT IDNota, DescripcionCorta FROM Nota WHERE NotaExcepcional=0 AND (CodModelo=0 OR "
          "CodModelo IN (SELECT CodModelo FROM Seccion WHERE IDSeccion=321)) AND (CodCurso=0 OR "
          "CodCurso=32) AND (CodNumevaluacion=0 OR CodNumEvaluacion=1) AND (CodMateria=0 OR "
          "CodMateria=77) AND (CodPersonal=0) AND CodTipoNota IN (SELECT IDTipoNota FROM TipoNota "
          "WHERE Orden=1 AND CodTipoMateria IN (SELECT IDTipoMateria FROM TipoMateria WHERE "
          "CodEspecificarTipoMateria=3 AND CodSistemaCalificacion IN (SELECT "
          "IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza=3))) ORDER BY "
          "DescripcionCorta")));
  ASSERT_EQ(form.rtvNotasTutor.Lista(1).size(), 2U);
  EXPECT_EQ(form.rtvNotasTutor.Lista(1)[0].text, " ");
  EXPECT_EQ(form.rtvNotasTutor.Lista(1)[1].data, 301);
}

TEST_F(NotaManualDirect, HeadingFirstAndLastColumnOfTheTutorsGridOfferNothing) {
  auto& form = Opened();
  form.rtvNotasTutor.AddItem("");
  for (const auto& [row, column] : {std::pair{0, 1}, std::pair{1, 0}, std::pair{1, 3}})
    form.rtvNotasTutor.BeginEdit(row, column);
  form.blnEdicionActiva = false;
  form.rtvNotasTutor.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

TEST_F(NotaManualDirect, WidthsOfTheTutorsGridAreKeptByAnEdit) {
  auto& form = Opened();
  form.rtvNotasTutor.ColWidth(2, 3456);
  form.rtvNotasTutor_FinEdicion();  // on the heading row: the widths are saved all the same
  form.rtvNotasTutor.DragColumn(2, 100);
  EXPECT_EQ(form.rtvNotasTutor.ColWidth(2), 3456);
}

TEST_F(NotaManualDirect, DraggedColumnOfTheGradesSpringsBack) {
  auto& form = Opened();
  form.rtvNotasAlumno.DragColumn(1, 100);
  EXPECT_EQ(form.rtvNotasAlumno.ColWidth(1), 2000);
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
  form.colAlumnos["3"]->colMateria["4"]->Fct = true;
  form.rtvNotasAlumno.BeginEdit(1, 1);
  EXPECT_THAT(session_.Statements(), IsEmpty());
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

const std::string kObjectives =
    "SELECT * FROM Alumno_MateriaDetalles WHERE CodNumEvaluacion=1 AND CodAlumno=1 AND "
    "CodMateriaDetallesAsociada > 0 AND (CodMateriaDetallesAsociada IN (SELECT IDMateriaDetalles "
    "FROM MateriaDetalles WHERE CodMateria=1)) ORDER BY CodAlumno, CodMateriaDetallesAsociada, "
    "Orden";
const std::string kObjectiveGrades =
    "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, "
    "CodNotaProcedimiento, CodNotaR, CodNotaActitudR, CodNotaObservacionR, CodNotaConceptoR, "
    "CodNotaProcedimientoR, Recuperacion FROM Evaluacion WHERE CodNumEvaluacion=1";

TEST_F(NotaManualDirect, ObjectivesAreReadOnceForEachThatRepeatsAndNothingIsKept) {
  school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3114,3111,1,1,-1,0), "
      "(52,1,3114,3111,1,2,-1,0), (53,1,3113,3111,1,3,-1,0), (54,1,3114,0,1,4,-1,0), "
      "(55,2,3114,3111,1,1,-1,0)");
  auto& form = FormInstance<frmNotaManual>::Get();
  form.CargarObjetivos(1, 1);
  EXPECT_THAT(
      session_.Statements(),
      ElementsAre(Sql(kObjectives), Sql(kObjectiveGrades + " AND CodAlumno_MateriaDetalles=51"),
                  Sql(kObjectiveGrades + " AND CodAlumno_MateriaDetalles=53")));
  PasoUno().blnRecuperar = true;
  form.CargarObjetivos(1, 1);
  EXPECT_EQ(session_.Statements().back(),
            Sql(kObjectiveGrades + " AND (Recuperacion=2 OR Recuperacion=3) AND "
                                   "CodAlumno_MateriaDetalles=53"));
}

// Subject 1 "Lengua" and its objective 4 "Lectura" as taught in section 321, for which the host's
// grade book stands in evaluation 1.
class NotaManualPropagation : public NotaManualDirect {
 protected:
  NotaManualPropagation() {
    school_.Sql(
        "INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, "
        "CodPersonal, CodPersonalAsociado, CodTipoMateria) VALUES (3214,4,321,0,0,10);"
        "INSERT INTO Alumno_MateriaDetalles VALUES (51,1,3214,3211,1,6,-1,0)");
  }

  void Add() {
    FormInstance<frmNotaManual>::Get().AnadirMateriaEvaluacionesPosteriores(student_, subject_,
                                                                            objective_);
  }
  void Remove() {
    FormInstance<frmNotaManual>::Get().QuitarMateriaEvaluacionesPosteriores(student_, subject_,
                                                                            objective_);
  }

  std::int32_t student_ = 1;
  std::int32_t subject_ = 1;
  std::int32_t objective_ = 4;
};

std::string Later(const std::string& columns) {
  return Sql("SELECT " + columns +
             " FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE "
             "IDNumEvaluacion=1) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM "
             "Seccion_NumEvaluacion WHERE CodSeccion=321) ORDER BY Orden");
}

std::string Detail(int subject) {
  return Sql(
      "SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={} AND "
      "CodSeccion=321",
      {subject});
}

TEST_F(NotaManualPropagation, AddsToTheNextEvaluationAlone) {
  Add();
  EXPECT_THAT(
      session_.Statements(),
      ElementsAre(
          Later("IDNumEvaluacion, Orden"),
          Sql("SELECT CodAlumno FROM Alumno_NumEvaluacion WHERE CodAlumno=1 AND "
              "CodNumEvaluacion=2"),
          Sql("SELECT MAX(IDAlumno_NumEvaluacion) FROM [Alumno_NumEvaluacion]"),
          Sql("INSERT INTO Alumno_NumEvaluacion VALUES (1,1,2,0,0,0,0,0,0)"), Detail(1), Detail(4),
          Sql("SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion=1 "
              "AND CodMateriaDetalles=3214"),
          Sql("SELECT IDAlumno_MateriaDetalles, Orden FROM Alumno_MateriaDetalles WHERE "
              "CodAlumno=1 AND CodNumEvaluacion=2 AND CodMateriaDetalles=3214"),
          Sql("SELECT MAX(IDAlumno_MateriaDetalles) FROM [Alumno_MateriaDetalles]"),
          Sql("INSERT INTO Alumno_MateriaDetalles VALUES (52,1,3214,3211,2,6,-1,0)"),
          Sql("SELECT MAX(IDEvaluacion) FROM [Evaluacion]"),
          Sql("INSERT INTO Evaluacion VALUES (1,52,2,0,0,0,0,0,0,0,0,0,0,0,0,0)")));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM Alumno_MateriaDetalles"), ElementsAre("2"));
}

TEST_F(NotaManualPropagation, StudentWhoIsThereIsNotInsertedAgainAndNeitherIsTheObjective) {
  school_.Sql(
      "INSERT INTO Alumno_NumEvaluacion VALUES (9,1,2,0,0,0,0,0,0);"
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0)");
  Add();
  EXPECT_EQ(session_.Statements().size(), 6U) << "nothing but the questions";
}

TEST_F(NotaManualPropagation, WithoutALaterEvaluationNothingIsAdded) {
  school_.Sql("DELETE FROM Seccion_NumEvaluacion WHERE CodNumEvaluacion<>1");
  Add();
  Remove();
  EXPECT_THAT(session_.Statements(),
              ElementsAre(Later("IDNumEvaluacion, Orden"), Later("IDNumEvaluacion")));
}

TEST_F(NotaManualPropagation, RowThatHasToBeThereIsNotTested) {
  objective_ = 999;
  EXPECT_EQ(DirectSession::ErrorOf([this] { Add(); }), 3021);
  EXPECT_EQ(DirectSession::ErrorOf([this] { Remove(); }), 3021);
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM Alumno_NumEvaluacion"), ElementsAre("1"))
      << "what was written stays";
}

TEST_F(NotaManualPropagation, FailedInsertGoesUpAsItsErrorAndShowsNoMessage) {
  school_.Sql(
      "CREATE TRIGGER lleno BEFORE INSERT ON Evaluacion BEGIN SELECT RAISE(FAIL, 'lleno'); "
      "END");
  EXPECT_EQ(DirectSession::ErrorOf([this] { Add(); }), -2147467259);
  EXPECT_THAT(session_.screen.messages, IsEmpty());
}

TEST_F(NotaManualPropagation, RemovesFromAllLaterEvaluations) {
  school_.Sql(
      "INSERT INTO Alumno_MateriaDetalles VALUES (60,1,3214,3211,2,6,-1,0), "
      "(61,1,3214,3211,3,6,-1,0), (62,2,3214,3211,2,6,-1,0);"
      "INSERT INTO Evaluacion VALUES (1,60,2,0,0,0,0,0,0,0,0,0,0,0,0,0), "
      "(2,61,3,0,0,0,0,0,0,0,0,0,0,0,0,0), (3,62,2,0,0,0,0,0,0,0,0,0,0,0,0,0)");
  Remove();
  Lines expected = {Later("IDNumEvaluacion")};
  const std::string row =
      " FROM Alumno_MateriaDetalles WHERE CodAlumno=1 AND CodNumEvaluacion={} AND "
      "CodMateriaDetallesAsociada=3211 AND CodMateriaDetalles=3214";
  for (const auto& [evaluation, id] : {std::pair{2L, 60L}, std::pair{3L, 61L}}) {
    expected.push_back(Detail(1));
    expected.push_back(Detail(4));
    expected.push_back(Sql("SELECT IDAlumno_MateriaDetalles" + row, {evaluation}));
    expected.push_back(
        Sql("DELETE FROM Evaluacion WHERE CodAlumno_MateriaDetalles={} AND CodNumEvaluacion={}",
            {id, evaluation}));
    expected.push_back(Sql("DELETE" + row, {evaluation}));
  }
  // The reserved evaluation is the last; the student isn't in it.
  expected.push_back(Detail(1));
  expected.push_back(Detail(4));
  expected.push_back(Sql("SELECT IDAlumno_MateriaDetalles" + row, {11}));
  EXPECT_THAT(session_.Statements(), ElementsAreArray(expected));
  EXPECT_THAT(
      school_.Rows("SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles ORDER BY 1"),
      ElementsAre("51", "62"));
  EXPECT_THAT(school_.Rows("SELECT IDEvaluacion FROM Evaluacion"), ElementsAre("3"));
}

TEST_F(NotaManualPropagation, WithoutAnObjectiveNothingIsRemoved) {
  objective_ = 0;
  Remove();
  EXPECT_THAT(session_.Statements(), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

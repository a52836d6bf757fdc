#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "grades/final/frmNotaSeccionAlumnoFinal.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaSeccionAlumno1.h"
#include "tests/grades/DirectSession.h"
#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"

// The final evaluations by section and subject: what this form does otherwise than by student.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNoData =
    "informacion \"Zendria Escuela\" \"No existen materias o alumnos para poner notas\"";

TEST(FinalSectionByStudent, DialogHasItsCaptions) {
  const FinalSchool school;
  const FormView form(RunScript(school, OpenSectionFinal() + "ver\n", SessionOf(kTutor)));
  EXPECT_EQ(form.Form(), "frmNotaSeccionAlumnoFinal");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando... Espere por favor");
  EXPECT_EQ(form.Text("fraNota"), "Notas del Alumno:");
}

TEST(FinalSectionByStudent, OnlyTheChosenSubjectForWhoSeesTheSection) {
  const FinalSchool school;
  const FormView form(RunScript(school, OpenSectionFinal() + "ver\n", SessionOf(kTutor)));
  EXPECT_THAT(form.Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota|Concepto|Procedimiento|Actitud|Observación|Medidas "
                          "Adoptadas||",
                          "Lengua (1º ESO)|||||| |0|3111"));
}

// The kinds of grade name the columns on the first load alone.
TEST(FinalSectionByStudent, LaterStudentsHaveTheLiteralHeadings) {
  const FinalSchool school;
  const FormView form(
      RunScript(school, OpenSectionFinal() + "pulsar cmdSiguiente\nver\n", SessionOf(kTutor)));
  EXPECT_EQ(form.Cells("rtvNotasAlumno").front(),
            "Materia|Nota|Concepto|Procedimiento|Actitud|Observacion|Medidas Adoptadas||");
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0, 0));
}

TEST(FinalSectionByStudent, TeacherAlsoGetsSubjectsOtherThanTheChosenOneAndSavesThem) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=104 WHERE CodAlumnoPte_MatDet=2 AND "
      "CodNumEvaluacion=4");
  const auto result =
      RunScript(school, OpenSectionFinal(4, 3113) + "pulsar cmdSiguiente\nver\npulsar cmdAceptar\n",
                SessionOf(kTeacher));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              Contains("Matemáticas (1º ESO)|4||||| |0|3112"));
  EXPECT_EQ(school.Stored(2, 4), "104|0|0|-1|-1");
}

// Here the statement names a column that is there.
TEST(FinalSectionByStudent, WorkPlacementIsLoadedWithAListOfItsOwnAndSaved) {
  const FinalSchool school;
  const auto pending = school.Pendiente(3, 3116, 2);
  school.Evalua(pending, 4, 402);
  school.Sql("UPDATE EvaluacionActaPte SET RE_AC_DIV=2 WHERE CodAlumnoPte_MatDet=6");
  const auto result = RunScript(
      school,
      OpenSectionFinal(4, 3116) +
          "ver\nlista rtvNotasAlumno 1 1\neditar rtvNotasAlumno 1 1 \"Apto\"\npulsar cmdAceptar\n",
      SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              Contains("Taller (1º ESO)|No apto||||| |0|3116"));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"Apto\",401],[\"No apto\",402]]"));
  EXPECT_THAT(Traffic(result), Contains(FinalCellList(kTutor, 4, 3116, 0, 1, 4)));
  // Its measure isn't read, and so not kept.
  EXPECT_EQ(school.Stored(pending, 4), "401|0|0|-1|-1");
}

TEST(FinalSectionByStudent, WorkPlacementReadsItsGradesBehindItsNames) {
  const FinalSchool school;
  school.Evalua(school.Pendiente(3, 3116, 2), 4, 402);
  const auto traffic = Traffic(RunScript(school, OpenSectionFinal(4, 3116), SessionOf(kTutor)));
  const auto kind = std::find(traffic.begin(), traffic.end(), KindOf(3116));
  ASSERT_GE(traffic.end() - kind, 6);
  EXPECT_THAT(
      Lines(kind + 1, kind + 6),
      ElementsAre(Sql("SELECT CodPersonal, CodPersonalAsociado, CodMateria, CodSeccion FROM "
                      "MateriaDetalles WHERE IDMateriaDetalles=3116"),
                  Sql("SELECT Nombre FROM Materia WHERE IDMateria=6"),
                  Sql("SELECT Curso.Descripcion FROM Curso INNER JOIN Seccion ON "
                      "Seccion.codCurso=Curso.IDCurso WHERE IDSeccion=311"),
                  Sql("SELECT Evaluado, CodNota, CodNotaObservacion FROM EvaluacionActaPte WHERE "
                      "CodNumEvaluacion=4 AND CodAlumnoPte_MatDet=6"),
                  Sql("SELECT Aprobado FROM Nota WHERE IDNota=402")));
}

TEST(FinalSectionByStudent, SecondFinalShowsWhatTheFirstFailedAndKeepsWorkPlacement) {
  const FinalSchool school;
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=CASE CodAlumnoPte_MatDet WHEN 1 THEN 104 ELSE 105 END "
      "WHERE CodNumEvaluacion=4");
  EXPECT_THAT(FormView(RunScript(school, OpenSectionFinal(5) + "ver\n", SessionOf(kTutor)))
                  .Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1"));
  const auto pending = school.Pendiente(3, 3116, 2);
  for (const auto evaluacion : {4, 5}) school.Evalua(pending, evaluacion, 401);
  school.DropPublications();
  EXPECT_THAT(FormView(RunScript(school, OpenSectionFinal(5, 3116) + "ver\n", SessionOf(kTutor)))
                  .Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3"));
}

TEST(FinalSectionByStudent, SubjectThatIsTakenMeanwhileEndsInItsMessage) {
  const FinalSchool school;
  auto script = OpenSectionFinal();
  script.insert(script.rfind("pulsar"), "sql \"INSERT INTO BloqueoPte VALUES (2,4,3111,3,9)\"\n");
  const auto result = RunScript(school, script + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
}

TEST(FinalSectionByStudent, OwnPublicationIsRefusedOnce) {
  const FinalSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,4)");
  const auto result = RunScript(school, OpenSectionFinal() + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"En la sección y evaluación "
                          "seleccionadas se están introduciendo notas. No puede acceder a estos "
                          "datos.\""));
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
}

TEST(FinalSectionByStudent, ObservationIsRebuiltForEachStudentOutOfSight) {
  const FinalSchool school;
  for (const auto& role : {kUnrestricted, kTutor}) {
    school.DropPublications();
    const FormView form(
        RunScript(school, OpenSectionFinal() + "pulsar cmdSiguiente\nver\n", SessionOf(role)));
    EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
    EXPECT_FALSE(form.Visible("fraObservacion(0)"));
    EXPECT_FALSE(form.Visible("chkPromocion"));
  }
}

TEST(FinalSectionByStudent, WithoutAKindOfObservationTheListIsEmpty) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Abreviatura=0 WHERE IDTipoNota=51");
  EXPECT_THAT(FormView(RunScript(school, OpenSectionFinal() + "ver\n", SessionOf(kTutor)))
                  .Entries("cboObservacion"),
              IsEmpty());
}

// Grades of the subject's own teacher, and of the subject by its number in the section.
TEST(FinalSectionByStudent, ListTakesTheTeachersOfTheSubject) {
  const FinalSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota>103;"
      "UPDATE Nota SET CodPersonal=2 WHERE IDNota=100; UPDATE Nota SET CodPersonal=3 WHERE "
      "IDNota=101; UPDATE Nota SET CodMateria=3111 WHERE IDNota=102;"
      "UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota=103");
  const auto result =
      RunScript(school, OpenSectionFinal() + "lista rtvNotasAlumno 1 1\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"0\",100],[\"2\",102]]"));
}

TEST(FinalSectionByStudent, SavingGoesBackToItsStepOne) {
  const FinalSchool school;
  const auto result = RunScript(school,
                                OpenSectionFinal() +
                                    "editar rtvNotasAlumno 1 1 \"7\"\n"
                                    "pulsar cmdAceptar\nver\n"
                                    "pulsar cmdNotaManual1(1)\n",
                                SessionOf(kTutor));
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionAlumno1");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("127"));
  EXPECT_EQ(school.Stored(1, 4), "107|0|0|-1|-1");
  EXPECT_EQ(school.Stored(2, 4), "0|0|0|0|0");
}

class FinalSectionByStudentDirect : public ::testing::Test {
 protected:
  FinalSectionByStudentDirect() {
    auto& stepOne = FormInstance<frmNotaSeccionAlumno1>::Get();
    Choose(stepOne.cboTipoEnsenanza, 3);
    Choose(stepOne.cboCursos, 32);
    Choose(stepOne.cboSecciones, 321);
    Choose(stepOne.cboEvaluaciones, 4);
    Choose(stepOne.cboMateria, 3111);
  }

  static void Choose(ComboBox& combo, int data) {
    combo.Click = nullptr;
    combo.AddItem("elegido", data);
    combo.ListIndex(0);
  }

  static frmNotaSeccionAlumnoFinal& Form() {
    return FormInstance<frmNotaSeccionAlumnoFinal>::Get();
  }

  FinalSchool school_;
  DirectSession session_{school_, 4};
};

TEST_F(FinalSectionByStudentDirect, CaptionsWhileItWorks) {
  auto form = std::static_pointer_cast<frmNotaSeccionAlumnoFinal>(Form().shared_from_this());
  Lines captions;
  session_.screen.Painting = [&] {
    if (form->fraAniCarga.Visible()) captions.push_back(form->fraAniCarga.Caption());
  };
  form->ShowModal();
  form->cmdAceptar_Click();
  ASSERT_GE(captions.size(), 2U);
  EXPECT_EQ(captions.front(), "Cargando... Espere por favor");
  EXPECT_EQ(captions[1], "Grabando... Espere por favor");
}

TEST_F(FinalSectionByStudentDirect, ObservationAndPromotionReachMissingMembers) {
  auto& form = Form();
  form.ShowModal();
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.cboObservacion.ListIndex(1); }), 438);
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.chkPromocion.Value(1); }), 438);
  form.bytPromocion = 1;
  EXPECT_EQ(DirectSession::ErrorOf([&] { form.cboAlumnos_Click(); }), 438);
}

TEST_F(FinalSectionByStudentDirect, MeasuresWantAGradeInMemory) {
  auto& form = Form();
  form.ShowModal();
  form.rtvNotasAlumno.BeginEdit(1, 6);
  EXPECT_THAT(form.rtvNotasAlumno.Lista(6), IsEmpty());
  form.colAlumnos["1"]->colMateria["3111"]->Nota = 107;
  form.rtvNotasAlumno.BeginEdit(1, 6);
  ASSERT_EQ(form.rtvNotasAlumno.Lista(6).size(), 3U);
  form.rtvNotasAlumno.EndEdit(1);
  form.cmdAceptar_Click();
  EXPECT_EQ(school_.Stored(1, 4), "107|0|1|-1|-1");
}

}  // namespace
}  // namespace quorvane::test

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FinalStatements.h"
#include "tests/grades/FormView.h"
#include "tests/grades/OrdinaryStatements.h"

// The final evaluations by the subjects of one student: what this form does otherwise than by
// subject.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kNoData =
    "informacion \"Zendria Escuela\" \"No existen alumnos o materias para introducir notas\"";
constexpr const char* kHeading = "Orden en Sección / Alumno|Nota||||Observación|Medidas Adoptadas|";

FormView Opened(const FinalSchool& school, const std::string& gestures = "",
                const Role& role = kTutor) {
  school.DropPublications();
  return FormView(RunScript(school, OpenSectionBySubject(4) + gestures + "ver\n", SessionOf(role)));
}

TEST(FinalSectionBySubject, DialogHasItsCaptions) {
  const FinalSchool school;
  const auto form = Opened(school);
  EXPECT_EQ(form.Form(), "frmNotaSeccionMateriaFinal");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando... Espere por favor");
  EXPECT_EQ(form.Text("fraNota"), "Notas del Alumno:");
  EXPECT_FALSE(form.Visible("fraAniCarga"));
  for (const auto* const control : {"cboMaterias", "cmdAceptar", "cmdCancelar", "cmdAnterior",
                                    "cmdSiguiente", "rtvNotasAlumno"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

TEST(FinalSectionBySubject, OneStudentSubjectBySubject) {
  const FinalSchool school;
  const auto form = Opened(school, "pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Lengua (1º ESO)=1", "Matemáticas (1º ESO)=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"), ElementsAre(kHeading, "2   Díaz Cano, Marta|||||| |1"));
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(3000, 2000, 0, 0, 0, 2000, 0, 0));
}

TEST(FinalSectionBySubject, StudentIsTakenWhateverHasBecomeOfHim) {
  const FinalSchool school;
  const auto script = OpenSectionBySubject(
      4, 1, "sql \"UPDATE Alumno SET Anticipado=-1, FechaBaja='01/02/2026', codSeccion=331\"\n");
  EXPECT_THAT(
      FormView(RunScript(school, script + "ver\n", SessionOf(kTutor))).Entries("cboMaterias"),
      ElementsAre("Lengua (1º ESO)=1", "Matemáticas (1º ESO)=2"));
}

TEST(FinalSectionBySubject, TeacherSeesHisSubjectsAlone) {
  const FinalSchool school;
  EXPECT_THAT(Opened(school, "", kTeacher).Entries("cboMaterias"),
              ElementsAre("Matemáticas (1º ESO)=1"));
}

TEST(FinalSectionBySubject, WithoutSubjectsItEndsInTheMessageAndInStepOne) {
  const FinalSchool school;
  const auto script = OpenSectionBySubject(4, 1, "sql \"DELETE FROM EvaluacionActaPte\"\n");
  const auto result = RunScript(school, script + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("INSERT INTO Publicacionpte"))));
}

TEST(FinalSectionBySubject, SubjectsWithoutAPersonEndInTheMessageToo) {
  const FinalSchool school;
  const auto script = OpenSectionBySubject(4, 1, "sesion usuario=2 perfil=1\n");
  const auto result = RunScript(school, script + "ver\n", SessionOf(kUnrestricted));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
}

// See the form by subject.
TEST(FinalSectionBySubject, GradeTypeOnTheKeysUncoversThemOnTheWalk) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Orden=7 WHERE IDTipoNota=12");
  EXPECT_EQ(Opened(school).Widths("rtvNotasAlumno").at(7), 0);
  EXPECT_EQ(Opened(school, "pulsar cmdSiguiente\n").Widths("rtvNotasAlumno").at(7), 2000);
}

TEST(FinalSectionBySubject, OwnPublicationIsRefusedWithoutASecondMessage) {
  const FinalSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,4)");
  const auto result = RunScript(school, OpenSectionBySubject(4) + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAre("informacion \"Zendria Escuela\" \"En la sección y evaluación "
                          "seleccionadas se están introduciendo notas. No puede acceder a estos "
                          "datos.\""));
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(Traffic(result), ElementsAreArray(StepOneSectionBySubject(kTutor, 4) +
                                                Lines{FinalFormLoad(kTutor, 4).front()} +
                                                Lines{FinalCourse()} + Leave(kTutor, 0)));
}

// Promotion decides a caption and nothing more, the measures follow their own flag.
TEST(FinalSectionBySubject, CourseDecidesACaptionAndTheMeasures) {
  const FinalSchool school;
  const std::vector<std::pair<int, std::string>> captions = {
      {0, "Promoción"}, {1, "Promoción"}, {2, "Promoción al título"}, {3, "Promoción"}};
  for (const auto& [code, caption] : captions)
    for (const auto measures : {false, true}) {
      school.Sql("UPDATE Curso SET Promocion=" + std::to_string(code) +
                 ", RE_AC=" + (measures ? "-1" : "0"));
      const auto form = Opened(school);
      EXPECT_EQ(form.Text("chkPromocion"), caption);
      EXPECT_FALSE(form.Visible("chkPromocion"));
      EXPECT_FALSE(form.Visible("fraObservacion(0)"));
      EXPECT_EQ(form.Widths("rtvNotasAlumno").at(6), measures ? 2000 : 0);
    }
}

TEST(FinalSectionBySubject, MeasureIsEditedWhereItIsShownAndSaved) {
  const FinalSchool school;
  school.Sql("UPDATE Curso SET RE_AC=-1");
  const auto result = RunScript(school,
                                OpenSectionBySubject(4) +
                                    "lista rtvNotasAlumno 1 6\n"
                                    "editar rtvNotasAlumno 1 1 \"7\"\n"
                                    "editar rtvNotasAlumno 1 6 \"Refuerzo educativo\"\nver\n"
                                    "pulsar cmdAceptar\nver\npulsar cmdNotaManual1(1)\n",
                                SessionOf(kTutor));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[]"));
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").back(),
            "2   Díaz Cano, Marta|7|||||Refuerzo educativo|1");
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("126"));
  EXPECT_EQ(school.Stored(1, 4), "107|0|1|-1|-1");
  EXPECT_EQ(school.Stored(2, 4), "0|0|0|0|0");
}

// Nobody sees the frame, before, while or after it is rebuilt.
TEST(FinalSectionBySubject, ObservationIsRebuiltAtEachEditOutOfSight) {
  const FinalSchool school;
  for (const auto& role : {kUnrestricted, kTutor}) {
    const auto before = Opened(school, "", role);
    EXPECT_THAT(before.Entries("cboObservacion"), IsEmpty());
    EXPECT_EQ(before.Text("lblNotaManual(1)"), "Observación del tutor al alumno ");
    for (const auto* const gestures :
         {"lista rtvNotasAlumno 1 1\n", "lista rtvNotasAlumno 1 5\n", "lista rtvNotasAlumno 1 0\n",
          "editar rtvNotasAlumno 1 1 \"7\"\n"}) {
      const auto form = Opened(school, gestures, role);
      EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
      EXPECT_EQ(form.Text("lblNotaManual(1)"),
                "Observación del tutor al alumno 2   Díaz Cano, Marta");
      EXPECT_FALSE(form.Visible("fraObservacion(0)"));
      EXPECT_FALSE(form.Visible("chkPromocion"));
    }
  }
}

TEST(FinalSectionBySubject, TeacherHasNoObservationRebuilt) {
  const FinalSchool school;
  const auto form = Opened(school, "lista rtvNotasAlumno 1 1\n", kTeacher);
  EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
  EXPECT_EQ(form.Text("lblNotaManual(1)"), "Observación del tutor al alumno ");
  EXPECT_FALSE(form.Visible("fraObservacion(0)"));
  EXPECT_FALSE(form.Enabled("cboObservacion"));
}

// What the start of an edit costs: a statement for the kinds of grade, one for each, the list of
// the observation, the list of the cell; the last alone for a plain teacher.
TEST(FinalSectionBySubject, EditCostsATutorTheObservation) {
  const FinalSchool school;
  const auto cost = [&school](const Role& role) {
    school.DropPublications();
    return Traffic(RunScript(school, OpenSectionBySubject(4) + "lista rtvNotasAlumno 1 1\n",
                             SessionOf(role))
                       .After("lista rtvNotasAlumno 1 1"))
        .size();
  };
  EXPECT_EQ(cost(kTutor), 1U + 3U + 1U + 1U);
  EXPECT_EQ(cost(kTeacher), 1U);
}

TEST(FinalSectionBySubject, ExceptionalGradesAreOfferedInTheCellsAlone) {
  const FinalSchool school;
  school.Sql(
      "DELETE FROM Nota WHERE CodTipoNota=11 AND IDNota<>104;"
      "UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota IN (104,501)");
  const auto result = RunScript(school, OpenSectionBySubject(4) + "lista rtvNotasAlumno 1 1\nver\n",
                                SessionOf(kTutor));
  EXPECT_THAT(result.Of("lista"), ElementsAre("[[\" \",0],[\"4\",104]]"));
  EXPECT_THAT(FormView(result).Entries("cboObservacion"), ElementsAre(" =0"));
}

TEST(FinalSectionBySubject, WithoutAKindOfObservationNothingIsRebuilt) {
  const FinalSchool school;
  school.Sql("UPDATE TipoNota SET Abreviatura=0 WHERE IDTipoNota=51");
  const auto form = Opened(school, "lista rtvNotasAlumno 1 1\n");
  EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
  EXPECT_EQ(form.Text("lblNotaManual(1)"), "Observación del tutor al alumno ");
}

/// A kind of subject that is neither ordinary nor the tutor's.
class FinalSectionBySubjectOtherKind : public ::testing::TestWithParam<int> {};

TEST_P(FinalSectionBySubjectOtherKind, IsLoadedWithAListOfItsOwnAndSaved) {
  const FinalSchool school;
  const auto pending = school.Pendiente(1, 3116, 3);
  school.Evalua(pending, 4, 402);
  school.Sql(
      "UPDATE EvaluacionActaPte SET RE_AC_DIV=2 WHERE CodAlumnoPte_MatDet=6;"
      "UPDATE TipoMateria SET CodEspecificarTipoMateria=" +
      std::to_string(GetParam()) + " WHERE IDTipoMateria=40");
  const auto result =
      RunScript(school,
                OpenSectionBySubject(4) +
                    "elegir cboMaterias #2\nver\nlista rtvNotasAlumno 1 1\npulsar cmdAceptar\n",
                SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Entries("cboMaterias"), Contains("Taller (1º ESO)=3"));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").back(),
            "2   Díaz Cano, Marta|No apto||||| |1");
  const auto traffic = Traffic(result);
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
  EXPECT_THAT(traffic, Contains(FinalCellListOfSubject(kTutor, 4, 3116, 0, 1, 4)));
  // Its measure isn't read, and so not kept.
  EXPECT_EQ(school.Stored(pending, 4), "402|0|0|-1|-1");
}

INSTANTIATE_TEST_SUITE_P(Kinds, FinalSectionBySubjectOtherKind, ::testing::Values(4, 2),
                         [](const auto& kind) { return "Kind" + std::to_string(kind.param); });

// Student 1 passed 3111 in the first final and failed 3112; a work placement is kept in any case.
TEST(FinalSectionBySubject, SecondFinalShowsWhatTheFirstFailedAndKeepsWorkPlacement) {
  const FinalSchool school;
  const auto pending = school.Pendiente(1, 3116, 3);
  for (const auto evaluation : {4, 5}) school.Evalua(pending, evaluation, 401);
  school.Sql(
      "UPDATE EvaluacionActaPte SET CodNota=CASE CodAlumnoPte_MatDet WHEN 1 THEN 105 ELSE 103 END "
      "WHERE CodNumEvaluacion=4 AND CodAlumnoPte_MatDet<6");
  const auto result = RunScript(school, OpenSectionBySubject(5) + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Entries("cboMaterias"),
              ElementsAre("Matemáticas (1º ESO)=1", "Taller (1º ESO)=2"));
}

TEST(FinalSectionBySubject, SecondFinalWithNothingLeftEndsInTheMessage) {
  const FinalSchool school;
  school.Sql("UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4");
  const auto script =
      OpenSectionBySubject(5, 1, "sql \"UPDATE EvaluacionActaPte SET CodNota=0\"\n");
  const auto result = RunScript(school, script, SessionOf(kTutor));
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNoData));
}

TEST(FinalSectionBySubject, SubjectWithoutDetailsLosesItsRows) {
  const FinalSchool school;
  const auto script = OpenSectionBySubject(
      4, 1, "sql \"DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111\"\n");
  const auto result = RunScript(school, script + "ver\n", SessionOf(kTutor));
  EXPECT_THAT(FormView(result).Entries("cboMaterias"), ElementsAre("Matemáticas (1º ESO)=1"));
  // That of the one student alone.
  EXPECT_THAT(school.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("2", "3", "4", "5"));
}

TEST(FinalSectionBySubject, ClosedYearCanBeReadAndNotSaved) {
  const FinalSchool school;
  auto options = SessionOf(kTutor);
  options.activa = false;
  const auto result = RunScript(
      school,
      OpenSectionBySubject(4) + "ver\npulsar cmdSiguiente\npulsar cmdAceptar\npulsar cmdCancelar\n",
      options);
  EXPECT_FALSE(FormView(result).Enabled("cmdAceptar"));
  EXPECT_TRUE(FormView(result).Enabled("cboMaterias"));
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("pulsar cmdAceptar")));
  EXPECT_THAT(Traffic(result), Not(Contains(HasSubstr("UPDATE"))));
}

TEST(FinalSectionBySubject, FormKeepsItsLeastMeasuresAndTheArrowsWalk) {
  const FinalSchool school;
  const auto form = Opened(school, "tamano 100 100\ntecla 40\ntecla 40\n");
  EXPECT_EQ(form.Width(), 8640);
  EXPECT_EQ(form.Height(), 6435);
  EXPECT_EQ(form.Index("cboMaterias"), 1);
  EXPECT_EQ(Opened(school, "tecla 40\ntecla 38\n").Index("cboMaterias"), 0);
}

}  // namespace
}  // namespace quorvane::test

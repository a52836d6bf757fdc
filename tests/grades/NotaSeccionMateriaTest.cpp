#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/FinalSchool.h"
#include "tests/grades/FormView.h"
#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryStatements.h"

// Entry by the subjects of a student of a section: what the form shows, offers and refuses.

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kHeading = "Orden en Sección / Alumno|Nota||||Observación|";
constexpr const char* kNothing =
    "informacion \"Zendria Escuela\" \"No existen alumnos o materias para calificar\"";
constexpr const char* kInUse =
    "informacion \"Zendria Escuela\" \"En la sección y evaluación seleccionadas se están "
    "introduciendo notas. No puede acceder a estos datos.\"";

TEST(NotaSeccionMateria, DialogHasItsCaptions) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenSectionBySubject() + "ver\n", Tutor()));
  EXPECT_EQ(form.Form(), "frmNotaSeccionMateria");
  EXPECT_EQ(form.Title(), "Introducción de notas. Paso 2 de 2");
  EXPECT_EQ(form.Text("lblNotaManual(0)"), "Materias y objetivos:");
  EXPECT_EQ(form.Text("fraNota(0)"), "Notas del Alumno:");
  EXPECT_EQ(form.Text("fraAniCarga"), "Cargando... Espere por favor");
  EXPECT_THAT(form.Tabs("tabNotaManual"), ElementsAre("Notas"));
  EXPECT_FALSE(form.Visible("fraNotaManual(1)") || form.Visible("fraAniCarga"));
  for (const auto* const control :
       {"cboMaterias", "cmdAceptar", "cmdCancelar", "tabNotaManual", "cmdAnterior", "cmdSiguiente"})
    EXPECT_TRUE(form.Enabled(control) && form.Visible(control)) << control;
}

// Its caption is the kind's name; the pane of the tutor then puts that of the kind of grade.
TEST(NotaSeccionMateria, CaptionOfTheObservationComesFromTheKindOfSubject) {
  const GradeSchool school;
  const auto caption = [&school](const ScriptOptions& user) {
    school.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
    return FormView(RunScript(school, OpenSectionBySubject() + "ver\n", user))
        .Text("lblNotaManual(1)");
  };
  EXPECT_EQ(caption(Teacher()), "Observaciones");
  EXPECT_EQ(caption(Tutor()), "Observación del tutor");
  school.Sql("DELETE FROM TipoMateria WHERE IDTipoMateria=50");
  EXPECT_EQ(caption(Teacher()), "Observación:");
}

TEST(NotaSeccionMateria, SubjectsOfTheStudentStandInTheirOrder) {
  const GradeSchool school;
  school.Sql(
      "UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=1");
  const auto result =
      RunScript(school, OpenSectionBySubject() + "ver\npulsar cmdSiguiente\nver\n", Tutor());
  const FormView form(result);
  EXPECT_THAT(form.Entries("cboMaterias"),
              ElementsAre("Lengua (1º ESO)=1", "Matemáticas (1º ESO)=2"));
  EXPECT_THAT(FormView(result, 1).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "2   Díaz Cano, Marta||||||1"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"), ElementsAre(kHeading, "2   Díaz Cano, Marta|7|||||1"));
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(3000, 2000, 0, 0, 0, 2000, 0));
}

TEST(NotaSeccionMateria, StudentWhoHasLeftMeanwhileIsStillLoaded) {
  const GradeSchool school;
  const auto result = RunScript(
      school,
      OpenSectionBySubject(1, 1,
                           "sql \"UPDATE Alumno SET FechaBaja='01/02/2026', Anticipado=-1, "
                           "OrdenSeccion=12 WHERE IDAlumno=1\"\n") +
          "ver\n",
      Tutor());
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(FormView(result).Cells("rtvNotasAlumno"),
              ElementsAre(kHeading, "12 Díaz Cano, Marta||||||1"));
}

TEST(NotaSeccionMateria, SubjectThatTheUserMayNotSeeIsNotOffered) {
  const GradeSchool school;
  const FormView form(RunScript(school, OpenSectionBySubject() + "ver\n", Teacher()));
  EXPECT_THAT(form.Entries("cboMaterias"), ElementsAre("Matemáticas (1º ESO)=1"));
}

TEST(NotaSeccionMateria, WhenNoSubjectRemainsTheFormClosesWithItsMessage) {
  const GradeSchool school;
  const auto result = RunScript(
      school,
      OpenSectionBySubject(1, 1, "sql \"INSERT INTO BloqueoPte VALUES (1,1,3112,2,9)\"\n") +
          "ver\n",
      Teacher());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kNothing));
  EXPECT_EQ(result.Of("pitido").size(), 1U);
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(school.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST(NotaSeccionMateria, OwnPublicationRefusesTheFormAndNoSecondMessageFollows) {
  const GradeSchool school;
  school.Sql(
      "INSERT INTO PublicacionPte (IDPublicacionPte, CodPropietario, CodSeccion, "
      "CodNumEvaluacion) VALUES (7,2,321,1)");
  const auto result =
      RunScript(school, OpenSectionBySubject() + "ver\npulsar cmdNotaManual1(1)\n", Tutor());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(kInUse));
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOneSectionBySubject(kTutor, 1) +
                               Lines{FormLoad(kTutor, 1).front()} + Leave(kTutor, 0)));
}

TEST(NotaSeccionMateria, ClosedSchoolYearCanBeReadAndNotSaved) {
  const GradeSchool school;
  auto closed = Tutor();
  closed.activa = false;
  const FormView form(RunScript(school, OpenSectionBySubject() + "ver\n", closed));
  EXPECT_FALSE(form.Enabled("cmdAceptar"));
  EXPECT_TRUE(form.Enabled("cboMaterias") && form.Enabled("cmdCancelar"));
}

TEST(NotaSeccionMateria, HostIsNotAskedWhetherGradesAreActive) {
  const GradeSchool school;
  const auto result =
      RunScript(school, "notasactivas 1\n" + OpenSectionBySubject() + "ver\n", Tutor());
  EXPECT_THAT(result.Of("host"), Not(Contains("ZendriaApi.cCentroApi.notasactivas")));
  EXPECT_TRUE(FormView(result).Enabled("cmdAceptar"));
}

// Its first step reads a field that isn't there.
TEST(NotaSeccionMateria, PurgeOfASubjectThatIsGoneStopsBeforeItDeletesAnything) {
  const GradeSchool school;
  school.Sql("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  const auto before = school.Modulo();
  const auto result = RunScript(school, OpenSectionBySubject(), Tutor());
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_EQ(Traffic(result).back(),
            Sql("SELECT CodEspecificarTipoMateria FROM TipoMateria WHERE IDTipoMateria IN (SELECT "
                "CodTipoMateria FROM MateriaDetalles WHERE IDMateriaDetalles=3111)"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST(NotaSeccionMateria, SubjectOfAnotherKindStopsTheLoadAtAFieldThatIsNotThere) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(1, 3116, 3), 1, 402);
  const auto result = RunScript(school, OpenSectionBySubject(), Tutor());
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3265 ")));
  EXPECT_THAT(school.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
}

TEST(NotaSeccionMateria, ValuesAreLeftOut) {
  const GradeSchool school;
  school.Evalua(school.Pendiente(1, 3115, 3), 1);
  const FormView form(RunScript(school, OpenSectionBySubject() + "ver\n", Tutor()));
  EXPECT_EQ(form.Entries("cboMaterias").size(), 2U);
}

TEST(NotaSeccionMateria, SavingGoesBackToItsStepOneAndWritesThisStudentAlone) {
  const GradeSchool school;
  school.Sql("UPDATE EvaluacionPte SET CodNota=107 WHERE CodAlumnoPte_MatDet=3");
  const auto result = RunScript(school,
                                OpenSectionBySubject() +
                                    "editar rtvNotasAlumno 1 1 \"7\"\npulsar cmdSiguiente\n"
                                    "editar rtvNotasAlumno 1 5 \"Mejora\"\n"
                                    "pulsar cmdAceptar\nver\npulsar cmdNotaManual1(1)\n",
                                Tutor());
  EXPECT_EQ(FormView(result).Form(), "frmNotaSeccionMateria1");
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("126"));
  EXPECT_EQ(school.Stored(2, 1), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school.Stored(1, 1), "0|0|0|0|202|0|0");
  EXPECT_EQ(school.Stored(3, 1), "107|0|0|0|0|0|0");
}

// The box is hidden from the start and nothing ever shows it.
TEST(NotaSeccionMateria, RecoveryCannotBeAskedForInStepOne) {
  const GradeSchool school;
  school.Sql(
      "UPDATE SistemaCalificacion SET Recuperaciones=-1 WHERE IDSistemaCalificacion=1;"
      "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321");
  const auto result =
      RunScript(school,
                OpenSectionBySubject(1, 1,
                                     "elegir cboSecciones =321\nelegir cboEvaluaciones =1\n"
                                     "elegir cboAlumno =1\nmarcar chkRecuperacion 1\n"),
                Tutor());
  EXPECT_THAT(result.Of("rechazo"), ElementsAre(HasSubstr("marcar chkRecuperacion 1")));
}

}  // namespace
}  // namespace quorvane::test

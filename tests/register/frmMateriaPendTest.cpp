#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

const std::string kAdd = kOpen + kProperties + "pulsar cmdAgregar\n";
const std::string kChoose311 = "elegir cboCurso =31\nelegir cboSeccion =311\n";

class frmMateriaPendTest : public RegisterWithRowsTest {
 protected:
  frmMateriaPendTest() { Registra({1}); }

  /// With that subject chosen for the student, and what follows.
  [[nodiscard]] ScriptResult RunChoosing(int matDet, const std::string& more) const {
    return Run(kOpen + kProperties + ChooseSubject(matDet) + more);
  }
};

TEST_F(frmMateriaPendTest, OffersAllCoursesOfTheKindThenSectionsThenSubjects) {
  const auto run = Run(kAdd + kChoose311 + kSee);
  EXPECT_THAT(run.After("pulsar cmdAgregar"),
              ElementsAre("carga frmMateriaPend", "host ZendriaApi.cCentroApi.marcar_Obligatorios",
                          Sent(CoursesToChoose(3)), "muestra frmMateriaPend"));
  EXPECT_THAT(run.After("elegir cboCurso =31"), ElementsAre(Sent(SectionsToChoose(31))));
  // Without a subject yet nothing is left out: "0".
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(Sent(SubjectsToChoose("0"))));
  ExpectTexts(run, "Materia Pendiente",
              {"Label1=Curso:", "Label2=Materia:", "Label3=Sección:", "cmdAceptar=Aceptar",
               "cmdCancelar=Cancelar"});
  EXPECT_EQ(View(run, "cboCurso", "entradas"), R"([["1º ESO",31],["2º ESO",32],["3º ESO",33]])");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",311],["B",312]])");
  // An objective of another subject isn't offered; an optional subject says so.
  EXPECT_EQ(View(run, "cboMateria", "entradas"),
            R"x([["Francés (Optativa)",3113],["Lengua",3111],["Matemáticas",3112],)x"
            R"x(["Taller",3116],["Valores",3115]])x");
}

TEST_F(frmMateriaPendTest, OfAStudentWithoutSubjectsTheListOfThoseLeftOutIsZero) {
  // Also when the only one is marked for deletion.
  Debe(1, 3111, 1);
  const auto run = Run(kOpen + kProperties + kRemove + "pulsar cmdAgregar\n" + kChoose311);
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(Sent(SubjectsToChoose("0"))));
}

TEST_F(frmMateriaPendTest, WithoutASubjectItRefuses) {
  const auto run = Run(kAdd + kAccept + kChoose311 + kAccept);
  const std::string refusal = R"(exclamacion "Zendria Escuela" "Debe seleccionar una materia")";
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(refusal, refusal));
  EXPECT_THAT(run.After("pulsar cmdAceptar"), ElementsAre("pitido", "mensaje " + refusal));
  EXPECT_THAT(run.Of("descarga"), IsEmpty());
}

TEST_F(frmMateriaPendTest, ANewSubjectStandsLastAndIsInsertedWithItsFinalOrder) {
  Debe(1, 3111, 1);
  const auto run = RunChoosing(3113, kAccept + kSee + kAccept + kAccept);
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(Sent(SubjectsToChoose("3111"))));
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3113]");
  // The number of rows with the heading shows until it is renumbered; two data rows, so 2.
  EXPECT_THAT(Materias(run),
              EndsWith(R"x(["Francés (Optativa) (1º ESO)","","","","","","","","","2"]])x"));
  EXPECT_EQ(Saved(run), InsertSubject(2, 3113, 2));
}

TEST_F(frmMateriaPendTest, SubjectsThatTheStudentHasAreNotOffered) {
  Debe(1, 3112, 1);
  Debe(1, 3111, 2);
  const auto run = Run(kAdd + kChoose311 + kSee);
  EXPECT_THAT(run.After("elegir cboSeccion =311"),
              ElementsAre(Sent(SubjectsToChoose("3112,3111"))));
  EXPECT_THAT(View(run, "cboMateria", "entradas"), Not(HasSubstr("Lengua")));
}

TEST_F(frmMateriaPendTest, ASubjectTakenOffAndChosenAgainIsUpdatedWithItsEvaluations) {
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  Debe(1, 3112, 2);
  const auto run = Run(kOpen + kProperties + kRemove + "pulsar cmdAgregar\n" + kChoose311 + kSee +
                       "elegir cboMateria =3111\n" + kAccept + kSee + kAccept + kAccept);
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(Sent(SubjectsToChoose("3112"))));
  EXPECT_THAT(run.Of("ver").front(), HasSubstr(R"(["Lengua",3111])"));
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3112,3111]");
  EXPECT_THAT(Materias(run), EndsWith(R"x(["Lengua (1º ESO)","","","","","X","","","","2"]])x"));
  EXPECT_EQ(Saved(run), Join({UpdateSubject(3111, 1, 2), UpdateSubject(3112, 2, 1)}));
  EXPECT_THAT(school.Rows("SELECT CodNota FROM EvaluacionPte"), ElementsAre("105"));
}

TEST_F(frmMateriaPendTest, AnotherCourseLeavesTheSubjectSelectedAndItIsAdded) {
  const auto run = RunChoosing(3112, Choose("cboCurso", 33) + kSee + kAccept + kAccept + kAccept);
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "-1");
  EXPECT_EQ(View(run, "cboMateria", "indice"), "2");
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM AlumnoPte_MatDet"), ElementsAre("3112"));
}

TEST_F(frmMateriaPendTest, CancellingAddsNothingAndTheMatrixIsReadAgain) {
  const auto run = RunChoosing(3112, kCancel + kSee);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(run.After("pulsar cmdCancelar"),
              ElementsAre("descarga frmMateriaPend", Sent(kColumns)));
}

TEST_F(frmMateriaPendTest, ANewSubjectRemovedAgainIsForgotten) {
  const auto run = RunChoosing(3112, kAccept + kRemove + kSee + kAccept + kAccept);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(Saved(run), IsEmpty());
}

TEST_F(frmMateriaPendTest, MovingANewSubjectKeepsItNew) {
  Debe(1, 3111, 1);
  const auto run =
      RunChoosing(3112, kAccept + "fila msgMaterias 2\npulsar cmdSubir\n" + kAccept + kAccept);
  EXPECT_THAT(run.Sql(), Contains(InsertSubject(2, 3112, 1).back()));
  EXPECT_THAT(school.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet ORDER BY Orden"),
              ElementsAre("3112|1", "3111|2"));
}

}  // namespace
}  // namespace quorvane::test

#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kAdd = kOpen + "pulsar cmdPropiedades\npulsar cmdAgregar\n";
const std::string kChoose311 = "elegir cboCurso =31\nelegir cboSeccion =311\n";
const std::string kAccept = "pulsar cmdAceptar\n";

std::string SubjectsStatement(int section, const std::string& ids) {
  return "sql centro SELECT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Materia.Optativa "
         "FROM "
         "MateriaDetalles INNER JOIN Materia ON MAteria.IDMateria=MateriaDetalles.codMAteria WHERE "
         "MateriaDetalles.codSeccion=" +
         std::to_string(section) + " AND MateriaDetalles.IDMateriaDetalles NOT IN (" + ids +
         ") AND Materia.codMateriaAsociada=0 ORDER BY Materia.Nombre";
}

class frmMateriaPendTest : public testing::Test {
 protected:
  frmMateriaPendTest() {
    GiveRowsToAllMaterias(school);
    school.Registra(321, 1);
  }

  SmallSchool school;
};

TEST_F(frmMateriaPendTest, OffersAllCoursesOfTheKindThenSectionsThenSubjects) {
  const auto run = RunScript(school, kAdd + kChoose311 + "ver\n");
  EXPECT_THAT(
      run.After("pulsar cmdAgregar"),
      ElementsAre("carga frmMateriaPend", "host ZendriaApi.cCentroApi.marcar_Obligatorios",
                  "sql centro SELECT DISTINCT IDCurso, Descripcion, Curso.Orden FROM Curso WHERE "
                  "codTipoEnsenanza=3 ORDER BY Curso.Orden",
                  "muestra frmMateriaPend"));
  EXPECT_THAT(run.After("elegir cboCurso =31"),
              ElementsAre("sql centro SELECT Seccion.IDSeccion, Seccion.Descripcion FROM Seccion "
                          "WHERE codCurso=31 ORDER BY Descripcion"));
  // Without a subject yet nothing is left out: "0".
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(SubjectsStatement(311, "0")));
  EXPECT_EQ(View(run, "", "titulo"), "\"Materia Pendiente\"");
  EXPECT_EQ(View(run, "Label1", "texto"), "\"Curso:\"");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Materia:\"");
  EXPECT_EQ(View(run, "Label3", "texto"), "\"Sección:\"");
  EXPECT_EQ(View(run, "cmdAceptar", "texto"), "\"Aceptar\"");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Cancelar\"");
  EXPECT_EQ(View(run, "cboCurso", "entradas"), R"([["1º ESO",31],["2º ESO",32],["3º ESO",33]])");
  EXPECT_EQ(View(run, "cboSeccion", "entradas"), R"([["A",311],["B",312]])");
  // An objective of another subject isn't offered; an optional subject says so.
  EXPECT_EQ(View(run, "cboMateria", "entradas"),
            R"x([["Francés (Optativa)",3113],["Lengua",3111],["Matemáticas",3112],)x"
            R"x(["Taller",3116],["Valores",3115]])x");
}

TEST_F(frmMateriaPendTest, OfAStudentWithoutSubjectsTheListOfThoseLeftOutIsZero) {
  // Also when the only one is marked for deletion.
  static_cast<void>(school.Pendiente(1, 3111, 1));
  const auto run = RunScript(school, kOpen +
                                         "pulsar cmdPropiedades\npulsar cmdEliminar\n"
                                         "pulsar cmdAgregar\n" +
                                         kChoose311);
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(SubjectsStatement(311, "0")));
}

TEST_F(frmMateriaPendTest, WithoutASubjectItRefuses) {
  const auto run = RunScript(school, kAdd + kAccept + kChoose311 + kAccept);
  const std::string refusal = R"(exclamacion "Zendria Escuela" "Debe seleccionar una materia")";
  EXPECT_THAT(run.Of("mensaje"), ElementsAre(refusal, refusal));
  EXPECT_THAT(run.After("pulsar cmdAceptar"), ElementsAre("pitido", "mensaje " + refusal));
  EXPECT_THAT(run.Of("descarga"), IsEmpty());
}

TEST_F(frmMateriaPendTest, ANewSubjectStandsLastAndIsInsertedWithItsFinalOrder) {
  static_cast<void>(school.Pendiente(1, 3111, 1));
  const auto run = RunScript(school, kAdd + kChoose311 + "elegir cboMateria =3113\n" + kAccept +
                                         "ver\n" + kAccept + kAccept);
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(SubjectsStatement(311, "3111")));
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3111,3113]");
  // The number of rows with the heading shows until it is renumbered; two data rows, so 2.
  EXPECT_THAT(
      View(run, "msgMaterias", "celdas"),
      testing::EndsWith(R"x(["Francés (Optativa) (1º ESO)","","","","","","","","","2"]])x"));
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro SELECT MAX(IDAlumnopte_matdet) FROM [Alumnopte_matdet]",
                          "sql centro INSERT INTO Alumnopte_MatDet VALUES (2,1,3113,2,0)",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST_F(frmMateriaPendTest, TheFirstSubjectOfAllHasOrderOne) {
  const auto run = RunScript(
      school, kAdd + kChoose311 + "elegir cboMateria =3112\n" + kAccept + kAccept + kAccept);
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), ElementsAre("1|1|3112|1|0"))
      << run.Text();
}

TEST_F(frmMateriaPendTest, SubjectsThatTheStudentHasAreNotOffered) {
  static_cast<void>(school.Pendiente(1, 3112, 1));
  static_cast<void>(school.Pendiente(1, 3111, 2));
  const auto run = RunScript(school, kAdd + kChoose311 + "ver\n");
  EXPECT_THAT(run.After("elegir cboSeccion =311"),
              ElementsAre(SubjectsStatement(311, "3112,3111")));
  EXPECT_THAT(View(run, "cboMateria", "entradas"), Not(HasSubstr("Lengua")));
}

TEST_F(frmMateriaPendTest, ASubjectTakenOffAndChosenAgainIsUpdatedWithItsEvaluations) {
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  static_cast<void>(school.Pendiente(1, 3112, 2));
  const auto run = RunScript(school, kOpen +
                                         "pulsar cmdPropiedades\npulsar cmdEliminar\n"
                                         "pulsar cmdAgregar\n" +
                                         kChoose311 + "ver\nelegir cboMateria =3111\n" + kAccept +
                                         "ver\n" + kAccept + kAccept);
  EXPECT_THAT(run.After("elegir cboSeccion =311"), ElementsAre(SubjectsStatement(311, "3112")));
  EXPECT_THAT(run.Of("ver").front(), HasSubstr(R"(["Lengua",3111])"));
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0,3112,3111]");
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::EndsWith(R"x(["Lengua (1º ESO)","","","","","X","","","","2"]])x"));
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("sql centro SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE "
                          "CodMatDet=3111 AND CodAlumno=1",
                          "sql centro UPDATE AlumnoPte_MatDet SET Orden=2 WHERE "
                          "IDAlumnoPte_MatDet=1",
                          "sql centro SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet WHERE "
                          "CodMatDet=3112 AND CodAlumno=1",
                          "sql centro UPDATE AlumnoPte_MatDet SET Orden=1 WHERE "
                          "IDAlumnoPte_MatDet=2",
                          "descarga frmAlumnoPendiente", "vuelve 123"));
  EXPECT_THAT(school.Rows("SELECT CodNota FROM EvaluacionPte"), ElementsAre("105"));
}

TEST_F(frmMateriaPendTest, AnotherCourseLeavesTheSubjectSelectedAndItIsAdded) {
  const auto run =
      RunScript(school, kAdd + kChoose311 + "elegir cboMateria =3112\nelegir cboCurso =33\nver\n" +
                            kAccept + kAccept + kAccept);
  EXPECT_EQ(View(run, "cboSeccion", "indice"), "-1");
  EXPECT_EQ(View(run, "cboMateria", "indice"), "2");
  EXPECT_THAT(school.Rows("SELECT CodMatDet FROM AlumnoPte_MatDet"), ElementsAre("3112"));
}

TEST_F(frmMateriaPendTest, CancellingAddsNothingAndTheMatrixIsReadAgain) {
  const auto run =
      RunScript(school, kAdd + kChoose311 + "elegir cboMateria =3112\npulsar cmdCancelar\nver\n");
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(run.After("pulsar cmdCancelar"),
              ElementsAre("descarga frmMateriaPend",
                          "sql centro SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion ORDER "
                          "BY Final, Extraordinaria, Orden"));
}

TEST_F(frmMateriaPendTest, ANewSubjectRemovedAgainIsForgotten) {
  const auto run = RunScript(school, kAdd + kChoose311 + "elegir cboMateria =3112\n" + kAccept +
                                         "pulsar cmdEliminar\nver\n" + kAccept + kAccept);
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
}

TEST_F(frmMateriaPendTest, MovingANewSubjectKeepsItNew) {
  static_cast<void>(school.Pendiente(1, 3111, 1));
  const auto run =
      RunScript(school, kAdd + kChoose311 + "elegir cboMateria =3112\n" + kAccept +
                            "fila msgMaterias 2\npulsar cmdSubir\n" + kAccept + kAccept);
  EXPECT_THAT(run.Sql(), Contains("INSERT INTO Alumnopte_MatDet VALUES (2,1,3112,1,0)"));
  EXPECT_THAT(school.Rows("SELECT CodMatDet, Orden FROM AlumnoPte_MatDet ORDER BY Orden"),
              ElementsAre("3112|1", "3111|2"));
}

}  // namespace
}  // namespace quorvane::test

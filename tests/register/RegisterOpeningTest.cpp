#include <gmock/gmock.h>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kOpenCommand = "pulsar cmdAceptar";
const std::string kWarning =
    R"(informacion "Zendria Escuela" "¡Atención! Existe una publicación de notas o un profesor )"
    R"(poniendo notas pendientes. Los cambios no se grabarán.")";

/// What opening prints: the form before is hidden, this one loaded and shown.
std::vector<std::string> Opening(const std::vector<std::string>& statements) {
  std::vector<std::string> lines{"oculta frmPendientes", "carga frmAlumnoPendiente"};
  for (const auto& statement : statements) lines.push_back("sql centro " + statement);
  lines.emplace_back("muestra frmAlumnoPendiente");
  return lines;
}

TEST(RegisterOpeningTest, ReadsStudentsSubjectsAndTeachersInOrder) {
  const SmallSchool school;
  school.Registra(321, 2);
  school.Registra(321, 1);
  school.Registra(321, 3);
  const auto lengua = school.Pendiente(1, 3111, 1);
  school.Evalua(lengua, 1);
  school.Evalua(lengua, 4);
  static_cast<void>(school.Pendiente(1, 3112, 2));
  school.Evalua(school.Pendiente(3, 3123, 1), 2);
  school.Profesor(1, 3111);
  school.Profesor(0, 3121);
  auto statements = OpeningStatements({3111, 3112, 3123});
  statements.emplace_back("SELECT codprofesor FROM BloqueoPte where codprofesor=1");
  const auto before = school.Modulo();
  const auto run = RunScript(school, kOpen + "ver\n");
  EXPECT_THAT(run.After(kOpenCommand), ElementsAreArray(Opening(statements)));
  EXPECT_EQ(View(run, "", "titulo"), "\"Alumnos con materias pendientes\"");
  EXPECT_EQ(View(run, "TabDatos"), R"({"tipo":"TabStrip","visible":true,"activo":true,)"
                                   R"("pestanas":["Alumnos","Materias"],"indice":1})");
  EXPECT_EQ(View(run, "fraTab(0)"), R"({"tipo":"Frame","visible":true,"activo":true,"texto":""})");
  EXPECT_EQ(View(run, "fraTab(1)"),
            R"({"tipo":"Frame","visible":false,"activo":false,"texto":""})");
  EXPECT_EQ(View(run, "Label1", "texto"), "\"Listado de Alumnos:\"");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Listado de Materias:\"");
  EXPECT_EQ(View(run, "cmdListar", "texto"), "\"Listar Alumnos\"");
  EXPECT_EQ(View(run, "cmdPropiedades", "texto"), "\"Propiedades\"");
  EXPECT_EQ(View(run, "cmdPropMat", "texto"), "\"Propiedades\"");
  EXPECT_EQ(View(run, "cmdAceptar"),
            R"({"tipo":"CommandButton","visible":true,"activo":true,"texto":"Aceptar"})");
  EXPECT_EQ(View(run, "cmdCancelar", "texto"), "\"Cancelar\"");
  EXPECT_EQ(View(run, "msgAlumnos"),
            R"({"tipo":"MSFlexGrid","visible":true,"activo":true,"fila":0,"columna":0,"fijas":0,)"
            R"("anchos":[6720],"celdas":[["Abad Rey, Jorge"],["Díaz Cano, Marta"],)"
            R"(["Ñúñez Sanz, Íñigo"]],"datos":[3,1,2]})");
  EXPECT_EQ(View(run, "msgMaterias"),
            R"({"tipo":"MSFlexGrid","visible":true,"activo":true,"fila":1,"columna":0,"fijas":1,)"
            R"("anchos":[4000,4000],"celdas":[["Materia","Profesor"],)"
            R"x(["Francés (1º ESO - A)",""],["Lectura (1º ESO - A)",""],)x"
            R"x(["Lengua (1º ESO - A)","Ruiz Soto, Ana"],["Matemáticas (1º ESO - A)",""],)x"
            R"x(["Taller (1º ESO - A)",""],["Valores (1º ESO - A)",""],)x"
            R"x(["Francés (1º ESO - B)",""],["Lengua (1º ESO - B)",""],)x"
            R"x(["Matemáticas (1º ESO - B)",""]],)x"
            R"("datos":[0,3113,3114,3111,3112,3116,3115,3123,3121,3122]})");
  EXPECT_EQ(school.Modulo(), before);
}

TEST(RegisterOpeningTest, AnEmptyRegisterShowsNobodyAndItsPropertiesDoNothing) {
  const SmallSchool school;
  const auto run = RunScript(school, kOpen + "ver\npulsar cmdPropiedades\ndoble msgAlumnos\n");
  EXPECT_THAT(run.After(kOpenCommand), ElementsAreArray(Opening(OpeningStatements())));
  EXPECT_EQ(View(run, "msgAlumnos", "celdas"), "[]");
  EXPECT_EQ(View(run, "msgAlumnos", "fila"), "-1");
  EXPECT_THAT(run.After("pulsar cmdPropiedades"), IsEmpty());
  EXPECT_THAT(run.Of("carga"), Not(Contains("frmAlumnoMateria")));
}

TEST(RegisterOpeningTest, AStudentWithoutSubjectsIsListedWithNone) {
  const SmallSchool school;
  school.Registra(321, 1);
  const auto run = RunScript(school, kOpen + "pulsar cmdPropiedades\nver\n");
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Díaz Cano, Marta\"");
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
}

TEST(RegisterOpeningTest, ASubjectWithoutEvaluationRowsHasNoMark) {
  const SmallSchool school;
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3112, 1));
  const auto run = RunScript(school, kOpen + "pulsar cmdPropiedades\nver\n");
  EXPECT_THAT(View(run, "msgMaterias", "celdas"),
              testing::EndsWith(R"x(["Matemáticas (1º ESO)","","","","","","","","","1"]])x"));
}

TEST(RegisterOpeningTest, AnotherSectionsStudentIsListedWhenHisPlaceIsHere) {
  const SmallSchool school;
  school.Registra(321, 5);
  const auto run = RunScript(school, kOpen + "ver\n");
  EXPECT_EQ(View(run, "msgAlumnos", "celdas"), R"([["Blanco Mas, Hugo"]])");
}

TEST(RegisterOpeningTest, TheTabsShowOnePageAtATime) {
  const SmallSchool school;
  const auto there = RunScript(school, kOpen + "pestana TabDatos 2\nver\n");
  EXPECT_EQ(View(there, "fraTab(0)", "visible") + View(there, "fraTab(0)", "activo"), "falsefalse");
  EXPECT_EQ(View(there, "fraTab(1)", "visible") + View(there, "fraTab(1)", "activo"), "truetrue");
  EXPECT_EQ(View(there, "TabDatos", "indice"), "2");
  const auto back = RunScript(school, kOpen + "pestana TabDatos 2\npestana TabDatos 1\nver\n");
  EXPECT_EQ(View(back, "fraTab(0)", "visible") + View(back, "fraTab(0)", "activo"), "truetrue");
  EXPECT_EQ(View(back, "fraTab(1)", "visible") + View(back, "fraTab(1)", "activo"), "falsefalse");
}

TEST(RegisterOpeningTest, OnAFirstCourseThePageOfSubjectsIsEmptyAndItsPropertiesDoNothing) {
  const SmallSchool school;
  const auto run = RunScript(school,
                             "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =31\n"
                             "elegir cboSeccion =311\npulsar cmdAceptar\npestana TabDatos 2\nver\n"
                             "pulsar cmdPropMat\ndoble msgMaterias\n");
  EXPECT_EQ(View(run, "msgMaterias", "celdas"), R"([["Materia","Profesor"]])");
  EXPECT_THAT(run.After("pulsar cmdPropMat"), IsEmpty());
  EXPECT_THAT(run.Of("carga"), Not(Contains("frmPropMatProf")));
}

TEST(RegisterOpeningTest, ALockOnASubjectWarnsOnceAndKeepsFromSaving) {
  const SmallSchool school;
  school.Registra(321, 1);
  school.Registra(321, 3);
  for (const auto alumno : {1, 3})
    for (const auto matDet : {3111, 3112}) static_cast<void>(school.Pendiente(alumno, matDet, 1));
  school.Bloquea(2, 1, 3111, 3, 7);
  school.Bloquea(2, 1, 3112, 3, 7);
  school.Profesor(2, 3111);
  const auto run = RunScript(school, kOpen + "ver\npulsar cmdAceptar\n");
  // The first hit ends all tests, those of the teachers too.
  auto lines = Opening(OpeningStatements({3111}));
  lines.insert(lines.end() - 1, {"pitido", "mensaje " + kWarning});
  EXPECT_THAT(AfterFirst(run, kOpenCommand), ElementsAreArray(lines));
  EXPECT_EQ(View(run, "cmdAceptar", "activo"), "false");
  EXPECT_THAT(run.After("pulsar cmdAceptar"), ElementsAre(testing::StartsWith("rechazo")));
}

TEST(RegisterOpeningTest, AnotherSubjectsLockDoesNotCount) {
  const SmallSchool school;
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  school.Bloquea(2, 1, 3112, 3, 7);
  const auto run = RunScript(school, kOpen + "ver\n");
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  EXPECT_EQ(View(run, "cmdAceptar", "activo"), "true");
}

TEST(RegisterOpeningTest, ALockOfATeacherOnTheListWarnsAndEndsTheTests) {
  const SmallSchool school;
  school.Profesor(3, 3113);
  school.Profesor(2, 3114);
  school.Profesor(1, 3111);
  school.Bloquea(2, 1, 4117, 3, 7);
  const auto run = RunScript(school, kOpen + "ver\n");
  auto statements = OpeningStatements();
  statements.emplace_back("SELECT codprofesor FROM BloqueoPte where codprofesor=3");
  statements.emplace_back("SELECT codprofesor FROM BloqueoPte where codprofesor=2");
  auto lines = Opening(statements);
  lines.insert(lines.end() - 1, {"pitido", "mensaje " + kWarning});
  EXPECT_THAT(run.After(kOpenCommand), ElementsAreArray(lines));
  EXPECT_EQ(View(run, "cmdAceptar", "activo"), "false");
}

TEST(RegisterOpeningTest, BeforeRevisionNineThereAreNoTeachersAndNoLock) {
  const SmallSchool school;
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  school.Bloquea(2, 1, 3111, 3, 7);
  const AsRevision older(8);
  const auto before = school.Modulo();
  const auto run = RunScript(school, kOpen + "ver\npulsar cmdAceptar\n");
  auto statements = OpeningStatements({3111});
  statements.resize(4);
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  EXPECT_THAT(AfterFirst(run, kOpenCommand), ElementsAreArray(Opening(statements)));
  EXPECT_EQ(View(run, "TabDatos", "pestanas"), R"(["Alumnos"])");
  EXPECT_THAT(run.After("pulsar cmdAceptar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  EXPECT_EQ(school.Modulo(), before);
}

TEST(RegisterOpeningTest, CancellingWritesNothing) {
  const SmallSchool school;
  school.Registra(321, 1);
  static_cast<void>(school.Pendiente(1, 3111, 1));
  const auto before = school.Modulo();
  for (const auto* const leave : {"pulsar cmdCancelar", "cerrar"}) {
    const auto run = RunScript(school, kOpen + leave + "\n");
    EXPECT_THAT(run.After(leave), ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
  }
  EXPECT_EQ(school.Modulo(), before);
}

}  // namespace
}  // namespace quorvane::test

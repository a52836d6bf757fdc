#include "platform/host/Application.h"
#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

const std::string kOpenCommand = "pulsar cmdAceptar";
const std::string kWarning =
    R"(informacion "Zendria Escuela" "¡Atención! Existe una publicación de notas o un profesor )"
    R"(poniendo notas pendientes. Los cambios no se grabarán.")";

/// What opening prints: the form before is hidden, this one loaded and shown.
Lines Prints(const Lines& statements) {
  Lines lines{"oculta frmPendientes", "carga frmAlumnoPendiente"};
  for (const auto& statement : statements) lines.push_back("sql centro " + statement);
  lines.emplace_back("muestra frmAlumnoPendiente");
  return lines;
}

/// The module as another revision of itself, until the end of the scope.
class AsRevision {
 public:
  explicit AsRevision(int revision) {
    auto version = Application::BuiltVersion();
    version.revision = revision;
    Application::Instance().Version(version);
  }
  ~AsRevision() { Application::Instance().Version(Application::BuiltVersion()); }
  AsRevision(AsRevision&&) = delete;
};

using RegisterOpeningTest = RegisterTest;

TEST_F(RegisterOpeningTest, ReadsStudentsSubjectsAndTeachersInOrder) {
  Registra({2, 1, 3});
  const auto lengua = school.Pendiente(1, 3111, 1);
  school.Evalua(lengua, 1);
  school.Evalua(lengua, 4);
  Debe(1, 3112, 2);
  school.Evalua(school.Pendiente(3, 3123, 1), 2);
  school.Profesor(1, 3111);
  school.Profesor(0, 3121);
  auto statements = Opening({3111, 3112, 3123});
  statements.emplace_back(LockOfTeacher(1));
  const auto before = school.Modulo();
  const auto run = Run(kOpen + kSee);
  EXPECT_THAT(run.After(kOpenCommand), ElementsAreArray(Prints(statements)));
  ExpectTexts(
      run, "Alumnos con materias pendientes",
      {"Label1=Listado de Alumnos:", "Label2=Listado de Materias:", "cmdListar=Listar Alumnos",
       "cmdPropiedades=Propiedades", "cmdPropMat=Propiedades", "cmdCancelar=Cancelar"});
  EXPECT_EQ(View(run, "TabDatos"), R"({"tipo":"TabStrip","visible":true,"activo":true,)"
                                   R"("pestanas":["Alumnos","Materias"],"indice":1})");
  EXPECT_EQ(View(run, "fraTab(0)"), R"({"tipo":"Frame","visible":true,"activo":true,"texto":""})");
  EXPECT_EQ(View(run, "fraTab(1)"),
            R"({"tipo":"Frame","visible":false,"activo":false,"texto":""})");
  EXPECT_EQ(View(run, "cmdAceptar"),
            R"({"tipo":"CommandButton","visible":true,"activo":true,"texto":"Aceptar"})");
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

TEST_F(RegisterOpeningTest, AnEmptyRegisterShowsNobodyAndItsPropertiesDoNothing) {
  const auto run = Run(kOpen + "ver\npulsar cmdPropiedades\ndoble msgAlumnos\n");
  EXPECT_THAT(run.After(kOpenCommand), ElementsAreArray(Prints(Opening())));
  EXPECT_EQ(View(run, "msgAlumnos", "celdas"), "[]");
  EXPECT_EQ(View(run, "msgAlumnos", "fila"), "-1");
  EXPECT_THAT(run.After("pulsar cmdPropiedades"), IsEmpty());
  EXPECT_THAT(run.Of("carga"), Not(Contains("frmAlumnoMateria")));
}

TEST_F(RegisterOpeningTest, AStudentWithoutSubjectsIsListedWithNone) {
  Registra({1});
  const auto run = Run(kOpen + kProperties + kSee);
  EXPECT_EQ(View(run, "Label2", "texto"), "\"Díaz Cano, Marta\"");
  EXPECT_EQ(View(run, "msgMaterias", "datos"), "[0]");
}

TEST_F(RegisterOpeningTest, ASubjectWithoutEvaluationRowsHasNoMark) {
  Pendientes(1, {3112});
  const auto run = Run(kOpen + kProperties + kSee);
  EXPECT_THAT(Materias(run),
              EndsWith(R"x(["Matemáticas (1º ESO)","","","","","","","","","1"]])x"));
}

TEST_F(RegisterOpeningTest, AnotherSectionsStudentIsListedWhenHisPlaceIsHere) {
  Registra({5});
  const auto run = Run(kOpen + kSee);
  EXPECT_EQ(View(run, "msgAlumnos", "celdas"), R"([["Blanco Mas, Hugo"]])");
}

TEST_F(RegisterOpeningTest, TheTabsShowOnePageAtATime) {
  const auto page = [](const ScriptResult& run, const std::string& frame) {
    return View(run, frame, "visible") + View(run, frame, "activo");
  };
  const auto there = Run(kOpen + "pestana TabDatos 2\n" + kSee);
  EXPECT_EQ(page(there, "fraTab(0)"), "falsefalse");
  EXPECT_EQ(page(there, "fraTab(1)"), "truetrue");
  EXPECT_EQ(View(there, "TabDatos", "indice"), "2");
  const auto back = Run(kOpen + "pestana TabDatos 2\npestana TabDatos 1\n" + kSee);
  EXPECT_EQ(page(back, "fraTab(0)"), "truetrue");
  EXPECT_EQ(page(back, "fraTab(1)"), "falsefalse");
}

TEST_F(RegisterOpeningTest, OnAFirstCourseThePageOfSubjectsIsEmptyAndItsPropertiesDoNothing) {
  const auto run = Run(ChooseSection(311) + kAccept + "pestana TabDatos 2\n" + kSee +
                       "pulsar cmdPropMat\ndoble msgMaterias\n");
  EXPECT_EQ(Materias(run), R"([["Materia","Profesor"]])");
  EXPECT_THAT(run.After("pulsar cmdPropMat"), IsEmpty());
  EXPECT_THAT(run.Of("carga"), Not(Contains("frmPropMatProf")));
}

TEST_F(RegisterOpeningTest, ALockOnASubjectWarnsOnceAndKeepsFromSaving) {
  Registra({1, 3});
  for (const auto alumno : {1, 3})
    for (const auto matDet : {3111, 3112}) Debe(alumno, matDet, 1);
  school.Bloquea(2, 1, 3111, 3, 7);
  school.Bloquea(2, 1, 3112, 3, 7);
  school.Profesor(2, 3111);
  const auto run = Run(kOpen + kSee + kAccept);
  // The first hit ends all tests, those of the teachers too.
  auto lines = Prints(Opening({3111}));
  lines.insert(lines.end() - 1, {"pitido", "mensaje " + kWarning});
  EXPECT_THAT(AfterFirst(run, kOpenCommand), ElementsAreArray(lines));
  EXPECT_EQ(View(run, "cmdAceptar", "activo"), "false");
  EXPECT_THAT(run.After("pulsar cmdAceptar"), ElementsAre(StartsWith("rechazo")));
}

TEST_F(RegisterOpeningTest, AnotherSubjectsLockDoesNotCount) {
  Pendientes(1, {3111});
  school.Bloquea(2, 1, 3112, 3, 7);
  const auto run = Run(kOpen + kSee);
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  EXPECT_EQ(View(run, "cmdAceptar", "activo"), "true");
}

TEST_F(RegisterOpeningTest, ALockOfATeacherOnTheListWarnsAndEndsTheTests) {
  school.Profesor(3, 3113);
  school.Profesor(2, 3114);
  school.Profesor(1, 3111);
  school.Bloquea(2, 1, 4117, 3, 7);
  const auto run = Run(kOpen + kSee);
  auto statements = Opening();
  for (const auto personal : {3, 2}) statements.push_back(LockOfTeacher(personal));
  auto lines = Prints(statements);
  lines.insert(lines.end() - 1, {"pitido", "mensaje " + kWarning});
  EXPECT_THAT(run.After(kOpenCommand), ElementsAreArray(lines));
  EXPECT_EQ(View(run, "cmdAceptar", "activo"), "false");
}

TEST_F(RegisterOpeningTest, BeforeRevisionNineThereAreNoTeachersAndNoLock) {
  Pendientes(1, {3111});
  school.Bloquea(2, 1, 3111, 3, 7);
  const AsRevision older(8);
  const auto before = school.Modulo();
  const auto run = Run(kOpen + kSee + kAccept);
  auto statements = Opening({3111});
  statements.resize(4);
  EXPECT_THAT(run.Of("mensaje"), IsEmpty());
  EXPECT_THAT(AfterFirst(run, kOpenCommand), ElementsAreArray(Prints(statements)));
  EXPECT_EQ(View(run, "TabDatos", "pestanas"), R"(["Alumnos"])");
  EXPECT_THAT(run.After("pulsar cmdAceptar"), ElementsAreArray(kLeft));
  EXPECT_EQ(school.Modulo(), before);
}

TEST_F(RegisterOpeningTest, CancellingWritesNothing) {
  Pendientes(1, {3111});
  const auto before = school.Modulo();
  for (const auto* const leave : {"pulsar cmdCancelar", "cerrar"}) {
    const auto run = Run(kOpen + leave + "\n");
    EXPECT_THAT(run.After(leave), ElementsAreArray(kLeft));
  }
  EXPECT_EQ(school.Modulo(), before);
}

}  // namespace
}  // namespace quorvane::test

// Every statement of a whole session fails once.
#include "tests/register/RegisterTest.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

/// A register with something to purge, to heal, to change and to delete.
void Fill(const SmallSchool& school) {
  for (const auto alumno : {1, 3}) school.Registra(321, alumno);
  school.Evalua(school.Pendiente(1, 3111, 1), 1, 105);
  school.Evalua(school.Pendiente(1, 3111, 2), 1, 105);
  school.Evalua(school.Pendiente(1, 3112, 3), 4, 105);
  school.Evalua(school.Pendiente(3, 3111, 1), 2, 105);
  school.Evalua(school.Pendiente(99, 3111, 1), 2, 105);
  school.Evalua(school.Pendiente(1, 9999, 4), 2, 105);
  GiveRowsToAllMaterias(school);
  school.Sql(
      "UPDATE Profesor_Pte SET CodProfesor=1 WHERE CodMatDet=3111;"
      "DELETE FROM Profesor_Pte WHERE CodMatDet=3122");
}

/// From the node to the save, through every dialog. The search of a teacher, which catches its
/// errors, has a test of its own.
const std::string kSession =
    kOpen + "pestana TabDatos 2\nfila msgMaterias 3\npulsar cmdPropMat\npulsar cmdElimProfesor\n" +
    kAccept + "pestana TabDatos 1\n" + kList + TakeOut(3) + TakeIn(2) + kAccept +
    "fila msgAlumnos 0\n" + kProperties + kProperties + TakeIn(2) + TakeOut(1) + kAccept +
    "fila msgMaterias 2\n" + kRemove + AddSubject(3123) + "fila msgMaterias 2\n" + kProperties +
    TakeIn(5) + TakeIn(3) + kAccept + kAccept + kAccept;

TEST(RegisterFailuresTest, EachStatementOfASessionMayFail) {
  Lines whole;
  {
    const SmallSchool school;
    Fill(school);
    const auto run = RunScript(school, kSession);
    ASSERT_EQ(run.status, 0) << run.Text();
    ASSERT_THAT(run.Of("rechazo"), IsEmpty()) << run.Text();
    whole = run.Sql();
  }
  ASSERT_GT(whole.size(), 60U);
  const SmallSchool byHand;
  Fill(byHand);
  std::size_t done = 0;
  for (std::size_t k = 1; k <= whole.size(); k += FailureStride(1)) {
    const SmallSchool school;
    Fill(school);
    const auto run = RunScript(school, "fallo " + std::to_string(k) + "\n" + kSession);
    ASSERT_THAT(run.Of("error"), ElementsAre("-2147467259 fallo")) << k << '\n' << run.Text();
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.Of("mensaje"), IsEmpty());
    // All statements up to the one that failed, and none after it.
    const auto statements = run.Sql();
    EXPECT_EQ(statements,
              std::vector(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(k)))
        << k;
    // What was executed before stays: the same statements by hand give the same tables.
    for (; done + 1 < k; ++done)
      if (!whole[done].starts_with("SELECT")) byHand.Sql(whole[done]);
    EXPECT_EQ(school.Modulo(), byHand.Modulo()) << k;
    // Opening again works.
    const auto again = RunScript(school, kOpen + kCancel);
    EXPECT_EQ(again.status, 0) << k << '\n' << again.Text();
  }
}

TEST(RegisterFailuresTest, TheSearchOfATeacherTellsItsFailureAndGoesOn) {
  const SmallSchool school;
  Fill(school);
  const auto run =
      RunScript(school, kOpen + "pestana TabDatos 2\npulsar cmdPropMat\ndocente 2\nfallo 1\n" +
                            "pulsar cmdNProfesor\ndocente 2\npulsar cmdNProfesor\n" + kSee);
  EXPECT_THAT(run.Of("mensaje"),
              ElementsAre(HasSubstr("ERROR al consultar la base de datos.\\rfallo")));
  EXPECT_EQ(View(run, "lblProfesor", "texto"), "\"Gil Mora, Luis\"");
}

TEST(RegisterFailuresTest, AfterAFailureTheNextScreenOpensAfresh) {
  const SmallSchool school;
  Fill(school);
  const auto run = RunScript(school, "fallo 6\n" + kOpen + kOpen + kSee + kCancel);
  EXPECT_THAT(run.Of("error"), ElementsAre("-2147467259 fallo"));
  EXPECT_EQ(View(run, "msgAlumnos", "datos"), "[3,1]");
  EXPECT_THAT(run.After("pulsar cmdCancelar"),
              ElementsAre("descarga frmAlumnoPendiente", "vuelve 123"));
}

}  // namespace
}  // namespace quorvane::test

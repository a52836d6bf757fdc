#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/GradeSchool.h"
#include "tests/grades/Statements.h"

// The whole order of the statements of a session, from step one to the last DELETE.

namespace quorvane::test {
namespace {

using ::testing::ElementsAreArray;

ScriptOptions Options(const Role& role) {
  ScriptOptions options;
  options.usuario = role.user;
  options.perfil = role.unrestricted ? 0 : 3;
  options.sqlServer = role.sqlServer;
  return options;
}

const Role kUnrestricted{1, 0, 0, true, true, false};
const Role kTutor{2, 1, 1, false, true, false};
const Role kTeacher{3, 2, 2, false, false, false};
const Role kNoStaff{4, 0, 0, false, false, false};

Role OnSqlServer(Role role) {
  role.sqlServer = true;
  return role;
}

class NotaManualOrder : public ::testing::TestWithParam<bool> {
 protected:
  NotaManualOrder() {
    if (GetParam()) school_.FlagsOfSqlServer();
  }

  static Role As(const Role& role) { return GetParam() ? OnSqlServer(role) : role; }

  /// Opens, grades a cell of the first student and one of the second, saves, and leaves step one.
  Lines Session(const Role& role) const {
    return Traffic(RunScript(school_,
                             Open() + "editar rtvNotasAlumno 1 1 \"7\"\n"
                                      "pulsar cmdSiguiente\n"
                                      "editar rtvNotasAlumno 1 1 \"3\"\n"
                                      "pulsar cmdAceptar\n"
                                      "pulsar cmdNotaManual1(1)\n",
                             Options(role)));
  }

  GradeSchool school_;
};

Lines Graded(int pending, int nota, bool passes) {
  return {Sql("SELECT Aprobado FROM Nota WHERE IDNota={}", {nota}),
          Sql(std::string("UPDATE EvaluacionPte SET UltimaEvaluada=-1") +
                  (passes ? " ,Evaluado" : ", Evaluado") +
                  "=-1,CodNota={},CodNotaActitud=0, CodNotaObservacion=0,CodNotaConcepto=0,"
                  "CodNotaProcedimiento=0 WHERE CodNumEvaluacion=1 AND CodAlumnoPte_MatDet = {}",
              {nota, pending}),
          Sql("UPDATE EvaluacionPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion<>1 AND "
              "CodAlumnoPte_MatDet = {}",
              {pending})};
}

Lines WholeSection(const Role& role) {
  return FormLoad(role, 1) + Load(role, 1, 3, {{4, 3113, 3}}) +
         Load(role, 1, 1, {{2, 3111, 1}, {1, 3112, 2}}) + Load(role, 1, 2, {{3, 3111, 1}}) +
         StudentNames({3, 1, 2}) + Grids(role, 1, true, {0, 0, 0, 0, 0}) +
         Locks(role, 1, {3113, 3111, 3112}) + Lines{CellList(role, 1, 4, 0, 1)} +
         Grids(role, 1, false, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) + Lines{CellList(role, 1, 2, 2, 1)} +
         Graded(4, 107, true) + Graded(2, 103, false) +
         Lines{SaveUngraded(1, 1), SaveUngraded(1, 3)} + Leave(role, 1);
}

TEST_P(NotaManualOrder, UnrestrictedUserGradesTheWholeSection) {
  const auto role = As(kUnrestricted);
  EXPECT_THAT(Session(role), ElementsAreArray(StepOne(role, 1) + WholeSection(role)));
}

TEST_P(NotaManualOrder, TutorGradesTheWholeSection) {
  const auto role = As(kTutor);
  EXPECT_THAT(Session(role), ElementsAreArray(StepOne(role, 1) + WholeSection(role)));
}

TEST_P(NotaManualOrder, TeacherGradesHisOwnSubjects) {
  const auto role = As(kTeacher);
  EXPECT_THAT(
      Session(role),
      ElementsAreArray(StepOne(role, 1) + FormLoad(role, 1) + Load(role, 1, 3, {{4, 3113, 3}}) +
                       Load(role, 1, 1, {{1, 3112, 2}}) + StudentNames({3, 1}) +
                       Grids(role, 1, true, {0, 0, 0, 0, 0}) + Locks(role, 1, {3113, 3112}) +
                       Lines{CellList(role, 1, 4, 0, 1)} + Grids(role, 1, false, {0, 0, 0, 0, 0}) +
                       Lines{CellList(role, 1, 1, 0, 1)} + Graded(4, 107, true) +
                       Graded(1, 103, false) + Leave(role, 1)));
}

// A user without staff who chose as the unrestricted one before his profile changed: the only way
// to get this far.
TEST_P(NotaManualOrder, NobodyOfTheStaffGetsNothing) {
  const auto role = As(kNoStaff);
  auto unrestricted = As(kUnrestricted);
  unrestricted.user = 4;
  const auto result = RunScript(school_,
                                "nodo 124\n"
                                "elegir cboCursos =32\n"
                                "elegir cboSecciones =321\n"
                                "elegir cboEvaluaciones =1\n"
                                "sesion usuario=4 perfil=3\n"
                                "pulsar cmdNotaManual1(0)\n"
                                "pulsar cmdNotaManual1(1)\n",
                                Options(As(kUnrestricted)));
  EXPECT_THAT(Traffic(result),
              ElementsAreArray(StepOne(unrestricted, 1) + FormLoad(role, 1) + Leave(role, 0)));
  EXPECT_THAT(result.Of("mensaje"),
              ElementsAreArray({"informacion \"Zendria Escuela\" \"No existen alumnos o materias "
                                "para introducir notas\""}));
}

INSTANTIATE_TEST_SUITE_P(Engines, NotaManualOrder, ::testing::Bool(), [](const auto& engine) {
  return engine.param ? "SqlServer" : "FileDatabase";
});

}  // namespace
}  // namespace quorvane::test

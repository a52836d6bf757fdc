// The components of the register on their own.
#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "register/PersonName.h"
#include "register/RegisterWriter.h"
#include "register/ResumeNext.h"
#include "tests/register/RegisterTest.h"
#include "tests/support/Opened.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {
namespace {

TEST(RegisterPartsTest, ANameKeepsItsBlanksAndCommaWithoutItsParts) {
  EXPECT_EQ(PersonName("Díaz", "Cano", "Marta"), "Díaz Cano, Marta");
  EXPECT_EQ(PersonName(Value(), Value(), Value()), " , ");
}

TEST(RegisterPartsTest, ResumeNextKeepsTheLastFailureUntilItIsCleared) {
  ResumeNext errores;
  int ran = 0;
  errores.Try([&] { ++ran; });
  EXPECT_EQ(errores.Number(), 0);
  errores.Try([&] { throw RuntimeError(ErrorNumber::ObjectNotSet); });
  errores.Try([&] { throw RuntimeError(ErrorNumber::Overflow, "demasiado"); });
  errores.Try([&] { ++ran; });
  EXPECT_EQ(ran, 2);
  EXPECT_EQ(errores.Number(), 6);
  EXPECT_EQ(errores.Description(), "demasiado");
  errores.Clear();
  EXPECT_EQ(errores.Number(), 0);
  EXPECT_EQ(errores.Description(), "");
}

TEST(RegisterPartsTest, WithoutASessionThereIsNoConnection) {
  auto* const before = std::exchange(cConfiguracion::Instancia().conLocalCentro, nullptr);
  EXPECT_THROW(Centro(), RuntimeError);
  cConfiguracion::Instancia().conLocalCentro = before;
}

/// What the screens never ask of the writer, which is driven by the states alone.
class RegisterWriterTest : public RegisterTest {
 protected:
  RegisterWriterTest() {
    centro.Observe([this](const Connection&, const std::string& statement) {
      statements.push_back(statement);
    });
  }

  Opened<TestConnection> centro{school.Path(), ""};
  Lines statements;
};

TEST_F(RegisterWriterTest, ATeacherMarkedForDeletionLosesItsRow) {
  school.Profesor(1, 3111);
  Collection<cMatProf> colMatProf;
  const auto matProf = std::make_shared<cMatProf>();
  matProf->IDMatDetalle = 3111;
  matProf->Estado = cConstCol().Eliminado;
  colMatProf.Add(matProf, "3111");
  RegisterWriter(centro, 321).SaveTeachers(colMatProf);
  EXPECT_THAT(statements, ElementsAre(DeleteTeacher(3111)));
  ExpectEmpty({"Profesor_Pte"});
}

TEST_F(RegisterWriterTest, ANewStudentsSubjectsAreInsertedWhateverTheirState) {
  cConstCol estados;
  Collection<cAlumno> colAlumnos;
  const auto alumno = std::make_shared<cAlumno>();
  alumno->IDAlumno = 1;
  alumno->Estado = estados.NUEVO;
  const auto materia = std::make_shared<cMateria>();
  materia->IDMatDetalle = 3111;
  materia->Orden = 3;
  materia->codCurso = 32;
  materia->Estado = estados.Eliminado;
  const auto evaluacion = std::make_shared<cEvaluacion>();
  evaluacion->IDEvaluacion = 2;
  evaluacion->Estado = estados.NoModificado;
  materia->colEvaluaciones.Add(evaluacion, "2");
  alumno->colMateria.Add(materia, "3111");
  colAlumnos.Add(alumno, "1");
  RegisterWriter(centro, 321).SaveStudents(colAlumnos);
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet"), ElementsAre("1|1|3111|3|32"));
  EXPECT_EQ(school.Numero("SELECT COUNT(*) FROM EvaluacionPte"), 1);
}

TEST_F(RegisterWriterTest, NothingBelowAnUnchangedStudentIsLookedAt) {
  cConstCol estados;
  Collection<cAlumno> colAlumnos;
  const auto alumno = std::make_shared<cAlumno>();
  alumno->Estado = estados.NoModificado;
  const auto materia = std::make_shared<cMateria>();
  materia->Estado = estados.NUEVO;
  alumno->colMateria.Add(materia, "0");
  colAlumnos.Add(alumno, "0");
  RegisterWriter(centro, 321).SaveStudents(colAlumnos);
  EXPECT_THAT(statements, IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

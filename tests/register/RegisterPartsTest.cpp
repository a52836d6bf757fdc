// The components of the register on their own.
#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "register/CopiarAlumno.h"
#include "register/PersonName.h"
#include "register/RegisterWriter.h"
#include "register/ResumeNext.h"
#include "tests/register/Fields.h"
#include "tests/register/RegisterTest.h"
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

TEST(RegisterPartsTest, ACopyHasEveryFieldButTheCourse) {
  cAlumno alumno;
  alumno.IDAlumno = 7;
  alumno.Nombre = "Díaz Cano, Marta";
  alumno.REACDIV = 1;
  alumno.Diversificacion = 2;
  alumno.Estado = 2;
  alumno.EstadoAnterior = 1;
  const auto materia = std::make_shared<cMateria>();
  materia->IDMatDetalle = 3111;
  materia->IDPersonal = 255;
  materia->Nombre = "Lengua";
  materia->Orden = 9;
  materia->Estado = 3;
  materia->EstadoAnterior = 2;
  materia->codCurso = 32;
  const auto evaluacion =
      std::make_shared<cEvaluacion>(cEvaluacion{4, "Final", true, true, 5, 1, 1});
  materia->colEvaluaciones.Add(evaluacion, "4");
  alumno.colMateria.Add(materia, "3111");

  const auto copia = CopiarAlumno(alumno);
  EXPECT_EQ(Fields(*copia), Fields(alumno));
  const auto& suya = *copia->colMateria["3111"];
  EXPECT_NE(&suya, materia.get());
  EXPECT_EQ(suya.codCurso, 0);
  materia->codCurso = 0;
  EXPECT_EQ(Fields(suya), Fields(*materia));
  const auto& otra = *suya.colEvaluaciones["4"];
  EXPECT_NE(&otra, evaluacion.get());
  EXPECT_EQ(Fields(otra), Fields(*evaluacion));
}

/// What the screens never ask of the writer, which is driven by the states alone.
class RegisterWriterTest : public RegisterTest {
 protected:
  RegisterWriterTest() : centro(school.Path(), "") {
    centro.Open();
    centro.Observe([this](const Connection&, const std::string& statement) {
      statements.push_back(statement);
    });
  }

  TestConnection centro;
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

#include <string>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolAddress.h"
#include "tests/support/Matchers.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/TestSchool.h"

// A year of 3º ESO A in the sample school, from the register to the second final, by the hands of
// those who play their part in it.

namespace quorvane::test {
namespace {

/// The sample school before the first day: the register of the others stands, nobody has a grade.
///
/// Of 3º ESO A, by their order: Marina (29) owes Matemáticas (20, pending 1) and Lengua (19,
/// pending 2) of 2º ESO A; Bruno (30) owes Matemáticas (pending 4) and a subject of values; Carmen
/// (31) Inglés of two courses (pending 5 and 6). User 4 teaches Matemáticas, user 3 is the tutor,
/// user 1 the administrator. The grades "0" to "10" are 1 to 11.
class NewYear : public TestSchool {
 public:
  NewYear() {
    if (OnServer())
      DemoSchool(OwnersConnection(Path())).Build();
    else
      DemoSchool(*SchoolAddress::File(Path()).Open("")).Build();
    Sql("UPDATE EvaluacionPte SET Evaluado=0, CodNota=0, CodNotaActitud=0, CodNotaObservacion=0, "
        "CodNotaConcepto=0, CodNotaProcedimiento=0, UltimaEvaluada=0;"
        "UPDATE EvaluacionActaPte SET Evaluado=0, CodNota=0, CodNotaObservacion=0, RE_AC_DIV=0, "
        "UltimaEvaluada=0;"
        "DELETE FROM BloqueoPte; DELETE FROM PublicacionPte");
  }
};

std::string As(int usuario, int perfil) {
  return "sesion usuario=" + std::to_string(usuario) + " perfil=" + std::to_string(perfil) + "\n";
}

const std::string kAsAdministrator = As(1, 0);
const std::string kAsTutor = As(3, 1);
const std::string kAsTeacher = As(4, 1);

/// Opens the flow of that node for the section and goes on; `choice` is what it chooses more.
std::string Grade(int node, const std::string& evaluation, const std::string& choice = "") {
  return "nodo " + std::to_string(node) +
         "\nelegir cboCursos \"3º ESO\"\nelegir cboSecciones \"3º ESO A\"\n"
         "elegir cboEvaluaciones \"" +
         evaluation + "\"\n" + choice + "pulsar cmdNotaManual1(0)\n";
}

std::string Cell(int row, int column, const std::string& grade) {
  return "editar rtvNotasAlumno " + std::to_string(row) + " " + std::to_string(column) + " \"" +
         grade + "\"\n";
}

const std::string kSave = "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n";

/// Carla's subject with three ordinary evaluations and the two finals.
std::string OwedSubject(int row, const std::string& name) {
  auto script =
      "pulsar cmdAgregar\nelegir cboCurso \"2º ESO\"\nelegir cboSeccion \"2º ESO A\"\n"
      "elegir cboMateria \"" +
      name + "\"\npulsar cmdAceptar\nfila msgMaterias " + std::to_string(row) +
      " 0\npulsar cmdPropiedades\n";
  for (const auto* const evaluation : {"1ª Evaluación", "2ª Evaluación", "3ª Evaluación",
                                       "Final Ordinaria", "Final Extraordinaria"})
    script += std::string("elegir lstDisponibles \"") + evaluation + "\"\npulsar cmdAgregarUno\n";
  return script + "pulsar cmdAceptar\n";
}

// Carla (34) comes onto the register; her subjects are pending 36 and 37.
std::string Register() {
  return "nodo 123\nelegir cboTEnsenanza \"Educación Secundaria Obligatoria\"\n"
         "elegir cboCurso \"3º ESO\"\nelegir cboSeccion \"3º ESO A\"\npulsar cmdAceptar\n"
         "pulsar cmdListar\nelegir lstDisponibles \"Ortega Fernández, Carla\"\n"
         "pulsar cmdAgregarUno\npulsar cmdAceptar\n"
         "fila msgAlumnos 2 0\npulsar cmdPropiedades\n" +
         OwedSubject(1, "Matemáticas") + OwedSubject(2, "Lengua Castellana y Literatura") +
         "pulsar cmdAceptar\npulsar cmdAceptar\n";
}

// The tutor, by student, before Christmas.
std::string FirstEvaluation() {
  return kAsTutor + "hoy 10/12/2024\n" + Grade(124, "1ª Evaluación") + Cell(1, 1, "4") +
         Cell(2, 1, "6") + Cell(2, 5, "Ha superado los objetivos") + "elegir cboAlumnos =31\n" +
         Cell(2, 1, "8") + "elegir cboAlumnos =34\n" + Cell(1, 1, "3") +
         Cell(1, 2, "Insuficiente") + kSave;
}

// The teacher of Matemáticas, by subject: Marina, Bruno, Carla.
std::string SecondEvaluation() {
  return kAsTeacher + "hoy 15/03/2025\n" + Grade(125, "2ª Evaluación") + Cell(1, 1, "5") +
         Cell(2, 1, "2") + Cell(3, 1, "6") + Cell(3, 4, "Correcta") + kSave;
}

// The tutor, Lengua of the section; then the administrator, the subjects of Carla.
std::string ThirdEvaluation() {
  return kAsTutor + "hoy 20/05/2025\n" + Grade(127, "3ª Evaluación", "elegir cboMateria =19\n") +
         Cell(1, 1, "9") + "pulsar cmdSiguiente\n" + Cell(1, 1, "4") + kSave + kAsAdministrator +
         Grade(126, "3ª Evaluación", "elegir cboAlumno =34\n") + Cell(1, 1, "7") + kSave;
}

// Carla's first evaluation was wrong. It is over: the teacher is refused, the administrator isn't,
// and the mark stays with the third.
std::string Correction() {
  return kAsTeacher + Grade(125, "1ª Evaluación") + "pulsar cmdNotaManual1(1)\n" +
         kAsAdministrator + Grade(125, "1ª Evaluación") + Cell(3, 1, "5") + kSave;
}

// Matemáticas by its teacher, with a measure for Carla; Lengua by the tutor; then she goes through
// the students for what is left: Carmen.
std::string FirstFinal() {
  return kAsTeacher + "hoy 02/06/2025\n" + Grade(125, "Final Ordinaria") + Cell(1, 1, "5") +
         Cell(2, 1, "3") + Cell(3, 1, "4") + Cell(3, 6, "Refuerzo educativo") + kSave + kAsTutor +
         Grade(127, "Final Ordinaria", "elegir cboMateria =19\n") + Cell(1, 1, "4") +
         Cell(1, 5, "Debe repasar los contenidos básicos") + "pulsar cmdSiguiente\n" +
         Cell(1, 1, "8") + kSave + Grade(124, "Final Ordinaria") + "elegir cboAlumnos =31\n" +
         Cell(2, 1, "9") + kSave;
}

// What the first failed: Matemáticas of Carla and Bruno, Lengua of Marina, whose grade is taken
// away again.
std::string SecondFinal() {
  return kAsAdministrator + "hoy 20/06/2025\n" +
         Grade(126, "Final Extraordinaria", "elegir cboAlumno =34\n") + Cell(1, 1, "6") + kSave +
         kAsTutor + Grade(127, "Final Extraordinaria", "elegir cboMateria =19\n") +
         Cell(1, 1, "3") + kSave + Grade(124, "Final Extraordinaria") + Cell(1, 1, " ") +
         "elegir cboAlumnos =30\n" + Cell(1, 1, "10") + kSave;
}

TEST(SchoolYearTest, FromTheRegisterToTheSecondFinal) {
  const NewYear school;
  const std::string counts =
      "SELECT (SELECT COUNT(*) FROM Seccion_AlumnoPte), (SELECT COUNT(*) FROM AlumnoPte_MatDet), "
      "(SELECT COUNT(*) FROM EvaluacionPte), (SELECT COUNT(*) FROM EvaluacionActaPte)";
  ASSERT_THAT(school.Rows(counts), ElementsAre("20|35|105|70"));
  const auto year =
      RunScript(school, Register() + FirstEvaluation() + SecondEvaluation() + ThirdEvaluation() +
                            Correction() + FirstFinal() + SecondFinal());
  ASSERT_EQ(year.status, 0) << year.Text();
  EXPECT_THAT(year.Of("rechazo"), IsEmpty());
  EXPECT_THAT(year.Of("mensaje"), ElementsAre("exclamacion \"Zendria Escuela\" \"La fecha de la "
                                              "evaluación se ha superado\""));
  EXPECT_THAT(year.Of("vuelve"), ElementsAre("123", "124", "125", "127", "126", "125", "125", "125",
                                             "127", "124", "126", "127", "124"));

  EXPECT_THAT(school.Rows(counts), ElementsAre("21|37|111|74"));
  EXPECT_THAT(school.Rows("SELECT * FROM Seccion_AlumnoPte WHERE CodAlumno=34"),
              ElementsAre("5|34|0|0"));
  EXPECT_THAT(school.Rows("SELECT * FROM AlumnoPte_MatDet WHERE CodAlumno=34"),
              ElementsAre("36|34|20|1|0", "37|34|19|2|0"));
  // Pending subject, evaluation, evaluated; grade, attitude, observation, concept, procedure; mark.
  EXPECT_THAT(
      school.Rows("SELECT CodAlumnoPte_MatDet, CodNumEvaluacion, Evaluado, CodNota, "
                  "CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento, "
                  "UltimaEvaluada FROM EvaluacionPte WHERE Evaluado<>0 OR CodNota<>0 OR "
                  "CodNotaActitud<>0 OR CodNotaObservacion<>0 OR CodNotaConcepto<>0 OR "
                  "CodNotaProcedimiento<>0 OR UltimaEvaluada<>0 ORDER BY 1, 2"),
      ElementsAre("1|1|-1|5|0|0|0|0|0", "1|2|-1|6|0|0|0|0|-1",     // Marina, Matemáticas
                  "2|1|-1|7|0|29|0|0|0", "2|3|-1|10|0|0|0|0|-1",   // Marina, Lengua
                  "4|2|-1|3|0|0|0|0|-1",                           // Bruno, Matemáticas
                  "6|1|-1|9|0|0|0|0|-1",                           // Carmen, Inglés
                  "36|1|-1|6|0|0|12|0|0", "36|2|-1|7|24|0|0|0|0",  // Carla, Matemáticas
                  "36|3|-1|8|0|0|0|0|-1",                          //
                  "37|3|-1|5|0|0|0|0|-1"));                        // Carla, Lengua
  // Pending subject, evaluation, evaluated; grade, observation, measure; mark.
  EXPECT_THAT(
      school.Rows("SELECT CodAlumnoPte_MatDet, CodNumEvaluacion, Evaluado, CodNota, "
                  "CodNotaObservacion, RE_AC_DIV, UltimaEvaluada FROM EvaluacionActaPte WHERE "
                  "Evaluado<>0 OR CodNota<>0 OR CodNotaObservacion<>0 OR RE_AC_DIV<>0 OR "
                  "UltimaEvaluada<>0 ORDER BY 1, 2"),
      ElementsAre("1|4|-1|6|0|0|-1",                      // passed in the first
                  "2|4|-1|5|26|0|-1",                     // failed; the second was taken away
                  "4|4|-1|4|0|0|0", "4|5|-1|11|0|0|-1",   // failed, then passed
                  "6|4|-1|10|0|0|-1",                     //
                  "36|4|-1|5|0|1|0", "36|5|-1|7|0|0|-1",  // failed with a measure, then passed
                  "37|4|-1|9|0|0|-1"));
  EXPECT_THAT(school.Rows("SELECT * FROM PublicacionPte"), IsEmpty());
  EXPECT_THAT(school.Rows("SELECT * FROM BloqueoPte"), IsEmpty());
}

}  // namespace
}  // namespace quorvane::test

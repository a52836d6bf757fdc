#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolCheck.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/support/Matchers.h"

namespace quorvane::test {
namespace {

class DemoSchoolTest : public testing::Test {
 protected:
  int Count(const std::string& from) { return school_.Count(from); }

  OpenSchool school_;
};

TEST_F(DemoSchoolTest, IsASchoolWithoutFindings) {
  const SchoolCheck check(school_.Db());
  EXPECT_THAT(check.Structure(SchoolCheck::For::Host), IsEmpty());
  EXPECT_THAT(check.Rows(), IsEmpty());
}

TEST_F(DemoSchoolTest, HasTheSizeAndShapeOfASmallSchool) {
  EXPECT_EQ(Count("Alumno"), 63);
  EXPECT_EQ(Count("Seccion"), 9);
  EXPECT_EQ(Count("Seccion WHERE CodTutor=0"), 0);
  EXPECT_EQ(Count("Curso WHERE CodTipoEnsenanza>2"), 6);
  EXPECT_THAT(school_.FirstColumn("SELECT Nombre FROM TipoEnsenanza ORDER BY Orden"),
              ElementsAre("Educación Infantil", "Educación Primaria",
                          "Educación Secundaria Obligatoria", "Bachillerato"));
  EXPECT_EQ(Count("(SELECT DISTINCT Promocion FROM Curso)"), 3);
  EXPECT_GE(Count("Seccion_AlumnoPte"), 15);
}

TEST_F(DemoSchoolTest, HasTheEvaluations) {
  EXPECT_EQ(Count("NumEvaluacion WHERE Final=0 AND Extraordinaria=0 AND IDNumEvaluacion<11"), 3);
  EXPECT_EQ(Count("NumEvaluacion WHERE Final=-1 AND Orden=1"), 1);
  EXPECT_EQ(Count("NumEvaluacion WHERE Final=-1 AND Orden=2"), 1);
  EXPECT_EQ(Count("NumEvaluacion WHERE Extraordinaria=-1"), 1);
  EXPECT_EQ(Count("NumEvaluacion WHERE IDNumEvaluacion=11"), 1);
}

TEST_F(DemoSchoolTest, HasUsersOfEveryRole) {
  ASSERT_EQ(Count("Usuario"), static_cast<int>(DemoSchool::Users().size()));
  EXPECT_GT(Count("Personal WHERE CodUsuario=0"), 0);
  EXPECT_EQ(Count("Usuario WHERE CodPerfil=0 AND AdminSistema=-1"), 1);
  EXPECT_EQ(Count("Usuario WHERE CodPadre<>0"), 1);
  const auto subjects = [&](int user) {
    return Count("Profesor_Pte INNER JOIN Personal ON IDPersonal=CodProfesor WHERE CodUsuario=" +
                 std::to_string(user));
  };
  const auto sections = [&](int user) {
    return school_.FirstColumn(
        "SELECT Descripcion FROM Seccion INNER JOIN Personal ON IDPersonal=CodTutor WHERE "
        "CodUsuario=" +
        std::to_string(user));
  };
  EXPECT_THAT(sections(3), ElementsAre("3º ESO A"));
  EXPECT_EQ(subjects(4), 1);
  EXPECT_THAT(sections(4), IsEmpty());
  EXPECT_THAT(sections(5), ElementsAre("2º Bachillerato A"));
  EXPECT_EQ(Count("Personal WHERE CodUsuario=6"), 0);
  EXPECT_EQ(Count("Personal WHERE CodUsuario=7"), 1);
  EXPECT_EQ(subjects(7), 0);
  EXPECT_THAT(sections(7), IsEmpty());
  EXPECT_THAT(sections(8), ElementsAre("2º ESO B"));
}

TEST_F(DemoSchoolTest, TheTeacherOfOneSubjectHasStudentsOfIt) {
  EXPECT_GE(Count("AlumnoPte_MatDet WHERE CodMatDet IN (SELECT CodMatDet FROM Profesor_Pte INNER "
                  "JOIN Personal ON IDPersonal=CodProfesor WHERE CodUsuario=4)"),
            2);
}

TEST_F(DemoSchoolTest, HasAPastAndAnOpenWindowAndOneWithout) {
  EXPECT_EQ(Count("FechaNotas WHERE CodNumEvaluacion=1 AND FechaFin<'2025/01/01'"), 9);
  EXPECT_EQ(Count("FechaNotas WHERE CodNumEvaluacion=2 AND FechaFin>'2090/01/01'"), 9);
  EXPECT_EQ(Count("FechaNotas WHERE CodNumEvaluacion=3"), 0);
}

TEST_F(DemoSchoolTest, ADeadFormHoldsTwoSubjects) {
  EXPECT_EQ(Count("PublicacionPte WHERE CodPropietario=2 AND CodSeccion=4 AND CodNumEvaluacion=2"),
            1);
  EXPECT_EQ(Count("BloqueoPte WHERE CodPublicacion=1"), 2);
  EXPECT_GE(Count("AlumnoPte_MatDet INNER JOIN BloqueoPte ON BloqueoPte.CodMatDet="
                  "AlumnoPte_MatDet.CodMatDet INNER JOIN Seccion_AlumnoPte ON "
                  "Seccion_AlumnoPte.CodAlumno=AlumnoPte_MatDet.CodAlumno WHERE CodSeccion=4"),
            2);
}

TEST_F(DemoSchoolTest, HasTheCaseOfEveryFlow) {
  // A first final failed, so that the second offers the subject, and one passed.
  for (const std::string passed : {"0", "-1"})
    EXPECT_GE(Count("EvaluacionActaPte INNER JOIN Nota ON IDNota=CodNota WHERE "
                    "EvaluacionActaPte.CodNumEvaluacion=4 AND Aprobado=" +
                    passed),
              1);
  // Pending subjects of each kind that the forms tell apart.
  for (const auto kind : {1, 3, 4})
    EXPECT_GE(Count("AlumnoPte_MatDet INNER JOIN (MateriaDetalles INNER JOIN TipoMateria ON "
                    "MateriaDetalles.CodTipoMateria=IDTipoMateria) ON CodMatDet=IDMateriaDetalles "
                    "WHERE CodEspecificarTipoMateria=" +
                    std::to_string(kind)),
              1)
        << kind;
  EXPECT_EQ(Count("TipoMateria WHERE CodEspecificarTipoMateria=5"), 2);
  EXPECT_GE(Count("EvaluacionPte WHERE UltimaEvaluada=-1 AND CodNota>0"), 5);
  // On the register of a section that is not his own.
  EXPECT_EQ(Count("Seccion_AlumnoPte INNER JOIN Alumno ON IDAlumno=CodAlumno WHERE "
                  "Seccion_AlumnoPte.CodSeccion<>Alumno.CodSeccion"),
            1);
  EXPECT_EQ(Count("Alumno WHERE FechaBaja<>''"), 1);
  EXPECT_EQ(Count("Alumno WHERE FechaBaja IS NULL"), 1);
  EXPECT_EQ(Count("Alumno WHERE Anticipado=-1"), 1);
}

TEST_F(DemoSchoolTest, EveryScopeOfAGradeIsUsed) {
  for (const std::string scope :
       {"CodModelo", "CodCurso", "CodNumEvaluacion", "CodMateria", "CodPersonal"})
    EXPECT_GE(Count("Nota WHERE " + scope + "<>0"), 1) << scope;
  EXPECT_GE(Count("Nota WHERE NotaExcepcional=-1"), 1);
  EXPECT_THAT(school_.FirstColumn("SELECT DescripcionCorta FROM Nota WHERE CodTipoNota=1 AND "
                                  "CodModelo=0 AND CodCurso=0 AND CodNumEvaluacion=0 AND "
                                  "CodMateria=0 AND CodPersonal=0 ORDER BY IDNota"),
              ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"));
}

TEST_F(DemoSchoolTest, TheGridsHaveColumns) {
  const auto columns = [&](int teaching) {
    return school_.FirstColumn(
        "SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE Abreviatura=-1 AND CodTipoMateria IN "
        "(SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza=" +
        std::to_string(teaching) + ") ORDER BY Orden");
  };
  EXPECT_THAT(columns(3),
              ElementsAre("Nota", "Concepto", "Procedimiento", "Actitud", "Observación"));
  EXPECT_THAT(columns(4), ElementsAre("Nota", "Observación"));
}

TEST_F(DemoSchoolTest, IsTheSameEachTime) {
  OpenSchool other;
  for (const std::string table : {"Alumno", "AlumnoPte_MatDet", "EvaluacionPte", "Nota"})
    EXPECT_EQ(Count(table), other.Count(table)) << table;
  const auto* const names = "SELECT Nombre || Apellido_1 || Apellido_2 FROM Alumno";
  EXPECT_EQ(school_.FirstColumn(names), other.FirstColumn(names));
}

}  // namespace
}  // namespace quorvane::test

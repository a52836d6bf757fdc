#include "tests/grades/OrdinaryForms.h"
#include "tests/support/ExpectedStatements.h"
#include "tests/support/Matchers.h"

// Entry by student, by the gestures of a user.

namespace quorvane::test {
namespace {

// What the form holds when it has opened.

using NotaManualLoadTest = OneFormTest<kByStudent>;

TEST_F(NotaManualLoadTest, CaptionOfTheObservationComesFromItsKindOfGrade) {
  school_.Sql("DELETE FROM TipoNota WHERE IDTipoNota=51");
  EXPECT_EQ(Shown().Text("lblNotaManual(1)"), "Observación:");
}

TEST_F(NotaManualLoadTest, StudentsAreListedByTheirOrderAndSubjectsByTheirs) {
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(
      form.Entries("cboAlumnos"),
      ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación||", "Lengua (1º ESO)||||||0|2",
                          "Matemáticas (1º ESO)||||||0|1"));
}

TEST_F(NotaManualLoadTest, OrderOfTwoDigitsHasOneBlankBehindIt) {
  school_.Sql(
      "UPDATE Alumno SET OrdenSeccion=10 WHERE IDAlumno=3;"
      "UPDATE Alumno SET OrdenSeccion=NULL WHERE IDAlumno=2");
  EXPECT_THAT(
      Shown().Entries("cboAlumnos"),
      ElementsAre(" Ñúñez Sanz, Íñigo=2", "2   Díaz Cano, Marta=1", "10 Abad Rey, Jorge=3"));
}

// Student 4 has left and has a row in this evaluation.
TEST_F(NotaManualLoadTest, StudentWhoLeftOrIsAheadOfHisYearIsNeverListed) {
  school_.Sql("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=3");
  EXPECT_THAT(Shown({}, Unrestricted()).Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
}

TEST_F(NotaManualLoadTest, StudentWithoutSubjectsInThisEvaluationIsRemovedEvenForTheTutor) {
  EXPECT_THAT(FormView(RunScript(school_, form_.Open(2) + "ver\n", Tutor())).Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
}

TEST_F(NotaManualLoadTest, SubjectThatIsGoneIsPurgedAndTheLoadGoesOnWithTheNextRow) {
  school_.Sql("DELETE FROM MateriaDetalles WHERE IDMateriaDetalles=3111");
  const auto result = Play("ver\n");
  EXPECT_THAT(FormView(result).Entries("cboAlumnos"),
              ElementsAre("1   Abad Rey, Jorge=3", "2   Díaz Cano, Marta=1"));
  Lines deletes;
  for (const auto& line : Traffic(result))
    if (line.find("DELETE") != std::string::npos) deletes.push_back(line);
  EXPECT_THAT(deletes, ElementsAreArray(Purge(2) + Purge(3)));
  EXPECT_THAT(school_.Rows("SELECT IDAlumnoPte_MatDet FROM AlumnoPte_MatDet ORDER BY 1"),
              ElementsAre("1", "4", "5"));
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM EvaluacionPte WHERE CodAlumnoPte_MatDet IN (2,3)"),
              ElementsAre("0"));
}

TEST_F(NotaManualLoadTest, TeacherWithProfileButNoSubjectsOfTheSectionGetsNothing) {
  const auto result =
      RunScript(school_, form_.Open(2, "sql \"DELETE FROM Profesor_Pte\"\n") + "ver\n", Teacher());
  EXPECT_THAT(result.Of("mensaje"), ElementsAre(HasSubstr("No existen alumnos o materias")));
  EXPECT_EQ(FormView(result).Form(), "frmNotaManual1");
}

// The scale, the grid and the lists of its cells.

const std::string kGrades =
    R"([[" ",0],["0",100],["1",101],["10",110],["2",102],["3",103],["4",104],["5",105],)"
    R"(["6",106],["7",107],["8",108],["9",109]])";

class NotaManualGridTest : public OneFormTest<kByStudent> {
 protected:
  [[nodiscard]] Lines Offered(const std::string& cell = "1 1") const {
    return Play("lista rtvNotasAlumno " + cell + "\n").Of("lista");
  }
  /// Opened so that the whole grade is to show.
  ScriptResult PlayWide(const std::string& gestures) const {
    return PlayBehind("marcar chkMostrar 1\n", gestures);
  }
};

TEST_F(NotaManualGridTest, OnlyTheColumnsOfTheScaleShow) {
  school_.Sql("UPDATE TipoNota SET Orden=3 WHERE IDTipoNota=12");
  const auto form = Shown();
  EXPECT_THAT(form.Widths("rtvNotasAlumno"), ElementsAre(2000, 2000, 0, 2000, 0, 0, 0, 0));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||Observación||||", "Francés (1º ESO)||||||0|4"));
  EXPECT_EQ(form.FixedRows("rtvNotasAlumno"), 1);
}

TEST_F(NotaManualGridTest, KindOfGradeBeyondTheFifthLeavesItsHeadingOnTheFirstStudentAlone) {
  school_.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (16,'Sexta',6,-1,-1,0,-1,10)");
  const auto result = Play("ver\npulsar cmdSiguiente\nver\n");
  // The widths that were kept with the scale come back on every student but the first.
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
  EXPECT_EQ(FormView(result, 1).Cells("rtvNotasAlumno").front(),
            "Materia|Nota||||Observación|Sexta|");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 2000, 0));
  EXPECT_EQ(FormView(result).Cells("rtvNotasAlumno").front(), "Materia|Nota||||Observación||");
}

TEST_F(NotaManualGridTest, ListIsReadForEachEditAnew) {
  const auto result = Play(
      "lista rtvNotasAlumno 1 1\n"
      "sql \"DELETE FROM Nota WHERE IDNota<110\"\n"
      "lista rtvNotasAlumno 1 1\n");
  EXPECT_THAT(result.Of("lista"), ElementsAre(kGrades, R"([[" ",0],["10",110]])"));
}

TEST_F(NotaManualGridTest, EachColumnHasItsOwnScale) {
  EXPECT_THAT(Offered("1 5"), ElementsAre(R"([[" ",0],["Mejora",202],["Trabaja",201]])"));
}

TEST_F(NotaManualGridTest, EmptyScaleOffersTheBlankEntryAlone) {
  school_.Sql("DELETE FROM Nota");
  EXPECT_THAT(Offered(), ElementsAre(R"([[" ",0]])"));
}

TEST_F(NotaManualGridTest, ColumnOfWidthZeroCannotBeEdited) {
  const auto result = Play("lista rtvNotasAlumno 1 2\neditar rtvNotasAlumno 1 7 nada\n");
  EXPECT_THAT(result.Of("rechazo"), SizeIs(2));
}

TEST_F(NotaManualGridTest, ExceptionalGradesAreNeverOffered) {
  school_.Sql("UPDATE Nota SET NotaExcepcional=-1 WHERE IDNota>101 AND IDNota<200");
  EXPECT_THAT(Offered(), ElementsAre(R"([[" ",0],["0",100],["1",101]])"));
}

// Each scope of a grade: 0 for all, the value of this cell, another value.
struct Scope {
  const char* column;
  int here;
  int elsewhere;
};

void PrintTo(const Scope& scope, std::ostream* out) { *out << scope.column << scope.here; }

class NotaManualScopeTest : public NotaManualGridTest,
                            public ::testing::WithParamInterface<Scope> {};

TEST_P(NotaManualScopeTest, GradeIsOfferedWhereItIsGeneralOrOfExactlyThis) {
  const auto& scope = GetParam();
  const std::string column = scope.column;
  school_.Sql(
      "UPDATE MateriaDetalles SET CodPersonal=2, CodPersonalAsociado=3 WHERE "
      "IDMateriaDetalles=3113;"
      "INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (5,1);"
      "UPDATE Seccion SET CodModelo=5 WHERE IDSeccion=321;"
      "DELETE FROM Nota WHERE IDNota NOT IN (100,101,102);"
      "UPDATE Nota SET " +
      column + "=" + std::to_string(scope.here) + " WHERE IDNota=101; UPDATE Nota SET " + column +
      "=" + std::to_string(scope.elsewhere) + " WHERE IDNota=102");
  EXPECT_THAT(Offered(), ElementsAre(R"([[" ",0],["0",100],["1",101]])"));
}

// `CodMateria` is compared with the pending row, 4, and not with the subject, 3.
INSTANTIATE_TEST_SUITE_P(Columns, NotaManualScopeTest,
                         ::testing::Values(Scope{"CodModelo", 5, 1}, Scope{"CodCurso", 32, 31},
                                           Scope{"CodNumEvaluacion", 1, 2},
                                           Scope{"CodMateria", 4, 3}, Scope{"CodPersonal", 2, 1},
                                           Scope{"CodPersonal", 3, 4}),
                         [](const auto& scope) {
                           return std::string(scope.param.column) +
                                  std::to_string(scope.param.here);
                         });

TEST_F(NotaManualGridTest, WidthsStayOnEditingUnlessTheyAreToShowTheWholeGrade) {
  school_.Sql("UPDATE Nota SET DescripcionCorta='Sobresaliente con matrícula' WHERE IDNota=110");
  const auto result = Play("lista rtvNotasAlumno 1 1\nver\n");
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, 2000, 0, 0, 0, 2000, 0, 0));
}

TEST_F(NotaManualGridTest, ColumnGrowsToItsLongestGradeAndStaysSoForTheNextStudents) {
  school_.Sql("UPDATE Nota SET DescripcionCorta='Sobresaliente con matrícula' WHERE IDNota=110");
  const auto result = PlayWide(
      "lista rtvNotasAlumno 1 1\nver\neditar rtvNotasAlumno 1 1 =107\n"
      "pulsar cmdSiguiente\nver\neditar rtvNotasAlumno 1 5 =201\nver\n");
  // 27 letters, 7 and 5 blanks, at 120 twips each.
  const int wide = (27 + 12) * 120;
  EXPECT_THAT(FormView(result, 2).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result, 1).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, 2000, 0, 0));
  EXPECT_THAT(FormView(result).Widths("rtvNotasAlumno"),
              ElementsAre(2000, wide, 0, 0, 0, (7 + 12) * 120, 0, 0));
}

TEST_F(NotaManualGridTest, BegunEditThatIsGivenUpGivesTheWidthsBackAtTheNextOne) {
  const auto result = PlayWide("lista rtvNotasAlumno 1 5\nver\nlista rtvNotasAlumno 0 1\nver\n");
  EXPECT_EQ(FormView(result, 1).Widths("rtvNotasAlumno").at(5), (7 + 12) * 120);
  EXPECT_EQ(FormView(result).Widths("rtvNotasAlumno").at(5), 2000);
}

TEST_F(NotaManualGridTest, TutorPaneIsHeadedAndItsObservationFilled) {
  const auto form = Shown();
  EXPECT_THAT(form.Cells("rtvNotasTutor"), ElementsAre("Valores y actitudes|Valores|Taller|"));
  EXPECT_THAT(form.Widths("rtvNotasTutor"), ElementsAre(2000, 2000, 2000, 0));
  EXPECT_EQ(form.FixedRows("rtvNotasTutor"), 0);
  EXPECT_THAT(form.Entries("cboObservacion"), ElementsAre(" =0", "Sigue así=501"));
  EXPECT_EQ(form.Index("cboObservacion"), -1);
}

TEST_F(NotaManualGridTest, TutorPaneWithoutItsKindsIsEmpty) {
  school_.Sql(
      "DELETE FROM TipoNota WHERE IDTipoNota IN (31,41,51); DELETE FROM TipoMateria WHERE "
      "IDTipoMateria=30");
  const auto form = Shown("pulsar cmdSiguiente\n");
  EXPECT_THAT(form.Cells("rtvNotasTutor"), ElementsAre("|||"));
  EXPECT_THAT(form.Widths("rtvNotasTutor"), ElementsAre(2000, 0, 0, 0));
  EXPECT_THAT(form.Entries("cboObservacion"), IsEmpty());
  EXPECT_FALSE(form.Visible("fraObservacion(0)"));
}

TEST_F(NotaManualGridTest, TutorPaneCannotBeReached) {
  const auto result = Play(
      "elegir cboObservacion #0\nescribir txtAusencias \"3\"\n"
      "editar rtvNotasTutor 0 1 nada\npestana tabNotaManual 2\n"
      "pestana tabNotaManual 1\nver\n");
  EXPECT_THAT(result.Of("rechazo"), SizeIs(4));
  EXPECT_THAT(result.Of("error"), IsEmpty());
  EXPECT_TRUE(FormView(result).Visible("fraNotaManual(0)"));
  EXPECT_FALSE(FormView(result).Visible("fraNotaManual(1)"));
}

// Publication and locks: what keeps the users of the grade forms apart.

class NotaManualLocksTest : public OneFormTest<kByStudent> {
 protected:
  [[nodiscard]] Lines Locks() const {
    return school_.Rows(
        "SELECT CodProfesor, CodNumEvaluacion, CodMatDet, CodPublicacion FROM BloqueoPte ORDER BY "
        "CodMatDet");
  }
  [[nodiscard]] Lines Publications() const { return school_.Rows("SELECT * FROM PublicacionPte"); }
};

TEST_F(NotaManualLocksTest, OpenFormHoldsItsPublicationAndOneLockForEachSubject) {
  const auto result = Play();
  EXPECT_EQ(result.status, 0) << result.Text();
  EXPECT_THAT(school_.Rows("SELECT IDPublicacionPte, CodPropietario, CodNumEvaluacion FROM "
                           "PublicacionPte"),
              ElementsAre("1|2|1"));
  EXPECT_THAT(Locks(), ElementsAre("1|1|3111|1", "1|1|3112|1", "1|1|3113|1"));
}

TEST_F(NotaManualLocksTest, UserOfProfileZeroWritesZeroInTheFirstPositionOfBothRows) {
  const auto result = Play({}, Unrestricted());
  EXPECT_THAT(Traffic(result), Contains(Sql(expected::kPublish, {1, 0, 1, 1})));
  EXPECT_THAT(Locks(), ElementsAre("0|1|3111|1", "0|1|3112|1", "0|1|3113|1"));
}

TEST_F(NotaManualLocksTest, TheWindowsCrossPressesCancelarAndStepOneComesBackWithItsChoices) {
  const auto result = Play("cerrar\nver\ncerrar\n");
  EXPECT_THAT(result.Of("muestra"),
              ElementsAre("frmNotaManual1", "frmNotaManual", "frmNotaManual1"));
  EXPECT_EQ(FormView(result).Index("cboEvaluaciones"), 0);
  EXPECT_THAT(result.Of("vuelve"), ElementsAre("124"));
  EXPECT_THAT(Locks(), IsEmpty());
  EXPECT_THAT(Publications(), IsEmpty());
}

TEST_F(NotaManualLocksTest, SecondUserSeesOnlyWhatTheFirstHasNotLocked) {
  Play({}, Teacher());  // dies with his form open
  const auto result = Play("ver\n");
  const FormView form(result);
  // Student 3 has nothing but a locked subject, and vanishes from the list.
  EXPECT_THAT(form.Entries("cboAlumnos"),
              ElementsAre("2   Díaz Cano, Marta=1", "3   Ñúñez Sanz, Íñigo=2"));
  EXPECT_THAT(form.Cells("rtvNotasAlumno"),
              ElementsAre("Materia|Nota||||Observación||", "Lengua (1º ESO)||||||0|2"));
  EXPECT_THAT(Locks(), ElementsAre("1|1|3111|2", "2|1|3112|1", "2|1|3113|1"));
}

TEST_F(NotaManualLocksTest, LockHoldsForTheStudentsOfAnotherSection) {
  school_.Registra(331, 5);
  school_.Evalua(school_.Pendiente(5, 3111, 1), 1);
  const std::string otherSection =
      "nodo 124\nelegir cboCursos =33\nelegir cboSecciones =331\nelegir cboEvaluaciones =1\n"
      "pulsar cmdNotaManual1(0)\nver\n";
  EXPECT_EQ(FormView(RunScript(school_, otherSection, Unrestricted())).Form(), "frmNotaManual");
  school_.RemoveLocks();
  Play();
  EXPECT_THAT(RunScript(school_, otherSection, Unrestricted()).Of("mensaje"),
              ElementsAre(form_.NothingToGrade()));
  EXPECT_THAT(school_.Rows("SELECT IDPublicacionPte FROM PublicacionPte"), SizeIs(1))
      << "the first user's stays";
}

TEST_F(NotaManualLocksTest, LockHoldsForTheSameUserAndInItsOwnEvaluation) {
  Play();
  const auto again = Play();
  EXPECT_THAT(again.Of("mensaje"), ElementsAre(form_.NothingToGrade()));
  const auto other = RunScript(school_, form_.Open(2) + "ver\n", Tutor());
  EXPECT_THAT(other.Of("mensaje"), IsEmpty()) << "another evaluation";
  EXPECT_EQ(FormView(other).Form(), "frmNotaManual");
}

TEST_F(NotaManualLocksTest, SubjectLockedByAFormThatDiedStaysOutOfEveryLoad) {
  school_.Bloquea(9, 1, 3111, 77, 500);
  for (int i = 0; i < 2; ++i) {
    const auto result = Play("pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
    EXPECT_THAT(result.Text(), Not(HasSubstr("VALUES (1,1,3111")));
  }
  EXPECT_THAT(Locks(), ElementsAre("9|1|3111|500"));
  school_.Sql("DELETE FROM BloqueoPte WHERE CodPublicacion=500");
  const auto result = Play("ver\n");
  EXPECT_EQ(FormView(result).Entries("cboAlumnos").size(), 3U);
}

TEST_F(NotaManualLocksTest, LockTakenBetweenLoadAndLockStaysWithBoth) {
  // Another user's lock on 3111 appears right when this form writes its publication.
  school_.Sql(
      "CREATE TRIGGER carrera AFTER INSERT ON PublicacionPte BEGIN INSERT INTO BloqueoPte "
      "VALUES (2,1,3111,3,900); END");
  const auto result = Play("pulsar cmdCancelar\npulsar cmdNotaManual1(1)\n");
  EXPECT_THAT(result.Of("mensaje"), IsEmpty());
  EXPECT_THAT(Traffic(result), Not(Contains(Sql(expected::kLock, {1, 1, 3111, 2, 1}))));
  EXPECT_THAT(Traffic(result), Contains(Sql(expected::kLock, {1, 1, 3112, 2, 1})));
  EXPECT_THAT(Locks(), ElementsAre("2|1|3111|900")) << "the other user's stays";
}

// What saving leaves in the database. Stored rows read: the grades of columns 1 to 5, `Evaluado`,
// `UltimaEvaluada`.

class NotaManualSaveTest : public OneFormTest<kByStudent> {
 protected:
  ScriptResult Save(const std::string& gestures = {}) const {
    return Play(gestures + "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  }
};

TEST_F(NotaManualSaveTest, AllFiveGradesAreStored) {
  school_.Sql(
      "INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, "
      "Evaluacion, CodTipoMateria) VALUES (13,'Concepto',2,-1,-1,0,-1,10), "
      "(14,'Procedimiento',3,-1,-1,0,-1,10), (15,'Actitud',4,-1,-1,0,-1,10);"
      "INSERT INTO Nota (IDNota, DescripcionCorta, Aprobado, NotaExcepcional, CodModelo, "
      "CodCurso, CodNumEvaluacion, CodMateria, CodPersonal, CodTipoNota) VALUES "
      "(120,'C',-1,0,0,0,0,0,0,13), (130,'P',-1,0,0,0,0,0,0,14), "
      "(140,'A',-1,0,0,0,0,0,0,15)");
  Save(
      "editar rtvNotasAlumno 1 1 =107\neditar rtvNotasAlumno 1 2 =120\n"
      "editar rtvNotasAlumno 1 3 =130\neditar rtvNotasAlumno 1 4 =140\n"
      "editar rtvNotasAlumno 1 5 =202\n");
  EXPECT_EQ(school_.Stored(4, 1), "107|120|130|140|202|-1|-1");
}

TEST_F(NotaManualSaveTest, SavingWithoutAChangeRewritesAllRowsAndMovesTheMark) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=103, Evaluado=-1 WHERE CodNumEvaluacion=1 AND "
      "CodAlumnoPte_MatDet=2;"
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=2");
  Save();
  EXPECT_EQ(school_.Stored(2, 1), "103|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(2, 2), "107|0|0|0|0|-1|0") << "though it is the later evaluation";
  EXPECT_EQ(school_.Stored(1, 1), "0|0|0|0|0|0|0");
}

TEST_F(NotaManualSaveTest, ClearedGradeKeepsItsEvaluadoAndItsMark) {
  Save("editar rtvNotasAlumno 1 1 =107\n");
  EXPECT_EQ(school_.Stored(4, 1), "107|0|0|0|0|-1|-1");
  Save("editar rtvNotasAlumno 1 1 #0\n");
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|0|-1|-1");
}

TEST_F(NotaManualSaveTest, OtherGradesWithoutTheMainOneAreStoredAndEvaluadoStays) {
  const auto result = Save("editar rtvNotasAlumno 1 5 =201\n");
  EXPECT_EQ(school_.Stored(4, 1), "0|0|0|0|201|0|0");
  EXPECT_THAT(Traffic(result), Contains(SaveUngraded(1, 4, {0, 201, 0, 0})));
}

TEST_F(NotaManualSaveTest, EvaluationWithoutAMainGradeLeavesTheMarkWhereItWas) {
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=107, Evaluado=-1, UltimaEvaluada=-1 WHERE "
      "CodNumEvaluacion=2 AND CodAlumnoPte_MatDet=2");
  Save();
  EXPECT_EQ(school_.Stored(2, 2), "107|0|0|0|0|-1|-1");
  EXPECT_EQ(school_.Stored(2, 1), "0|0|0|0|0|0|0");
}

TEST_F(NotaManualSaveTest, GradeThatIsGoneStopsTheSaveInTheMiddle) {
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 =107\npulsar cmdSiguiente\n"
      "editar rtvNotasAlumno 1 1 =108\n"
      "sql \"DELETE FROM Nota WHERE IDNota=108\"\n"
      "pulsar cmdAceptar\n");
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(school_.Stored(4, 1), "107|0|0|0|0|-1|-1") << "what was written stays";
  EXPECT_EQ(school_.Stored(2, 1), "0|0|0|0|0|0|0");
  EXPECT_THAT(school_.Rows("SELECT COUNT(*) FROM BloqueoPte"), ElementsAre("3"));
}

TEST_F(NotaManualSaveTest, GradeThatIsGoneStopsTheLoad) {
  school_.Sql("UPDATE EvaluacionPte SET CodNota=999 WHERE CodAlumnoPte_MatDet=2");
  const auto result = Play();
  EXPECT_THAT(result.Of("error"), ElementsAre(HasSubstr("3021 ")));
  EXPECT_EQ(Traffic(result).back(), Sql(expected::kPasses, {999}));
}

TEST_F(NotaManualSaveTest, RowThatIsMissingIsNoError) {
  const auto result = Play(
      "editar rtvNotasAlumno 1 1 =107\n"
      "sql \"DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=4\"\n"
      "pulsar cmdAceptar\npulsar cmdNotaManual1(1)\n");
  EXPECT_EQ(result.status, 0) << result.Text();
}

}  // namespace
}  // namespace quorvane::test

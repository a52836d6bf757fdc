#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/register/RegisterStatements.h"
#include "tests/support/Matchers.h"
#include "tests/support/ScriptRun.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {

using namespace statement;  // NOLINT(google-build-using-namespace): every test speaks in them.

// Gestures.
inline const std::string kAccept = "pulsar cmdAceptar\n";
inline const std::string kCancel = "pulsar cmdCancelar\n";
inline const std::string kProperties = "pulsar cmdPropiedades\n";
inline const std::string kRemove = "pulsar cmdEliminar\n";
inline const std::string kList = "pulsar cmdListar\n";
inline const std::string kSee = "ver\n";

/// Chooses an item by its number: Choose("cboCurso", 32).
inline std::string Choose(const std::string& control, int data) {
  return "elegir " + control + " =" + std::to_string(data) + "\n";
}
/// Takes an entry into a dual list, or out of it.
inline std::string TakeIn(int data) {
  return Choose("lstDisponibles", data) + "pulsar cmdAgregarUno\n";
}
inline std::string TakeOut(int data) {
  return Choose("lstSeleccionados", data) + "pulsar cmdEliminarUno\n";
}
/// Chooses a subject for the student whose subjects are shown.
inline std::string ChooseSubject(int matDet) {
  return "pulsar cmdAgregar\n" + Choose("cboCurso", matDet / 100) +
         Choose("cboSeccion", matDet / 10) + Choose("cboMateria", matDet);
}
inline std::string AddSubject(int matDet) { return ChooseSubject(matDet) + kAccept; }

/// Chooses a section of "ESO" on the first screen, without leaving it.
inline std::string ChooseSection(int section) {
  return "nodo 123\n" + Choose("cboTEnsenanza", 3) + Choose("cboCurso", section / 10) +
         Choose("cboSeccion", section);
}
/// Opens the register of section "A" of "2º ESO".
inline const std::string kOpen = ChooseSection(321) + kAccept;

/// A member of a control in the last `ver`, as JSON text: View(result, "msgAlumnos", "celdas").
/// Without a member, the whole control; without a control, a member of the form.
std::string View(const ScriptResult& result, const std::string& control,
                 const std::string& member = "");

/// The cells of the grid of subjects.
inline std::string Materias(const ScriptResult& result) {
  return View(result, "msgMaterias", "celdas");
}

/// That the last `ver` shows that title, and texts of controls, each as "Label1=Curso:".
void ExpectTexts(const ScriptResult& result, const std::string& title, const Lines& texts);

/// Those of both dialogs with a dual list.
inline const Lines kDualListTexts{"lblDisponibles=Seleccionadas:",
                                  "lblSeleccionadas=Disponibles:",
                                  "cmdAgregarUno=<- Agregar",
                                  "cmdAgregarTodos=<<- Todos",
                                  "cmdEliminarUno=Quitar ->",
                                  "cmdEliminarTodos=Todos ->>",
                                  "cmdAceptar=Aceptar",
                                  "cmdCancelar=Cancelar"};

/// Every subject detail on the page "Materias" gets a row without a teacher, so that saving has
/// none to insert.
void GiveRowsToAllMaterias(const SmallSchool& school);

/// The statements that begin with one of those texts.
Lines Beginning(const ScriptResult& result, const Lines& texts);

/// The lines that follow the first echo of the command, up to the next echo.
Lines AfterFirst(const ScriptResult& result, const std::string& command);

/// What the register has executed when it was accepted and left.
Lines Saved(const ScriptResult& result);

/// What leaving the register prints, when it executes nothing.
inline const Lines kLeft{"descarga frmAlumnoPendiente", "vuelve 123"};

/// The line that tells of a statement.
inline std::string Sent(const std::string& statement) { return "sql centro " + statement; }

/// Several lists one after the other.
Lines Join(const std::vector<Lines>& lists);

/// A small school, and somebody at the register of its section 321.
class RegisterTest : public testing::Test {
 protected:
  ScriptResult Run(const std::string& script, const ScriptOptions& options = {}) const {
    return RunScript(school, script, options);
  }
  void Registra(std::initializer_list<int> alumnos) const {
    for (const auto alumno : alumnos) school.Registra(321, alumno);
  }
  /// The student is on the register, with those pending subjects in this order.
  void Pendientes(int alumno, std::initializer_list<int> matDets) const {
    Registra({alumno});
    for (int orden = 0; const auto matDet : matDets) Debe(alumno, matDet, ++orden);
  }

  void Debe(int alumno, int matDet, int orden) const {
    static_cast<void>(school.Pendiente(alumno, matDet, orden));
  }

  /// No row is left in those tables.
  void ExpectEmpty(std::initializer_list<const char*> tables) const {
    for (const auto* const table : tables)
      EXPECT_THAT(school.Rows(std::string("SELECT * FROM ") + table), IsEmpty()) << table;
  }

  SmallSchool school;
};

/// On a register whose teachers need no row any more.
class RegisterWithRowsTest : public RegisterTest {
 protected:
  RegisterWithRowsTest() { GiveRowsToAllMaterias(school); }
};

}  // namespace quorvane::test

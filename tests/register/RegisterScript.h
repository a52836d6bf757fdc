#pragma once

#include <string>
#include <vector>

#include "tests/register/RegisterStatements.h"
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
std::string Choose(const std::string& control, int data);
/// Takes an entry into a dual list, or out of it.
std::string TakeIn(int data);
std::string TakeOut(int data);
/// Adds a subject to the student whose subjects are shown.
std::string AddSubject(int matDet);

/// Chooses a section of "ESO" on the first screen, without leaving it.
std::string ChooseSection(int section);
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

/// The module as another revision of itself, until the end of the scope.
class AsRevision {
 public:
  explicit AsRevision(int revision);
  ~AsRevision();
  AsRevision(AsRevision&&) = delete;
};

/// The lines that follow the first echo of the command, up to the next echo.
Lines AfterFirst(const ScriptResult& result, const std::string& command);

/// The statements after the last echo of the command, where nothing else came of it but those last
/// lines.
Lines StatementsAfter(const ScriptResult& result, const std::string& command,
                      const Lines& last = {});

/// What the register has executed when it was accepted and left.
Lines Saved(const ScriptResult& result);

/// What leaving the register prints, when it executes nothing.
inline const Lines kLeft{"descarga frmAlumnoPendiente", "vuelve 123"};

/// The line that tells of a statement, or the lines of several.
inline std::string Sent(const std::string& statement) { return "sql centro " + statement; }
Lines Sent(Lines statements);

/// Several lists one after the other.
Lines Join(const std::vector<Lines>& lists);

}  // namespace quorvane::test

#pragma once

#include <string>
#include <vector>

#include "tests/support/ScriptRun.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {

/// Opens the register of section "A" of "2º ESO": `cboSeccion` 321.
inline const std::string kOpen =
    "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\nelegir cboSeccion =321\n"
    "pulsar cmdAceptar\n";

/// The statement that reads the register of that section.
std::string RegisterStatement(int section = 321);

/// What opening the register of section 321 executes when its tables are in order: purges, the
/// register, a lock test for each of the subjects, the teachers.
std::vector<std::string> OpeningStatements(const std::vector<int>& lockTests = {});

/// A member of a control in the last `ver`, as JSON text: View(result, "msgAlumnos", "celdas").
/// Without a member, the whole control; without a control, a member of the form.
std::string View(const ScriptResult& result, const std::string& control,
                 const std::string& member = "");

/// Every subject detail on the page "Materias" gets a row without a teacher, so that saving has
/// none to insert.
void GiveRowsToAllMaterias(const SmallSchool& school);

/// The module as another revision of itself, until the end of the scope.
class AsRevision {
 public:
  explicit AsRevision(int revision);
  ~AsRevision();
  AsRevision(const AsRevision&) = delete;
  AsRevision& operator=(const AsRevision&) = delete;
  AsRevision(AsRevision&&) = delete;
  AsRevision& operator=(AsRevision&&) = delete;
};

/// The lines that follow the first echo of the command, up to the next echo.
std::vector<std::string> AfterFirst(const ScriptResult& result, const std::string& command);

/// Several lists one after the other.
std::vector<std::string> Join(const std::vector<std::vector<std::string>>& lists);

}  // namespace quorvane::test

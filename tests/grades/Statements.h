#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/ScriptRun.h"

namespace quorvane::test {

// The statements of entry by student as they have to reach the database, to the letter and the
// blank, each a line as a script prints it.

using Lines = std::vector<std::string>;

/// Statements and calls of the host among the lines, in their order.
Lines Traffic(const std::vector<std::string>& lines);
Lines Traffic(const ScriptResult& result);

Lines operator+(Lines left, const Lines& right);

/// The text behind "sql centro ", with its "{}" filled in from left to right.
std::string Sql(const std::string& text, std::initializer_list<long> numbers = {});

/// Who opens the form, and what of it shows in the statements.
struct Role {
  int user = 1;
  int person = 0;       ///< of the user
  int gIDPersonal = 0;  ///< as step one has it: 0 for profile 0
  bool unrestricted = true;
  bool section = true;  ///< sees the whole section
  bool sqlServer = false;

  [[nodiscard]] long True() const { return sqlServer ? 1 : -1; }
};

/// A subject as the load reads it.
struct Subject {
  int pending;
  int matDet;
  int materia;
  int nota = 0;
};

/// Step one up to the moment when step two is loaded.
Lines StepOne(const Role& role, int evaluacion);
/// `Form_Load` of step two.
Lines FormLoad(const Role& role, int evaluacion);
/// The load of a student with the subjects that he turns out to have.
Lines Load(const Role& role, int evaluacion, int student, const std::vector<Subject>& subjects);
Lines StudentNames(std::initializer_list<int> students);
/// The grids of a student with these grades, subject by subject; `first` while the form loads.
Lines Grids(const Role& role, int evaluacion, bool first, std::initializer_list<long> grades);
/// The publication and the locks that a form takes, and who takes them.
Lines TakenLocks(const Role& role, int evaluacion, std::initializer_list<long> matDets);
/// Publication and locks, with what the host is asked.
Lines Locks(const Role& role, int evaluacion, std::initializer_list<long> matDets);
/// The list of a cell.
std::string CellList(const Role& role, int evaluacion, int pending, int teacher, int column);
/// A subject that is saved without a main grade.
std::string SaveUngraded(int evaluacion, int pending,
                         std::initializer_list<long> others = {0, 0, 0, 0});
Lines Leave(const Role& role, int publication);

}  // namespace quorvane::test

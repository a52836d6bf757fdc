#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/grades/Roles.h"
#include "tests/support/Traffic.h"

namespace quorvane::test {

// What entry by student sends to the database, step by step, made of `ExpectedStatements.h`.

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
/// The load of a student with the subjects that he turns out to have; the rows are those of
/// `matDet` alone where a form that was opened on it asks for one who sees the whole section.
Lines Load(const Role& role, int evaluacion, int student, const std::vector<Subject>& subjects,
           int matDet = 0);
Lines StudentNames(std::initializer_list<int> students);
/// The grids of a student with these grades, subject by subject; `first` while the form loads.
Lines Grids(const Role& role, int evaluacion, bool first, std::initializer_list<long> grades);
/// The pane of the tutor, as it is filled.
Lines TutorGrid(const Role& role, int evaluacion);
/// The publication and the locks that a form takes, and who takes them.
Lines TakenLocks(const Role& role, int evaluacion, std::initializer_list<long> matDets);
/// Publication and locks, with what the host is asked.
Lines Locks(const Role& role, int evaluacion, std::initializer_list<long> matDets);
/// The list of a cell. `codMateria` is what the form compares with.
std::string CellList(const Role& role, int evaluacion, int codMateria, int teacher, int column);
/// A subject that is saved without a main grade, with those of columns 4, 5, 2 and 3.
std::string SaveUngraded(int evaluacion, int pending,
                         const std::vector<long>& others = {0, 0, 0, 0});
Lines Leave(const Role& role, int publication);

}  // namespace quorvane::test

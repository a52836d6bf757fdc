#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/grades/Roles.h"
#include "tests/support/Traffic.h"

namespace quorvane::test {

// What the ordinary forms send to the database, step by step, made of `ExpectedStatements.h`: first
// entry by student, with what the others share with it.

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
/// The grids of a student with so many subjects, all without a grade; `first` while the form loads.
Lines Grids(const Role& role, int evaluacion, bool first, std::size_t subjects);
/// The question for the text of a grade in each cell of such rows.
Lines NoGrades(std::size_t cells);
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

// By subject and of a section.

/// Step one up to the moment when step two is loaded.
Lines StepOneBySubject(const Role& role, int evaluacion);
Lines StepOneSectionByStudent(const Role& role, int evaluacion);
Lines StepOneSectionBySubject(const Role& role, int evaluacion);

/// `Form_Load` of step two. `students` is how many it finds.
Lines FormLoadBySubject(const Role& role, int evaluacion, int students);
Lines FormLoadSectionByStudent(const Role& role, int evaluacion);
Lines FormLoadSectionBySubject(const Role& role, int evaluacion, int student);

/// The grid of a subject of these students, without a grade; `first` while the form loads.
Lines SubjectGrid(const Role& role, bool first, std::initializer_list<int> students);
/// The pane of the tutor, as it is filled; nothing for one who doesn't see the whole section.
Lines TutorPane(const Role& role, int evaluacion);
/// What removes a pending row whose subject is gone, where that works.
Lines Purge(int pending);

/// By student: a subject that is saved with a main grade.
Lines SaveByStudent(int evaluacion, int pending, int nota, bool passes);
/// In the other three: one saved with a main grade while no later evaluation holds the mark;
/// `mark` is how the form gives it.
Lines SaveMarked(const Role& role, int evaluacion, int pending, int nota, const char* mark);
/// One saved with a main grade while a later evaluation holds it.
Lines SaveBehindTheMark(const Role& role, int evaluacion, int pending, int nota);
/// One without a main grade, while no later evaluation holds the mark and no earlier one was
/// graded.
Lines SaveNothing(const Role& role, int evaluacion, int pending);
/// The two questions of saving: for a later mark, for an earlier grade.
std::string LaterMark(const Role& role, int evaluacion, int pending);
std::string EarlierGrade(const Role& role, int evaluacion, int pending);

}  // namespace quorvane::test

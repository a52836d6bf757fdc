#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/grades/Statements.h"

namespace quorvane::test {

// What the ordinary forms by subject and of a section send to the database, step by step. What they
// share with entry by student is in `Statements.h`.

/// Opens step one, chooses section 321 and that evaluation and goes on, by subject. `before` are
/// gestures before the last one, each with its end of line.
std::string OpenBySubject(int evaluacion = 1, const std::string& before = {});
/// The same by the students of a section, with a subject.
std::string OpenSectionByStudent(int evaluacion = 1, int matDet = 3111,
                                 const std::string& before = {});
/// The same by the subjects of a student of a section.
std::string OpenSectionBySubject(int evaluacion = 1, int student = 1,
                                 const std::string& before = {});

/// Step one up to the moment when step two is loaded.
Lines StepOneBySubject(const Role& role, int evaluacion);
Lines StepOneSectionByStudent(const Role& role, int evaluacion);
Lines StepOneSectionBySubject(const Role& role, int evaluacion);

/// `Form_Load` of step two. `students` is how many it finds.
Lines FormLoadBySubject(const Role& role, int evaluacion, int students);
Lines FormLoadSectionByStudent(const Role& role, int evaluacion);
Lines FormLoadSectionBySubject(const Role& role, int evaluacion, int student);

/// A row of the grid of a subject: the student and his grades in columns 1 to 5.
struct StudentRow {
  int student;
  std::array<long, 5> grades{};
};
/// The grid of a subject; `first` while the form loads.
Lines SubjectGrid(const Role& role, bool first, const std::vector<StudentRow>& rows);
/// The pane of the tutor, as it is filled; nothing for one who doesn't see the whole section.
Lines TutorPane(const Role& role, int evaluacion);
/// What a form leaves the database with where no host listens.
Lines LeaveUnheard(const Role& role, int publication);
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

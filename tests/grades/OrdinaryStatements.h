#pragma once

#include <array>
#include <string>
#include <vector>

#include "tests/grades/Statements.h"

namespace quorvane::test {

// The statements of the ordinary forms by subject and of the two of a section as they have to reach
// the database, to the letter and the blank. Those that they share with entry by student are in
// `Statements.h`.

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

/// The load of a student by one who sees the whole section, cut down to a subject.
Lines LoadChosen(const Role& role, int evaluacion, int student, int matDet,
                 const std::vector<Subject>& subjects);

/// A row of the grid of a subject: the student and his grades in columns 1 to 5.
struct StudentRow {
  int student;
  std::array<long, 5> grades{};
};
/// The grid of a subject; `first` while the form loads.
Lines SubjectGrid(const Role& role, bool first, const std::vector<StudentRow>& rows);
/// The pane of the tutor, as it is filled; nothing for one who doesn't see the whole section.
Lines TutorPane(const Role& role, int evaluacion);
/// Publication and locks, without a question to the host.
Lines LocksUnasked(const Role& role, int evaluacion, std::initializer_list<long> matDets);

/// How a form writes the equal sign where an evaluation takes the mark.
inline const std::string kEqualsBySubject = "= ";
inline const std::string kEqualsBySection = " =";

/// A subject that is saved with a main grade while no later evaluation holds the mark.
Lines SaveMarked(const Role& role, int evaluacion, int pending, int nota,
                 const std::string& equals);
/// One saved with a main grade while a later evaluation holds it.
Lines SaveBehindTheMark(const Role& role, int evaluacion, int pending, int nota);
/// One without a main grade, while no later evaluation holds the mark and no earlier one was
/// graded.
Lines SaveNothing(const Role& role, int evaluacion, int pending);
/// The two questions of saving: for a later mark, for an earlier grade.
std::string LaterMark(const Role& role, int evaluacion, int pending);
std::string EarlierGrade(const Role& role, int evaluacion, int pending);

}  // namespace quorvane::test

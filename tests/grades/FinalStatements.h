#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/grades/Statements.h"

namespace quorvane::test {

// The statements of the final grade forms as they have to reach the database, to the letter and
// the blank. Those that they share with the ordinary forms are in `Statements.h`.

/// Step one by section and subject: the subjects in place of the kind of evaluation.
Lines StepOneFinalOfSubject(const Role& role, int evaluacion);
/// Step one by section and student in the second final: in place of one list, the section's pending
/// rows, who keeps a work placement, and who failed the first. `pendings` are those rows, "1,2".
Lines StepOneSecondFinalOfStudent(const Role& role, const std::string& pendings);
/// What step one asks more for the second final evaluation.
Lines FirstFinal(const Role& role);
/// `Form_Load` of step two, but by section and student.
Lines FinalFormLoad(const Role& role, int evaluacion);
/// That one: of one student.
Lines FinalFormLoadOf(const Role& role, int evaluacion, int student);
/// What the forms that walk subjects ask of the course.
std::string FinalCourse();
/// The rows of a student: all, those of that subject when `matDet` isn't 0, or a teacher's.
std::string FinalRows(const Role& role, int evaluacion, int student, int matDet = 0);
std::string KindOf(int matDet);
/// Whether the first final evaluation passed it.
std::string PassedFirst(int pending);
/// Whether a stored grade passes.
std::string Passes(int nota);
/// The teachers of a subject, its name and that of its course.
Lines FinalNames(int matDet, int materia);
/// The grades of a subject of another kind, in evaluation 4 or 5, by the key that each form has.
std::string OtherKindByStudent(int evaluacion, int pending);
std::string OtherKindBySubject(int evaluacion, int hostRow);
std::string OtherKindOfSection(int evaluacion, int pending);
/// The grades, teachers and names of a subject of the ordinary kind, behind its kind.
Lines FinalGrades(int evaluacion, const Subject& subject);
/// The load of a student with the subjects that he turns out to have.
Lines FinalLoad(const Role& role, int evaluacion, int student, const std::vector<Subject>& subjects,
                int matDet = 0);
/// The grid of a student with so many subjects, all without a grade; `first` while the form loads.
Lines FinalGrid(const Role& role, bool first, std::size_t subjects);
/// The grid of a subject of these students; `first` while the form loads.
Lines FinalSubjectGrid(const Role& role, bool first, std::initializer_list<int> students);
/// The list of the tutor's observation, as it is rebuilt for each student; the form that rebuilds
/// it at each edit leaves the exceptional grades out.
Lines FinalObservation(const Role& role, int evaluacion, bool exceptional = true);
/// The list of a cell, for a subject of that kind. `codMateria` is what the form compares with.
std::string FinalCellList(const Role& role, int evaluacion, int codMateria, int teacher, int column,
                          int kind = 1);
/// The same in the forms that walk subjects, which offer the exceptional grades too.
std::string FinalCellListOfSubject(const Role& role, int evaluacion, int matDet, int teacher,
                                   int column, int kind = 1);
/// A subject that is saved with a grade while no later evaluation holds the mark.
Lines SaveFinalGraded(const Role& role, int evaluacion, int pending, int nota, int observacion = 0,
                      int medida = 0);
/// One that is saved with a grade while a later evaluation holds the mark.
Lines SaveFinalBehindTheMark(const Role& role, int evaluacion, int pending, int nota);
/// One without a grade, while neither a later evaluation holds the mark nor an earlier one a grade.
Lines SaveFinalUngraded(const Role& role, int evaluacion, int pending, int observacion = 0,
                        int medida = 0);
/// The mark given back to the evaluation of that row, behind a save without a grade.
std::string FinalMarkGivenBack(int row);

}  // namespace quorvane::test

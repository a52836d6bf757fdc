#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace quorvane {

/// The grades of a pending subject in an evaluation, as texts; each empty where there is none.
struct ReportGrade {
  std::string grade;
  std::string concepts;
  std::string procedure;
  std::string attitude;
  std::string observation;
  std::string measure;  ///< of a final
};

struct ReportSubject {
  std::string name;                            ///< "Matemáticas (2º ESO A)"
  std::string teacher;                         ///< empty for none
  std::map<std::int32_t, ReportGrade> grades;  ///< by the evaluations that it is graded in
};

struct ReportStudent {
  std::int32_t id = 0;
  std::string name;  ///< "Surnames, Name"
  std::vector<ReportSubject> subjects;
};

struct ReportEvaluation {
  std::int32_t id = 0;
  std::string name;
  bool final = false;
};

/// The pending subjects of a group's students, as families are told of them.
struct SectionReport {
  std::string school;
  std::string date;                           ///< as it is printed
  std::string title;                          ///< of the section, or of the subject
  std::vector<ReportEvaluation> evaluations;  ///< those that any of the subjects has, in order
  std::vector<ReportStudent> students;        ///< with pending subjects, in the list's order
};

}  // namespace quorvane

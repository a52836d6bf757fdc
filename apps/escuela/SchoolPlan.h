#pragma once

#include <string_view>
#include <vector>

namespace quorvane {

/// The kinds of subjects, by the codes that the module tells them apart with.
enum class SubjectKind { Ordinary = 1, Values = 3, WorkPlacement = 4, TutorRemark = 5 };

/// A subject of a kind of teaching, taught in those of its courses whose place is listed.
struct SubjectPlan {
  std::string_view name;
  SubjectKind kind = SubjectKind::Ordinary;
  bool optional = false;
  std::vector<std::size_t> courses;
};

struct CoursePlan {
  std::string_view name;
  int promotion = 0;      ///< 0, 1 or 2: what the final forms make of it
  bool measures = false;  ///< the final forms show the adopted measures
};

/// A kind of grade of the ordinary subjects: a column of the grids.
struct ColumnPlan {
  std::string_view name;
  int place = 0;  ///< 1 to 5
  std::vector<std::string_view> words;
};

/// A kind of teaching with all that hangs from it.
struct TeachingPlan {
  std::string_view name;
  std::string_view shortName;
  bool recoveries = false;
  std::vector<CoursePlan> courses;
  std::vector<SubjectPlan> subjects;
  std::vector<ColumnPlan> columns;
};

struct EvaluationPlan {
  int id = 0;
  std::string_view name;
  bool final = false;
  bool extraordinary = false;
  int order = 0;
};

/// The evaluations of every school, and those that the builders write grades for.
namespace evaluation {
inline constexpr int kFirst = 1;
inline constexpr int kSecond = 2;
inline constexpr int kThird = 3;
inline constexpr int kFirstFinal = 4;
inline constexpr int kSecondFinal = 5;
inline constexpr int kExtraordinary = 6;
inline constexpr int kReserved = 11;  ///< never offered for pending subjects
}  // namespace evaluation

/// What a secondary school in Spain teaches: compulsory education and baccalaureate.
const std::vector<TeachingPlan>& TeachingPlans();
const std::vector<EvaluationPlan>& EvaluationPlans();
const std::vector<std::string_view>& FirstNames();
const std::vector<std::string_view>& Surnames();

}  // namespace quorvane

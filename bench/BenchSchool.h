#pragma once

#include <string>

namespace quorvane::bench {

/// A school of so many students, in a file of that folder that goes with the object, with one
/// section more: a kind of teaching of its own, with 30 students who owe 5 subjects each, in 3
/// ordinary evaluations and one final, all with a grade. So the work measured is the same in
/// schools of any size.
class BenchSchool {
 public:
  BenchSchool(const std::string& folder, int students);
  ~BenchSchool();
  BenchSchool(const BenchSchool&) = delete;
  BenchSchool& operator=(const BenchSchool&) = delete;
  BenchSchool(BenchSchool&&) = delete;
  BenchSchool& operator=(BenchSchool&&) = delete;

  [[nodiscard]] const std::string& Path() const noexcept { return path_; }

  static constexpr int kStudents = 30;
  static constexpr int kSubjects = 5;
  static constexpr int kKind = 90;
  static constexpr int kCourse = 252;
  static constexpr int kSection = 9021;
  static constexpr int kEvaluation = 202;
  static constexpr int kFinalEvaluation = 204;
  static constexpr int kSubject = 900001;   ///< the first `IDMateriaDetalles`
  static constexpr int kStudent = 9000001;  ///< the first `IDAlumno`

 private:
  std::string path_;
};

}  // namespace quorvane::bench

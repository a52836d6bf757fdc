#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/Connection.h"

namespace quorvane {

/// What a school's register can refer to, by name. Read at the making; names are found without
/// regard to case, accents and doubled blanks.
class RegisterLookup {
 public:
  struct Section {
    std::int32_t id = 0;
    std::string name;
    std::int32_t course = 0;
    std::string courseName;
    std::int32_t courseOrder = 0;
    std::int32_t teaching = 0;
    std::int32_t centre = 0;  ///< 0 where the register doesn't offer its kind of teaching
  };
  struct Student {
    std::int32_t id = 0;
    std::string name;  ///< "Surnames, Name"
    std::int32_t section = 0;
    bool offered = false;  ///< the register may take him up
  };
  struct Subject {
    std::int32_t id = 0;
    std::string name;
    const Section* section = nullptr;
  };
  struct Named {
    std::int32_t id = 0;
    std::string name;
  };
  struct Evaluation {
    std::int32_t id = 0;
    std::string name;
    bool final = false;
    bool extraordinary = false;
  };

  explicit RegisterLookup(Connection& school);

  [[nodiscard]] std::vector<const Section*> Sections(const std::string& name) const;
  [[nodiscard]] const Section* SectionOf(std::int32_t id) const;
  [[nodiscard]] std::vector<const Student*> Students(const std::string& name) const;
  [[nodiscard]] const Student* StudentOf(std::int32_t id) const;
  /// Subjects by name, of a course or section of that name, in a kind of teaching.
  [[nodiscard]] std::vector<const Subject*> Subjects(const std::string& name,
                                                     const std::string& course,
                                                     std::int32_t teaching) const;
  [[nodiscard]] std::vector<const Named*> Teachers(const std::string& name) const;
  /// Those that a pending subject may have, in the register's order.
  [[nodiscard]] const std::vector<Evaluation>& Evaluations() const noexcept { return evaluations_; }

  [[nodiscard]] bool OnRegister(std::int32_t section, std::int32_t student) const {
    return registered_.contains({section, student});
  }
  /// The section on whose register a student stands, the last of several; 0 for none.
  [[nodiscard]] std::int32_t RegisterOf(std::int32_t student) const;
  /// The evaluations of a pending subject that stands already; null for one that doesn't.
  [[nodiscard]] const std::set<std::int32_t>* Pending(std::int32_t student,
                                                      std::int32_t subject) const;
  /// 0 for none.
  [[nodiscard]] std::int32_t TeacherOf(std::int32_t subject) const;
  [[nodiscard]] std::string TeacherName(std::int32_t id) const;

 private:
  void ReadSections(Connection& school);
  void ReadStudents(Connection& school);
  void ReadSubjects(Connection& school);
  void ReadTeachers(Connection& school);
  void ReadRegister(Connection& school);

  std::map<std::int32_t, Section> sections_;
  std::map<std::int32_t, Student> students_;
  std::map<std::int32_t, Subject> subjects_;
  std::map<std::int32_t, Named> teachers_;
  std::vector<Evaluation> evaluations_;
  std::multimap<std::string, const Section*> sectionNames_;
  std::multimap<std::string, const Student*> studentNames_;
  std::multimap<std::string, const Subject*> subjectNames_;
  std::multimap<std::string, const Named*> teacherNames_;
  std::set<std::pair<std::int32_t, std::int32_t>> registered_;
  std::map<std::int32_t, std::int32_t> registerOf_;
  std::map<std::pair<std::int32_t, std::int32_t>, std::set<std::int32_t>> pending_;
  std::map<std::int32_t, std::int32_t> teacherOf_;
};

}  // namespace quorvane

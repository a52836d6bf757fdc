#pragma once

#include <string_view>
#include <vector>

#include "apps/escuela/SchoolRecords.h"
#include "platform/data/Connection.h"

namespace quorvane {

class PendingBuilder;
class RowWriter;

/// A user of the sample school. Profile 0 is unrestricted, 1 a teacher, 2 an office.
struct DemoUser {
  int id = 0;
  int parent = 0;
  bool administrator = false;
  int profile = 0;
  std::string_view name;
  int staff = -1;  ///< place among the staff of the centre, -1 for none
  std::string_view firstName;
  std::string_view surname;
  std::string_view role;  ///< what he may do, in Spanish
};

/// A small secondary school with the case of every flow. Its sections are, by number: 1 and 2 are
/// 1º ESO A and B, 3 and 4 are 2º ESO, 5 and 6 are 3º ESO, 7 is 4º ESO A, 8 and 9 are the courses
/// of Bachillerato; seven students each. The users:
///
/// | User | Name         | Profile | What he sees |
/// |------|--------------|---------|----------------------------------------------------------------|
/// | 1    | direccion    | 0       | everything, also outside the date windows (administrator) | |
/// 2    | jefatura     | 0       | everything, within the date windows                            |
/// | 3    | tutora3a     | 1       | 3º ESO A, as its tutor, and the pending subjects she teaches |
/// | 4    | profesor     | 1       | one pending subject, Matemáticas of 2º ESO A; tutor of none |
/// | 5    | coordinacion | 1       | 2º Bachillerato A, as its tutor; the windows don't bind him |
/// | 6    | secretaria   | 2       | no member of staff: no course to grade | | 7    | sustituto |
/// 1       | staff, but neither tutor nor teacher of a pending subject      | | 8    | lucia | 1 |
/// tutor of 2º ESO B; a form of hers died in the second evaluation |
///
/// Windows of every section: the first evaluation is over, the second open, the third without one;
/// the first final is open, the second without one. The lock that a form of user 2 left hides two
/// subjects of 1º ESO B in the second evaluation from everybody, and keeps him from section 4 in
/// that evaluation.
class DemoSchool {
 public:
  /// `connection` is open on an empty school of the file database; it is only used by `Build`.
  explicit DemoSchool(Connection& connection) : connection_(connection) {}

  void Build();

  static const std::vector<DemoUser>& Users();

 private:
  void AddUsers(RowWriter& rows) const;
  void AddWindows(RowWriter& rows, const CentreRecord& centre) const;
  void AddCases(PendingBuilder& pending, const CentreRecord& centre) const;
  void AddDeadForm(RowWriter& rows, const CentreRecord& centre) const;
  void ChangePeople(const CentreRecord& centre) const;

  Connection& connection_;
};

}  // namespace quorvane

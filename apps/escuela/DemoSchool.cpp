#include "apps/escuela/DemoSchool.h"

#include <algorithm>
#include <string>

#include "apps/escuela/CentreBuilder.h"
#include "apps/escuela/PendingBuilder.h"

namespace quorvane {
namespace {

constexpr std::uint64_t kSeed = 2024;
constexpr std::size_t kDemoStudentsPerSection = 7;
constexpr std::size_t kDemoPercentPending = 40;

// Places of the sections in the centre, one below their numbers.
constexpr std::size_t k1A = 0;
constexpr std::size_t k1B = 1;
constexpr std::size_t k2A = 2;
constexpr std::size_t k2B = 3;
constexpr std::size_t k3A = 4;
constexpr std::size_t k3B = 5;
constexpr std::size_t k4A = 6;
constexpr std::size_t kBach1 = 7;
constexpr std::size_t kBach2 = 8;

// Places of the subjects among those of the compulsory courses that have them all.
constexpr std::size_t kLanguage = 0;
constexpr std::size_t kMathematics = 1;
constexpr std::size_t kEnglish = 2;
constexpr std::size_t kPhilosophy = 3;  // in the first course of baccalaureate

constexpr int kNoGrade = -1;
constexpr int kTeacherOfOne = 4;
constexpr int kUserOfDeadForm = 2;

const TaughtRecord& OfKind(const SectionRecord& section, SubjectKind kind) {
  return *std::find_if(section.taught.begin(), section.taught.end(),
                       [kind](const TaughtRecord& taught) { return taught.kind == kind; });
}

const DemoUser& UserOf(int id) { return DemoSchool::Users()[static_cast<std::size_t>(id - 1)]; }

int StaffOf(const CentreRecord& centre, int user) {
  return centre.staff[static_cast<std::size_t>(UserOf(user).staff)];
}

}  // namespace

const std::vector<DemoUser>& DemoSchool::Users() {
  static const std::vector<DemoUser> users{
      {1, 0, true, 0, "direccion", -1, "", "", "todo, también fuera de plazo (administrador)"},
      {2, 0, false, 0, "jefatura", -1, "", "",
       "todo, dentro de los plazos; dejó un bloqueo en la 2ª evaluación"},
      {3, 0, false, 1, "tutora3a", 4, "Carmen", "Navarro", "tutora de 3º ESO A"},
      {4, 0, false, 1, "profesor", 13, "Javier", "Ortega",
       "una sola materia pendiente: Matemáticas de 2º ESO A"},
      {5, 1, false, 1, "coordinacion", 8, "Miguel", "Serrano",
       "tutor de 2º Bachillerato A, también fuera de plazo"},
      {6, 0, false, 2, "secretaria", -1, "", "", "no es personal docente: ningún curso"},
      {7, 0, false, 1, "sustituto", 14, "Óscar", "Ibáñez",
       "docente sin tutoría ni materia pendiente"},
      {8, 0, false, 1, "lucia", 3, "Lucía", "Vidal", "tutora de 2º ESO B"},
  };
  return users;
}

void DemoSchool::AddUsers(RowWriter& rows) const {
  for (const auto& user : Users())
    rows.Insert("Usuario", {user.id, user.parent, user.administrator, user.name, user.profile});
}

void DemoSchool::AddWindows(RowWriter& rows, const CentreRecord& centre) const {
  for (const auto& section : centre.sections) {
    rows.Insert("FechaNotas", {"2024/11/25", "2024/12/20", section.id, evaluation::kFirst});
    rows.Insert("FechaNotas", {"2025/01/08", "2099/12/31", section.id, evaluation::kSecond});
    rows.Insert("FechaNotas", {"2025/05/26", "2099/12/31", section.id, evaluation::kFirstFinal});
  }
}

void DemoSchool::AddCases(PendingBuilder& pending, const CentreRecord& centre) const {
  const auto& sections = centre.sections;
  const auto put = [&](std::size_t section, std::size_t student) {
    pending.PutOnRegister(sections[section].id, sections[section],
                          sections[section].students[student]);
    return sections[section].students[student];
  };
  const auto owe = [&](int student, std::size_t section, const TaughtRecord& taught, int order,
                       int graded, int firstFinal) {
    pending.Add(centre.markings[sections[section].teaching],
                {student, taught.id, order, graded, firstFinal});
    pending.SetTeacher(taught.id, taught.teacher);
  };
  const auto taught = [&](std::size_t section, std::size_t subject) -> const TaughtRecord& {
    return sections[section].taught[subject];
  };

  // Before any other row, so that nobody else gets this subject.
  pending.SetTeacher(taught(k2A, kMathematics).id, StaffOf(centre, kTeacherOfOne));

  // Failed in the first final, so offered in the second; passed, so not offered.
  auto student = put(k3A, 0);
  owe(student, k2A, taught(k2A, kMathematics), 1, 2, 3);
  owe(student, k2A, taught(k2A, kLanguage), 2, 3, 7);
  // A subject of values is on the register but nobody grades it.
  student = put(k3A, 1);
  owe(student, k2A, OfKind(sections[k2A], SubjectKind::Values), 1, 0, kNoGrade);
  owe(student, k2A, taught(k2A, kMathematics), 2, 1, kNoGrade);
  // The same subject of two courses, told apart by the course.
  student = put(k3A, 2);
  owe(student, k1A, taught(k1A, kEnglish), 1, 1, kNoGrade);
  owe(student, k2A, taught(k2A, kEnglish), 2, 0, kNoGrade);
  // On the register of another section than his own.
  student = sections[k3A].students[3];
  pending.PutOnRegister(sections[k3B].id, sections[k3A], student);
  owe(student, k2B, taught(k2B, kLanguage), 1, 0, kNoGrade);
  // A work placement, graded in the finals alone.
  student = put(k4A, 0);
  owe(student, k3A, OfKind(sections[k3A], SubjectKind::WorkPlacement), 1, 0, kNoGrade);
  owe(student, k3A, taught(k3A, kMathematics), 2, 2, 4);
  // What the form that died holds, and a subject that it doesn't.
  student = put(k2B, 0);
  owe(student, k1B, taught(k1B, kLanguage), 1, 1, kNoGrade);
  owe(student, k1B, taught(k1B, kEnglish), 2, 1, kNoGrade);
  student = put(k2B, 1);
  owe(student, k1B, taught(k1B, kMathematics), 1, 1, kNoGrade);
  // The kind of teaching with two columns of grades.
  student = put(kBach2, 0);
  owe(student, kBach1, taught(kBach1, kPhilosophy), 1, 1, kNoGrade);
}

void DemoSchool::AddDeadForm(RowWriter& rows, const CentreRecord& centre) const {
  // An unrestricted user locks as nobody's teacher, so that the lock closes the register of the
  // one section whose students owe these subjects, and no other.
  constexpr auto kNoTeacher = 0;
  constexpr auto kPublication = 1;
  // The 4 is what the module writes there, whichever the section.
  rows.Insert("PublicacionPte",
              {kPublication, kNoTeacher, kUserOfDeadForm, 4, evaluation::kSecond});
  for (const auto subject : {kLanguage, kEnglish})
    rows.Insert("BloqueoPte",
                {kNoTeacher, evaluation::kSecond, centre.sections[k1B].taught[subject].id,
                 kUserOfDeadForm, kPublication});
}

void DemoSchool::ChangePeople(const CentreRecord& centre) const {
  for (const auto& user : Users())
    if (user.staff >= 0)
      connection_.Execute("UPDATE Personal SET Nombre='" + std::string(user.firstName) +
                          "', Apellido1='" + std::string(user.surname) +
                          "' WHERE CodUsuario=" + std::to_string(user.id));
  const auto last = [&](std::size_t section) {
    return std::to_string(centre.sections[section].students.back());
  };
  connection_.Execute("UPDATE Alumno SET FechaBaja='2024/10/31' WHERE IDAlumno=" + last(k3A));
  connection_.Execute("UPDATE Alumno SET FechaBaja=NULL WHERE IDAlumno=" + last(k3B));
  connection_.Execute("UPDATE Alumno SET Anticipado=-1 WHERE IDAlumno=" + last(k4A));
}

void DemoSchool::Build() {
  RowWriter rows(connection_);
  SchoolKeys keys;
  Prng random(kSeed);
  CentreBuilder builder(rows, keys, random);
  builder.BuildShared();
  AddUsers(rows);

  CentreOptions options;
  options.sections = {{2, 2, 2, 1}, {1, 1}};
  options.studentsPerSection = kDemoStudentsPerSection;
  options.staffUsers.assign(CentreBuilder::StaffCount(options), 0);
  for (const auto& user : Users())
    if (user.staff >= 0) options.staffUsers[static_cast<std::size_t>(user.staff)] = user.id;
  options.students = kDemoStudentsPerSection * 9;
  const auto centre = builder.Build(options);

  PendingBuilder pending(rows, keys, random);
  AddCases(pending, centre);
  pending.BuildRegister(centre, kDemoPercentPending);
  AddWindows(rows, centre);
  AddDeadForm(rows, centre);
  ChangePeople(centre);
}

}  // namespace quorvane

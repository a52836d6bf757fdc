#include "tests/walk/RandomSchool.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tests/walk/Disturbance.h"

namespace quorvane::test {
namespace {

constexpr int kFirstTeaching = 3;
constexpr int kLastTeaching = 4;
constexpr int kStaff = 6;
constexpr int kSubjects = 6;
constexpr int kOrdinaryEvaluations = 3;
constexpr int kFirstFinal = 4;
constexpr int kLastFinal = 7;
constexpr int kColumns = 5;
constexpr int kGradesOfColumn = 6;
constexpr int kNowhere = 7000;

// Kinds of subject, and with them the kinds of grade, are numbered by their kind of teaching.
int SubjectKind(int teaching, int kind) { return teaching * 10 + kind; }
int GradeKind(int teaching, int kind, int column) { return teaching * 100 + kind * 10 + column; }
int SubjectId(int teaching, int subject) { return teaching * 10 + subject; }

std::string Text(const std::string& text) { return "'" + text + "'"; }
std::string Number(int number) { return std::to_string(number); }

}  // namespace

RandomSchool::RandomSchool(Prng& random, bool sqlServer)
    : random_(random), sqlServer_(sqlServer), odd_(random.Chance(66)), script_("BEGIN;") {
  AddStaff();
  AddEvaluations();
  for (const auto reserved : {1, 2})
    AddRow("TipoEnsenanza", {Number(reserved), Text("Reservado"), Number(reserved)});
  for (int teaching = kFirstTeaching; teaching <= kLastTeaching; ++teaching) {
    AddMarking(teaching);
    AddTeaching(teaching);
  }
  AddStudents();
  AddForeignLocks();
  script_ += "COMMIT";
}

int RandomSchool::Draw(int from, int to) {
  return from + static_cast<int>(random_.Below(static_cast<std::size_t>(to - from + 1)));
}

std::string RandomSchool::Flag(bool value) const {
  if (!value) return "0";
  return sqlServer_ ? "1" : "-1";
}

std::string RandomSchool::Link(int number) {
  if (Odd(2)) return random_.Chance(50) ? "NULL" : Number(kNowhere + Draw(0, 3));
  return Number(number);
}

void RandomSchool::AddRow(std::string_view table, std::initializer_list<std::string> values) {
  script_ += "INSERT INTO ";
  script_ += table;
  script_ += " VALUES (";
  auto first = true;
  for (const auto& value : values) {
    if (!first) script_ += ',';
    first = false;
    script_ += value;
  }
  script_ += ");";
}

void RandomSchool::AddStaff() {
  constexpr int kUsers = 5;
  for (int user = 1; user <= kUsers; ++user) {
    if (Odd(2)) continue;
    AddRow("Usuario", {Number(user), Number(user == 1 ? 0 : 1), Flag(random_.Chance(30)),
                       Text("usuario"), Number(user == 1 ? 0 : 1)});
  }
  for (int person = 1; person <= kStaff; ++person)
    AddRow("Personal",
           {Number(person), Text(random_.Chance(10) ? "" : "Ruiz"), Odd() ? "NULL" : Text("Soto"),
            Text("Ana " + Number(person)), Number(person < kUsers ? person + 1 : 0)});
}

void RandomSchool::AddEvaluations() {
  for (int evaluation = 1; evaluation <= kOrdinaryEvaluations; ++evaluation)
    AddRow("NumEvaluacion", {Number(evaluation), Text(Number(evaluation) + "ª"), Flag(false),
                             Flag(false), Number(evaluation)});
  for (int evaluation = kFirstFinal; evaluation <= kLastFinal; ++evaluation)
    AddRow(
        "NumEvaluacion",
        {Number(evaluation), Text("Final " + Number(evaluation - kOrdinaryEvaluations)), Flag(true),
         Flag(evaluation > kFirstFinal + 1), Number(evaluation - kOrdinaryEvaluations)});
  AddRow("NumEvaluacion", {"11", Text("Reservada"), Flag(false), Flag(false), "9"});
}

void RandomSchool::AddMarking(int teaching) {
  // Without it step one itself can't be opened.
  AddRow("SistemaCalificacion", {Number(teaching), Number(teaching), Flag(Draw(0, 1) == 1)});
  AddRow("Modelo", {Number(teaching), Number(teaching)});
  for (const auto kind : {1, 3, 4, 5}) {
    if (!Odd(2))
      AddRow("TipoMateria", {Number(SubjectKind(teaching, kind)), Text("Clase " + Number(kind)),
                             Number(kind), Number(teaching)});
    const auto columns = kind == 1 ? kColumns : 1;
    for (int column = 1; column <= columns; ++column) {
      if (column > 1 && random_.Chance(25)) continue;
      const auto id = GradeKind(teaching, kind, column);
      AddRow("TipoNota",
             {Number(id), Text("Nota " + Number(column)), Number(column), Flag(column == 1),
              Flag(kind == 1 || random_.Chance(50)), Flag(column == kColumns),
              Flag(random_.Chance(85)), Number(SubjectKind(teaching, kind))});
      AddGrades(id);
    }
  }
}

void RandomSchool::AddGrades(int gradeKind) {
  for (int grade = 1; grade <= kGradesOfColumn; ++grade) {
    // Those of the grid are written down in rows already, and stay.
    if (Odd(5)) continue;
    const auto scope = [&](int most) { return random_.Chance(6) ? Number(Draw(1, most)) : "0"; };
    const auto model = scope(4);
    const auto course = scope(6);
    const auto evaluation = scope(kLastFinal);
    const auto subject = scope(SubjectId(kLastTeaching, kSubjects));
    const auto person = scope(kStaff);
    AddRow("Nota", {Number(gradeKind * 10 + grade), Text(Number(grade)), Flag(grade > 3),
                    Flag(random_.Chance(8)), model, course, evaluation, subject, person,
                    Number(gradeKind)});
  }
}

void RandomSchool::AddTeaching(int teaching) {
  AddRow("TipoEnsenanza",
         {Number(teaching), Text("Enseñanza " + Number(teaching)), Number(teaching)});
  AddRow("Centro_TipoEnsenanza", {Number(teaching), "1"});
  if (Odd(20)) AddRow("Centro_TipoEnsenanza", {Number(teaching), "1"});
  for (int subject = 1; subject <= kSubjects; ++subject) {
    // Most are of the ordinary kind; the last hangs from the first as its objective.
    constexpr std::array<int, kSubjects> kKinds{1, 1, 1, 3, 4, 1};
    const auto kind = kKinds[static_cast<std::size_t>(subject - 1)];
    if (Odd(1)) continue;
    AddRow("Materia",
           {Number(SubjectId(teaching, subject)), Text("Materia " + Number(subject)),
            Flag(subject == 3), Number(subject == kSubjects ? SubjectId(teaching, 1) : 0),
            Number(teaching), Number(SubjectKind(teaching, kind))});
  }
  const auto courses = Draw(2, 3);
  for (int course = 1; course <= courses; ++course) {
    const auto id = ++courses_;
    AddRow("Curso", {Number(id), Text(Number(course) + "º"), Number(teaching), Number(course),
                     Flag(random_.Chance(30)), Number(Draw(0, 3))});
    const auto sections = Draw(1, 2);
    for (int i = 0; i < sections; ++i) {
      Section section;
      section.id = static_cast<int>(sections_.size()) + 1;
      section.teaching = teaching;
      section.course = course;
      AddRow("Seccion",
             {Number(section.id), Text(i == 0 ? "A" : "B"), Number(id), Link(Draw(0, kStaff)),
              Number(teaching), Flag(random_.Chance(50)), Flag(random_.Chance(30))});
      AddSection(std::move(section));
    }
  }
}

void RandomSchool::AddSection(Section section) {
  for (int subject = 1; subject <= kSubjects; ++subject) {
    // One placement ends the load of a whole section in an ordinary evaluation.
    if (random_.Chance(subject == 5 ? 85 : 15)) continue;
    constexpr std::array<int, kSubjects> kKinds{1, 1, 1, 3, 4, 1};
    const auto kind = kKinds[static_cast<std::size_t>(subject - 1)];
    const auto id = ++taught_;
    teachingOf_.push_back(section.teaching);
    AddRow("MateriaDetalles", {Number(id), Link(SubjectId(section.teaching, subject)),
                               Number(section.id), Link(Draw(0, kStaff)), Number(Draw(0, kStaff)),
                               Link(SubjectKind(section.teaching, kind))});
    section.taught.push_back(id);
    if (random_.Chance(60)) AddRow("Profesor_Pte", {Link(Draw(0, kStaff)), Number(id)});
    if (Odd(1)) AddRow("Profesor_Pte", {Number(Draw(1, kStaff)), Number(id)});
  }
  for (int evaluation = 1; evaluation <= kLastFinal; ++evaluation) {
    if (!Odd(5)) AddRow("Seccion_NumEvaluacion", {Number(section.id), Number(evaluation)});
    // Over for good, or open for good: what is answered must not hang on the day of the walk.
    if (random_.Chance(40))
      AddRow("FechaNotas", {Odd(10) ? "NULL" : Text("2001/01/01"),
                            Text(random_.Chance(70) ? "2099/12/31" : "2001/12/31"),
                            Number(section.id), Number(evaluation)});
  }
  sections_.push_back(std::move(section));
}

void RandomSchool::AddStudents() {
  int student = 0;
  for (const auto& section : sections_) {
    const auto count = Draw(1, 4);
    for (int place = 1; place <= count; ++place) {
      ++student;
      if (!Odd(3))
        AddRow("Alumno",
               {Number(student), Text("Nombre " + Number(student)), Text("Abad"),
                Odd() ? "NULL" : Text("Ñúñez"), Link(section.id), Number(place),
                Flag(random_.Chance(5)),
                random_.Chance(5) ? Text("01/02/2026") : (Draw(0, 1) == 1 ? "NULL" : "''")});
      AddRow("Seccion_Alumno", {Number(section.id), Number(student)});
      if (section.course == 1 || random_.Chance(25)) continue;
      AddRow("Seccion_AlumnoPte", {Number(section.id), Number(student), "0", "0"});
      if (Odd()) AddRow("Seccion_AlumnoPte", {Link(section.id), Number(student), "0", "0"});
      std::vector<int> earlier;
      for (const auto& before : sections_)
        if (before.teaching == section.teaching && before.course < section.course)
          earlier.insert(earlier.end(), before.taught.begin(), before.taught.end());
      const auto subjects = Draw(0, 4);
      std::vector<int> chosen;
      for (int order = 1; order <= subjects && !earlier.empty(); ++order) {
        const auto taught = random_.OneOf(earlier);
        if (std::find(chosen.begin(), chosen.end(), taught) != chosen.end() && !Odd(30)) continue;
        chosen.push_back(taught);
        AddPending(student, taught, Odd() ? Draw(1, 3) : order);
      }
    }
  }
}

std::string RandomSchool::Grade(int teaching, int column) {
  if (random_.Chance(50)) return "0";
  if (Odd(1)) return random_.Chance(70) ? "NULL" : Number(kNowhere);
  return Number(GradeKind(teaching, 1, column) * 10 + Draw(1, kGradesOfColumn));
}

void RandomSchool::AddPending(int student, int taught, int order) {
  const auto id = ++pending_;
  const auto teaching = teachingOf_[static_cast<std::size_t>(taught - 1)];
  AddRow("AlumnoPte_MatDet",
         {Number(id), Number(student), Link(taught), Odd(1) ? "NULL" : Number(order), "0"});
  for (int evaluation = 1; evaluation <= kOrdinaryEvaluations; ++evaluation) {
    if (random_.Chance(25)) continue;
    AddOrdinary(id, evaluation, teaching);
    if (Odd(1)) AddOrdinary(id, evaluation, teaching);
  }
  for (int evaluation = kFirstFinal; evaluation <= kLastFinal; ++evaluation) {
    if (random_.Chance(40)) continue;
    AddFinal(id, evaluation, teaching);
    if (Odd(1)) AddFinal(id, evaluation, teaching);
  }
  if (Odd(1)) AddOrdinary(id, kFirstFinal, teaching);
  if (Odd(1)) AddOrdinary(id, kNowhere % 256, teaching);
  if (Odd(1)) AddFinal(kNowhere, kFirstFinal, teaching);
}

void RandomSchool::AddOrdinary(int pending, int evaluation, int teaching) {
  const auto main = Grade(teaching, 1);
  const auto attitude = Grade(teaching, 2);
  const auto remark = Grade(teaching, 3);
  const auto concept_ = Grade(teaching, 4);
  const auto procedure = Grade(teaching, 5);
  const auto last = Flag(random_.Chance(30));
  AddRow("EvaluacionPte", {Number(++ordinary_), Number(pending), Number(evaluation),
                           Flag(main != "0"), main, attitude, remark, concept_, procedure, last});
}

void RandomSchool::AddFinal(int pending, int evaluation, int teaching) {
  const auto main = Grade(teaching, 1);
  const auto remark = Grade(teaching, 5);
  const auto measure = Odd(1) ? "NULL" : Number(Draw(0, 2));
  const auto last = Flag(random_.Chance(30));
  AddRow("EvaluacionActaPte", {Number(++final_), Number(pending), Number(evaluation),
                               Flag(main != "0"), main, remark, measure, last});
}

void RandomSchool::AddForeignLocks() {
  const auto publications = random_.Chance(50) ? 0 : Draw(1, 3);
  for (int id = 1; id <= publications; ++id) {
    const auto evaluation = Number(Draw(1, kLastFinal));
    const auto user = Number(Draw(1, 6));
    AddRow("PublicacionPte", {Number(id), "0", user, "4", evaluation});
    for (int lock = Draw(0, 3); lock > 0; --lock)
      AddRow("BloqueoPte", {Number(random_.Chance(80) ? 0 : Draw(1, kStaff)), evaluation,
                            Number(Draw(1, taught_)), user, Number(id)});
  }
  if (Odd(20))
    AddRow("BloqueoPte", {"0", Number(Draw(1, kLastFinal)), Number(Draw(1, taught_)), "1",
                          Number(kLostPublication + Draw(0, 9))});
}

}  // namespace quorvane::test

#pragma once

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/escuela/Prng.h"
#include "tests/walk/Disturbance.h"

namespace quorvane::test {

/// Writes the rows of a small school, the same for the same numbers drawn. One of three is whole;
/// the others hold what schools hold in time: rows whose parents are gone, rows twice, Null where
/// a number should be, grades that nobody can give any more, publications of programs that died.
class RandomSchool {
 public:
  RandomSchool(Prng& random, bool sqlServer)
      : random_(random), sqlServer_(sqlServer), odd_(random.Chance(66)), script_("BEGIN;") {
    AddStaff();
    AddEvaluations();
    for (const auto reserved : {1, 2})
      AddRow("TipoEnsenanza", {reserved, Text("Reservado"), reserved});
    for (int teaching = kFirstTeaching; teaching <= kLastTeaching; ++teaching) {
      AddMarking(teaching);
      AddTeaching(teaching);
    }
    AddStudents();
    AddForeignLocks();
    script_ += "COMMIT";
  }

  /// The statements, in one transaction.
  [[nodiscard]] const std::string& Script() const noexcept { return script_; }

 private:
  static constexpr int kFirstTeaching = 3;
  static constexpr int kLastTeaching = 4;
  static constexpr int kStaff = 6;
  static constexpr int kSubjects = 6;
  /// Of the subjects: most are of the ordinary kind.
  static constexpr std::array<int, kSubjects> kKinds{1, 1, 1, 3, 4, 1};
  static constexpr int kOrdinaryEvaluations = 3;
  static constexpr int kFirstFinal = 4;
  static constexpr int kLastFinal = 7;
  static constexpr int kColumns = 5;
  static constexpr int kGradesOfColumn = 6;
  static constexpr int kNowhere = 7000;

  /// A value as a statement has it.
  struct Literal : std::string {
    Literal(int number) : std::string(std::to_string(number)) {}
    Literal(std::string text) : std::string(std::move(text)) {}
    Literal(const char* text) : std::string(text) {}
  };

  struct Section {
    int id = 0;
    int teaching = 0;
    int course = 0;  ///< its place among those of its kind of teaching
    std::vector<int> taught;
  };

  // Kinds of subject, and with them the kinds of grade, are numbered by their kind of teaching.
  static int SubjectKind(int teaching, int kind) { return teaching * 10 + kind; }
  static int KindOfSubject(int teaching, int subject) {
    return SubjectKind(teaching, kKinds[static_cast<std::size_t>(subject - 1)]);
  }
  static int GradeKind(int teaching, int kind, int column) {
    return teaching * 100 + kind * 10 + column;
  }
  static int SubjectId(int teaching, int subject) { return teaching * 10 + subject; }

  static std::string Text(const std::string& text) { return "'" + text + "'"; }
  static std::string Text(const std::string& text, int number) {
    return Text(text + std::to_string(number));
  }

  [[nodiscard]] int Draw(int from, int to) {
    return from + static_cast<int>(random_.Below(static_cast<std::size_t>(to - from + 1)));
  }
  /// In an odd school only, and then seldom.
  [[nodiscard]] bool Odd(std::size_t percent = 4) { return odd_ && random_.Chance(percent); }
  [[nodiscard]] std::string Flag(bool value) const {
    if (!value) return "0";
    return sqlServer_ ? "1" : "-1";
  }
  /// The number, or seldom something that no row should hold.
  [[nodiscard]] Literal Link(int number) {
    if (!Odd(2)) return number;
    if (random_.Chance(50)) return "NULL";
    return kNowhere + Draw(0, 3);
  }

  void AddRow(std::string_view table, std::initializer_list<Literal> values) {
    script_.append("INSERT INTO ").append(table).append(" VALUES ");
    auto before = '(';
    for (const auto& value : values) {
      script_ += std::exchange(before, ',');
      script_ += value;
    }
    script_ += ");";
  }

  void AddStaff() {
    constexpr int kUsers = 5;
    for (int user = 1; user <= kUsers; ++user) {
      if (Odd(2)) continue;
      const auto profile = user == 1 ? 0 : 1;
      AddRow("Usuario", {user, profile, Flag(random_.Chance(30)), Text("usuario"), profile});
    }
    for (int person = 1; person <= kStaff; ++person)
      AddRow("Personal",
             {person, Text(random_.Chance(10) ? "" : "Ruiz"), Odd() ? "NULL" : Text("Soto"),
              Text("Ana ", person), person < kUsers ? person + 1 : 0});
  }

  void AddEvaluations() {
    for (int evaluation = 1; evaluation <= kOrdinaryEvaluations; ++evaluation)
      AddRow("NumEvaluacion", {evaluation, Text(std::to_string(evaluation) + "ª"), Flag(false),
                               Flag(false), evaluation});
    for (int evaluation = kFirstFinal; evaluation <= kLastFinal; ++evaluation) {
      const auto order = evaluation - kOrdinaryEvaluations;
      AddRow("NumEvaluacion", {evaluation, Text("Final ", order), Flag(true),
                               Flag(evaluation > kFirstFinal + 1), order});
    }
    AddRow("NumEvaluacion", {"11", Text("Reservada"), Flag(false), Flag(false), "9"});
  }

  void AddMarking(int teaching) {
    // Without it step one itself can't be opened.
    AddRow("SistemaCalificacion", {teaching, teaching, Flag(Draw(0, 1) == 1)});
    AddRow("Modelo", {teaching, teaching});
    for (const auto kind : {1, 3, 4, 5}) {
      const auto subjectKind = SubjectKind(teaching, kind);
      if (!Odd(2)) AddRow("TipoMateria", {subjectKind, Text("Clase ", kind), kind, teaching});
      const auto columns = kind == 1 ? kColumns : 1;
      for (int column = 1; column <= columns; ++column) {
        if (column > 1 && random_.Chance(25)) continue;
        const auto id = GradeKind(teaching, kind, column);
        AddRow("TipoNota", {id, Text("Nota ", column), column, Flag(column == 1),
                            Flag(kind == 1 || random_.Chance(50)), Flag(column == kColumns),
                            Flag(random_.Chance(85)), subjectKind});
        AddGrades(id);
      }
    }
  }

  void AddGrades(int gradeKind) {
    for (int grade = 1; grade <= kGradesOfColumn; ++grade) {
      // Those of the grid are written down in rows already, and stay.
      if (Odd(5)) continue;
      const auto scope = [&](int most) { return random_.Chance(6) ? Draw(1, most) : 0; };
      const auto model = scope(4);
      const auto course = scope(6);
      const auto evaluation = scope(kLastFinal);
      const auto subject = scope(SubjectId(kLastTeaching, kSubjects));
      const auto person = scope(kStaff);
      AddRow("Nota",
             {gradeKind * 10 + grade, Text("", grade), Flag(grade > 3), Flag(random_.Chance(8)),
              model, course, evaluation, subject, person, gradeKind});
    }
  }

  void AddTeaching(int teaching) {
    AddRow("TipoEnsenanza", {teaching, Text("Enseñanza ", teaching), teaching});
    AddRow("Centro_TipoEnsenanza", {teaching, "1"});
    if (Odd(20)) AddRow("Centro_TipoEnsenanza", {teaching, "1"});
    for (int subject = 1; subject <= kSubjects; ++subject) {
      if (Odd(1)) continue;
      // The last hangs from the first as its objective.
      AddRow("Materia", {SubjectId(teaching, subject), Text("Materia ", subject),
                         Flag(subject == 3), subject == kSubjects ? SubjectId(teaching, 1) : 0,
                         teaching, KindOfSubject(teaching, subject)});
    }
    const auto courses = Draw(2, 3);
    for (int course = 1; course <= courses; ++course) {
      const auto id = ++courses_;
      AddRow("Curso", {id, Text(std::to_string(course) + "º"), teaching, course,
                       Flag(random_.Chance(30)), Draw(0, 3)});
      const auto sections = Draw(1, 2);
      for (int i = 0; i < sections; ++i) {
        const auto section = static_cast<int>(sections_.size()) + 1;
        AddRow("Seccion", {section, Text(i == 0 ? "A" : "B"), id, Link(Draw(0, kStaff)), teaching,
                           Flag(random_.Chance(50)), Flag(random_.Chance(30))});
        AddSection({section, teaching, course, {}});
      }
    }
  }

  void AddSection(Section section) {
    for (int subject = 1; subject <= kSubjects; ++subject) {
      // One placement ends the load of a whole section in an ordinary evaluation.
      if (random_.Chance(subject == 5 ? 85 : 15)) continue;
      teachingOf_.push_back(section.teaching);
      const auto id = Taught();
      AddRow("MateriaDetalles",
             {id, Link(SubjectId(section.teaching, subject)), section.id, Link(Draw(0, kStaff)),
              Draw(0, kStaff), Link(KindOfSubject(section.teaching, subject))});
      section.taught.push_back(id);
      if (random_.Chance(60)) AddRow("Profesor_Pte", {Link(Draw(0, kStaff)), id});
      if (Odd(1)) AddRow("Profesor_Pte", {Draw(1, kStaff), id});
    }
    for (int evaluation = 1; evaluation <= kLastFinal; ++evaluation) {
      if (!Odd(5)) AddRow("Seccion_NumEvaluacion", {section.id, evaluation});
      // Over for good, or open for good: what is answered must not hang on the day of the walk.
      if (random_.Chance(40))
        AddRow("FechaNotas",
               {Odd(10) ? "NULL" : Text("2001/01/01"),
                Text(random_.Chance(70) ? "2099/12/31" : "2001/12/31"), section.id, evaluation});
    }
    sections_.push_back(std::move(section));
  }

  void AddStudents() {
    int student = 0;
    for (const auto& section : sections_) {
      const auto count = Draw(1, 4);
      for (int place = 1; place <= count; ++place) {
        ++student;
        if (!Odd(3))
          AddRow("Alumno",
                 {student, Text("Nombre ", student), Text("Abad"), Odd() ? "NULL" : Text("Ñúñez"),
                  Link(section.id), place, Flag(random_.Chance(5)),
                  random_.Chance(5) ? Text("01/02/2026") : (Draw(0, 1) == 1 ? "NULL" : "''")});
        AddRow("Seccion_Alumno", {section.id, student});
        if (section.course == 1 || random_.Chance(25)) continue;
        AddRow("Seccion_AlumnoPte", {section.id, student, "0", "0"});
        if (Odd()) AddRow("Seccion_AlumnoPte", {Link(section.id), student, "0", "0"});
        AddAllPending(section, student);
      }
    }
  }

  void AddAllPending(const Section& section, int student) {
    std::vector<int> earlier;
    for (const auto& before : sections_)
      if (before.teaching == section.teaching && before.course < section.course)
        earlier.insert(earlier.end(), before.taught.begin(), before.taught.end());
    const auto subjects = Draw(0, 4);
    std::vector<int> chosen;
    for (int order = 1; order <= subjects && !earlier.empty(); ++order) {
      const auto taught = random_.OneOf(earlier);
      if (std::ranges::find(chosen, taught) != chosen.end() && !Odd(30)) continue;
      chosen.push_back(taught);
      AddPending(student, taught, Odd() ? Draw(1, 3) : order);
    }
  }

  void AddPending(int student, int taught, int order) {
    const auto id = ++pending_;
    const auto teaching = teachingOf_[static_cast<std::size_t>(taught - 1)];
    AddRow("AlumnoPte_MatDet",
           {id, student, Link(taught), Odd(1) ? "NULL" : std::to_string(order), "0"});
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

  [[nodiscard]] std::string Grade(int teaching, int column) {
    if (random_.Chance(50)) return "0";
    if (Odd(1)) return random_.Chance(70) ? "NULL" : std::to_string(kNowhere);
    return std::to_string(GradeKind(teaching, 1, column) * 10 + Draw(1, kGradesOfColumn));
  }

  void AddOrdinary(int pending, int evaluation, int teaching) {
    const auto main = Grade(teaching, 1);
    // Then attitude, remark, concept and procedure.
    AddRow("EvaluacionPte",
           {++ordinary_, pending, evaluation, Flag(main != "0"), main, Grade(teaching, 2),
            Grade(teaching, 3), Grade(teaching, 4), Grade(teaching, 5), Flag(random_.Chance(30))});
  }

  void AddFinal(int pending, int evaluation, int teaching) {
    const auto main = Grade(teaching, 1);
    const auto remark = Grade(teaching, 5);
    const auto measure = Odd(1) ? "NULL" : std::to_string(Draw(0, 2));
    AddRow("EvaluacionActaPte", {++final_, pending, evaluation, Flag(main != "0"), main, remark,
                                 measure, Flag(random_.Chance(30))});
  }

  void AddForeignLocks() {
    const auto publications = random_.Chance(50) ? 0 : Draw(1, 3);
    for (int id = 1; id <= publications; ++id) {
      const auto evaluation = Draw(1, kLastFinal);
      const auto user = Draw(1, 6);
      AddRow("PublicacionPte", {id, "0", user, "4", evaluation});
      for (int lock = Draw(0, 3); lock > 0; --lock)
        AddRow("BloqueoPte",
               {random_.Chance(80) ? 0 : Draw(1, kStaff), evaluation, Draw(1, Taught()), user, id});
    }
    if (Odd(20))
      AddRow("BloqueoPte",
             {"0", Draw(1, kLastFinal), Draw(1, Taught()), "1", kLostPublication + Draw(0, 9)});
  }

  /// How many subjects are taught.
  [[nodiscard]] int Taught() const { return static_cast<int>(teachingOf_.size()); }

  Prng& random_;
  bool sqlServer_;
  bool odd_;
  std::string script_;
  std::vector<Section> sections_;
  std::vector<int> teachingOf_;  ///< by the number of the subject as taught
  int courses_ = 0;
  int pending_ = 0;
  int ordinary_ = 0;
  int final_ = 0;
};

}  // namespace quorvane::test

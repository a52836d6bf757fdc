#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <random>

#include "tests/register/RegisterTest.h"

namespace quorvane::test {
namespace {

/// A user who edits the register of section 321 at random, and what he must find afterwards.
/// Draws gestures, writes them as script lines, and plays each on a plain model of the tables.
class RegisterModel {
 public:
  explicit RegisterModel(unsigned seed) : random_(seed) {}

  /// A whole session as a script: it ends with a save, or with Cancel, which forgets it.
  std::string Session() {
    edited_ = stored_;
    teachersEdited_ = teachersStored_;
    for (const auto matDet : kTeacherRows) teachersEdited_[matDet].changed = false;
    auto script = kOpen;
    for (auto gestures = 3 + Draw(8); gestures > 0; --gestures) {
      const auto kind = Draw(10);
      if (kind < 2)
        script += PickStudents();
      else if (kind < 4)
        script += ChangeTeacher();
      else
        script += EditStudent();
    }
    if (Draw(5) == 0) return script + kCancel;
    Save();
    return script + kAccept;
  }

  /// Grades all that is stored, here and in the school: a row that is lost and made anew shows.
  void Grade(const SmallSchool& school) {
    constexpr int kNota = 105;
    school.Sql("UPDATE EvaluacionPte SET CodNota=105; UPDATE EvaluacionActaPte SET CodNota=105");
    for (auto& [id, student] : stored_)
      for (auto& subject : student.subjects) {
        for (auto& [evaluacion, nota] : subject.evaluations) nota = kNota;
        subject.stored = subject.evaluations;
      }
  }

  /// The rows that the tables hold now, as `Stored` reads them.
  [[nodiscard]] Lines Expected() const {
    Lines rows;
    for (const auto& [id, student] : stored_) {
      rows.push_back("alumno 321|" + Number(id));
      for (std::size_t i = 0; i < student.subjects.size(); ++i) {
        const auto& subject = student.subjects[i];
        const auto key = Number(id) + "|" + Number(subject.matDet);
        rows.push_back("materia " + key + "|" + std::to_string(i + 1) + "|0");
        for (const auto& [evaluacion, nota] : subject.evaluations)
          rows.push_back((evaluacion < 4 ? "ordinaria " : "final ") + key + "|" +
                         Number(evaluacion) + "|" + Number(nota));
      }
    }
    for (const auto& [matDet, teacher] : teachersStored_)
      if (teacher.stored)
        rows.push_back("profesor " + Number(teacher.personal) + "|" + Number(matDet));
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  /// The same of a school, without the keys.
  static Lines Stored(const SmallSchool& school) {
    const std::pair<const char*, const char*> selects[] = {
        {"alumno ", "SELECT CodSeccion, CodAlumno FROM Seccion_AlumnoPte"},
        {"materia ", "SELECT CodAlumno, CodMatDet, Orden, CodCursoPte FROM AlumnoPte_MatDet"},
        {"ordinaria ",
         "SELECT CodAlumno, CodMatDet, CodNumEvaluacion, CodNota FROM EvaluacionPte LEFT JOIN "
         "AlumnoPte_MatDet ON IDAlumnoPte_MatDet=CodAlumnoPte_MatDet"},
        {"final ",
         "SELECT CodAlumno, CodMatDet, CodNumEvaluacion, CodNota FROM EvaluacionActaPte LEFT JOIN "
         "AlumnoPte_MatDet ON IDAlumnoPte_MatDet=CodAlumnoPte_MatDet"},
        {"profesor ", "SELECT CodProfesor, CodMatDet FROM Profesor_Pte"}};
    Lines rows;
    for (const auto& [word, select] : selects)
      for (const auto& row : school.Rows(select)) rows.push_back(word + row);
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  /// The rows of the matrix of each student, in the order of the list of students.
  [[nodiscard]] Lines ExpectedMatrices() const {
    Lines matrices;
    for (const auto id : kStudents) {
      const auto found = stored_.find(id);
      if (found == stored_.end()) continue;
      std::string data = "[0";
      std::string marks;
      for (const auto& subject : found->second.subjects) {
        data += "," + Number(subject.matDet);
        for (const auto evaluacion : {6, 7, 4, 5, 1, 2, 3, 11})
          marks += subject.evaluations.contains(evaluacion) ? ",\"X\"" : ",\"\"";
        marks += ";";
      }
      matrices.push_back(data + "] " + marks);
    }
    return matrices;
  }

 private:
  /// The page "Materias", from its row 1.
  static constexpr int kTeacherRows[] = {3113, 3114, 3111, 3112, 3116, 3115, 3123, 3121, 3122};
  /// What the subject chooser can offer.
  static constexpr int kSubjects[] = {3111, 3112, 3113, 3115, 3116, 3121,
                                      3122, 3123, 3211, 3212, 3311};
  /// The list sorts them so.
  static constexpr int kStudents[] = {3, 1, 2};
  /// The final evaluations that go together.
  inline static const std::vector<std::vector<int>> kFinals{{}, {4}, {5}, {4, 5}, {6}, {7}, {7, 6}};

  static std::string Number(int number) { return std::to_string(number); }

  using Evaluations = std::map<int, int>;  ///< grade by evaluation

  struct Subject {
    int matDet = 0;
    Evaluations evaluations;
    Evaluations stored;   ///< with a row: its grade comes back when it is put back
    bool loaded = false;  ///< with a row
  };
  struct Student {
    std::vector<Subject> subjects;
    std::vector<Subject> removed;  ///< with a row that waits for its deletion
    bool loaded = false;
    bool removedOnce = false;  ///< put back without his subjects, whose rows stay
  };
  struct Teacher {
    int personal = 0;
    bool stored = false;
    bool changed = false;
  };
  using Students = std::map<int, Student>;

  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  int DrawIndex(const auto& list) { return Draw(static_cast<int>(std::size(list))); }
  auto& DrawFrom(auto& list) { return list[static_cast<std::size_t>(DrawIndex(list))]; }
  static std::string AtSubject(int row) { return "fila msgMaterias " + Number(row + 1) + "\n"; }

  std::string PickStudents() {
    auto script = kList + "pulsar cmdEliminarTodos\n";
    Students picked;
    for (const auto id : kStudents) {
      if (Draw(5) == 0) continue;
      script += TakeIn(id);
      const auto known = edited_.find(id);
      if (known != edited_.end()) picked[id] = known->second;
      // Back after a removal that isn't saved: in memory he has no subjects.
      if (known == edited_.end() && stored_.contains(id)) {
        picked[id].loaded = true;
        picked[id].removedOnce = true;
      } else if (known == edited_.end()) {
        picked[id] = Student();
      }
    }
    if (Draw(4) == 0) return script + kCancel;
    edited_ = picked;
    return script + kAccept;
  }

  std::string EditStudent() {
    std::vector<int> rows;
    for (const auto id : kStudents)
      if (edited_.contains(id)) rows.push_back(id);
    if (rows.empty()) return kProperties;
    const auto row = DrawIndex(rows);
    const auto id = rows[static_cast<std::size_t>(row)];
    auto script = "fila msgAlumnos " + Number(row) + "\n" + kProperties;
    auto student = edited_[id];
    // What is added to one who was put back doubles the rows that he still has.
    if (student.removedOnce) return script + kCancel;
    for (auto gestures = 1 + Draw(6); gestures > 0; --gestures) {
      const auto kind = Draw(8);
      if (kind < 3 || student.subjects.empty())
        script += AddSubject(student);
      else if (kind < 4)
        script += RemoveSubject(student);
      else if (kind < 6)
        script += MoveSubject(student);
      else
        script += PickEvaluations(student);
    }
    if (Draw(4) == 0) return script + kCancel;
    edited_[id] = student;
    return script + kAccept;
  }

  std::string AddSubject(Student& student) {
    const auto is = [](int matDet) {
      return [matDet](const Subject& subject) { return subject.matDet == matDet; };
    };
    std::vector<int> offered;
    for (const auto matDet : kSubjects)
      if (std::none_of(student.subjects.begin(), student.subjects.end(), is(matDet)))
        offered.push_back(matDet);
    if (offered.empty()) return "";
    const auto matDet = DrawFrom(offered);
    const auto script = ChooseSubject(matDet);
    if (Draw(5) == 0) return script + kCancel;
    const auto removed = std::find_if(student.removed.begin(), student.removed.end(), is(matDet));
    if (removed != student.removed.end()) {
      student.subjects.push_back(*removed);
      student.removed.erase(removed);
    } else {
      student.subjects.emplace_back().matDet = matDet;
    }
    return script + kAccept;
  }
  std::string RemoveSubject(Student& student) {
    const auto row = DrawIndex(student.subjects);
    const auto subject = student.subjects.begin() + row;
    if (subject->loaded) student.removed.push_back(*subject);
    student.subjects.erase(subject);
    return AtSubject(row) + kRemove;
  }

  std::string MoveSubject(Student& student) {
    const auto count = static_cast<int>(student.subjects.size());
    const auto row = Draw(count);
    const auto up = Draw(2) == 0;
    const auto other = up ? row - 1 : row + 1;
    if (other >= 0 && other < count)
      std::swap(student.subjects[static_cast<std::size_t>(row)],
                student.subjects[static_cast<std::size_t>(other)]);
    return AtSubject(row) + (up ? "pulsar cmdSubir\n" : "pulsar cmdBajar\n");
  }

  std::string PickEvaluations(Student& student) {
    const auto row = DrawIndex(student.subjects);
    auto& subject = student.subjects[static_cast<std::size_t>(row)];
    auto picked = DrawFrom(kFinals);
    for (const auto evaluacion : {1, 2, 3})
      if (Draw(2) == 0) picked.push_back(evaluacion);
    auto script = AtSubject(row) + kProperties + "pulsar cmdEliminarTodos\n";
    Evaluations evaluations;
    for (const auto evaluacion : picked) {
      script += TakeIn(evaluacion);
      const auto before = subject.stored.find(evaluacion);
      evaluations[evaluacion] = before == subject.stored.end() ? 0 : before->second;
    }
    if (Draw(5) == 0) return script + kCancel;
    subject.evaluations = evaluations;
    return script + kAccept;
  }

  std::string ChangeTeacher() {
    const auto row = DrawIndex(kTeacherRows);
    const auto personal = Draw(4);
    auto& teacher = teachersEdited_[kTeacherRows[row]];
    // Of one with a row the first change is the one that counts.
    if (personal != teacher.personal && !(teacher.stored && teacher.changed)) {
      teacher.personal = personal;
      teacher.changed = true;
    }
    return "pestana TabDatos 2\n" + AtSubject(row) + "pulsar cmdPropMat\n" +
           (personal == 0 ? "pulsar cmdElimProfesor\n"
                          : "docente " + Number(personal) + "\npulsar cmdNProfesor\n") +
           kAccept + "pestana TabDatos 1\n";
  }

  void Save() {
    for (auto& [id, student] : edited_) {
      if (student.removedOnce) student = stored_[id];
      student.loaded = true;
      student.removed.clear();
      for (auto& subject : student.subjects) {
        subject.loaded = true;
        subject.stored = subject.evaluations;
      }
    }
    stored_ = edited_;
    for (auto& [matDet, teacher] : teachersEdited_) teacher.stored = true;
    teachersStored_ = teachersEdited_;
  }

  std::mt19937 random_;
  Students stored_;
  Students edited_;
  std::map<int, Teacher> teachersStored_;
  std::map<int, Teacher> teachersEdited_;
};

/// The matrix as the model tells it: the row data, then the marks of each row, which stand between
/// the subject and its order.
std::string Matrix(const std::string& view) {
  const auto grid = nlohmann::json::parse(view).at("controles").at("msgMaterias");
  std::string marks;
  for (const auto& row : grid.at("celdas")) {
    if (row == grid.at("celdas").front()) continue;
    for (std::size_t i = 1; i + 1 < row.size(); ++i) marks += "," + row[i].dump();
    marks += ";";
  }
  return grid.at("datos").dump() + " " + marks;
}

class RegisterWalkTest : public testing::TestWithParam<unsigned> {};

TEST_P(RegisterWalkTest, WhatIsSavedIsWhatTheUserSeesWhenHeComesBack) {
  const SmallSchool school;
  RegisterModel model(GetParam());
  for (int session = 0; session < 12; ++session) {
    const auto script = model.Session();
    const auto run = RunScript(school, script);
    ASSERT_EQ(run.status, 0) << run.Text();
    ASSERT_THAT(run.Of("rechazo"), IsEmpty()) << script;
    ASSERT_THAT(run.Of("mensaje"), IsEmpty()) << script;
    ASSERT_EQ(RegisterModel::Stored(school), model.Expected()) << script;

    auto look = kOpen;
    const auto matrices = model.ExpectedMatrices();
    for (std::size_t row = 0; row < matrices.size(); ++row)
      look += "fila msgAlumnos " + std::to_string(row) + "\n" + kProperties + kSee + kCancel;
    Lines seen;
    for (const auto& view : RunScript(school, look + kCancel).Of("ver"))
      seen.push_back(Matrix(view));
    ASSERT_EQ(seen, matrices) << script;
    if (session % 2 == 0) model.Grade(school);
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RegisterWalkTest, testing::Range(1U, 6U));

}  // namespace
}  // namespace quorvane::test

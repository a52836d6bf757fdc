#pragma once

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/register/RegisterScript.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {

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
  [[nodiscard]] std::vector<std::string> Expected() const {
    std::vector<std::string> rows;
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
  static std::vector<std::string> Stored(const SmallSchool& school) {
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
    std::vector<std::string> rows;
    for (const auto& [word, select] : selects)
      for (const auto& row : school.Rows(select)) rows.push_back(word + row);
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  /// The rows of the matrix of each student, in the order of the list of students.
  [[nodiscard]] std::vector<std::string> ExpectedMatrices() const {
    std::vector<std::string> matrices;
    for (const auto id : kStudents) {
      const auto found = stored_.find(id);
      if (found == stored_.end()) continue;
      std::string data = "[0";
      std::string marks;
      for (const auto& subject : found->second.subjects) {
        data += "," + Number(subject.matDet);
        for (const auto evaluacion : {6, 7, 4, 5, 1, 2, 3, 11})
          marks += Cell(subject.evaluations.contains(evaluacion));
        marks += ";";
      }
      data += "] ";
      matrices.push_back(data += marks);
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

  static std::string Cell(bool mark) { return mark ? ",\"X\"" : ",\"\""; }

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
  std::string PickStudents() {
    auto script = std::string("pulsar cmdListar\npulsar cmdEliminarTodos\n");
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
    if (rows.empty()) return "pulsar cmdPropiedades\n";
    const auto row = Draw(static_cast<int>(rows.size()));
    const auto id = rows[static_cast<std::size_t>(row)];
    auto script = "fila msgAlumnos " + Number(row) + "\npulsar cmdPropiedades\n";
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
    const auto matDet = offered[static_cast<std::size_t>(Draw(static_cast<int>(offered.size())))];
    const auto script = "pulsar cmdAgregar\n" + Choose("cboCurso", matDet / 100) +
                        Choose("cboSeccion", matDet / 10) + Choose("cboMateria", matDet);
    if (Draw(5) == 0) return script + kCancel;
    const auto removed = std::find_if(student.removed.begin(), student.removed.end(), is(matDet));
    if (removed != student.removed.end()) {
      student.subjects.push_back(*removed);
      student.removed.erase(removed);
    } else {
      Subject subject;
      subject.matDet = matDet;
      student.subjects.push_back(subject);
    }
    return script + kAccept;
  }
  std::string RemoveSubject(Student& student) {
    const auto row = Draw(static_cast<int>(student.subjects.size()));
    const auto subject = student.subjects.begin() + row;
    if (subject->loaded) student.removed.push_back(*subject);
    student.subjects.erase(subject);
    return "fila msgMaterias " + Number(row + 1) + "\npulsar cmdEliminar\n";
  }

  std::string MoveSubject(Student& student) {
    const auto count = static_cast<int>(student.subjects.size());
    const auto row = Draw(count);
    const auto up = Draw(2) == 0;
    const auto other = up ? row - 1 : row + 1;
    if (other >= 0 && other < count)
      std::swap(student.subjects[static_cast<std::size_t>(row)],
                student.subjects[static_cast<std::size_t>(other)]);
    return "fila msgMaterias " + Number(row + 1) +
           (up ? "\npulsar cmdSubir\n" : "\npulsar cmdBajar\n");
  }

  std::string PickEvaluations(Student& student) {
    const auto row = Draw(static_cast<int>(student.subjects.size()));
    auto& subject = student.subjects[static_cast<std::size_t>(row)];
    auto picked = kFinals[static_cast<std::size_t>(Draw(static_cast<int>(kFinals.size())))];
    for (const auto evaluacion : {1, 2, 3})
      if (Draw(2) == 0) picked.push_back(evaluacion);
    auto script = "fila msgMaterias " + Number(row + 1) +
                  "\npulsar cmdPropiedades\npulsar cmdEliminarTodos\n";
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
    const auto row = Draw(static_cast<int>(std::size(kTeacherRows)));
    const auto personal = Draw(4);
    auto& teacher = teachersEdited_[kTeacherRows[row]];
    // Of one with a row the first change is the one that counts.
    if (personal != teacher.personal && !(teacher.stored && teacher.changed)) {
      teacher.personal = personal;
      teacher.changed = true;
    }
    return "pestana TabDatos 2\nfila msgMaterias " + Number(row + 1) + "\npulsar cmdPropMat\n" +
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

}  // namespace quorvane::test

#include "tests/register/RegisterModel.h"

#include <algorithm>

#include "tests/register/RegisterScript.h"

namespace quorvane::test {
namespace {

/// The page "Materias", from its row 1.
constexpr int kTeacherRows[] = {3113, 3114, 3111, 3112, 3116, 3115, 3123, 3121, 3122};
/// What the subject chooser can offer.
constexpr int kSubjects[] = {3111, 3112, 3113, 3115, 3116, 3121, 3122, 3123, 3211, 3212, 3311};
/// The list sorts them so.
constexpr int kStudents[] = {3, 1, 2};
/// The final evaluations that go together.
const std::vector<std::vector<int>> kFinals{{}, {4}, {5}, {4, 5}, {6}, {7}, {7, 6}};

std::string Number(int number) { return std::to_string(number); }

std::string Cell(bool mark) { return mark ? ",\"X\"" : ",\"\""; }

}  // namespace

std::string RegisterModel::Session() {
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

std::string RegisterModel::PickStudents() {
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

std::string RegisterModel::EditStudent() {
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

std::string RegisterModel::AddSubject(Student& student) {
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

std::string RegisterModel::RemoveSubject(Student& student) {
  const auto row = Draw(static_cast<int>(student.subjects.size()));
  const auto subject = student.subjects.begin() + row;
  if (subject->loaded) student.removed.push_back(*subject);
  student.subjects.erase(subject);
  return "fila msgMaterias " + Number(row + 1) + "\npulsar cmdEliminar\n";
}

std::string RegisterModel::MoveSubject(Student& student) {
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

std::string RegisterModel::PickEvaluations(Student& student) {
  const auto row = Draw(static_cast<int>(student.subjects.size()));
  auto& subject = student.subjects[static_cast<std::size_t>(row)];
  auto picked = kFinals[static_cast<std::size_t>(Draw(static_cast<int>(kFinals.size())))];
  for (const auto evaluacion : {1, 2, 3})
    if (Draw(2) == 0) picked.push_back(evaluacion);
  auto script =
      "fila msgMaterias " + Number(row + 1) + "\npulsar cmdPropiedades\npulsar cmdEliminarTodos\n";
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

std::string RegisterModel::ChangeTeacher() {
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

void RegisterModel::Save() {
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

void RegisterModel::Grade(const SmallSchool& school) {
  constexpr int kNota = 105;
  school.Sql("UPDATE EvaluacionPte SET CodNota=105; UPDATE EvaluacionActaPte SET CodNota=105");
  for (auto& [id, student] : stored_)
    for (auto& subject : student.subjects) {
      for (auto& [evaluacion, nota] : subject.evaluations) nota = kNota;
      subject.stored = subject.evaluations;
    }
}

std::vector<std::string> RegisterModel::Expected() const {
  std::vector<std::string> rows;
  for (const auto& [id, student] : stored_) {
    rows.push_back("alumno 321|" + Number(id));
    for (std::size_t i = 0; i < student.subjects.size(); ++i) {
      const auto& subject = student.subjects[i];
      const auto key = Number(id) + "|" + Number(subject.matDet);
      rows.push_back("materia " + key + "|" + std::to_string(i + 1) + "|0");
      for (const auto& [evaluacion, nota] : subject.evaluations)
        rows.push_back((evaluacion < 4 ? "ordinaria " : "final ") + key + "|" + Number(evaluacion) +
                       "|" + Number(nota));
    }
  }
  for (const auto& [matDet, teacher] : teachersStored_)
    if (teacher.stored)
      rows.push_back("profesor " + Number(teacher.personal) + "|" + Number(matDet));
  std::sort(rows.begin(), rows.end());
  return rows;
}

std::vector<std::string> RegisterModel::Stored(const SmallSchool& school) {
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

std::vector<std::string> RegisterModel::ExpectedMatrices() const {
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

}  // namespace quorvane::test

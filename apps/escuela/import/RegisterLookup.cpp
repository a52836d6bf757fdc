#include "apps/escuela/import/RegisterLookup.h"

#include <algorithm>

#include "apps/escuela/PersonName.h"
#include "apps/escuela/import/FoldedText.h"

namespace quorvane {
namespace {

constexpr auto kHiddenEvaluation = "11";

template <class T>
std::vector<const T*> Found(const std::multimap<std::string, const T*>& names,
                            const std::string& name) {
  std::vector<const T*> found;
  const auto [begin, end] = names.equal_range(FoldedText(name));
  for (auto at = begin; at != end; ++at)
    if (std::find(found.begin(), found.end(), at->second) == found.end())
      found.push_back(at->second);
  return found;
}

}  // namespace

RegisterLookup::RegisterLookup(Connection& school) {
  ReadSections(school);
  ReadStudents(school);
  ReadSubjects(school);
  ReadTeachers(school);
  ReadRegister(school);
}

void RegisterLookup::ReadSections(Connection& school) {
  std::map<std::int32_t, std::int32_t> centres;
  for (auto rows = school.Execute("SELECT CodTipoEnsenanza, MIN(CodCentro) FROM "
                                  "Centro_TipoEnsenanza WHERE CodTipoEnsenanza NOT IN (1,2) "
                                  "GROUP BY CodTipoEnsenanza");
       !rows.Eof(); rows.MoveNext())
    centres[rows.Fields(0).Long()] = rows.Fields(1).Long();
  for (auto rows = school.Execute(
           "SELECT Seccion.IDSeccion, Seccion.Descripcion, Curso.IDCurso, Curso.Descripcion AS "
           "NombreCurso, Curso.Orden, Curso.CodTipoEnsenanza FROM Seccion INNER JOIN Curso ON "
           "Curso.IDCurso=Seccion.CodCurso");
       !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields(0).Long();
    const auto teaching = rows.Fields(5).Long();
    const auto centre = centres.find(teaching);
    auto& section = sections_[id];
    section = {id,
               rows.Fields(1).Text(),
               rows.Fields(2).Long(),
               rows.Fields(3).Text(),
               rows.Fields(4).Long(),
               teaching,
               centre == centres.end() ? 0 : centre->second};
    sectionNames_.emplace(FoldedText(section.name), &section);
  }
}

void RegisterLookup::ReadStudents(Connection& school) {
  // The list of the host may hold a student more than once.
  std::set<std::int32_t> listed;
  for (auto rows = school.Execute("SELECT DISTINCT CodAlumno FROM Seccion_Alumno"); !rows.Eof();
       rows.MoveNext())
    listed.insert(rows.Fields(0).Long());
  for (auto rows = school.Execute(
           "SELECT IDAlumno, Apellido_1, Apellido_2, Nombre, CodSeccion, FechaBaja FROM Alumno");
       !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields(0).Long();
    auto& student = students_[id];
    student = {id, FullName(rows, 1), rows.Fields(4).Long(),
               listed.contains(id) && rows.Fields(5).Text().empty()};
    studentNames_.emplace(FoldedText(student.name), &student);
  }
}

void RegisterLookup::ReadSubjects(Connection& school) {
  for (auto rows = school.Execute(
           "SELECT IDMateriaDetalles, Materia.Nombre, CodSeccion FROM MateriaDetalles INNER JOIN "
           "Materia ON Materia.IDMateria=MateriaDetalles.CodMateria WHERE "
           "Materia.CodMateriaAsociada=0");
       !rows.Eof(); rows.MoveNext()) {
    const auto* const section = SectionOf(rows.Fields(2).Long());
    if (section == nullptr) continue;
    const auto id = rows.Fields(0).Long();
    auto& subject = subjects_[id];
    subject = {id, rows.Fields(1).Text(), section};
    subjectNames_.emplace(FoldedText(subject.name), &subject);
  }
}

void RegisterLookup::ReadTeachers(Connection& school) {
  for (auto rows = school.Execute("SELECT IDPersonal, Apellido1, Apellido2, Nombre FROM Personal");
       !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields(0).Long();
    auto& teacher = teachers_[id];
    teacher = {id, FullName(rows, 1)};
    teacherNames_.emplace(FoldedText(teacher.name), &teacher);
    teacherNames_.emplace(FoldedText(rows.Fields(3).Text() + " " + rows.Fields(1).Text() + " " +
                                     rows.Fields(2).Text()),
                          &teacher);
  }
  for (auto rows = school.Execute("SELECT CodMatDet, MAX(CodProfesor) FROM Profesor_Pte GROUP BY "
                                  "CodMatDet");
       !rows.Eof(); rows.MoveNext())
    teacherOf_[rows.Fields(0).Long()] = rows.Fields(1).Long();
}

void RegisterLookup::ReadRegister(Connection& school) {
  for (auto rows = school.Execute(
           std::string("SELECT IDNumEvaluacion, Descripcion, Final, Extraordinaria FROM "
                       "NumEvaluacion WHERE IDNumEvaluacion<>") +
           kHiddenEvaluation + " ORDER BY Final, Extraordinaria, Orden");
       !rows.Eof(); rows.MoveNext())
    evaluations_.push_back({rows.Fields(0).Long(), rows.Fields(1).Text(), rows.Fields(2).Flag(),
                            rows.Fields(3).Flag()});
  for (auto rows = school.Execute("SELECT CodSeccion, CodAlumno FROM Seccion_AlumnoPte");
       !rows.Eof(); rows.MoveNext()) {
    registered_.insert({rows.Fields(0).Long(), rows.Fields(1).Long()});
    registerOf_[rows.Fields(1).Long()] = rows.Fields(0).Long();
  }
  for (auto rows = school.Execute("SELECT CodAlumno, CodMatDet FROM AlumnoPte_MatDet"); !rows.Eof();
       rows.MoveNext())
    pending_[{rows.Fields(0).Long(), rows.Fields(1).Long()}];
  for (const std::string table : {"EvaluacionPte", "EvaluacionActaPte"})
    for (auto rows =
             school.Execute(std::string("SELECT CodAlumno, CodMatDet, CodNumEvaluacion FROM ")
                                .append(table)
                                .append(" INNER JOIN AlumnoPte_MatDet ON IDAlumnoPte_MatDet=")
                                .append(table)
                                .append(".CodAlumnoPte_MatDet"));
         !rows.Eof(); rows.MoveNext())
      pending_[{rows.Fields(0).Long(), rows.Fields(1).Long()}].insert(rows.Fields(2).Long());
}

std::vector<const RegisterLookup::Section*> RegisterLookup::Sections(
    const std::string& name) const {
  return Found(sectionNames_, name);
}

const RegisterLookup::Section* RegisterLookup::SectionOf(std::int32_t id) const {
  const auto found = sections_.find(id);
  return found == sections_.end() ? nullptr : &found->second;
}

std::vector<const RegisterLookup::Student*> RegisterLookup::Students(
    const std::string& name) const {
  return Found(studentNames_, name);
}

const RegisterLookup::Student* RegisterLookup::StudentOf(std::int32_t id) const {
  const auto found = students_.find(id);
  return found == students_.end() ? nullptr : &found->second;
}

std::vector<const RegisterLookup::Subject*> RegisterLookup::Subjects(const std::string& name,
                                                                     const std::string& course,
                                                                     std::int32_t teaching) const {
  auto found = Found(subjectNames_, name);
  const auto folded = FoldedText(course);
  std::erase_if(found, [&](const Subject* subject) {
    const auto& section = *subject->section;
    return section.teaching != teaching || (!folded.empty() && folded != FoldedText(section.name) &&
                                            folded != FoldedText(section.courseName));
  });
  return found;
}

std::vector<const RegisterLookup::Named*> RegisterLookup::Teachers(const std::string& name) const {
  return Found(teacherNames_, name);
}

const std::set<std::int32_t>* RegisterLookup::Pending(std::int32_t student,
                                                      std::int32_t subject) const {
  const auto found = pending_.find({student, subject});
  return found == pending_.end() ? nullptr : &found->second;
}

std::int32_t RegisterLookup::RegisterOf(std::int32_t student) const {
  const auto found = registerOf_.find(student);
  return found == registerOf_.end() ? 0 : found->second;
}

std::int32_t RegisterLookup::TeacherOf(std::int32_t subject) const {
  const auto found = teacherOf_.find(subject);
  return found == teacherOf_.end() ? 0 : found->second;
}

std::string RegisterLookup::TeacherName(std::int32_t id) const {
  const auto found = teachers_.find(id);
  return found == teachers_.end() ? std::to_string(id) : found->second.name;
}

}  // namespace quorvane

#include "apps/escuela/report/ReportReader.h"

#include <algorithm>
#include <set>

#include "apps/escuela/MeasureText.h"
#include "apps/escuela/PersonName.h"
#include "apps/escuela/Refusal.h"
#include "apps/escuela/import/FoldedText.h"
#include "apps/escuela/state/MayGrade.h"

namespace quorvane {
namespace {

/// The row whose second column has that name, or whose first has that number.
std::int32_t Find(Recordset rows, const std::string& text, const std::string& none) {
  const auto folded = FoldedText(text);
  std::vector<std::int32_t> found;
  for (; !rows.Eof(); rows.MoveNext()) {
    if (rows.Fields(0).Text() == text) return rows.Fields(0).Long();
    if (FoldedText(rows.Fields(1).Text()) == folded) found.push_back(rows.Fields(0).Long());
  }
  if (found.empty()) Refuse(none + " «" + text + "»");
  if (found.size() == 1) return found.front();
  std::string numbers;
  for (const auto id : found) numbers += " " + std::to_string(id);
  Refuse("Hay varias que se llaman «" + text + "». Use su número:" + numbers);
}

}  // namespace

ReportReader::ReportReader(Connection& school, std::string name, std::string date,
                           std::int32_t staff)
    : school_(school),
      name_(std::move(name)),
      date_(std::move(date)),
      told_(staff == 0
                ? std::string(kActiveStudent)
                : kActiveStudent + (" AND " + MayGrade(staff, "AlumnoPte_MatDet.CodMatDet"))),
      teachers_(school) {
  for (auto rows = school_.Execute("SELECT IDNumEvaluacion, Descripcion, Final FROM NumEvaluacion "
                                   "ORDER BY Extraordinaria DESC, Orden");
       !rows.Eof(); rows.MoveNext())
    evaluations_.push_back({rows.Fields(0).Long(), rows.Fields(1).Text(), rows.Fields(2).Flag()});
  std::stable_partition(evaluations_.begin(), evaluations_.end(),
                        [](const auto& evaluation) { return !evaluation.final; });
  for (auto rows = school_.Execute("SELECT IDNota, DescripcionCorta FROM Nota"); !rows.Eof();
       rows.MoveNext())
    grades_[rows.Fields(0).Long()] = rows.Fields(1).Text();
}

std::vector<std::pair<std::int32_t, std::string>> ReportReader::Sections() const {
  std::vector<std::pair<std::int32_t, std::string>> sections;
  for (auto rows = school_.Execute(
           std::string("SELECT Seccion.IDSeccion, Seccion.Descripcion FROM Seccion INNER JOIN "
                       "Curso ON Curso.IDCurso=Seccion.CodCurso WHERE Seccion.IDSeccion IN (SELECT "
                       "Alumno.CodSeccion FROM Alumno INNER JOIN AlumnoPte_MatDet ON "
                       "AlumnoPte_MatDet.CodAlumno=Alumno.IDAlumno WHERE ") +
           told_ +
           ") ORDER BY Curso.CodTipoEnsenanza, Curso.Orden, Seccion.Descripcion, "
           "Seccion.IDSeccion");
       !rows.Eof(); rows.MoveNext())
    sections.emplace_back(rows.Fields(0).Long(), rows.Fields(1).Text());
  return sections;
}

std::vector<std::pair<std::int32_t, std::string>> ReportReader::Subjects() const {
  std::vector<std::pair<std::int32_t, std::string>> subjects;
  for (auto rows = school_.Execute(
           "SELECT MateriaDetalles.IDMateriaDetalles, Materia.Nombre, Seccion.Descripcion FROM "
           "((MateriaDetalles INNER JOIN Materia ON "
           "Materia.IDMateria=MateriaDetalles.CodMateria) INNER JOIN Seccion ON "
           "Seccion.IDSeccion=MateriaDetalles.CodSeccion) INNER JOIN Curso ON "
           "Curso.IDCurso=Seccion.CodCurso WHERE MateriaDetalles.IDMateriaDetalles IN (SELECT "
           "AlumnoPte_MatDet.CodMatDet FROM AlumnoPte_MatDet INNER JOIN Alumno ON "
           "Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno WHERE " +
           told_ +
           ") ORDER BY Curso.CodTipoEnsenanza, Curso.Orden, Seccion.Descripcion, Materia.Nombre, "
           "MateriaDetalles.IDMateriaDetalles");
       !rows.Eof(); rows.MoveNext())
    subjects.emplace_back(rows.Fields(0).Long(),
                          rows.Fields(1).Text() + " (" + rows.Fields(2).Text() + ")");
  return subjects;
}

std::int32_t ReportReader::FindSection(const std::string& text) const {
  return Find(school_.Execute("SELECT IDSeccion, Descripcion FROM Seccion"), text,
              "No hay ninguna sección");
}

std::int32_t ReportReader::FindSubject(const std::string& text) const {
  return Find(
      school_.Execute("SELECT IDMateriaDetalles, Materia.Nombre + ' (' + Seccion.Descripcion + ')' "
                      "FROM (MateriaDetalles INNER JOIN Materia ON "
                      "Materia.IDMateria=MateriaDetalles.CodMateria) INNER JOIN Seccion ON "
                      "Seccion.IDSeccion=MateriaDetalles.CodSeccion"),
      text, "No hay ninguna materia");
}

SectionReport ReportReader::Section(std::int32_t section, std::int32_t student) const {
  const auto number = std::to_string(section);
  const auto row = school_.Execute("SELECT Descripcion FROM Seccion WHERE IDSeccion=" + number);
  if (row.Eof()) Refuse("No hay ninguna sección " + number);
  auto condition = "Alumno.CodSeccion=" + number;
  if (student != 0) condition += " AND Alumno.IDAlumno=" + std::to_string(student);
  auto report = Read(row.Fields(0).Text(), condition);
  if (student != 0 && report.students.empty())
    Refuse("El alumno " + std::to_string(student) + " no está en " + row.Fields(0).Text() +
           " o no tiene materias pendientes");
  return report;
}

SectionReport ReportReader::Subject(std::int32_t subject) const {
  const auto number = std::to_string(subject);
  const auto row = school_.Execute(
      "SELECT Materia.Nombre, Seccion.Descripcion FROM (MateriaDetalles INNER JOIN Materia ON "
      "Materia.IDMateria=MateriaDetalles.CodMateria) LEFT JOIN Seccion ON "
      "Seccion.IDSeccion=MateriaDetalles.CodSeccion WHERE IDMateriaDetalles=" +
      number);
  if (row.Eof()) Refuse("No hay ninguna materia " + number);
  return Read(row.Fields(0).Text() + " (" + row.Fields(1).Text() + ")",
              "AlumnoPte_MatDet.CodMatDet=" + number);
}

SectionReport ReportReader::Read(const std::string& title, const std::string& condition) const {
  SectionReport report{name_, date_, title, {}, {}};
  const auto from = std::string(
                        "AlumnoPte_MatDet INNER JOIN Alumno ON "
                        "Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno WHERE ") +
                    told_ + " AND " + condition;
  std::map<std::int32_t, std::pair<std::size_t, std::size_t>> places;
  for (auto rows = school_.Execute(
           "SELECT Alumno.IDAlumno, Alumno.Apellido_1, Alumno.Apellido_2, Alumno.Nombre, "
           "AlumnoPte_MatDet.IDAlumnoPte_MatDet, AlumnoPte_MatDet.CodMatDet, Materia.Nombre AS "
           "NombreMateria, Seccion.Descripcion FROM (((AlumnoPte_MatDet INNER JOIN Alumno ON "
           "Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno) LEFT JOIN MateriaDetalles ON "
           "MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.CodMatDet) LEFT JOIN Materia ON "
           "Materia.IDMateria=MateriaDetalles.CodMateria) LEFT JOIN Seccion ON "
           "Seccion.IDSeccion=MateriaDetalles.CodSeccion WHERE " +
           told_ + " AND " + condition +
           " ORDER BY Alumno.OrdenSeccion, Alumno.Apellido_1, Alumno.Apellido_2, Alumno.Nombre, "
           "Alumno.IDAlumno, AlumnoPte_MatDet.Orden, AlumnoPte_MatDet.IDAlumnoPte_MatDet");
       !rows.Eof(); rows.MoveNext()) {
    const auto student = rows.Fields(0).Long();
    if (report.students.empty() || report.students.back().id != student)
      report.students.push_back({student, FullName(rows, 1), {}});
    const auto subject = rows.Fields(5).Long();
    auto& subjects = report.students.back().subjects;
    subjects.push_back({rows.Fields(6).IsNull()
                            ? "Materia " + std::to_string(subject) + ", que ya no existe"
                            : rows.Fields(6).Text() + " (" + rows.Fields(7).Text() + ")",
                        teachers_.NameOf(subject),
                        {}});
    places[rows.Fields(4).Long()] = {report.students.size() - 1, subjects.size() - 1};
  }
  std::map<std::int32_t, ReportSubject*> subjects;
  for (const auto& [pending, place] : places)
    subjects[pending] = &report.students[place.first].subjects[place.second];
  for (const std::string table : {"EvaluacionPte", "EvaluacionActaPte"})
    ReadGrades(table, from, subjects);
  std::set<std::int32_t> had;
  for (const auto& student : report.students)
    for (const auto& subject : student.subjects)
      for (const auto& [evaluation, grade] : subject.grades) had.insert(evaluation);
  for (const auto& evaluation : evaluations_)
    if (had.erase(evaluation.id) > 0) report.evaluations.push_back(evaluation);
  for (const auto evaluation : had)
    report.evaluations.push_back({evaluation, "Evaluación " + std::to_string(evaluation), false});
  return report;
}

void ReportReader::ReadGrades(const std::string& table, const std::string& from,
                              const std::map<std::int32_t, ReportSubject*>& subjects) const {
  const auto final = table == "EvaluacionActaPte";
  auto rows = school_.Execute(
      "SELECT CodAlumnoPte_MatDet, CodNumEvaluacion, CodNota, CodNotaObservacion, " +
      std::string(final ? "RE_AC_DIV" : "CodNotaConcepto, CodNotaProcedimiento, CodNotaActitud") +
      " FROM " + table +
      " WHERE CodAlumnoPte_MatDet IN (SELECT AlumnoPte_MatDet.IDAlumnoPte_MatDet FROM " + from +
      ")");
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto found = subjects.find(rows.Fields(0).Long());
    if (found == subjects.end()) continue;
    auto& grade = found->second->grades[rows.Fields(1).Long()];
    grade.grade = GradeText(rows.Fields(2).Long());
    grade.observation = GradeText(rows.Fields(3).Long());
    if (final) {
      grade.measure = MeasureText(rows.Fields(4).Long());
    } else {
      grade.concepts = GradeText(rows.Fields(4).Long());
      grade.procedure = GradeText(rows.Fields(5).Long());
      grade.attitude = GradeText(rows.Fields(6).Long());
    }
  }
}

std::string ReportReader::GradeText(std::int32_t grade) const {
  if (grade <= 0) return {};
  const auto found = grades_.find(grade);
  return found == grades_.end() ? "nota " + std::to_string(grade) : found->second;
}

}  // namespace quorvane

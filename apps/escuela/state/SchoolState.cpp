#include "apps/escuela/state/SchoolState.h"

#include <algorithm>
#include <tuple>

#include "apps/escuela/state/MayGrade.h"

namespace quorvane {
namespace {

constexpr auto kSecondFinal = 2;
constexpr auto kSubject = "AlumnoPte_MatDet.CodMatDet";

std::string Number(std::int32_t number) { return std::to_string(number); }

/// The conditions of a filter, each with AND before it.
std::string StateConditions(const StateFilter& filter) {
  std::string text;
  if (filter.centre != 0)
    text +=
        " AND Alumno.CodSeccion IN (SELECT IDSeccion FROM Seccion INNER JOIN Curso ON "
        "Curso.IDCurso=Seccion.CodCurso INNER JOIN Centro_TipoEnsenanza ON "
        "Centro_TipoEnsenanza.CodTipoEnsenanza=Curso.CodTipoEnsenanza WHERE CodCentro=" +
        Number(filter.centre) + ")";
  if (filter.tutor != 0) text += " AND " + TutorOf(filter.tutor);
  if (filter.teacher != 0) text += " AND " + TeacherOf(filter.teacher, kSubject);
  if (filter.either != 0) text += " AND " + MayGrade(filter.either, kSubject);
  return text;
}

}  // namespace

SchoolState::SchoolState(Connection& school, std::string today)
    : school_(school), today_(std::move(today)), teachers_(school) {
  ReadEvaluations();
  ReadNames();
}

void SchoolState::ReadEvaluations() {
  for (auto rows = school_.Execute("SELECT IDNumEvaluacion, Descripcion, Final, Orden FROM "
                                   "NumEvaluacion ORDER BY Final DESC, Extraordinaria DESC, Orden");
       !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields(0).Long();
    const auto final = rows.Fields(2).Flag();
    const auto order = rows.Fields(3).Long();
    evaluations_.push_back({id, rows.Fields(1).Text(), final});
    if (final && order == kSecondFinal) secondFinals_.insert(id);
    if (final && order == 1 && firstFinal_.empty()) firstFinal_ = Number(id);
  }
  // The flags' True is another number on each engine; ordinary ones take place first on all.
  std::stable_partition(evaluations_.begin(), evaluations_.end(),
                        [](const Evaluation& evaluation) { return !evaluation.final; });
  if (firstFinal_.empty()) firstFinal_ = "0";
}

void SchoolState::ReadNames() {
  auto place = 0;
  for (auto rows = school_.Execute(
           "SELECT IDSeccion, Seccion.Descripcion FROM Seccion INNER JOIN Curso ON "
           "Curso.IDCurso=Seccion.CodCurso ORDER BY Curso.CodTipoEnsenanza, Curso.Orden, "
           "Seccion.Descripcion, IDSeccion");
       !rows.Eof(); rows.MoveNext())
    sections_[rows.Fields(0).Long()] = {rows.Fields(1).Text(), ++place};
  for (auto rows = school_.Execute(
           "SELECT CodSeccion, CodNumEvaluacion, FechaInicio, FechaFin FROM FechaNotas");
       !rows.Eof(); rows.MoveNext()) {
    StateWindow window{rows.Fields(2).Text(), rows.Fields(3).Text(), true};
    window.open = today_ >= window.from && today_ <= window.to;
    // Of doubled windows the screens read the first.
    windows_.emplace(std::pair(rows.Fields(0).Long(), rows.Fields(1).Long()), window);
  }
}

std::string SchoolState::Statement(const Alike& alike, const StateFilter& filter, bool bySubject,
                                   std::int32_t section) const {
  const std::string table = alike.final ? "EvaluacionActaPte" : "EvaluacionPte";
  const auto groups = table + ".CodNumEvaluacion, Alumno.CodSeccion" +
                      (bySubject ? ", AlumnoPte_MatDet.CodMatDet" : "");
  const auto entered = "SUM(CASE WHEN " + table + ".CodNota>0 THEN 1 ELSE 0 END)";
  auto statement =
      "SELECT " + groups + ", COUNT(*) AS Pendientes, " + entered + " AS Puestas FROM (((" + table +
      " INNER JOIN AlumnoPte_MatDet ON AlumnoPte_MatDet.IDAlumnoPte_MatDet=" + table +
      ".CodAlumnoPte_MatDet) INNER JOIN Alumno ON Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno) "
      "INNER JOIN MateriaDetalles ON MateriaDetalles.IDMateriaDetalles=AlumnoPte_MatDet.CodMatDet) "
      "INNER JOIN TipoMateria ON TipoMateria.IDTipoMateria=MateriaDetalles.CodTipoMateria WHERE " +
      table + ".CodNumEvaluacion IN (" + alike.numbers + ") AND Alumno.Anticipado=0 AND " +
      kActiveStudent +
      " AND "
      "TipoMateria.CodEspecificarTipoMateria";
  statement += alike.final ? "<>3" : "=1";
  if (alike.secondFinal)
    statement +=
        " AND (TipoMateria.CodEspecificarTipoMateria=4 OR EXISTS (SELECT 1 FROM EvaluacionActaPte "
        "Primera INNER JOIN Nota ON Nota.IDNota=Primera.CodNota WHERE "
        "Primera.CodAlumnoPte_MatDet=AlumnoPte_MatDet.IDAlumnoPte_MatDet AND "
        "Primera.CodNumEvaluacion=" +
        firstFinal_ + " AND Nota.Aprobado=0))";
  statement += StateConditions(filter);
  if (section != 0) statement += " AND Alumno.CodSeccion=" + Number(section);
  statement += " GROUP BY " + groups;
  if (filter.missingOnly) statement += " HAVING COUNT(*)>" + entered;
  return statement;
}

std::vector<SchoolState::Alike> SchoolState::AlikeOnes(std::int32_t only) const {
  std::vector<Alike> all = {{false, false, {}}, {true, false, {}}, {true, true, {}}};
  for (const auto& evaluation : evaluations_) {
    if (only != 0 && only != evaluation.id) continue;
    const auto second = secondFinals_.contains(evaluation.id);
    auto& numbers = all[second ? 2 : evaluation.final ? 1 : 0].numbers;
    numbers.append(numbers.empty() ? "" : ",").append(Number(evaluation.id));
  }
  std::erase_if(all, [](const Alike& alike) { return alike.numbers.empty(); });
  return all;
}

std::vector<StateRow> SchoolState::Read(const StateFilter& filter, bool bySubject,
                                        std::int32_t section) const {
  std::vector<StateRow> all;
  for (const auto& alike : AlikeOnes(filter.evaluation)) {
    for (auto rows = school_.Execute(Statement(alike, filter, bySubject, section)); !rows.Eof();
         rows.MoveNext()) {
      StateRow row;
      row.evaluation = rows.Fields(0).Long();
      row.section = rows.Fields(1).Long();
      if (bySubject) {
        row.subject = rows.Fields(2).Long();
        row.teacher = teachers_.Of(row.subject);
      }
      const std::size_t counts = bySubject ? 3 : 2;
      row.pending = rows.Fields(counts).Long();
      row.entered = rows.Fields(counts + 1).Long();
      all.push_back(row);
    }
  }
  MarkLocks(all, bySubject);
  return Sorted(all);
}

std::vector<StateRow> SchoolState::Sections(const StateFilter& filter) const {
  return Read(filter, false, 0);
}

std::vector<StateRow> SchoolState::Subjects(const StateFilter& filter, std::int32_t section) const {
  return Read(filter, true, section);
}

void SchoolState::MarkLocks(std::vector<StateRow>& rows, bool bySubject) const {
  std::map<std::tuple<std::int32_t, std::int32_t, std::int32_t>, int> locks;
  for (auto locked = school_.Execute(
           "SELECT DISTINCT BloqueoPte.CodNumEvaluacion, Alumno.CodSeccion, BloqueoPte.CodMatDet "
           "FROM (BloqueoPte INNER JOIN AlumnoPte_MatDet ON "
           "AlumnoPte_MatDet.CodMatDet=BloqueoPte.CodMatDet) INNER JOIN Alumno ON "
           "Alumno.IDAlumno=AlumnoPte_MatDet.CodAlumno");
       !locked.Eof(); locked.MoveNext())
    ++locks[{locked.Fields(0).Long(), locked.Fields(1).Long(),
             bySubject ? locked.Fields(2).Long() : 0}];
  if (locks.empty()) return;
  for (auto& row : rows) {
    const auto found = locks.find({row.evaluation, row.section, row.subject});
    if (found != locks.end()) row.locked = found->second;
  }
}

std::vector<StateRow> SchoolState::Sorted(const std::vector<StateRow>& rows) const {
  std::map<std::int32_t, int> order;
  for (const auto& evaluation : evaluations_)
    order.emplace(evaluation.id, static_cast<int>(order.size()));
  // Looked up once a row, not at each comparison: a large school has hundreds of thousands.
  std::vector<std::tuple<int, int, std::int32_t, std::size_t>> places;
  places.reserve(rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto found = sections_.find(rows[i].section);
    places.emplace_back(order[rows[i].evaluation],
                        found == sections_.end() ? 0 : found->second.second, rows[i].subject, i);
  }
  std::sort(places.begin(), places.end());
  std::vector<StateRow> sorted;
  sorted.reserve(rows.size());
  for (const auto& place : places) sorted.push_back(rows[std::get<3>(place)]);
  return sorted;
}

std::string SchoolState::EvaluationName(std::int32_t id) const {
  for (const auto& evaluation : evaluations_)
    if (evaluation.id == id) return evaluation.name;
  return Number(id);
}

std::string SchoolState::SectionName(std::int32_t id) const {
  const auto found = sections_.find(id);
  return found == sections_.end() ? "sección " + Number(id) : found->second.first;
}

std::string SchoolState::SubjectName(std::int32_t id) const {
  if (subjects_.empty())
    for (auto rows = school_.Execute(
             "SELECT IDMateriaDetalles, Materia.Nombre, MateriaDetalles.CodSeccion FROM "
             "MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.CodMateria");
         !rows.Eof(); rows.MoveNext())
      subjects_[rows.Fields(0).Long()] = {rows.Fields(1).Text(), rows.Fields(2).Long()};
  const auto found = subjects_.find(id);
  return found == subjects_.end()
             ? "materia " + Number(id)
             : found->second.first + " (" + SectionName(found->second.second) + ")";
}

StateWindow SchoolState::Window(std::int32_t section, std::int32_t evaluation) const {
  const auto found = windows_.find({section, evaluation});
  return found == windows_.end() ? StateWindow() : found->second;
}

}  // namespace quorvane

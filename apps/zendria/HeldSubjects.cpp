#include "apps/zendria/HeldSubjects.h"

#include <QStringList>
#include <algorithm>
#include <string>
#include <string_view>

#include "apps/escuela/LockList.h"
#include "apps/escuela/state/MayGrade.h"
#include "apps/zendria/ClassName.h"
#include "apps/zendria/GradeForm.h"
#include "apps/zendria/User.h"
#include "platform/data/Connection.h"

namespace quorvane::zendria {
namespace {

constexpr std::size_t kMostTold = 4;

std::int32_t ChoiceData(const GradeSheet& sheet, std::string_view control) {
  const auto* const choice = Choice(sheet, control);
  return choice == nullptr ? 0 : choice->data;
}

QString Joined(const std::string& name, const std::string& course, const std::string& section) {
  const auto place = ClassName(QString::fromStdString(course), QString::fromStdString(section));
  const auto subject = QString::fromStdString(name);
  return place.isEmpty() ? subject : QStringLiteral("%1 (%2)").arg(subject, place);
}

QString HeldLine(const HeldSubject& held) {
  if (held.own)
    return held.subject +
           ": la tiene abierta usted mismo en otra ventana, o quedó bloqueada al cortarse el "
           "programa (menú Ver, Publicaciones y bloqueos)";
  if (held.holder.isEmpty())
    return held.subject +
           ": está bloqueada, y no se sabe por quién (menú Ver, Publicaciones y "
           "bloqueos)";
  return QStringLiteral("%1: la está calificando %2").arg(held.subject, held.holder);
}

}  // namespace

SubjectsSought SoughtBy(const GradeForm& form) {
  const auto sheet = form.Sheet();
  return {ChoiceData(sheet, "cboSecciones"), sheet.evaluacion, ChoiceData(sheet, "cboAlumno"),
          ChoiceData(sheet, "cboMateria"), form.Publication()};
}

std::int32_t SubjectReader::Person() const { return StaffOf(school_, user_.id); }

std::vector<HeldSubject> SubjectReader::Held(const SubjectsSought& sought) const {
  auto pending =
      "SELECT AlumnoPte_MatDet.CodMatDet FROM AlumnoPte_MatDet INNER JOIN Seccion_AlumnoPte ON "
      "Seccion_AlumnoPte.CodAlumno=AlumnoPte_MatDet.CodAlumno WHERE Seccion_AlumnoPte.CodSeccion=" +
      std::to_string(sought.section);
  if (sought.student != 0)
    pending += " AND AlumnoPte_MatDet.CodAlumno=" + std::to_string(sought.student);
  auto where = "CodNumEvaluacion=" + std::to_string(sought.evaluation) + " AND CodMatDet IN (" +
               pending + ")";
  if (sought.subject != 0) where += " AND CodMatDet=" + std::to_string(sought.subject);
  if (sought.publication != 0)
    where += " AND CodPublicacion<>" + std::to_string(sought.publication);
  if (user_.profile != 0) {
    // A tutor grades the whole section.
    const auto person =
        "SELECT IDPersonal FROM Personal WHERE CodUsuario=" + std::to_string(user_.id);
    where += " AND (" + std::to_string(sought.section) +
             " IN (SELECT IDSeccion FROM Seccion WHERE CodTutor IN (" + person +
             ")) OR CodMatDet IN (SELECT CodMatDet FROM Profesor_Pte WHERE CodProfesor IN (" +
             person + ")))";
  }
  std::vector<HeldSubject> held;
  const LockList locks(school_);
  auto rows = school_.Execute("SELECT * FROM BloqueoPte WHERE " + where + " ORDER BY CodMatDet");
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto holder = rows.Fields(kLockUser).Long();
    const auto detail = rows.Fields("CodMatDet").Long();
    held.push_back({detail, Subject(detail), QString::fromStdString(locks.OwnerName(holder)),
                    holder == user_.id});
  }
  return held;
}

QString SubjectReader::Subject(std::int32_t detail) const {
  const auto row = school_.Execute(
      "SELECT Materia.Nombre, Curso.Descripcion AS Curso, Seccion.Descripcion AS Seccion FROM "
      "((MateriaDetalles LEFT JOIN Materia ON Materia.IDMateria=MateriaDetalles.CodMateria) LEFT "
      "JOIN Seccion ON Seccion.IDSeccion=MateriaDetalles.CodSeccion) LEFT JOIN Curso ON "
      "Curso.IDCurso=Seccion.CodCurso WHERE IDMateriaDetalles=" +
      std::to_string(detail));
  if (row.Eof()) return QStringLiteral("La materia %1").arg(detail);
  return Joined(row.Fields("Nombre").Text(), row.Fields("Curso").Text(),
                row.Fields("Seccion").Text());
}

const QString& SubjectReader::Section(std::int32_t id) {
  const auto known = sections_.find(id);
  if (known != sections_.end()) return known->second;
  const auto row = school_.Execute(
      "SELECT Curso.Descripcion AS Curso, Seccion.Descripcion AS Seccion FROM Seccion INNER JOIN "
      "Curso ON Curso.IDCurso=Seccion.CodCurso WHERE IDSeccion=" +
      std::to_string(id));
  const auto name = row.Eof() ? QString()
                              : ClassName(QString::fromStdString(row.Fields("Curso").Text()),
                                          QString::fromStdString(row.Fields("Seccion").Text()));
  return sections_.emplace(id, name).first->second;
}

QString HeldText(const std::vector<HeldSubject>& held) {
  if (held.empty()) return {};
  QStringList lines;
  for (std::size_t at = 0; at < std::min(held.size(), kMostTold); ++at)
    lines.append(HeldLine(held[at]) + '.');
  if (held.size() > kMostTold)
    lines.append(QStringLiteral("Y %1 más (menú Ver, Publicaciones y bloqueos).")
                     .arg(held.size() - kMostTold));
  return lines.join(u'\n');
}

}  // namespace quorvane::zendria

#include "apps/zendria/LeftoversBox.h"

#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <algorithm>

namespace quorvane::zendria {
namespace {

using Holder = Leftovers::Holder;
using Left = Leftovers::Left;

constexpr std::size_t kMostSubjects = 3;

QString Subjects(const LockList::Publication& publication) {
  const auto& subjects = publication.subjects;
  QStringList named;
  for (std::size_t at = 0; at < std::min(subjects.size(), kMostSubjects); ++at)
    named.append(QString::fromStdString(subjects[at]));
  auto text = named.join(", ");
  if (subjects.size() > kMostSubjects)
    text += QStringLiteral(" y %1 más").arg(subjects.size() - kMostSubjects);
  return text.isEmpty() ? text : ": " + text;
}

QString HolderText(const Left& left) {
  if (left.holder == Holder::NoteLess) return "No se sabe qué programa la abrió.";
  const auto when = QDateTime::fromSecsSinceEpoch(left.since).toString("dd/MM/yyyy 'a las' HH:mm");
  const auto who = QStringLiteral("La abrió Zendria el %1 en «%2» (proceso %3), ")
                       .arg(when, QString::fromStdString(left.computer))
                       .arg(left.process);
  switch (left.holder) {
    case Holder::Gone:
      return who + "que ya no está en marcha.";
    case Holder::Running:
      return who + "que sigue en marcha.";
    default:
      return who + "y desde aquí no se sabe si sigue en marcha.";
  }
}

QString LeftLine(const Left& left) {
  return QStringLiteral("%1, %2%3. %4")
      .arg(left.publication.id)
      .arg(QString::fromStdString(left.publication.evaluation), Subjects(left.publication),
           HolderText(left));
}

}  // namespace

QString LeftoversText(const std::vector<Left>& left) {
  QStringList lines;
  for (const auto& one : left) lines.append(LeftLine(one));
  return lines.join(u'\n');
}

bool OffersToRemove(QWidget* parent, const std::vector<Left>& left) {
  const auto gone = std::count_if(left.begin(), left.end(),
                                  [](const Left& one) { return one.holder == Holder::Gone; });
  if (gone == 0) return false;
  QMessageBox box(
      QMessageBox::Question, "Pantallas que quedaron abiertas",
      gone == 1 ? QStringLiteral("Una pantalla de notas suya quedó abierta cuando el programa "
                                 "se cortó, y sus materias siguen bloqueadas. ¿Quitarla?")
                : QStringLiteral("%1 pantallas de notas suyas quedaron abiertas cuando el "
                                 "programa se cortó, y sus materias siguen bloqueadas. "
                                 "¿Quitarlas?")
                      .arg(gone),
      QMessageBox::NoButton, parent);
  box.setObjectName("restos");
  box.setTextFormat(Qt::PlainText);
  auto text = LeftoversText(left);
  if (gone != static_cast<std::ptrdiff_t>(left.size()))
    text += "\nSolo se quitan las de programas de este ordenador que ya no están en marcha.";
  box.setInformativeText(text);
  const auto* const yes = box.addButton("&Quitar", QMessageBox::AcceptRole);
  auto* const no = box.addButton("&Dejar", QMessageBox::RejectRole);
  box.setEscapeButton(no);
  box.exec();
  return box.clickedButton() == yes;
}

}  // namespace quorvane::zendria

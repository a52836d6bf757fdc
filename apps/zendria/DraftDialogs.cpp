#include "apps/zendria/DraftDialogs.h"

#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>

#include "apps/zendria/GradesToCopy.h"
#include "apps/zendria/OneLine.h"

namespace quorvane::zendria {
namespace {

constexpr QSize kDraftSize(760, 360);

QString Since(const QDateTime& when) {
  const auto hour = when.toString("H:mm");
  const auto article = when.time().hour() == 1 ? "la" : "las";
  if (when.date() == QDate::currentDate()) return QStringLiteral("de %1 %2").arg(article, hour);
  return QStringLiteral("del %1 a %2 %3").arg(when.toString("dd/MM/yyyy"), article, hour);
}

/// "Hay 12 notas sin guardar de las 17:40."
QString Found(std::size_t count, const QDateTime& when) {
  return count == 1 ? QStringLiteral("Hay una nota sin guardar %1.").arg(Since(when))
                    : QStringLiteral("Hay %1 notas sin guardar %2.").arg(count).arg(Since(when));
}

QString ChangedBesides(std::size_t count) {
  if (count == 1)
    return "Hay otra más que no se pondrá, porque su celda ha cambiado desde entonces: la verá con "
           "los dos valores.";
  return QStringLiteral(
             "Hay otras %1 que no se pondrán, porque sus celdas han cambiado desde entonces: las "
             "verá con los dos valores.")
      .arg(count);
}

QString WaitingBesides(std::size_t count) {
  if (count == 1)
    return "Otra más sigue en el borrador, porque su materia no está ahora en esta pantalla.";
  return QStringLiteral(
             "Otras %1 siguen en el borrador, porque sus materias no están ahora en esta pantalla.")
      .arg(count);
}

/// What stands below the question.
QString More(const DraftCount& count) {
  const auto one = (count.fit > 0 ? count.fit : count.changed) == 1;
  QStringList lines;
  if (count.fit > 0 && count.changed > 0) lines.append(ChangedBesides(count.changed));
  if (count.fit == 0 && count.changed > 0)
    lines.append(one ? "No se puede poner, porque su celda ha cambiado desde entonces: la verá con "
                       "los dos valores."
                     : "No se pueden poner, porque sus celdas han cambiado desde entonces: las "
                       "verá con los dos valores.");
  if (count.waiting > 0) lines.append(WaitingBesides(count.waiting));
  lines.append(count.holders);
  lines.removeAll(QString());
  return lines.join(u'\n');
}

QString WhyLeft(const LeftCell& left) {
  switch (left.why) {
    case LeftCell::Why::Gone:
      return "ya no está";
    case LeftCell::Why::NotOffered:
      return "esa nota ya no se ofrece; ahora: " + OneLineGrade(left.now);
    default:
      return "ahora: " + OneLineGrade(left.now);
  }
}

/// Who types on, with his eyes on his papers, answers nothing: here letters need the Alt key, as in
/// other windows.
class DraftQuestion : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const auto text = event->text();
    const auto plain = (event->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == 0;
    if (plain && !text.isEmpty() && text.front().isPrint()) return event->ignore();
    QMessageBox::keyPressEvent(event);
  }
};

QPushButton* AddButton(QMessageBox& box, const QString& text, QMessageBox::ButtonRole role,
                       const char* name) {
  auto* const button = box.addButton(text, role);
  button->setObjectName(name);
  return button;
}

}  // namespace

DraftAnswer AskForDraft(QWidget* parent, const DraftCount& count) {
  DraftQuestion box(QMessageBox::Question, "Notas sin guardar", {}, QMessageBox::NoButton, parent);
  box.setObjectName("borrador");
  box.setTextFormat(Qt::PlainText);
  const auto onlyWaiting = count.fit == 0 && count.changed == 0;
  const auto asked = onlyWaiting ? count.waiting : count.fit > 0 ? count.fit : count.changed;
  const auto one = asked == 1;
  QPushButton* put = nullptr;
  if (onlyWaiting) {
    box.setIcon(QMessageBox::Information);
    box.setText(Found(asked, count.when) + ' ' +
                (one ? "Sigue en el borrador, porque su materia no está ahora en esta pantalla."
                     : "Siguen en el borrador, porque sus materias no están ahora en esta "
                       "pantalla."));
    box.setInformativeText(count.holders);
  } else {
    const auto putting = count.fit > 0;
    const auto question =
        putting ? (one ? "¿Ponerla?" : "¿Ponerlas?") : (one ? "¿Verla?" : "¿Verlas?");
    box.setText(Found(asked, count.when) + ' ' + question);
    box.setInformativeText(More(count));
    put = AddButton(box, putting ? (one ? "&Ponerla" : "&Ponerlas") : (one ? "&Verla" : "&Verlas"),
                    QMessageBox::AcceptRole, "ponerlas");
  }
  const auto* const drop = AddButton(box, one ? "&Descartarla" : "&Descartarlas",
                                     QMessageBox::DestructiveRole, "descartarlas");
  auto* const later = AddButton(box, "Ahora &no", QMessageBox::RejectRole, "ahoraNo");
  // What Enter does to who types on: the draft stays, and is asked about again.
  box.setDefaultButton(later);
  box.setEscapeButton(later);
  box.exec();
  if (put != nullptr && box.clickedButton() == put) return DraftAnswer::Put;
  return box.clickedButton() == drop ? DraftAnswer::Drop : DraftAnswer::NotNow;
}

QString LeftCellsText(const std::vector<LeftCell>& cells) {
  QStringList lines;
  for (const auto& left : cells) {
    const auto& cell = left.cell;
    lines.append(QStringList{OneLine(cell.studentText), OneLine(cell.subjectText),
                             OneLine(cell.columnText), "suya: " + OneLineGrade(cell.text),
                             WhyLeft(left)}
                     .join(u'\t'));
  }
  return lines.join(u'\n') + u'\n';
}

void ShowLeftCells(QWidget* parent, const std::vector<LeftCell>& cells) {
  QDialog dialog(parent);
  dialog.setObjectName("notasCambiadas");
  dialog.setWindowTitle("Notas que no se han puesto");
  auto* const hint = new QLabel(
      "Estas celdas han cambiado desde que usted escribió, o ya no ofrecen esa nota, y se han "
      "dejado como están. A la izquierda, lo que usted había puesto; a la derecha, lo que hay "
      "ahora. Si vale lo suyo, póngalo de nuevo.");
  hint->setWordWrap(true);
  LayOutGradesToCopy(dialog, hint, LeftCellsText(cells), kDraftSize);
  dialog.exec();
}

void TellBrokenDraft(QWidget* parent, const QString& file, const std::optional<QString>& aside) {
  QMessageBox box(QMessageBox::Warning, "Notas sin guardar",
                  "El borrador de las notas sin guardar no se puede leer.", QMessageBox::NoButton,
                  parent);
  box.setObjectName("borradorRoto");
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setInformativeText(
      aside
          ? QStringLiteral("Está dañado o no es de esta pantalla. Se ha apartado en este fichero, "
                           "por si quien mantiene la aplicación puede sacar algo de él:\n%1")
                .arg(*aside)
          : QStringLiteral("Está dañado o no es de esta pantalla, y no se ha podido apartar. "
                           "Quite este fichero de su sitio para que se puedan guardar otros:\n%1")
                .arg(file));
  auto* const accept = box.addButton("&Aceptar", QMessageBox::AcceptRole);
  box.setDefaultButton(accept);
  box.setEscapeButton(accept);
  box.exec();
}

}  // namespace quorvane::zendria

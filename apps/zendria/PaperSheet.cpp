#include "apps/zendria/PaperSheet.h"

#include <QStringList>

#include "apps/zendria/ClassName.h"
#include "apps/zendria/OneLine.h"
#include "apps/zendria/StepOneLists.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/controls/Label.h"
#include "register/frmPendientes.h"

namespace quorvane::zendria {
namespace {

/// What the label before a control calls it, without mnemonic, mark and colon.
QString NameOf(const Control& control) {
  const Label* nearest = nullptr;
  for (const auto* const other : control.Owner().Controls()) {
    const auto* const label = dynamic_cast<const Label*>(other);
    if (label == nullptr || label->Container() != control.Container() || !label->Visible())
      continue;
    const auto before =
        label->Left() <= control.Left() && label->Top() <= control.Top() + control.Height() / 2;
    if (before && (nearest == nullptr || label->Top() > nearest->Top() ||
                   (label->Top() == nearest->Top() && label->Left() > nearest->Left())))
      nearest = label;
  }
  auto name = nearest == nullptr ? QString() : OneLine(nearest->Caption());
  name.remove(u'&').remove("(*)");
  if (name.endsWith(u':')) name.chop(1);
  return name.trimmed();
}

/// The register's dialogs don't name their section: the one that chose it does.
QString ClassOfRegister() {
  if (!FormInstance<frmPendientes>::Exists()) return {};
  const auto& chosen = FormInstance<frmPendientes>::Get();
  return ClassName(OneLine(chosen.cboCurso.Text()), OneLine(chosen.cboSeccion.Text()));
}

/// What is chosen in step one before that list, which depends on it: of the sections the course, of
/// the subjects class and evaluation.
QString ChosenBefore(const Control& list) {
  QStringList chosen;
  for (const auto* const name :
       {"cboTipoEnsenanza", "cboCursos", "cboSecciones", "cboEvaluaciones"}) {
    if (list.Name() == name) break;
    const auto* const combo = dynamic_cast<const ComboBox*>(list.Owner().Find(name));
    chosen.append(combo == nullptr || combo->ListIndex() < 0 ? QString() : OneLine(combo->Text()));
  }
  QStringList parts{ClassName(chosen.value(1), chosen.value(2)), chosen.value(3)};
  parts.removeAll(QString());
  return parts.join(" · ");
}

}  // namespace

std::optional<Sheet> PaperSheet(const Control& control, const QString& place) {
  const auto name = NameOf(control);
  auto sheet = SheetOf(control, name);
  if (!sheet) return std::nullopt;
  const auto& form = control.Owner();
  sheet->title = OneLine(form.Caption());
  if (place.isEmpty())
    sheet->lines = {StepOneListsOf(form) ? ChosenBefore(control) : ClassOfRegister(), name};
  else
    sheet->lines = {place};
  sheet->lines.removeAll(QString());
  return sheet;
}

}  // namespace quorvane::zendria

#include "apps/zendria/PaperMenu.h"

#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QSaveFile>
#include <QStandardPaths>
#include <utility>

#include "adapters/qt/window/FormWindow.h"
#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/PaperSheet.h"
#include "apps/zendria/PrintOutcome.h"
#include "apps/zendria/SheetCsv.h"
#include "apps/zendria/SheetPrinter.h"

namespace quorvane::zendria {
namespace {

/// More columns than these are easier to read across the long side.
constexpr qsizetype kUprightColumns = 6;

/// A name for a file, of a text that may hold anything.
QString FileName(const QString& text) {
  constexpr qsizetype kLongest = 80;
  QString safe;
  for (const auto letter : text.left(kLongest))
    safe += letter.isLetterOrNumber() || QStringLiteral(" ,.-_()ºª").contains(letter) ? letter
                                                                                      : QChar(u'-');
  return safe.simplified();
}

QString Documents() {
  const auto folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(folder).exists() ? folder : QDir::homePath();
}

void SaveCsv(QWidget* parent, const Sheet& sheet) {
  QFileDialog dialog(parent, "Guardar como CSV", Documents(),
                     "Hoja de cálculo CSV (*.csv);;Todos los ficheros (*)");
  dialog.setObjectName("guardarCsv");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("csv");
  const auto about = sheet.lines.isEmpty() ? sheet.title : sheet.lines.front();
  dialog.selectFile(FileName(about) + ".csv");
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  const auto path = dialog.selectedFiles().front();
  // Whole, or what stood there stays.
  QSaveFile file(path);
  const auto content = CsvOf(sheet, CsvSeparator(QLocale()));
  if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
    return;
  ShowWarning(
      parent, QStringLiteral("No se ha podido escribir «%1»: %2.").arg(path, file.errorString()),
      "Si ya había un fichero con ese nombre, sigue como estaba. Elija otra carpeta, o haga "
      "sitio en el disco.");
}

void Print(QWidget* parent, const Sheet& sheet) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(sheet.title);
  printer.setPageSize(QPageSize(QPageSize::A4));
  if (sheet.headings.size() > kUprightColumns) printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, parent);
  dialog.setObjectName("imprimir");
  dialog.setMinMax(1, PagesOf(sheet, printer));
  if (dialog.exec() != QDialog::Accepted) return;
  auto printed = false;
  {
    const BusyCursor busy;
    printed = PrintSheet(sheet, printer) && CameOut(printer);
  }
  if (!printed) ShowNotPrinted(parent, printer);
}

}  // namespace

PaperMenu::PaperMenu(qt::QtFrontEnd& screen, std::function<qt::FormHeading(const Form&)> heading) {
  screen.GridMenuOpening = [heading = std::move(heading)](QMenu& menu, qt::FormWindow& window,
                                                          const Control& control) {
    const auto sheet = PaperSheet(control, heading(window.Model()).place);
    if (!sheet) return;
    const auto add = [&](const QString& text, const char* entry, auto act) {
      auto* const action = menu.addAction(text);
      // Behind the menu's own event, which a dialog would hold up.
      QObject::connect(
          action, &QAction::triggered, &window,
          [&window, sheet = *sheet, act] {
            if (!window.FrontEnd().Leaving()) act(&window, sheet);
          },
          Qt::QueuedConnection);
      action->setObjectName(entry);
      action->setEnabled(!sheet->rows.empty());
    };
    add("&Guardar como CSV…", "guardarCsv", SaveCsv);
    add("&Imprimir…", "imprimir", Print);
  };
}

}  // namespace quorvane::zendria

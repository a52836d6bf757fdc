#include "apps/zendria/PrintOutcome.h"

#include <QFile>
#include <QPrinter>

#include "apps/zendria/FailureBox.h"

namespace quorvane::zendria {

bool IsWholePdf(const QString& path) {
  constexpr auto kTail = 32;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() < kTail) return false;
  return file.seek(file.size() - kTail) && file.readAll().contains("%%EOF");
}

bool CameOut(const QPrinter& printer) {
  if (printer.printerState() == QPrinter::Error) return false;
  return printer.outputFileName().isEmpty() || IsWholePdf(printer.outputFileName());
}

void ShowNotPrinted(QWidget* parent, const QPrinter& printer) {
  ShowWarning(parent,
              printer.outputFileName().isEmpty()
                  ? QStringLiteral("No se ha podido imprimir en «%1».").arg(printer.printerName())
                  : QStringLiteral("No se ha podido escribir «%1».").arg(printer.outputFileName()),
              "Compruebe que la impresora está encendida o, si es un PDF, que puede escribir en "
              "esa carpeta y que queda espacio en el disco, y repítalo.");
}

}  // namespace quorvane::zendria

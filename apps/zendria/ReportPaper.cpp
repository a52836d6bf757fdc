#include "apps/zendria/ReportPaper.h"

#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QTextDocument>
#include <QTextOption>
#include <cstdio>

#include "apps/escuela/PartialFile.h"
#include "apps/zendria/PrintOutcome.h"
#include "platform/RuntimeError.h"

namespace quorvane::zendria {
namespace {

constexpr QMarginsF kMargins(12, 12, 12, 12);  // millimetres

}  // namespace

void LayOutReport(QTextDocument& document, const QString& html, const QSizeF& page) {
  document.setDocumentMargin(0);
  // A word longer than its column would make the table wider than the paper.
  QTextOption wrapped;
  wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document.setDefaultTextOption(wrapped);
  document.setHtml(html);
  document.setPageSize(page);
}

void TurnReportPage(QPrinter& printer) {
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(QPageLayout::Landscape);
  printer.setPageMargins(kMargins, QPageLayout::Millimeter);
}

int PrintReport(QPrinter& printer, const QString& html) {
  QTextDocument document;
  LayOutReport(document, html, printer.pageRect(QPrinter::Point).size());
  document.print(&printer);
  return CameOut(printer) ? document.pageCount() : 0;
}

int WriteReportPdf(const QString& file, const QString& html) {
  const QFileInfo older(file);
  if (older.exists() && !older.isWritable()) return 0;
  const auto goal = QFile::encodeName(file);
  try {
    // The printer doesn't tell that a disk is full. What stands is replaced by a whole file alone.
    const PartialFile partial(goal.toStdString());
    const auto path = QFile::decodeName(partial.Path().c_str());
    QPrinter printer;
    TurnReportPage(printer);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    const auto pages = PrintReport(printer, html);
    if (pages > 0 && older.exists()) QFile::setPermissions(path, older.permissions());
    if (pages > 0 && std::rename(partial.Path().c_str(), goal.constData()) == 0) return pages;
  } catch (const RuntimeError&) {
    return 0;
  }
  return 0;
}

}  // namespace quorvane::zendria

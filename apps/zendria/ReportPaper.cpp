#include "apps/zendria/ReportPaper.h"

#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QRandomGenerator>
#include <QTextDocument>
#include <QTextOption>
#include <cstdio>

#include "apps/zendria/OwnFile.h"
#include "apps/zendria/PrintOutcome.h"

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
  if (const QFileInfo older(file); older.exists() && !older.isWritable()) return 0;
  // The printer doesn't tell that a disk is full. What stands is replaced by a whole file alone.
  const auto partial =
      file + QStringLiteral(".parcial-%1").arg(QRandomGenerator::global()->generate());
  if (!MakeOwnFile(partial)) return 0;
  QPrinter printer;
  TurnReportPage(printer);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(partial);
  const auto pages = PrintReport(printer, html);
  if (pages > 0 && std::rename(QFile::encodeName(partial), QFile::encodeName(file)) == 0)
    return pages;
  QFile::remove(partial);
  return 0;
}

}  // namespace quorvane::zendria

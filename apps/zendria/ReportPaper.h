#pragma once

#include <QSizeF>
#include <QString>

class QPrinter;
class QTextDocument;

namespace quorvane::zendria {

/// Nothing is wider than the page, in points, or cut at its side.
void LayOutReport(QTextDocument& document, const QString& html, const QSizeF& page);

/// Subjects by evaluations take more room across.
void TurnReportPage(QPrinter& printer);

/// How many pages it has printed; 0 where that has failed.
int PrintReport(QPrinter& printer, const QString& html);

/// How many pages; 0 where it can't be written, and then what stood there stands.
int WriteReportPdf(const QString& file, const QString& html);

}  // namespace quorvane::zendria

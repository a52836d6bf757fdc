#pragma once

#include <QString>

class QPrinter;
class QWidget;

namespace quorvane::zendria {

/// Whether its last line is there: the end of a file is what a full disk lacks.
bool IsWholePdf(const QString& path);

/// Whether what was put onto that printer is there, as far as that can be told: printers tell their
/// failures, but for a disk that gets full under a PDF.
bool CameOut(const QPrinter& printer);

/// Tells the user that it isn't, and what to do.
void ShowNotPrinted(QWidget* parent, const QPrinter& printer);

}  // namespace quorvane::zendria

#pragma once

#include <QString>

class QMessageBox;

namespace quorvane::zendria {

/// Adds a button to the box that puts the text on the clipboard and leaves the box open.
void AddCopyButton(QMessageBox& box, const QString& text);

}  // namespace quorvane::zendria

#pragma once

#include <QDateTime>
#include <QString>
#include <cstddef>
#include <optional>
#include <vector>

#include "apps/zendria/DraftReplay.h"

class QWidget;

namespace quorvane::zendria {

enum class DraftAnswer { Put, Drop, NotNow };

/// Asks what becomes of the grades of a draft of that time: so many can be put in, so many others
/// were changed meanwhile.
DraftAnswer AskForDraft(QWidget* parent, const QDateTime& when, std::size_t fit,
                        std::size_t changed);

/// Shows what was left out, with what was typed and what stands there, to be copied.
void ShowLeftCells(QWidget* parent, const std::vector<LeftCell>& cells);
/// A line a cell, its parts parted by tabs.
QString LeftCellsText(const std::vector<LeftCell>& cells);

/// The file is no draft of this form. `aside` is where it is now; none when it couldn't be moved.
void TellBrokenDraft(QWidget* parent, const QString& file, const std::optional<QString>& aside);

}  // namespace quorvane::zendria

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

/// What a draft holds, for the question.
struct DraftCount {
  QDateTime when;
  std::size_t fit = 0;      ///< can be put in
  std::size_t changed = 0;  ///< were changed meanwhile
  std::size_t waiting = 0;  ///< the form doesn't have their subjects now
  QString holders;          ///< who holds these, a line each
};

/// Asks what becomes of the grades of a draft. What waits is told, and only where there is nothing
/// else is it what `Drop` is about; `Put` isn't offered then.
DraftAnswer AskForDraft(QWidget* parent, const DraftCount& count);

/// Shows what was left out, with what was typed and what stands there, to be copied.
void ShowLeftCells(QWidget* parent, const std::vector<LeftCell>& cells);
/// A line a cell, its parts parted by tabs.
QString LeftCellsText(const std::vector<LeftCell>& cells);

/// The file is no draft of this form. `aside` is where it is now; none when it couldn't be moved.
void TellBrokenDraft(QWidget* parent, const QString& file, const std::optional<QString>& aside);

}  // namespace quorvane::zendria

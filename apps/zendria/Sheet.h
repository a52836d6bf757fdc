#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace quorvane {
class Control;
}

namespace quorvane::zendria {

/// A grid or a list of the module as it goes onto paper or into a file.
struct Sheet {
  QString title{};
  QStringList lines{};     ///< below the title
  QStringList headings{};  ///< of the columns; empty for none
  std::vector<QStringList> rows{};
};

/// What a grid, a list box or a combo box shows: the columns and rows that a user can bring into
/// sight. A list is a column under `heading`. None for a control of another kind.
std::optional<Sheet> SheetOf(const Control& control, const QString& heading);

}  // namespace quorvane::zendria

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

#include "apps/zendria/GradeCell.h"

namespace quorvane::zendria {

/// Whose grades a draft has: no two of these share one.
struct DraftOwner {
  QString school;  ///< its place, without any password
  std::int32_t user = 0;
};

/// The grades of a grade form that were typed and not saved.
struct GradeDraft {
  DraftOwner owner;
  GradeSheet sheet;
  QDateTime when;  ///< when it was written
  std::vector<GradeCell> cells;
};

/// The name of the file for the draft of that form with those choices.
QString DraftFileName(const DraftOwner& owner, const GradeSheet& sheet);

QByteArray DraftContent(const GradeDraft& draft);

/// None for what is no draft of that owner and of a form with those choices.
std::optional<GradeDraft> ReadDraft(const QByteArray& content, const DraftOwner& owner,
                                    const GradeSheet& sheet);

}  // namespace quorvane::zendria

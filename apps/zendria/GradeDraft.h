#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <vector>

#include "apps/escuela/ProcessMark.h"
#include "apps/zendria/GradeCell.h"

namespace quorvane::zendria {

/// Whose grades a draft has: no two of these share one.
struct DraftOwner {
  QString school;  ///< as `IdentityOf` gives it
  std::int32_t user = 0;
};

/// The grades of a grade form that were typed and not saved.
struct GradeDraft {
  DraftOwner owner;
  GradeSheet sheet;
  QDateTime when;  ///< when it was written
  std::vector<GradeCell> cells;
  ProcessMark writer{};  ///< the program that keeps it; nothing can be said of an empty one
};

/// The name of the file in which that program keeps the draft of that form with those choices: of
/// two programs neither writes over the other's.
QString DraftFileName(const DraftOwner& owner, const GradeSheet& sheet, const ProcessMark& writer);
/// The names of the drafts of that form with those choices in the folder, whoever keeps them.
QStringList DraftFileNames(const QString& folder, const DraftOwner& owner, const GradeSheet& sheet);

QByteArray DraftContent(const GradeDraft& draft);

/// None for what is no draft of that owner and of a form with those choices.
std::optional<GradeDraft> ReadDraft(const QByteArray& content, const DraftOwner& owner,
                                    const GradeSheet& sheet);

}  // namespace quorvane::zendria

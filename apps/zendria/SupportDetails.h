#pragma once

#include <QString>

namespace quorvane::zendria {

class StatementLog;
struct Failure;
struct RescuedGrades;

/// What someone who wasn't there needs to understand a failure: program, moment, screen, error and
/// the last statements. A text of several lines, to be sent to support: of the grades that weren't
/// saved, if there are any, it has the number and the file alone.
QString SupportDetails(const Failure& failure, const QString& screen, const RescuedGrades* rescued,
                       const StatementLog& log);

}  // namespace quorvane::zendria

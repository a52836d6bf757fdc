#pragma once

#include <QString>

namespace quorvane::zendria {

class StatementLog;
struct Failure;

/// What someone who wasn't there needs to understand a failure: program, moment, screen, error and
/// the last statements. A text of several lines, to be sent to support.
QString SupportDetails(const Failure& failure, const QString& screen, const StatementLog& log);

}  // namespace quorvane::zendria

#include "apps/zendria/StatementLog.h"

#include "platform/data/Connection.h"

namespace quorvane::zendria {

void StatementLog::Add(const Connection& connection, const std::string& statement) {
  lines_.push_back({QDateTime::currentDateTime(), QString::fromStdString(connection.Name()),
                    QString::fromStdString(statement)});
  if (lines_.size() > kMostLines) lines_.pop_front();
  if (Added) Added(lines_.back());
}

void StatementLog::Clear() { lines_.clear(); }

}  // namespace quorvane::zendria

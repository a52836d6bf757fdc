#pragma once

#include <QDateTime>
#include <QString>
#include <deque>
#include <functional>
#include <string>

namespace quorvane {
class Connection;
}

namespace quorvane::zendria {

/// The last statements of the module, for support.
class StatementLog {
 public:
  struct Line {
    QDateTime when;
    QString connection;
    QString statement;

    /// As the trace file has it.
    [[nodiscard]] QString Text() const { return "sql " + connection + u' ' + statement; }
  };

  static constexpr std::size_t kMostLines = 20'000;

  void Add(const Connection& connection, const std::string& statement);
  void Clear();
  [[nodiscard]] const std::deque<Line>& Lines() const noexcept { return lines_; }

  std::function<void(const Line&)> Added;

 private:
  std::deque<Line> lines_;
};

}  // namespace quorvane::zendria

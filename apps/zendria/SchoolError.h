#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <utility>

namespace quorvane::zendria {

/// A file that can't be opened as a school: why, and what is missing from it, line by line.
class SchoolError : public std::runtime_error {
 public:
  explicit SchoolError(const QString& why, QStringList missing = {})
      : std::runtime_error(why.toStdString()), missing_(std::move(missing)) {}

  [[nodiscard]] QString Why() const { return QString::fromUtf8(what()); }
  [[nodiscard]] const QStringList& Missing() const noexcept { return missing_; }

 private:
  QStringList missing_;
};

}  // namespace quorvane::zendria

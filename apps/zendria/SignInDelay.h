#pragma once

#include <QDateTime>
#include <QString>
#include <chrono>
#include <functional>

namespace quorvane::zendria {

class Preferences;

/// How long somebody has to wait who has given a wrong password: not at all twice, and from the
/// third time on longer with each, whether he ends the program meanwhile or not. Counted for one
/// school and this user of the computer.
class SignInDelay {
 public:
  using Clock = std::function<QDateTime()>;

  /// `preferences` outlives it.
  SignInDelay(
      Preferences& preferences, QString school,
      Clock now = [] { return QDateTime::currentDateTimeUtc(); });

  /// Zero when the next try may be made.
  [[nodiscard]] std::chrono::seconds Left();
  void Failed();
  void Succeeded();

 private:
  Preferences& preferences_;
  QString school_;
  Clock now_;
};

}  // namespace quorvane::zendria

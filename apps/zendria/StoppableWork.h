#pragma once

#include <QString>
#include <chrono>
#include <cstddef>
#include <functional>

class QWidget;

namespace quorvane::zendria {

enum class WorkEnd {
  Done,
  Failed,   ///< and the user has been told
  Stopped,  ///< by the user
};

/// What takes its time, before a bar that shows how far it is and lets the user stop it.
class StoppableWork {
 public:
  /// What is over sooner needs no bar.
  static constexpr std::chrono::milliseconds kPatience{1000};

  struct Bar {
    QWidget* parent;
    QString title;
    QString doing;
    std::chrono::milliseconds patience = kPatience;
  };
  /// Told how much of how much is done, in any unit. It throws where the user has stopped it, past
  /// the work, which undoes on its way what it has begun.
  using Progress = std::function<void(std::size_t done, std::size_t all)>;

  static WorkEnd Do(const Bar& bar, const std::function<void(const Progress& progress)>& work);
};

}  // namespace quorvane::zendria

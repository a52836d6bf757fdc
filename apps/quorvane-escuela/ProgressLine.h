#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace quorvane {

/// Shows how far a long task has come, on a terminal alone: a log has no use for it.
class ProgressLine {
 public:
  /// A task that is over sooner needs no line.
  static constexpr std::chrono::seconds kPatience{2};

  /// `doing` is what the task is called: "Generando". Nothing is shown before `patience` is over.
  explicit ProgressLine(std::string doing, std::chrono::milliseconds patience = {});
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ProgressLine(ProgressLine&&) = delete;
  ProgressLine& operator=(ProgressLine&&) = delete;

  void Percent(std::size_t done, std::size_t all) const;
  /// For a task of which nobody knows how long it is.
  void Working() const;
  /// Takes the line away for good, before something else is written.
  void End();

 private:
  void Show(const std::string& text) const;

  std::string doing_;
  std::chrono::steady_clock::time_point from_;
  bool shown_;
};

}  // namespace quorvane

#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "tests/crowd/Diary.h"
#include "tests/crowd/Journal.h"
#include "tests/crowd/Session.h"

namespace quorvane::test {

/// The journals of all processes held against the one diary: which form did what the diary tells.
/// Whatever a process says that it has written must be there, in its order and with the values of
/// its statements, and nothing else of it.
class Deeds {
 public:
  struct Deed {
    Session* session = nullptr;  ///< null where the process's journal has lost the thread
    std::string statement;
  };
  struct Difference {
    std::int64_t number = 0;
    const Session* session = nullptr;
    std::string statement;
  };
  /// The names of the columns of each table.
  using Columns = std::map<std::string, std::vector<std::string>>;

  /// `journals` of the processes from 1 on.
  Deeds(const std::vector<Diary::Entry>& diary,
        const std::vector<std::vector<Journal::Line>>& journals, const Columns& columns);

  /// Of the entry at that place of the diary.
  [[nodiscard]] const Deed& Of(std::size_t place) const { return deeds_[place]; }
  /// Grades that weren't where their form had saved them.
  [[nodiscard]] const std::vector<Difference>& Differences() const noexcept { return differences_; }
  [[nodiscard]] const std::vector<std::string>& Violations() const noexcept { return violations_; }

 private:
  void Match(int process, const std::vector<Journal::Line>& journal);
  [[nodiscard]] bool Bears(const Diary::Entry& entry, const std::string& statement) const;

  const std::vector<Diary::Entry>& diary_;
  const Columns& columns_;
  std::deque<Session> sessions_;
  std::vector<Deed> deeds_;
  std::vector<Difference> differences_;
  std::vector<std::string> violations_;
};

}  // namespace quorvane::test

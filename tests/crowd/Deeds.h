#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "platform/text/AsciiCase.h"
#include "tests/crowd/Diary.h"
#include "tests/crowd/Grades.h"
#include "tests/crowd/Journal.h"

namespace quorvane::test {

/// One form of one process, from before its load until the next one. Numbers are the diary's.
struct Session {
  int process = 0;
  std::string form;
  std::int64_t loadedAfter = 0;  ///< it has read nothing older than this
  bool outside = false;          ///< no form, but somebody who removes what one has left
  std::int64_t publishedAt = 0;  ///< by then it had read all; 0 without a publication
  std::string publication;
  std::string evaluation;

  [[nodiscard]] std::string Name() const {
    return form + " del proceso " + std::to_string(process);
  }
};

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
        const std::vector<std::vector<Journal::Line>>& journals, const Columns& columns)
      : diary_(diary), columns_(columns), deeds_(diary.size()) {
    int process = 0;
    for (const auto& journal : journals) Match(++process, journal);
  }

  /// Of the entry at that place of the diary.
  [[nodiscard]] const Deed& Of(std::size_t place) const { return deeds_[place]; }
  /// Grades that weren't where their form had saved them.
  [[nodiscard]] const std::vector<Difference>& Differences() const noexcept { return differences_; }
  [[nodiscard]] const std::vector<std::string>& Violations() const noexcept { return violations_; }

 private:
  [[nodiscard]] bool Bears(const Diary::Entry& entry, const std::string& statement) const {
    // The module writes one table's name in several ways of upper and lower case.
    const auto update = GradeUpdate::Parse(statement);
    if (!update) return entry.action != Diary::Action::Update || !entry.table.starts_with("Evalu");
    if (entry.action != Diary::Action::Update || entry.table != update->table) return false;
    const auto values = Diary::Values(entry.after);
    const auto& columns = columns_.at(entry.table);
    for (std::size_t i = 0; i < columns.size(); ++i)
      for (const auto& [column, value] : update->values)
        if (EqualNoCase(column, columns[i]) && values[i] != value) return false;
    return true;
  }

  void Match(int process, const std::vector<Journal::Line>& journal) {
    const auto name = "El proceso " + std::to_string(process);
    std::size_t place = 0;
    const auto next = [&] {
      while (place < diary_.size() && diary_[place].process != process) ++place;
      return place < diary_.size();
    };
    Session* session = nullptr;
    for (const auto& line : journal) {
      if (line.kind == Journal::Kind::Form || line.kind == Journal::Kind::Technician) {
        session = &sessions_.emplace_back();
        session->process = process;
        session->form = line.text;
        session->outside = line.kind == Journal::Kind::Technician;
        session->loadedAfter = line.number;
      }
      if (line.kind == Journal::Kind::Load && session != nullptr)
        session->loadedAfter = line.number;
      if (line.kind == Journal::Kind::Differs)
        differences_.push_back({line.number, session, line.text});
      if (line.kind != Journal::Kind::Written) continue;
      for (auto rows = line.number; rows > 0; --rows) {
        if (!next() || !Bears(diary_[place], line.text)) {
          violations_.push_back(
              name + " dice haber escrito lo que no está en la base de datos: " + line.text);
          return;
        }
        deeds_[place++] = {session, line.text};
      }
    }
    if (next())
      violations_.push_back(name + " ha escrito lo que no dice: " + diary_[place].table + " " +
                            diary_[place].before + " > " + diary_[place].after);
  }

  const std::vector<Diary::Entry>& diary_;
  const Columns& columns_;
  std::deque<Session> sessions_;
  std::vector<Deed> deeds_;
  std::vector<Difference> differences_;
  std::vector<std::string> violations_;
};

}  // namespace quorvane::test

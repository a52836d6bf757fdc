#include "tests/crowd/Deeds.h"

#include "platform/text/AsciiCase.h"
#include "tests/crowd/Grades.h"
#include "tests/crowd/Rows.h"

namespace quorvane::test {

Deeds::Deeds(const std::vector<Diary::Entry>& diary,
             const std::vector<std::vector<Journal::Line>>& journals, const Columns& columns)
    : diary_(diary), columns_(columns), deeds_(diary.size()) {
  int process = 0;
  for (const auto& journal : journals) Match(++process, journal);
}

bool Deeds::Bears(const Diary::Entry& entry, const std::string& statement) const {
  // The module writes one table's name in several ways of upper and lower case.
  const auto update = ParseGradeUpdate(statement);
  if (!update) return entry.action != Diary::Action::Update || !entry.table.starts_with("Evalu");
  if (entry.action != Diary::Action::Update || entry.table != update->table) return false;
  const auto values = SplitRow(entry.after);
  const auto& columns = columns_.at(entry.table);
  for (std::size_t i = 0; i < columns.size(); ++i)
    for (const auto& [column, value] : update->values)
      if (EqualNoCase(column, columns[i]) && values[i] != value) return false;
  return true;
}

void Deeds::Match(int process, const std::vector<Journal::Line>& journal) {
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
    if (line.kind == Journal::Kind::Load && session != nullptr) session->loadedAfter = line.number;
    if (line.kind == Journal::Kind::Differs)
      differences_.push_back({line.number, session, line.text});
    if (line.kind != Journal::Kind::Written) continue;
    for (auto rows = line.number; rows > 0; --rows) {
      if (!next() || !Bears(diary_[place], line.text)) {
        violations_.push_back(
            "El proceso " + std::to_string(process) +
            " dice haber escrito lo que no está en la base de datos: " + line.text);
        return;
      }
      deeds_[place++] = {session, line.text};
    }
  }
  if (next())
    violations_.push_back("El proceso " + std::to_string(process) +
                          " ha escrito lo que no dice: " + diary_[place].table + " " +
                          diary_[place].before + " > " + diary_[place].after);
}

}  // namespace quorvane::test

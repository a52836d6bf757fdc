#include "bench/Report.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <sqlite3.h>
#include <string>

#include "bench/Markdown.h"
#include "bench/Replay.h"

namespace quorvane::bench {
namespace {

constexpr double kMostGrowth = 1.5;

using Clock = double Time::*;

/// Some rows of a table for each school, so that a name of a thing is found in all of them.
std::vector<Row> OfSchool(const std::vector<Row>& rows, int students) {
  std::vector<Row> found;
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(found),
               [&](const Row& row) { return row.students == students; });
  return found;
}

/// Opening and saving on one school, by one clock. Only the processor's is held to the limits.
bool Comparison(const std::vector<Row>& rows, Clock clock, bool limits) {
  std::vector<std::string> head = {"What", "Statements", "Module, ms"};
  for (const auto& library : Libraries()) head.push_back(std::string(library.name) + ", ms");
  head.emplace_back("Module / sqlite3");
  if (limits) head.emplace_back("Limit");
  Head(head);
  auto within = true;
  for (const auto& row : rows) {
    if (row.libraries.empty()) continue;
    std::vector<std::string> line = {row.what, std::to_string(row.statements.size()),
                                     Milliseconds(row.module.*clock)};
    for (const auto& time : row.libraries) line.push_back(Milliseconds(time.*clock));
    const auto ratio = row.module.*clock / row.libraries.front().*clock;
    line.push_back(Number(ratio, 2));
    if (limits) line.push_back(Limit(ratio, row.limit, within));
    Line(line);
  }
  return within;
}

/// The same in every school, and how much longer it takes in the largest than in the smallest.
bool Growth(const std::vector<std::vector<Row>>& schools) {
  std::vector<std::string> head = {"What, ms"};
  for (const auto& school : schools)
    head.push_back(Thousands(school.front().students) + " students");
  head.insert(head.end(), {"Growth", "Limit", "Growth of sqlite3"});
  Head(head);
  auto within = true;
  const auto& smallest = schools.front();
  const auto& largest = schools.back();
  for (std::size_t i = 0; i < smallest.size(); ++i) {
    if (smallest[i].libraries.empty()) continue;
    std::vector<std::string> line = {smallest[i].what};
    for (const auto& school : schools) line.push_back(Milliseconds(school[i].module.processor));
    const auto growth = largest[i].module.processor / smallest[i].module.processor;
    line.push_back(Number(growth, 2));
    line.push_back(Limit(growth, smallest[i].opening ? kMostGrowth : 0, within));
    line.push_back(Number(
        largest[i].libraries.front().processor / smallest[i].libraries.front().processor, 2));
    Line(line);
  }
  return within;
}

/// The register apart from the grade forms: one of its statements is most of its plain replay.
void Throughput(const std::vector<Row>& rows) {
  std::vector<std::string> head = {"Statements a second", "Statements", "Module"};
  for (const auto& library : Libraries()) head.emplace_back(library.name);
  Head(head);
  const auto line = [&](const char* title, bool ofRegister, bool opening) {
    std::size_t statements = 0;
    std::vector<double> seconds(1 + Libraries().size());
    for (const auto& row : rows) {
      if (row.libraries.empty() || row.opening != opening ||
          row.what.starts_with("Register") != ofRegister)
        continue;
      statements += row.statements.size();
      seconds[0] += row.module.processor;
      for (std::size_t i = 0; i < row.libraries.size(); ++i)
        seconds[i + 1] += row.libraries[i].processor;
    }
    std::vector<std::string> cells = {title, std::to_string(statements)};
    std::transform(seconds.begin(), seconds.end(), std::back_inserter(cells), [&](double taken) {
      return Thousands(static_cast<int>(static_cast<double>(statements) / taken));
    });
    Line(cells);
  };
  line("Opening the eight grade forms", false, true);
  line("Saving them", false, false);
  line("Opening the register", true, true);
  line("Saving it", true, false);
}

void Between(const std::vector<Row>& rows) {
  Head({"What", "Processor, ms", "Wall, ms"});
  for (const auto& row : rows)
    if (row.libraries.empty())
      Line({row.what, Number(row.module.processor * 1e3, 3), Number(row.module.wall * 1e3, 3)});
}

}  // namespace

bool Report(const std::vector<Row>& rows, const StatementCost& cost,
            const std::vector<Memory>& memory) {
  std::vector<std::vector<Row>> schools;
  schools.reserve(memory.size());
  for (const auto& school : memory) schools.push_back(OfSchool(rows, school.students));
  Machine(std::string("SQLite ") + sqlite3_libversion());
  auto within = true;
  const auto compare = [&](const std::vector<Row>& school) {
    Title(Thousands(school.front().students) + " students, processor time");
    within = Comparison(school, &Time::processor, true) && within;
  };
  compare(schools.front());
  if (schools.size() > 1) compare(schools.back());
  const auto& largest = schools.back();
  const auto students = Thousands(largest.front().students) + " students";
  Title(students + ", wall time");
  Comparison(largest, &Time::wall, false);
  Title("Growth with the school, processor time");
  within = Growth(schools) && within;
  Title("Statements a second, " + students);
  Throughput(largest);
  Title("What a cached statement costs, " + students);
  within = Print(cost) && within;
  Title("What the user does between, " + students);
  Between(largest);
  Title("Peak memory of quorvane-guion");
  Head({"School", "MiB"});
  for (const auto& school : memory)
    Line({Thousands(school.students) + " students", Number(school.mebibytes, 1)});
  return within;
}

}  // namespace quorvane::bench

#include "bench/ServerReport.h"

#include <cstddef>

#include "bench/Markdown.h"

namespace quorvane::bench {
namespace {

constexpr double kMostOfPlain = 1.5;
constexpr double kMostGrowth = 1.5;

double Ratio(const Pair& pair) { return pair.module / pair.plain; }
double DesktopRatio(const Pair& pair) { return pair.desktop / pair.plain; }

std::string Students(int students) { return Thousands(students) + " students"; }

bool Comparison(const std::vector<ServerRow>& rows, std::size_t school) {
  Head({"What", "Module, ms", "PQexec, ms", "Module / PQexec", "Limit", "In zendria, ms",
        "In zendria / PQexec"});
  auto within = true;
  for (const auto& row : rows) {
    const auto& pair = row.schools[school];
    const auto ratio = Ratio(pair);
    Line({row.what, Milliseconds(pair.module), Milliseconds(pair.plain), Number(ratio, 2),
          Limit(ratio, row.limited ? kMostOfPlain : 0, within), Milliseconds(pair.desktop),
          Number(DesktopRatio(pair), 2)});
  }
  return within;
}

bool Growth(const std::vector<ServerRow>& rows, const std::vector<int>& sizes) {
  std::vector<std::string> head = {"What, ms"};
  for (const auto students : sizes) head.push_back(Students(students));
  head.insert(head.end(), {"Growth", "Limit", "Growth of PQexec"});
  Head(head);
  auto within = true;
  for (const auto& row : rows) {
    std::vector<std::string> line = {row.what};
    for (const auto& pair : row.schools) line.push_back(Milliseconds(pair.module));
    const auto growth = row.schools.back().module / row.schools.front().module;
    line.push_back(Number(growth, 2));
    line.push_back(Limit(growth, row.opening ? kMostGrowth : 0, within));
    line.push_back(Number(row.schools.back().plain / row.schools.front().plain, 2));
    Line(line);
  }
  return within;
}

/// The purges of the register are in its opening here.
bool Distance(const std::vector<ServerRow>& rows) {
  std::vector<std::string> head = {"What", "Statements", "Round trips"};
  for (const auto delay : Delays())
    for (const auto* const who : {"Module", "PQexec"})
      head.push_back(std::string(who) + ", +" + std::to_string(delay) + " ms a trip");
  Head(head);
  auto within = true;
  for (const auto& row : rows) {
    if (row.trips == 0) continue;
    within = within && row.trips == row.statements;
    std::vector<std::string> line = {
        row.what, std::to_string(row.statements),
        std::to_string(row.trips) + (row.trips == row.statements ? "" : " EXCEEDED")};
    for (const auto& pair : row.far) {
      line.push_back(Milliseconds(pair.module));
      line.push_back(Milliseconds(pair.plain));
    }
    Line(line);
  }
  return within;
}

}  // namespace

bool ReportServer(const std::string& product, const std::vector<ServerRow>& rows,
                  const std::vector<int>& sizes) {
  Machine(product);
  auto within = true;
  const auto compare = [&](std::size_t school) {
    Title("Server: " + Students(sizes[school]) + ", wall time");
    within = Comparison(rows, school) && within;
  };
  compare(0);
  if (sizes.size() > 1) compare(sizes.size() - 1);
  Title("Server: growth with the school, wall time");
  within = Growth(rows, sizes) && within;
  Title("Server: round trips and what they cost, " + Students(sizes.front()) + ", wall time, ms");
  within = Distance(rows) && within;
  return within;
}

}  // namespace quorvane::bench
